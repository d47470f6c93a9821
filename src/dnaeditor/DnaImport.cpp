// The drifters of a pool join the list of DNA files as new, unsaved entries.
#include <filesystem>

#include "dnaeditor/DrifterFiles.h"
#include "files/PoolOps.h"
#include "base/Paths.h"

namespace aq {

namespace {

// "Sea.rob12": the pool's stem, one colour letter per segment, the drifter's id.
std::string drifterFileStem(const std::string& stem, const DrifterRec& d) {
    static const char kLetters[6] = {'r', 'o', 'y', 'g', 'b', 'p'};
    std::string name = stem;
    const int segments = std::min(std::max(d.segmentCount, 0), kSegmentSlots);
    for (int s = 0; s < segments; ++s) {
        int c = d.segments[s].color;
        if (c >= 0 && c < 6) name += kLetters[c];
    }
    return name + std::to_string(d.id);
}

}  // namespace

int GeneDifferences(const App& app, const Genome& a, const std::uint8_t* b) {
    int depth = app.similarityDepth < 1 || app.similarityDepth > kGeneCount ? kGeneCount : app.similarityDepth;
    int differ = 0;
    for (int i = 0; i < depth; ++i) differ += a[static_cast<std::size_t>(i)] != b[i] ? 1 : 0;
    return differ;
}

void importDrifters(App& app) {
    bool fromOpen = false;
    if (app.poolLoaded) {
        Answer a = app.ui.AskYesNoCancel(
            "Would you like to import the drifters from the currently open pool file into the Drifter Files list?");
        if (a == Answer::Cancel) return;
        fromOpen = a == Answer::Yes;
    }
    if (fromOpen) {
        app.workPool = app.openPool;
    } else {
        if (app.ui.AskYesNo("Would you like to import the drifters from a pool file into the Drifter Files list?") !=
            Answer::Yes)
            return;
        std::string path = app.ui.ChooseOpenFile(app.comboPoolPath, "", "aqp", "Aquarium Files", "Select Pool File");
        if (path.empty()) return;
        loadPoolFile(app, path, false);
    }
    importDriftersFromAquarium(app);
}

void importDriftersFromAquarium(App& app) {
    std::string stem = std::filesystem::path(app.openPoolPath).filename().string();
    if (auto dot = stem.find('.'); dot != std::string::npos) stem.resize(dot + 1);

    DnaFolder& d = app.dna;
    const Pool& pool = app.workPool;
    const int drifters = std::max(0, std::min<int>(pool.drifterCount, static_cast<int>(pool.drifters.size())));
    if (drifters + d.dnaCount < 1) return;
    WaitCursor wait(app.ui);

    const int present = d.dnaCount;
    std::vector<Genome> genes(d.dnaGenes.begin(), d.dnaGenes.begin() + present);
    std::vector<std::string> paths(d.dnaPaths.begin(), d.dnaPaths.begin() + present);
    std::vector<std::uint8_t> changed(d.dnaChanged.begin(), d.dnaChanged.begin() + present);
    std::vector<std::string> lowerPaths;
    for (const std::string& p : paths) lowerPaths.push_back(lowered(p));

    for (int k = 0; k < drifters; ++k) {
        const DrifterRec& rec = pool.drifters[static_cast<std::size_t>(k)];
        bool known = false;
        for (int e = 0; e < present && !known; ++e)
            known = GeneDifferences(app, d.dnaGenes[static_cast<std::size_t>(e)], rec.genes) == 0;
        if (known) continue;

        const std::string name = drifterFileStem(stem, rec);
        int suffix = 0;
        auto numbered = [&] { return joinPath(app.comboDrifterPath, name + "_" + std::to_string(suffix++) + ".dna"); };
        std::string path = joinPath(app.comboDrifterPath, name + ".dna");
        std::error_code ec;
        while (std::filesystem::exists(path, ec)) path = numbered();
        // Names already in the list are taken too, the new ones of this import among them.
        for (std::size_t e = 0; e < lowerPaths.size(); ++e) {
            if (lowerPaths[e] == lowered(path)) {
                path = numbered();
                e = static_cast<std::size_t>(-1);
            }
        }
        Genome g;
        std::copy(std::begin(rec.genes), std::end(rec.genes), g.begin());
        genes.push_back(g);
        paths.push_back(path);
        lowerPaths.push_back(lowered(path));
        changed.push_back(1);
    }

    d.dnaGenes = std::move(genes);
    d.dnaPaths = std::move(paths);
    d.dnaChanged = std::move(changed);
    d.dnaCount = static_cast<std::int32_t>(d.dnaPaths.size());
    app.dnaLoaded = true;
    showNewDnaList(app);
}

}  // namespace aq
