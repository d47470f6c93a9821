// The pool editor's list, threshold ranges and selection-box sliders with 2000
// drifters and 2000 food bits, and the series' genetic split, each next to a floor:
// a plain copy of the rows' data or the plain count of equal bytes over every pair.
#include <benchmark/benchmark.h>

#include <cstring>
#include <random>

#include "EditorPool.h"
#include "EqualBytes.h"
#include "Genomes.h"
#include "dnaeditor/DrifterFiles.h"
#include "foodeditor/FoodEdits.h"
#include "foodeditor/FoodList.h"
#include "pooleditor/BulkEdits.h"
#include "pooleditor/DrifterList.h"
#include "pooleditor/SpeciesPass.h"
#include "series/SeriesNames.h"
#include "shell/Settings.h"
#include "shell/UndoHistory.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"

namespace {

void PopulateSpeciatePoolList2000(benchmark::State& state) {
    Loaded l;
    for (auto _ : state) aq::populateSpeciatePoolList(l.app);
}

// Floor of the list: copying the 2000 drifter records its lines are made from.
void CopyDrifters2000(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<aq::DrifterRec> copy = worldPool().drifters;
        benchmark::DoNotOptimize(copy.data());
    }
}

// Floor of the food list: copying the 2000 food bits.
void CopyFood2000(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<aq::FoodBit> copy = worldPool().food;
        benchmark::DoNotOptimize(copy.data());
    }
}

void PoolThresholdRange2000(benchmark::State& state) {
    Loaded l;
    l.app.similarityDepth = 1000;
    for (auto _ : state) aq::findPoolThresholdRange(l.app);
}

void DnaThresholdRange2000(benchmark::State& state) {
    Loaded l;
    l.app.similarityDepth = 1000;
    for (auto _ : state) aq::findDrifterThresholdRange(l.app);
}

// Floor of the ranges: every pair, every one of the 1000 genes, counted in a plain loop.
void EqualBytesEveryPair2000(benchmark::State& state) {
    const aq::Pool& pool = worldPool();
    for (auto _ : state) benchmark::DoNotOptimize(equalBytesEveryPair(pool, kCount, 1000));
}

// 2000 unrelated genomes: every gene drawn at random.
const aq::Pool& unrelatedPool() {
    static aq::Pool p = [] {
        aq::Pool pool = worldPool();
        std::mt19937 rng(6);
        for (auto& d : pool.drifters) randomGenes(d.genes, rng);
        return pool;
    }();
    return p;
}

// One family: each drifter a copy of an earlier one with 2% of its genes mutated, so
// that no pair differs everywhere and the search must go on to the end.
const aq::Pool& familyPool() {
    static aq::Pool p = [] {
        aq::Pool pool = worldPool();
        std::mt19937 rng(7);
        randomGenes(pool.drifters[0].genes, rng);
        for (std::size_t i = 1; i < pool.drifters.size(); ++i) {
            std::memcpy(pool.drifters[i].genes, pool.drifters[rng() % i].genes, aq::kGeneCount);
            for (auto& g : pool.drifters[i].genes)
                if (rng() % 100 < 2) g = static_cast<std::uint8_t>(rng());
        }
        return pool;
    }();
    return p;
}

// The split looks for the two most different genomes, so its floor is the pairwise count
// too. args: pool (0 unrelated, 1 evolved in 60 lineages, 2 evolved from one ancestor)
void SeriesSplit2000(benchmark::State& state) {
    const aq::Pool* pools[] = {&unrelatedPool(), &worldPool(), &familyPool()};
    const aq::Pool& pool = *pools[state.range(0)];
    for (auto _ : state) {
        aq::Pool half0, half1;
        aq::splitPopulation(pool, 1000, half0, half1);
        benchmark::DoNotOptimize(half0.drifters.data());
    }
}

// One slider move of the drifter box: the box moves and the list shows the new places.
void DrifterBoxSliderMove(benchmark::State& state) {
    Loaded l;
    int position = l.app.SliderSpeciatePoolDrifterX.value;
    for (auto _ : state) {
        position = position == l.app.SliderSpeciatePoolDrifterX.min ? l.app.SliderSpeciatePoolDrifterX.max
                                                                    : l.app.SliderSpeciatePoolDrifterX.min;
        aq::MoveDrifterBox(l.app, aq::Axis::X, position);
    }
}

void FoodBoxSliderMove(benchmark::State& state) {
    Loaded l;
    int position = l.app.SliderFoodX.value;
    for (auto _ : state) {
        position = position == l.app.SliderFoodX.min ? l.app.SliderFoodX.max : l.app.SliderFoodX.min;
        aq::MoveFoodBox(l.app, aq::Axis::X, position);
    }
}

// One undoable edit of every drifter (all are ticked): the history compares the pool
// before and after, and keeps what changed as a step.
void UndoableKillOrRevive2000(benchmark::State& state) {
    Loaded l;
    aq::PoolHistory history;
    history.reset(l.app);
    bool kill = true;
    for (auto _ : state) {
        history.prepare(l.app);
        kill ? aq::killSelectedPoolSpecies(l.app) : aq::reviveSelectedPoolSpecies(l.app);
        history.commit(l.app, "Kill");
        kill = !kill;
    }
}

void UndoThenRedo2000(benchmark::State& state) {
    Loaded l;
    aq::PoolHistory history;
    history.reset(l.app);
    history.prepare(l.app);
    aq::killSelectedPoolSpecies(l.app);
    history.commit(l.app, "Kill");
    for (auto _ : state) {
        history.undo(l.app);
        history.redo(l.app);
    }
}

// A settings file with 26,000 folder lines, 20,000 of them different: each is kept once.
void ReadLongFolderHistory(benchmark::State& state) {
    std::string text;
    for (int i = 0; i < 26000; ++i) text += "comboPoolPath.ListItem = /Pools/" + std::to_string(i % 20000) + "\r\n";
    for (auto _ : state) {
        aqtest::ScriptedUi ui;
        aq::SystemClock clock;
        aq::App app(ui, clock);
        app.settingsText = text;
        aq::ini(app, "Use");
        benchmark::DoNotOptimize(app.comboPoolPathItems.size());
    }
}

}  // namespace

BENCHMARK(UndoableKillOrRevive2000)->Unit(benchmark::kMillisecond);
BENCHMARK(UndoThenRedo2000)->Unit(benchmark::kMillisecond);
BENCHMARK(PopulateSpeciatePoolList2000)->Unit(benchmark::kMillisecond);
BENCHMARK(CopyDrifters2000)->Unit(benchmark::kMillisecond);
BENCHMARK(CopyFood2000)->Unit(benchmark::kMillisecond);
BENCHMARK(PoolThresholdRange2000)->Unit(benchmark::kMillisecond);
BENCHMARK(DnaThresholdRange2000)->Unit(benchmark::kMillisecond);
BENCHMARK(EqualBytesEveryPair2000)->Unit(benchmark::kMillisecond);
BENCHMARK(SeriesSplit2000)->ArgName("evolved")->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(DrifterBoxSliderMove)->Unit(benchmark::kMillisecond);
BENCHMARK(FoodBoxSliderMove)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadLongFolderHistory)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
