#pragma once
// Energy for chosen drifters and more food for the pool before a run, and the menu
// item that picks the colour feeding.
#include "format/Records.h"
#include "state/App.h"

namespace aq {

// The click on mFeedColor: asks for the colour, then the mode; sets feedColor,
// feedMode, the check and the caption.
void mFeedColorClick(App& app);
extern const char* const kFeedColorPrompt;
extern const char* const kFeedCaptionOff;

// Feeds the drifters (energy below 100) whose colours meet the mode's condition.
void feedByColor(Pool& pool, int color, int mode);
// The youngest first, food beside them, gifts for the hungry and the fed, and the
// graded wedge after an extinction.
void feedPool(Pool& pool, bool hungry, bool fed, bool addFood, bool graded);

}  // namespace aq
