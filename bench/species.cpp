// The species pass over 2000 drifters, next to the floor: a plain count of equal
// bytes over every pair of genomes at the same depth.
#include <benchmark/benchmark.h>

#include <random>

#include "EqualBytes.h"
#include "Genomes.h"
#include "pooleditor/DrifterList.h"
#include "pooleditor/SpeciesPass.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"

namespace {

constexpr int kDrifters = 2000;

// Unrelated random genomes: no two similar at 44.4%, so every pair is compared.
const aq::Pool& unrelatedPool() {
    static aq::Pool p = [] {
        aq::Pool pool = aqtest::makePool(kDrifters, 0);
        std::mt19937 rng(7);
        for (auto& d : pool.drifters) randomGenes(d.genes, rng);
        return pool;
    }();
    return p;
}

// A pool as evolution leaves it: 60 lineages, each drifter a copy of its ancestor with
// a few percent of its genes mutated, in mixed order.
const aq::Pool& evolvedPool() {
    static aq::Pool p = [] {
        aq::Pool pool = aqtest::makePool(kDrifters, 0);
        std::mt19937 rng(11);
        const Ancestors ancestors = randomAncestors(rng, 60);
        for (auto& d : pool.drifters) descendantGenes(d.genes, ancestors, rng);
        return pool;
    }();
    return p;
}

const aq::Pool& poolFor(int which) { return which == 0 ? unrelatedPool() : evolvedPool(); }

// args: depth, pool (0 unrelated, 1 evolved)
void SpeciesPass(benchmark::State& state) {
    const aq::Pool& pool = poolFor(static_cast<int>(state.range(1)));
    int depth = static_cast<int>(state.range(0));
    std::size_t species = 0;
    for (auto _ : state) {
        auto tags = aq::poolSpeciesTags(pool, 44.4f, depth);
        species = static_cast<std::size_t>(*std::max_element(tags.begin(), tags.end()) + 1);
        benchmark::DoNotOptimize(tags.data());
    }
    state.counters["species"] = static_cast<double>(species);
}

// The pass as the timer runs it: one slice over the list of an App.
void SpeciesSlice(benchmark::State& state) {
    aqtest::ScriptedUi ui;
    aq::SystemClock clock;
    aq::App app(ui, clock);
    app.openPool = poolFor(static_cast<int>(state.range(1)));
    app.similarityDepth = static_cast<std::int16_t>(state.range(0));
    app.openPoolPath = "bench.aqp";
    aq::populateSpeciatePoolList(app);
    for (auto _ : state) {
        app.poolSpeciesPending = true;
        app.poolPassRunning = false;
        aq::speciatePoolList(app);
        if (app.poolSpeciesPending) state.SkipWithError("the pass needed more than one slice");
    }
}

// The floor: every pair, every gene up to the depth, counted in a plain loop.
void EqualBytesEveryPair(benchmark::State& state) {
    const aq::Pool& pool = poolFor(static_cast<int>(state.range(1)));
    int depth = static_cast<int>(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(equalBytesEveryPair(pool, kDrifters, depth));
}

}  // namespace

BENCHMARK(SpeciesPass)
    ->ArgNames({"depth", "evolved"})
    ->Args({1000, 0})
    ->Args({100, 0})
    ->Args({1000, 1})
    ->Args({100, 1})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(SpeciesSlice)
    ->ArgNames({"depth", "evolved"})
    ->Args({1000, 0})
    ->Args({1000, 1})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(EqualBytesEveryPair)
    ->ArgNames({"depth", "evolved"})
    ->Args({1000, 0})
    ->Args({100, 0})
    ->Args({1000, 1})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
