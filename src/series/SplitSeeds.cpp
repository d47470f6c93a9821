#include "series/SplitSeeds.h"

#include <algorithm>
#include <vector>

#include "pooleditor/PackedGenes.h"
#include "pooleditor/Similarity.h"

namespace aq {

namespace {

// Each genome's distance from genome `from`; gives back the farthest one.
int distancesFrom(const PackedGenes& g, int from, std::vector<int>& out) {
    int farthest = from;
    for (int i = 0; i < g.count(); ++i) {
        out[static_cast<std::size_t>(i)] = g.depth() - equalGeneCount(g[i], g[from], g.depth());
        if (out[static_cast<std::size_t>(i)] > out[static_cast<std::size_t>(farthest)]) farthest = i;
    }
    return farthest;
}

}  // namespace

// Exact, yet far from comparing every gene of every pair: a pair is only worth counting
// while it could still come out strictly ahead of the best pair so far and reach the
// distance already known to exist; the distances to two far-apart genomes bound every
// pair's distance from above (a pair can differ in no more positions than its two
// genomes differ from a third together), and the search ends when a pair differs
// everywhere.
SeedPair mostDifferentPair(const Pool& pool, int count, int depth) {
    SeedPair best;
    if (count < 2) return best;
    const PackedGenes g(pool, count, depth);
    const int n = g.count(), genes = g.depth();
    if (n < 2) return best;
    std::vector<int> near0(static_cast<std::size_t>(n)), near1(static_cast<std::size_t>(n));
    const int p1 = distancesFrom(g, 0, near0);
    // A pair that exists, so the winner differs at least this much.
    const int known = near1[static_cast<std::size_t>(distancesFrom(g, p1, near1))];
    int most = -1;
    int bar = known - 1;  // a pair must differ in more positions than this
    for (int a = 1; a < n && most < genes; ++a) {
        const std::uint8_t* ga = g[a];
        const int a0 = near0[static_cast<std::size_t>(a)], a1 = near1[static_cast<std::size_t>(a)];
        for (int b = 0; b < a; ++b) {
            if (std::min(a0 + near0[static_cast<std::size_t>(b)], a1 + near1[static_cast<std::size_t>(b)]) <= bar)
                continue;
            // More than genes - bar - 1 equal genes leave at most `bar` differences.
            const int equal = equalGeneCountUpTo(ga, g[b], genes, genes - bar);
            if (genes - equal <= bar) continue;
            most = genes - equal;
            best = {a, b};
            bar = most;
            if (most == genes) break;
        }
    }
    return best;
}

}  // namespace aq
