#include "series/Grouping.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "generator/Placement.h"
#include "pooleditor/Similarity.h"
#include "series/PrepareSteps.h"
#include "base/Paths.h"
#include "base/ThresholdText.h"

namespace aq {

const char* const kGroupPrompt =
    "Please select one of the following options, and enter the corresponding number.\r\n"
    "1 = Group Drifters by Genetic Similarity (Slow)\r\n"
    "2 = Group Drifters by Segment Count\r\n"
    "3 = Group Drifters by Color\r\n"
    "4 = Group Arbitrarily (Fastest)";
const char* const kGroupCaptionOff = "&Group Drifters at Start";

namespace {

constexpr double kTwoPi = 6.28318530717959;
const char* const kGroupCaptions[] = {"&Group Drifters by Genetic Similarity", "&Group Drifters by Segment Count",
                                      "&Group Drifters by Color", "&Group Drifters at Start"};

std::size_t at(int i) { return static_cast<std::size_t>(i); }

void reorder(Pool& pool, const std::vector<int>& order) {
    std::vector<DrifterRec> moved(pool.drifters.size());
    for (std::size_t i = 0; i < order.size(); ++i) moved[i] = pool.drifters[at(order[i])];
    for (std::size_t i = order.size(); i < moved.size(); ++i) moved[i] = pool.drifters[i];
    pool.drifters = std::move(moved);
}

struct Ring {
    int skip = 0;
    int ring = 1;
    double step = 0;
};

Ring ringOf(int n) {
    Ring r;
    if (n < 4) {
        r.skip = n;
        r.ring = 0;
        return r;
    }
    if (n % 2 == 0)
        r.skip = n > 6 ? 2 : 0;
    else
        r.skip = n > 5 ? 3 : 0;
    r.ring = std::max(std::min(n - r.skip, 14) / 2, 1);
    r.step = kTwoPi / r.ring;
    return r;
}

bool positionOf(const DrifterRec& d, int i, int n, int mode, const Ring& ring, double shrink, double& px, double& py) {
    switch (mode) {
        case 0: {
            int g = n <= 10 ? n / 3 : n / 4;
            g = std::min(g, 20);
            // Two drifters give no sectors: as neighbours of the chain they form one group.
            if (g < 1) g = 1;
            double angle = std::floor(static_cast<double>(i) / n * g) * (kTwoPi / g);
            px = 2000 * std::sin(angle);
            py = 2000 * std::cos(angle);
            return true;
        }
        case 1: {
            double angle = static_cast<double>(d.segmentCount) * 11 * 0.41887902119724;
            px = 2500 * std::sin(angle);
            py = 2500 * std::cos(angle);
            return true;
        }
        case 2: {
            int counts[6] = {};
            for (int s = 0; s < usedSegmentCount(d); ++s) {
                int c = d.segments[s].color;
                if (c >= 0 && c <= 5) ++counts[c];
            }
            int distinct = 0;
            for (int c : counts) distinct += c > 0;
            distinct = std::max(distinct, 1);
            const int limit = n / distinct;
            px = py = 0;
            for (int c = 0; c < 6; ++c) {
                if (counts[c] == 0) continue;
                double weight = counts[c] < limit ? 0.5 : 1.0;
                px += std::cos(c * 1.0471975511966) * weight;
                py += std::sin(c * 1.0471975511966) * weight;
            }
            px *= 2500;
            py *= 2500;
            return true;
        }
        case 3:
            if (i < ring.skip) {
                px = py = 0;
            } else {
                px = 1000 * std::sin(ring.step * i) * shrink;
                py = 1000 * std::cos(ring.step * i) * shrink;
            }
            return true;
        default:
            return false;
    }
}

double sign(double v) { return v > 0 ? 1 : v < 0 ? -1 : 0; }

}  // namespace

void mSeriesGroupClick(App& app) {
    std::string answer = trimmed(app.ui.AskText(kGroupPrompt, "Select Drifter Grouping Mode", "None"));
    if (answer.empty()) return;
    int mode = -1;
    if (answer >= "0" && answer < "9:") mode = static_cast<int>(std::nearbyint(leadingNumber(answer) - 1));
    if (mode > 3) mode = -1;
    SeriesOptions& o = app.series.options;
    if (mode >= 0) {
        o.mSeriesGroup = true;
        o.mSeriesGroupCaption = kGroupCaptions[mode];
        app.groupMode = mode;
    } else {
        o.mSeriesGroup = false;
        o.mSeriesGroupCaption = kGroupCaptionOff;
        app.groupMode = -1;
    }
}

void groupDriftersAtStart(Pool& pool, bool group, bool feedAll, bool gather, int retries, int mode, bool gravity,
                          int depth) {
    const int k = std::clamp(retries + (gravity ? 1 : 0), 0, 50);
    const double shrink = std::pow(0.9, k);
    if (pool.drifterCount == 1) {
        DrifterRec only = pool.drifters[0];
        pool.drifters.assign(2, only);
        pool.drifterCount = 2;
    }
    const int n = pool.drifterCount;
    if (n < 1) return;  // never reached by a series, which stops at an empty pool first
    const double share = 500.0 / n;
    const Ring ring = ringOf(n);
    if (mode == 0) orderBySimilarity(pool, depth);
    if (mode == 1) orderBySegmentCount(pool);
    for (int i = 0; i < n; ++i) {
        DrifterRec& d = pool.drifters[at(i)];
        if (feedAll && d.energy < 500) d.energy = static_cast<float>(d.energy + share + 20);
        double px = 0, py = 0;
        if (group && positionOf(d, i, n, mode, ring, shrink, px, py))
            MoveDrifter(pool, static_cast<std::int16_t>(i), static_cast<float>(px), static_cast<float>(py));
    }
    if (feedAll) pool.drifters[0].energy += 500;
    if (gather)
        for (int f = 0; f < pool.foodCount; ++f) {
            FoodBit& b = pool.food[at(f)];
            if (!(std::sqrt(static_cast<double>(b.x) * b.x + static_cast<double>(b.y) * b.y) > 200)) continue;
            b.x = static_cast<float>(b.x / 3.0 + 10 * sign(b.x));
            b.y = static_cast<float>(b.y / 3.0 + 10 * sign(b.y));
        }
}

void orderBySimilarity(Pool& pool, int depth) {
    const int n = std::max(pool.drifterCount, 0);
    depth = std::clamp(depth, 0, kGeneCount);
    // The chain is built on indices; the records move once at the end.
    std::vector<int> order(at(n));
    std::iota(order.begin(), order.end(), 0);
    for (int i = 0; i < n; ++i) {
        int best = 100, pick = i + 1;
        const std::uint8_t* a = pool.drifters[at(order[at(i)])].genes;
        for (int j = i + 1; j < n; ++j) {
            // Counting may stop once the pair can no longer come nearer than the best so far.
            int equal = equalGeneCountOutside(a, pool.drifters[at(order[at(j)])].genes, depth, 0, depth - best);
            int d = depth - equal;
            if (d < best) {
                best = d;
                pick = j;
            }
        }
        if (pick != i + 1 && pick < n)
            std::rotate(order.begin() + i + 1, order.begin() + pick, order.begin() + pick + 1);
    }
    reorder(pool, order);
}

void orderBySegmentCount(Pool& pool) {
    const int n = std::max(pool.drifterCount, 0);
    std::vector<int> order(at(n));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return pool.drifters[at(a)].segmentCount < pool.drifters[at(b)].segmentCount;
    });
    reorder(pool, order);
}

}  // namespace aq
