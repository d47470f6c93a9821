#include "pooleditor/Similarity.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <numeric>
#include <vector>

#include "format/Records.h"
#include "pooleditor/PackedGenes.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace aq {

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

namespace {

int depthGenes(int depth) {
    double n = MinNonZero(kGeneCount, depth);
    return static_cast<int>(std::clamp(n, 0.0, static_cast<double>(kGeneCount)));
}

// Equal bytes among 8, without a population-count instruction.
inline int equalBytes8(const std::uint8_t* a, const std::uint8_t* b) {
    std::uint64_t x, y;
    std::memcpy(&x, a, 8);
    std::memcpy(&y, b, 8);
    std::uint64_t d = x ^ y;
    constexpr std::uint64_t low7 = 0x7F7F7F7F7F7F7F7Full;
    // High bit of each byte set exactly where the byte differs.
    std::uint64_t differs = (((d & low7) + low7) | d) & ~low7;
    return 8 - std::popcount(differs);
}

// Counts equal bytes in blocks of 64 and asks `stop(matches, seen)` between blocks
// whether the answer is already certain; the count it returns is exact for the
// positions it looked at.
template <class Stop>
int countEqual(const std::uint8_t* a, const std::uint8_t* b, int n, Stop stop) {
    int i = 0;
    int matches = 0;
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    while (i + 64 <= n) {
        auto eq = [&](int k) {
            return _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(a + i + k)),
                                  _mm_loadu_si128(reinterpret_cast<const __m128i*>(b + i + k)));
        };
        // Each equal byte is -1: subtracting counts it, at most 4 per lane.
        __m128i acc = _mm_sub_epi8(_mm_sub_epi8(zero, eq(0)), eq(16));
        acc = _mm_sub_epi8(_mm_sub_epi8(acc, eq(32)), eq(48));
        __m128i sums = _mm_sad_epu8(acc, zero);
        matches += _mm_cvtsi128_si32(sums) + _mm_extract_epi16(sums, 4);
        i += 64;
        if (stop(matches, i)) return matches;
    }
    while (i + 16 <= n) {
        __m128i e = _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(a + i)),
                                   _mm_loadu_si128(reinterpret_cast<const __m128i*>(b + i)));
        matches += std::popcount(static_cast<unsigned>(_mm_movemask_epi8(e)));
        i += 16;
    }
#else
    while (i + 64 <= n) {
        for (int k = 0; k < 64; k += 8) matches += equalBytes8(a + i + k, b + i + k);
        i += 64;
        if (stop(matches, i)) return matches;
    }
#endif
    while (i + 8 <= n) {
        matches += equalBytes8(a + i, b + i);
        i += 8;
    }
    for (; i < n; ++i) matches += a[i] == b[i];
    return matches;
}

}  // namespace

bool GenomesSimilar(const std::uint8_t* a, const std::uint8_t* b, float threshold, int depth) {
    int n = depthGenes(depth);
    int need = similarityNeed(n, threshold);
    if (need <= 0) return true;
    if (need > n) return false;
    // Stop at `need` matches, or once more than n - need genes differ: either way the
    // answer cannot change any more.
    int misses = n - need;
    auto certain = [need, misses](int m, int seen) { return m >= need || seen - m > misses; };
    return countEqual(a, b, n, certain) >= need;
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
    EqualGeneRange r;
    const int n = g.depth(), count = g.count();
    const std::vector<std::uint8_t> repeat = repeats(g);
    if (std::find(repeat.begin(), repeat.end(), 1) != repeat.end()) r.low = r.high = n;
    // Once the count has reached low and the misses keep it from passing high, the pair
    // can move neither end of the range.
    auto pair = [n, &r](const std::uint8_t* a, const std::uint8_t* b) {
        const int m = countEqual(a, b, n, [n, &r](int m, int seen) { return m >= r.low && m + (n - seen) <= r.high; });
        r.high = std::max(r.high, m);
        r.low = std::min(r.low, m);
    };
    // Rows of genomes against columns of a few hundred at a time, so that the leading
    // genes of both, which settle most pairs, stay in the nearest cache.
    constexpr int kRows = 64, kColumns = 256;
    for (int i0 = 0; i0 < count && !(r.low == 0 && r.high == n); i0 += kRows) {
        if (progress) progress(i0);
        const int i1 = std::min(count, i0 + kRows);
        for (int j0 = 0; j0 < i1 - 1; j0 += kColumns)
            for (int i = std::max(i0, j0 + 1); i < i1; ++i) {
                if (repeat[static_cast<std::size_t>(i)]) continue;
                const std::uint8_t* a = g[i];
                for (int j = j0, j1 = std::min(j0 + kColumns, i); j < j1; ++j)
                    if (!repeat[static_cast<std::size_t>(j)]) pair(a, g[j]);
            }
    }
    if (progress && count > 0) progress(count - 1);
    return r;
}

}  // namespace aq
