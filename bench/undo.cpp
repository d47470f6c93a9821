// The undo history at 2000 drifters: what 500 one-drifter steps weigh and how long a
// step takes, next to its floor: the plain compare of the records that finds what a
// step changed.
#include <benchmark/benchmark.h>

#include <cstring>

#include "EditorPool.h"
#include "shell/UndoHistory.h"

namespace {

// One drifter ticked, killed or revived, then the next: the time is one step's, "MB"
// what the history holds once 500 steps are in it.
void UndoableOneDrifterSteps500(benchmark::State& state) {
    Loaded l;
    aq::CheckList& list = l.app.lstSpeciatePool;
    for (int i = 0; i < list.count(); ++i) list.setChecked(i, false);
    aq::PoolHistory history;
    history.reset(l.app);
    int i = 0;
    for (auto _ : state) {
        list.setChecked((i + kCount - 1) % kCount, false);
        list.setChecked(i % kCount, true);
        history.prepare(l.app);
        const bool alive = l.app.openPool.drifters[static_cast<std::size_t>(i % kCount)].alive != 0;
        alive ? aq::killSelectedPoolSpecies(l.app) : aq::reviveSelectedPoolSpecies(l.app);
        history.commit(l.app, "Kill");
        ++i;
    }
    state.counters["MB"] = static_cast<double>(history.bytes()) / (1 << 20);
}

// Floor of a step: comparing the 2000 drifter records with an equal copy.
void CompareDrifters2000(benchmark::State& state) {
    const std::vector<aq::DrifterRec>& a = worldPool().drifters;
    const std::vector<aq::DrifterRec> b = a;
    for (auto _ : state) benchmark::DoNotOptimize(std::memcmp(a.data(), b.data(), a.size() * sizeof(aq::DrifterRec)));
}

}  // namespace

BENCHMARK(UndoableOneDrifterSteps500)->Iterations(500)->Unit(benchmark::kMillisecond);
BENCHMARK(CompareDrifters2000)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
