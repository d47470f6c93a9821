// Every aqfm command on the largest pool the reader takes: 32767 drifters of 60
// lineages and 32767 food bits (131 MB). Each row is one run of the real program.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <random>

#include "Genomes.h"
#include "format/PoolFile.h"
#include "support/PoolFixtures.h"
#include "support/TempDir.h"

namespace {

constexpr int kMost = aq::kMaxRecordCount;

struct Largest {
    aqtest::TempDir dir;
    std::string file = dir.file("largest.aqp");
    Largest() {
        std::mt19937 rng(32767);
        std::uniform_real_distribution<float> place(-3900.0f, 3900.0f);
        const Ancestors ancestors = randomAncestors(rng, 60);
        aq::Pool pool = aqtest::makePool(0, kMost);
        pool.drifterCount = kMost;
        pool.drifters.resize(kMost);
        for (int i = 0; i < kMost; ++i) {
            const int segments = 1 + static_cast<int>(rng() % 16);
            aq::DrifterRec d = aqtest::makeDrifter(i, segments, static_cast<int>(rng() % 6), place(rng), place(rng));
            for (int s = 0; s < segments; ++s) d.segments[s].branchCount = s == 0 ? segments - 1 : 0;
            d.alive = rng() % 5 != 0;
            d.age = static_cast<int>(rng() % 20000);
            d.mealsEaten = static_cast<int>(rng() % 10);
            descendantGenes(d.genes, ancestors, rng);
            pool.drifters[static_cast<std::size_t>(i)] = d;
        }
        for (auto& f : pool.food) f.x = place(rng), f.y = place(rng);
        aq::writePool(file, pool);
    }
};

Largest& largest() {
    static Largest l;
    return l;
}

// A name for the table and the command line; {} stands for the pool, {d} for its folder.
const std::pair<const char*, const char*> kCommands[] = {
    {"info", "info {}"},
    {"drifters", "drifters {}"},
    {"drifters-species", "drifters {} --species 44.4 --depth 100"},
    {"food", "food {}"},
    {"keys", "keys {} --pair"},
    {"minorities", "minorities {} --by segments,branching,colororder,colors"},
    {"range-depth100", "range {} --depth 100"},
    {"range-depth1000", "range {} --depth 1000"},
    {"scores", "scores {}"},
    {"species-depth1000", "species {} --depth 1000"},
    {"dna", "dna {} 32766 -o {}.dna"},
    {"merge", "merge {} {} -o {}.merged"},
    {"prepare-steps",
     "prepare {} markStillborns ensureMinimumDrifters:50 limitLiveDrifters:30000 deleteDeadDrifters sortDrifters "
     "restoreYouth resetCounters:meals,offspring drainEdgeEnergy gravitateToCenter:50 halveAges prepareHarvest:2 "
     "deleteStarters:50 applyPlague feedPool:hungry,fed,addFood,graded feedByColor:2:1 -o {}.prepared"},
    {"prepare-group", "prepare {} group:3:feedAll:gather:gravity -o {}.grouped"},
    {"harvest", "harvest {d} -o {}.harvest"},
    {"series-species", "series {} --species 44.4"},
};

std::string commandLine(std::string pattern) {
    for (std::size_t at; (at = pattern.find("{d}")) != std::string::npos;) pattern.replace(at, 3, largest().dir.path());
    for (std::size_t at; (at = pattern.find("{}")) != std::string::npos;) pattern.replace(at, 2, largest().file);
    return std::string(AQFM_PATH) + " " + pattern + " >/dev/null";
}

void runAqfm(benchmark::State& state, const char* pattern) {
    const std::string line = commandLine(pattern);
    for (auto _ : state)
        if (std::system(line.c_str()) != 0) state.SkipWithError(("failed: " + line).c_str());
}

}  // namespace

int main(int argc, char** argv) {
    for (const auto& [name, pattern] : kCommands)
        benchmark::RegisterBenchmark((std::string("AqfmLargest/") + name).c_str(), runAqfm, pattern)
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
