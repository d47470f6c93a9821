#pragma once
// The threshold boxes beside the similarity scrollbars: their canonical text and
// the reading of what the user typed.
#include <string>

namespace aq {

// A scrollbar position in tenths of a percent as the box shows it: " 44.4", " .7", " 100", " 0".
std::string thresholdText(int position);

// The scrollbar position for a typed text: blanks trimmed, one trailing "%" cut, the
// leading number times ten (none gives 0), a negative value taken as 1000 minus it,
// clamped to min..max and rounded half to even.
int thresholdPosition(const std::string& text, int min, int max);

// The number a text begins with; 0 when it begins with none.
double leadingNumber(const std::string& text);

}  // namespace aq
