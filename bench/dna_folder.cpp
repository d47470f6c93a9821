// A DNA folder of 20,000 files in 200 lineages: loading it and one complete species
// pass, as the drifter files tab does them, with the peak memory of the process.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <random>

#include "Genomes.h"
#include "base/Clock.h"
#include "base/QuietUi.h"
#include "dnaeditor/DrifterFiles.h"
#include "format/DnaFile.h"
#include "state/App.h"
#include "support/TempDir.h"

namespace {

constexpr int kFiles = 20000, kLineages = 200;

struct Folder {
    aqtest::TempDir dir;
    Folder() {
        std::mt19937 rng(20000);
        const Ancestors ancestors = randomAncestors(rng, kLineages);
        char name[32];
        for (int i = 0; i < kFiles; ++i) {
            aq::Genome g;
            descendantGenes(g.data(), ancestors, rng);
            std::snprintf(name, sizeof name, "d%05d.dna", i);
            aqtest::writeBytes(dir.file(name), std::string(g.begin(), g.end()));
        }
    }
};

double peakMegabytes() {
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return static_cast<double>(u.ru_maxrss) / 1024.0;
}

// args: similarity depth
void DnaFolder20000(benchmark::State& state) {
    static Folder folder;
    aq::QuietUi ui;
    aq::SystemClock clock;
    std::int32_t species = 0;
    for (auto _ : state) {
        aq::App app(ui, clock);
        app.similarityDepth = static_cast<std::int16_t>(state.range(0));
        app.comboDrifterPath = folder.dir.path();
        aq::initiateLoadDrifterArchive(app);
        while (app.speciesPending) aq::speciateDrifterList(app);
        for (int i = 0; i < app.lstSpeciateDrifters.count(); ++i)
            species = std::max(species, app.lstSpeciateDrifters.tag(i) + 1);
    }
    state.counters["species"] = species;
    state.counters["peak MB"] = peakMegabytes();
}

}  // namespace

BENCHMARK(DnaFolder20000)->ArgName("depth")->Arg(100)->Arg(1000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
