#pragma once
// Numbers as the program writes them in list lines and messages.
#include <cstdint>
#include <string>

namespace aq {

std::string NumberText(std::int64_t value);
inline std::string NumberText(std::int32_t value) { return NumberText(static_cast<std::int64_t>(value)); }
inline std::string NumberText(std::int16_t value) { return NumberText(static_cast<std::int64_t>(value)); }
// At most seven significant digits, no trailing zeros, no point when whole,
// no digit before the point below 1 (".5"), exponent form for tiny and huge values.
std::string NumberText(float value);
// Double values shown with up to fifteen significant digits in the same style.
std::string NumberText(double value);

// A float rounded half to even to a whole number, written as NumberText does.
std::string RoundedText(float value);

}  // namespace aq
