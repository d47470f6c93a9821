// Generating the biggest startup pools the settings allow, next to copying a pool
// of the same size (the floor: every record has to be written once).
#include "generator/Generator.h"

#include <benchmark/benchmark.h>

#include "generator/Random.h"
#include "support/PoolFixtures.h"

namespace {

const aq::Pool& base() {
    static const aq::Pool p = aqtest::defaultPool();
    return p;
}

aq::StartupSettings biggest(int type, int food, int placement) {
    aq::StartupSettings s;
    s.seed = 12345;
    s.poolType = static_cast<std::int16_t>(type);
    s.foodPlacement = static_cast<std::int16_t>(food);
    s.drifterPlacement = static_cast<std::int16_t>(placement);
    s.splitPool = true;
    s.extraFood = true;
    s.extraDrifters = true;
    return s;
}

void GenerateBiggest(benchmark::State& state) {
    aq::StartupSettings s =
        biggest(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), static_cast<int>(state.range(2)));
    aq::Pool out;
    for (auto _ : state) {
        aq::setRandomState(aq::kRandomStartState);
        aq::buildStartupPool(base(), s, out);
        benchmark::DoNotOptimize(out.drifters.data());
    }
    state.counters["drifters"] = out.drifterCount;
    state.counters["food"] = out.foodCount;
}

void CopyPoolOfTheSameSize(benchmark::State& state) {
    aq::Pool source = aqtest::makePool(512, 432);
    aq::Pool out;
    for (auto _ : state) {
        out = source;
        benchmark::DoNotOptimize(out.drifters.data());
    }
}

}  // namespace

// Ordered, Chaotic; Spiral, Gathered; Peripheral, Random drifters.
BENCHMARK(GenerateBiggest)->Args({1, 2, 2})->Args({2, 0, 0})->Args({2, 3, 2});
BENCHMARK(CopyPoolOfTheSameSize);
BENCHMARK_MAIN();
