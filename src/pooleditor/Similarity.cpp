#include "pooleditor/Similarity.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <numeric>
#include <vector>

#include "base/Parallel.h"
#include "format/Records.h"
#include "pooleditor/EqualCount.h"
#include "pooleditor/PackedGenes.h"

namespace aq {

using detail::countEqual;

double MinNonZero(double a, double b) {
    if (a == 0) return b;
    if (b == 0) return a;
    return a < b ? a : b;
}

double MaxOf(double a, double b) { return a > b ? a : b; }

std::int16_t similarityDepthFor(bool quickSpeciate) { return quickSpeciate ? 100 : 1000; }

int similarityNeed(int n, float threshold) {
    // Single-precision arithmetic throughout, as the threshold is kept.
    float need = std::nearbyint(static_cast<float>(n) * threshold / 100.0f);
    if (need < 0) need = std::nearbyint(static_cast<float>(n) * (threshold + 100.0f) / 100.0f);
    // Thresholds far outside 0..100 must not overflow the count; no number matches nothing.
    if (std::isnan(need)) return 1000000;
    if (need > 1.0e6f) return 1000000;
    if (need < -1.0e6f) return -1000000;
    return static_cast<int>(need);
}

int similarityGenes(int depth) {
    double n = MinNonZero(kGeneCount, depth);
    return static_cast<int>(std::clamp(n, 0.0, static_cast<double>(kGeneCount)));
}

Kinship::Kinship(float threshold, int depth)
    : genes_(similarityGenes(depth)), need_(similarityNeed(genes_, threshold)) {}

bool Kinship::operator()(const std::uint8_t* a, const std::uint8_t* b) const {
    if (need_ <= 0) return true;
    if (need_ > genes_) return false;
    // Stop at `need` matches, or once more than n - need genes differ: either way the
    // answer cannot change any more.
    const int need = need_, misses = genes_ - need_;
    auto certain = [need, misses](int m, int seen) { return m >= need || seen - m > misses; };
    return countEqual(a, b, genes_, certain) >= need;
}

bool GenomesSimilar(const std::uint8_t* a, const std::uint8_t* b, float threshold, int depth) {
    return Kinship(threshold, depth)(a, b);
}

int equalGeneCount(const std::uint8_t* a, const std::uint8_t* b, int n) {
    return countEqual(a, b, std::clamp(n, 0, kGeneCount), [](int, int) { return false; });
}

int equalGeneCountOutside(const std::uint8_t* a, const std::uint8_t* b, int n, int low, int high) {
    n = std::clamp(n, 0, kGeneCount);
    // Once the count has reached low and the misses keep it from passing high, the pair
    // can move neither end of the range.
    auto inside = [n, low, high](int m, int seen) { return m >= low && m + (n - seen) <= high; };
    return countEqual(a, b, n, inside);
}

int equalGeneCountUpTo(const std::uint8_t* a, const std::uint8_t* b, int n, int enough) {
    return countEqual(a, b, std::clamp(n, 0, kGeneCount), [enough](int m, int) { return m >= enough; });
}

namespace {

// Marks each genome that repeats an earlier one. A repeat adds only the pair of two equal
// genomes to the range, so the pairs need to be counted among first copies alone.
std::vector<std::uint8_t> repeats(const PackedGenes& g) {
    std::vector<int> order(static_cast<std::size_t>(g.count()));
    std::iota(order.begin(), order.end(), 0);
    const auto bytes = static_cast<std::size_t>(g.depth());
    auto cmp = [&](int a, int b) { return std::memcmp(g[a], g[b], bytes); };
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return cmp(a, b) < 0; });
    std::vector<std::uint8_t> repeat(order.size(), 0);
    for (std::size_t k = 1; k < order.size(); ++k)
        if (cmp(order[k - 1], order[k]) == 0) repeat[static_cast<std::size_t>(order[k])] = 1;
    return repeat;
}

}  // namespace

EqualGeneRange equalGeneRange(const PackedGenes& g, const std::function<void(int)>& progress) {
    const int n = g.depth(), count = g.count();
    const std::vector<std::uint8_t> repeat = repeats(g);
    EqualGeneRange start;
    if (std::find(repeat.begin(), repeat.end(), 1) != repeat.end()) start.low = start.high = n;
    // Rows of genomes against columns of a few hundred at a time, so that the leading
    // genes of both, which settle most pairs, stay in the nearest cache; the rows are
    // shared among the cores, each keeping its own range.
    constexpr int kRows = 64, kColumns = 256;
    const int blocks = (count + kRows - 1) / kRows;
    const int workers = blocks > 4 ? parallelWorkers() : 1;
    std::vector<EqualGeneRange> found(static_cast<std::size_t>(workers), start);
    auto rows = [&](int block, int worker) {
        // A copy of the worker's range while it works, so the cores never write to one cache line.
        EqualGeneRange r = found[static_cast<std::size_t>(worker)];
        // Once the count has reached low and the misses keep it from passing high, the
        // pair can move neither end of the range; once the range is whole, nothing can.
        auto pair = [n, &r](const std::uint8_t* a, const std::uint8_t* b) {
            const int m =
                countEqual(a, b, n, [n, &r](int m, int seen) { return m >= r.low && m + (n - seen) <= r.high; });
            r.high = std::max(r.high, m);
            r.low = std::min(r.low, m);
        };
        const int i0 = block * kRows, i1 = std::min(count, i0 + kRows);
        for (int j0 = 0; j0 < i1 - 1 && !(r.low == 0 && r.high == n); j0 += kColumns)
            for (int i = std::max(i0, j0 + 1); i < i1; ++i) {
                if (repeat[static_cast<std::size_t>(i)]) continue;
                const std::uint8_t* a = g[i];
                for (int j = j0, j1 = std::min(j0 + kColumns, i); j < j1; ++j)
                    if (!repeat[static_cast<std::size_t>(j)]) pair(a, g[j]);
            }
        found[static_cast<std::size_t>(worker)] = r;
    };
    forEachBlock(blocks, workers, rows, [&](int block) {
        if (progress) progress(block * kRows);
    });
    if (progress && count > 0) progress(count - 1);
    EqualGeneRange r = start;
    for (const EqualGeneRange& f : found) r.low = std::min(r.low, f.low), r.high = std::max(r.high, f.high);
    return r;
}

}  // namespace aq
