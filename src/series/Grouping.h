#pragma once
// Laying a pool's drifters out in groups before a run, with the feeding and the
// gathering of food that go with it, and the menu item that picks the layout.
#include <string>

#include "format/Records.h"
#include "state/App.h"

namespace aq {

// The click on mSeriesGroup: asks for the mode and sets groupMode, the check and the caption.
void mSeriesGroupClick(App& app);
extern const char* const kGroupPrompt;
extern const char* const kGroupCaptionOff;

// `retries` and `gravity` (mSeriesGravity) shrink the ring; `depth` is the number of
// genes compared when ordering by similarity.
void groupDriftersAtStart(Pool& pool, bool group, bool feedAll, bool gather, int retries, int mode, bool gravity,
                          int depth);
// A greedy chain: each drifter is followed by the nearest of those after it.
void orderBySimilarity(Pool& pool, int depth);
// Fewest segments first; equal counts keep their order.
void orderBySegmentCount(Pool& pool);

}  // namespace aq
