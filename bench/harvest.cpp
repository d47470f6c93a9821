// The harvest of a folder of 50 pools of 2000 drifters and of one of 300 such pools,
// each next to only reading those files; the plague and the similarity chain on one
// such pool.
#include "series/Harvest.h"

#include <benchmark/benchmark.h>

#include <random>

#include "EvolvedPool.h"
#include "base/QuietUi.h"
#include "format/PoolFile.h"
#include "pooleditor/DrifterKey.h"
#include "series/Grouping.h"
#include "series/PrepareSteps.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/TempDir.h"

namespace {

using aq::QuietUi;

// Pools written once, outside the timing, and removed at exit; the 300 take 2.4 GB.
struct Folder {
    aqtest::TempDir dir;
    int pools;
    aq::Pool sample;
    explicit Folder(int n) : pools(n) {
        std::mt19937 rng(2026);
        for (int k = 0; k < n; ++k) {
            aq::Pool p = evolvedPool(rng);
            aq::writePool(file(k), p);
            if (k == 0) sample = p;
        }
    }
    std::string file(int k) const { return dir.file("pool_" + std::to_string(k) + ".aqp"); }
};

template <int N>
Folder& folder() {
    static Folder f(N);
    return f;
}

void readAll(benchmark::State& state, const Folder& f) {
    aq::Pool pool;
    for (auto _ : state)
        for (int k = 0; k < f.pools; ++k) benchmark::DoNotOptimize(aq::readPool(f.file(k), pool));
}

void harvest(benchmark::State& state, const Folder& f) {
    QuietUi ui;
    aqtest::ManualClock clock;
    aq::App app(ui, clock);
    app.uiBusy = true;
    for (auto _ : state) {
        // Opening the pool again is not part of the harvest.
        state.PauseTiming();
        app.openPool = f.sample;
        app.poolLoaded = true;
        state.ResumeTiming();
        aq::HarvestSuccessful(app, f.dir.path(), 0, 2000, true, false);
        benchmark::DoNotOptimize(app.openPool.drifterCount);
    }
    state.counters["harvested"] = app.openPool.drifterCount;
}

void ReadFolder50x2000(benchmark::State& state) { readAll(state, folder<50>()); }
void HarvestFolder50x2000(benchmark::State& state) { harvest(state, folder<50>()); }
void ReadFolder300x2000(benchmark::State& state) { readAll(state, folder<300>()); }
void HarvestFolder300x2000(benchmark::State& state) { harvest(state, folder<300>()); }

// The part of the harvest that is the morphology keys: one pair per drifter.
void KeyPairs2000(benchmark::State& state) {
    folder<50>();
    for (auto _ : state)
        for (int i = 0; i < 2000; ++i) benchmark::DoNotOptimize(aq::DrifterKeyPair(folder<50>().sample, i));
}

void ApplyPlague2000(benchmark::State& state) {
    for (auto _ : state) {
        aq::Pool p = folder<50>().sample;
        aq::applyPlague(p);
        benchmark::DoNotOptimize(p.drifterCount);
    }
}

void OrderBySimilarity2000(benchmark::State& state) {
    for (auto _ : state) {
        aq::Pool p = folder<50>().sample;
        aq::orderBySimilarity(p, static_cast<int>(state.range(0)));
        benchmark::DoNotOptimize(p.drifters[1].id);
    }
}

}  // namespace

// At least a second each: the first rounds pay for fresh memory, later ones show the
// steady cost of a program that has harvested before.
BENCHMARK(ReadFolder50x2000)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(HarvestFolder50x2000)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(ReadFolder300x2000)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(HarvestFolder300x2000)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(KeyPairs2000)->Unit(benchmark::kMillisecond);
BENCHMARK(ApplyPlague2000)->Unit(benchmark::kMillisecond);
BENCHMARK(OrderBySimilarity2000)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
