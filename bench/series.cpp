// The table of a series of 300 pools of 2000 drifters (what `aqfm series` does), next to
// only reading those files; with the species count of each pool as well.
#include <benchmark/benchmark.h>

#include "EvolvedPool.h"
#include "format/PoolFile.h"
#include "series/SeriesFigures.h"
#include "series/SeriesNames.h"
#include "series/SeriesTree.h"
#include "support/TempDir.h"

namespace {

constexpr int kPools = 300;

struct Series {
    aqtest::TempDir dir;
    std::string file;
    std::vector<std::string> paths;
    Series() {
        file = dir.file("pool.aqp");
        std::mt19937 rng(2026);
        std::vector<aq::Pool> kinds;
        for (int k = 0; k < 8; ++k) kinds.push_back(evolvedPool(rng));
        // The first pools the series takes form a whole tree.
        std::string suffix;
        for (int k = 0; k < kPools; ++k, suffix = aq::getNextParent(suffix, true)) {
            paths.push_back(aq::seriesFileName(file, suffix));
            aq::writePool(paths.back(), kinds[std::size_t(k) % kinds.size()]);
        }
    }
};

Series& series() {
    static Series s;
    return s;
}

void ReadSeries300x2000(benchmark::State& state) {
    series();  // made once, outside the timing
    aq::Pool pool;
    for (auto _ : state)
        for (const std::string& path : series().paths) benchmark::DoNotOptimize(aq::readPool(path, pool));
}

void SeriesTable300x2000(benchmark::State& state) {
    series();
    std::optional<aq::SpeciesRule> rule;
    if (state.range(0)) rule = aq::SpeciesRule{44.4f, 100};
    aq::Pool scratch;
    std::size_t rows = 0;
    for (auto _ : state) {
        auto members = aq::listSeries(series().file, true);
        for (const aq::SeriesMember& m : members) benchmark::DoNotOptimize(aq::readPoolFigures(m.path, rule, scratch));
        rows = members.size();
    }
    state.counters["rows"] = static_cast<double>(rows);
}

}  // namespace

BENCHMARK(ReadSeries300x2000)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(SeriesTable300x2000)->ArgName("species")->Arg(0)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(SeriesTable300x2000)->ArgName("species")->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_MAIN();
