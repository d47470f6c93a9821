// Storing a finished pool of a series as its child or children.
#include <algorithm>
#include <filesystem>

#include "files/PoolOps.h"
#include "pooleditor/Similarity.h"
#include "series/SeriesLinks.h"
#include "series/SeriesNames.h"
#include "series/SplitSeeds.h"

namespace aq {

namespace {

int differences(const DrifterRec& a, const DrifterRec& b, int depth) {
    return depth - equalGeneCount(a.genes, b.genes, depth);
}

long geneSum(const DrifterRec& d) {
    long sum = 0;
    for (int g = 0; g < kGeneCount; ++g) sum += d.genes[g];
    return sum;
}

void append(Pool& p, const DrifterRec& d) {
    if (p.drifters.size() <= static_cast<std::size_t>(p.drifterCount)) p.drifters.resize(p.drifterCount + 1u);
    p.drifters[static_cast<std::size_t>(p.drifterCount++)] = d;
}

bool endsInNine(const std::string& suffix) { return !suffix.empty() && suffix.back() == '9'; }

}  // namespace

void splitPopulation(const Pool& pool, int depth, Pool& half0, Pool& half1) {
    depth = std::clamp(depth, 0, kGeneCount);
    const int n = std::min<int>(pool.drifterCount, static_cast<int>(pool.drifters.size()));
    auto at = [&pool](int i) -> const DrifterRec& { return pool.drifters[static_cast<std::size_t>(i)]; };
    auto [a, b] = mostDifferentPair(pool, n, depth);
    if (geneSum(at(a)) < geneSum(at(b))) std::swap(a, b);
    const DrifterRec seedA = at(a), seedB = at(b);
    for (Pool* h : {&half0, &half1}) {
        h->drifters.assign(static_cast<std::size_t>(n) + 2, DrifterRec{});
        h->drifterCount = 0;
    }
    int toggle = 0;
    for (int i = 0; i < n; ++i) {
        int db = differences(at(i), seedB, depth);
        int da = differences(at(i), seedA, depth);
        if (db == da) {
            da += toggle;
            toggle = 1 - toggle;
        }
        append(db >= da ? half0 : half1, at(i));
    }
    while (half0.drifterCount < 2) append(half0, seedA);
    while (half1.drifterCount < 2) append(half1, seedB);
}

void saveoffspring(App& app, const std::string& seriesFile, const std::string& suffix) {
    const SeriesOptions& o = app.series.options;
    const bool branching = o.chkBranchingSeries;
    Pool offspring[3];
    offspring[2] = app.openPool;
    int parts = suffix.empty() || endsInNine(suffix) ? 1 : 2;
    if (o.ifExists == SeriesOptions::IfExists::Continue && parts == 2 &&
        (!isOffspringMissing(seriesFile, suffix, 0, branching) ||
         !isOffspringMissing(seriesFile, suffix, 1, branching)))
        parts = 1;
    offspring[0] = app.workPool;
    if (parts == 2) {
        offspring[1] = app.workPool;
        if (app.workPool.drifterCount >= 2)
            splitPopulation(app.workPool, app.similarityDepth, offspring[0], offspring[1]);
    }
    const int files = branching ? parts : 1;
    for (int k = 0; k < files; ++k) {
        app.workPool.drifterCount = offspring[k].drifterCount;
        app.workPool.drifters = offspring[k].drifters;
        std::string path = getOffspringSpec(seriesFile, suffix, k, branching);
        std::error_code ec;
        if (o.ifExists != SeriesOptions::IfExists::Overwrite && std::filesystem::exists(path, ec)) {
            Answer answer = app.ui.AskYesNoCancel("Would you like to save over " + path, "Save Split Pool - Part #");
            if (answer == Answer::Cancel) return;
            if (answer == Answer::No)
                path = series::locateDestFile(app, series::folderOfPath(path), series::fileNameOfPath(path), "aqp",
                                              "Pool Files", "Save Split Pool () As");
        }
        savePoolFile(app, path, false);
    }
    app.workPool = std::move(offspring[2]);
}

}  // namespace aq
