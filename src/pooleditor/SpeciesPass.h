#pragma once
// The species of the open pool's drifters, worked out in background slices, and the
// threshold controls that decide them.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "state/App.h"

namespace aq {

// One slice of the species pass over lstSpeciatePool.
void speciatePoolList(App& app);
// Reads the typed threshold of txtPoolSpeciesThreshold.
void validatePoolSpeciesThreshold(App& app);
// The change handler of scrollPoolSpeciesThreshold.
void scrollPoolSpeciesThresholdChange(App& app);
// Moves scrollPoolSpeciesThreshold; its change handler runs when the position changes.
void setPoolSpeciesThresholdPosition(App& app, int position);
// A keystroke in txtPoolSpeciesThreshold: the text is read later by the timer.
void typePoolSpeciesThreshold(App& app, const std::string& text);
// The click on lblPoolPer: the lowest and highest share of equal genes over all pairs.
void findPoolThresholdRange(App& app);

// The species of every drifter in one uninterrupted pass, as the list tags get them.
std::vector<std::int32_t> poolSpeciesTags(const Pool& pool, float threshold, int depth);

// Lowest and highest count of equal genes over all pairs, in thousandths.
struct ThresholdRange {
    int low = 1000;
    int high = -1;
};
ThresholdRange poolThresholdRange(const Pool& pool, int depth, const std::function<void(int)>& progress = {});
// The message that reports a range.
std::string thresholdRangeMessage(const ThresholdRange& r);

extern const char* const kPoolSpeciesNotice;

}  // namespace aq
