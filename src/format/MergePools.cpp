#include "format/MergePools.h"

#include <algorithm>
#include <climits>
#include <cstdint>

namespace aq {

namespace {

// Damaged files may hold any negative count; the sum of two stays within 32 bits.
std::int32_t countSum(std::int32_t a, std::int32_t b) {
    const std::int64_t sum = std::int64_t{a} + b;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(sum, INT32_MIN, INT32_MAX));
}

}  // namespace

void renumberDrifters(Pool& pool) {
    for (int i = 0; i < pool.drifterCount && static_cast<std::size_t>(i) < pool.drifters.size(); ++i)
        pool.drifters[static_cast<std::size_t>(i)].id = i;
}

Pool mergePools(const Pool& base, const Pool& other, bool mergeDrifters, bool mergeFood) {
    Pool out = base;
    out.foodCount = countSum(base.foodCount, mergeFood ? other.foodCount : 0);
    out.drifterCount = countSum(base.drifterCount, mergeDrifters ? other.drifterCount : 0);
    if (mergeFood && out.foodCount > kPoolFoodLimit) out.foodCount = kPoolFoodLimit;
    if (mergeDrifters && out.drifterCount > kPoolDrifterLimit) out.drifterCount = kPoolDrifterLimit;
    // The arrays hold at least what the counts say; a base from a file with more than
    // the limit keeps all its own records.
    auto baseFood = static_cast<std::size_t>(std::max(base.foodCount, 0));
    auto baseDrifters = static_cast<std::size_t>(std::max(base.drifterCount, 0));
    if (out.foodCount > 0) out.food.resize(std::max(static_cast<std::size_t>(out.foodCount), baseFood));
    if (out.drifterCount > 0) out.drifters.resize(std::max(static_cast<std::size_t>(out.drifterCount), baseDrifters));

    for (std::size_t i = baseDrifters; i < static_cast<std::size_t>(std::max(out.drifterCount, 0)); ++i)
        out.drifters[i] = other.drifters[i - baseDrifters];
    for (std::size_t i = baseFood; i < static_cast<std::size_t>(std::max(out.foodCount, 0)); ++i)
        out.food[i] = other.food[i - baseFood];
    renumberDrifters(out);
    return out;
}

}  // namespace aq
