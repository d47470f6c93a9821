#pragma once
// Building a pool from others: the drifters or the food of a second file merged
// into the open pool or the work pool, within the limits of a pool.
#include <string>

#include "format/MergePools.h"
#include "state/App.h"

namespace aq {

// Takes the drifters, the food or both of the file `path` (asked for when empty) into
// openPool with `intoOpen`, else into workPool. The receiving pool's records come first;
// the limit drops the file's last ones. Afterwards every id equals its index.
void mergePoolFile(App& app, bool mergeDrifters, bool mergeFood, std::string path, bool intoOpen);

// The menu commands "Merge in Drifters ..." and "Merge in Food ...".
void mMergePool(App& app);
void mMergeFood(App& app);

}  // namespace aq
