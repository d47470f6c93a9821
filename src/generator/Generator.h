#pragma once
// A whole new pool from a seed and the startup settings, built from the default
// pool's world, drifters and food.
#include <array>
#include <cstdint>

#include "generator/StartupSettings.h"
#include "state/App.h"

namespace aq {

// The seed's digits in the mixed radix n, n-1, n-2, ... as a running sum of
// default-drifter indices (n is the default pool's drifter count).
struct SeedRecipe {
    std::array<std::int16_t, 11> index{};
    std::int16_t length = 0;
};
SeedRecipe seedRecipe(std::int32_t seed, int defaultDrifterCount);

struct StartupCounts {
    std::int16_t drifters = 0;
    std::int16_t food = 0;
    std::int16_t dots = 0;  // leading Dots that stay at the origin
};
StartupCounts startupCounts(const StartupSettings& s);

// Builds the pool into `out` (the stream is reseeded from the seed and drawn from).
// False, with `out` untouched, when `base` has no drifters or no food to copy.
bool buildStartupPool(const Pool& base, const StartupSettings& s, Pool& out);

// The "Generate Pool Now" command: asks about unsaved changes, builds the pool in
// workPool and makes it the open pool, shown in the drifter and food lists.
void generateStartupPool(App& app, const StartupSettings& s);

}  // namespace aq
