// The harvest of a folder of 50 pools of 2000 drifters, next to only reading those
// files; the plague and the similarity chain on one such pool.
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

struct Folder {
    aqtest::TempDir dir;
    aq::Pool sample;
    Folder() {
        std::mt19937 rng(2026);
        for (int k = 0; k < 50; ++k) {
            aq::Pool p = evolvedPool(rng);
            aq::writePool(dir.file("pool_" + std::to_string(k) + ".aqp"), p);
            if (k == 0) sample = p;
        }
    }
};

Folder& folder() {
    static Folder f;
    return f;
}

void ReadFolder50x2000(benchmark::State& state) {
    folder();  // made once, outside the timing
    aq::Pool pool;
    for (auto _ : state)
        for (int k = 0; k < 50; ++k)
            benchmark::DoNotOptimize(aq::readPool(folder().dir.file("pool_" + std::to_string(k) + ".aqp"), pool));
}

void HarvestFolder50x2000(benchmark::State& state) {
    folder();
    QuietUi ui;
    aqtest::ManualClock clock;
    aq::App app(ui, clock);
    app.uiBusy = true;
    for (auto _ : state) {
        app.openPool = folder().sample;
        app.poolLoaded = true;
        aq::HarvestSuccessful(app, folder().dir.path(), 0, 2000, true, false);
        benchmark::DoNotOptimize(app.openPool.drifterCount);
    }
    state.counters["harvested"] = app.openPool.drifterCount;
}

// The part of the harvest that is the morphology keys: one pair per drifter.
void KeyPairs2000(benchmark::State& state) {
    folder();
    for (auto _ : state)
        for (int i = 0; i < 2000; ++i) benchmark::DoNotOptimize(aq::DrifterKeyPair(folder().sample, i));
}

void ApplyPlague2000(benchmark::State& state) {
    for (auto _ : state) {
        aq::Pool p = folder().sample;
        aq::applyPlague(p);
        benchmark::DoNotOptimize(p.drifterCount);
    }
}

void OrderBySimilarity2000(benchmark::State& state) {
    for (auto _ : state) {
        aq::Pool p = folder().sample;
        aq::orderBySimilarity(p, static_cast<int>(state.range(0)));
        benchmark::DoNotOptimize(p.drifters[1].id);
    }
}

}  // namespace

// At least a second each: the first rounds pay for fresh memory, later ones show the
// steady cost of a program that has harvested before.
BENCHMARK(ReadFolder50x2000)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(HarvestFolder50x2000)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(KeyPairs2000)->Unit(benchmark::kMillisecond);
BENCHMARK(ApplyPlague2000)->Unit(benchmark::kMillisecond);
BENCHMARK(OrderBySimilarity2000)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
