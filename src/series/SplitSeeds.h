#pragma once
// The two seeds of a split: the pair of genomes that differ in the most positions.
#include "format/Records.h"

namespace aq {

struct SeedPair {
    int a = 1, b = 0;
};

// Among the pairs (a, b), b < a, of the pool's first `count` drifters, taken a = 1, 2, ...
// and inside it b = 0, 1, ..., the first whose first `depth` (0..1000) genes differ in
// the most positions. (1, 0) when there are fewer than two drifters.
SeedPair mostDifferentPair(const Pool& pool, int count, int depth);

}  // namespace aq
