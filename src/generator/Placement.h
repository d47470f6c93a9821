#pragma once
// Putting a copied drifter into a pool: a new life at the origin, or a new place
// for the whole body (position, previous position and every used segment's points).
#include <cstdint>

#include "format/Records.h"

namespace aq {

void ResetDrifter(Pool& pool, std::int16_t index, float age, float energy);
void MoveDrifter(Pool& pool, std::int16_t index, float x, float y);

}  // namespace aq
