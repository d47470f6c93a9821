#pragma once
// The merge of two pools as plain data: the records of a second pool appended to a
// first, within the limits of a pool.
#include "format/Records.h"

namespace aq {

// The most drifters and food bits a pool takes.
constexpr int kPoolDrifterLimit = 2000;
constexpr int kPoolFoodLimit = 2000;

// Gives every drifter the id of its index.
void renumberDrifters(Pool& pool);

// `base` with the drifters (with `mergeDrifters`) and the food (with `mergeFood`) of
// `other` appended. Everything but the two arrays comes from `base`, whose records come
// first; the limit drops `other`'s last ones, never `base`'s own.
Pool mergePools(const Pool& base, const Pool& other, bool mergeDrifters, bool mergeFood);

}  // namespace aq
