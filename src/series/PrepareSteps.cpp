#include "series/PrepareSteps.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <vector>

#include "generator/Placement.h"
#include "generator/Random.h"

namespace aq {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

int liveCount(const Pool& pool) {
    int live = 0;
    for (int i = 0; i < pool.drifterCount; ++i) live += pool.drifters[at(i)].alive != 0;
    return live;
}

std::int32_t rounded(double v) { return static_cast<std::int32_t>(std::nearbyint(v)); }

}  // namespace

void markStillborns(Pool& pool) {
    for (int i = 0; i < pool.drifterCount; ++i) {
        DrifterRec& d = pool.drifters[at(i)];
        if (!(std::fabs(d.velocityX) < 0.00004f && static_cast<double>(d.energy) + 200 < d.age)) continue;
        d.alive = 0;
        d.x = d.y = d.prevX = d.prevY = 0;
        for (int s = 0; s < usedSegmentCount(d); ++s) {
            Segment& g = d.segments[s];
            g.point1X = g.point1Y = g.point2X = g.point2Y = 0;
            g.point3X = g.point3Y = g.point4X = g.point4Y = 0;
        }
    }
}

void ensureMinimumDrifters(Pool& pool, int n) {
    const int target = std::clamp(std::abs(n), 2, 200);
    const int count = pool.drifterCount;
    if (count <= 0) return;
    if (count >= target) {
        int live = 0;
        for (int i = 0; i < count && live < target; ++i) live += pool.drifters[at(i)].alive != 0;
        for (int i = 0; i < count && live < target; ++i) {
            DrifterRec& d = pool.drifters[at(i)];
            if (d.alive == 0) {
                d.alive = 1;
                ++live;
            }
        }
        return;
    }
    std::vector<DrifterRec> copies(at(target));
    for (int k = 0; k < target; ++k) {
        DrifterRec& d = copies[at(k)] = pool.drifters[at(k % count)];
        d.alive = 1;
        if (d.energy < 50) d.energy += (d.x > 3900 || d.y > 3900) ? 10.0f : 50.0f;
    }
    pool.drifters = std::move(copies);
    pool.drifterCount = target;
}

void limitLiveDrifters(Pool& pool, int n) {
    const int limit = std::clamp(std::abs(n), 2, 2000);
    int live = 0;
    for (int i = 0; i < pool.drifterCount; ++i) {
        DrifterRec& d = pool.drifters[at(i)];
        if (d.alive == 0) continue;
        if (++live > limit) d.alive = 0;
    }
}

void deleteDeadDrifters(Pool& pool) {
    const int live = liveCount(pool);
    if (live == pool.drifterCount) return;
    std::vector<DrifterRec> kept;
    kept.reserve(at(live));
    for (int i = 0; i < pool.drifterCount; ++i)
        if (pool.drifters[at(i)].alive != 0) kept.push_back(pool.drifters[at(i)]);
    pool.drifters = std::move(kept);
    pool.drifterCount = live;
}

void deleteDeadDrifters(App& app, bool useOpen) {
    Pool& pool = useOpen ? app.openPool : app.workPool;
    if (liveCount(pool) == pool.drifterCount) return;
    deleteDeadDrifters(pool);
    if (useOpen) app.poolChanged = true;
}

void sortDrifters(Pool& pool) {
    const int n = pool.drifterCount;
    // The passes run on the ages and an index per record; the records move once at the end.
    std::vector<std::int32_t> age(at(std::max(n, 0)));
    std::vector<int> order(age.size());
    for (int i = 0; i < n; ++i) age[at(i)] = pool.drifters[at(i)].age;
    std::iota(order.begin(), order.end(), 0);
    for (int gap = n / 2; gap >= 1; gap /= 2) {
        for (int pass = 1;; ++pass) {
            bool swapped = false;
            for (int j = 0; j <= n - 1 - gap * pass; j += gap) {
                if (age[at(j + gap)] < age[at(j)]) {
                    std::swap(age[at(j + gap)], age[at(j)]);
                    std::swap(order[at(j + gap)], order[at(j)]);
                    swapped = true;
                }
            }
            if (!swapped) break;
        }
    }
    std::vector<DrifterRec> sorted(pool.drifters.size());
    for (int i = 0; i < n; ++i) sorted[at(i)] = pool.drifters[at(order[at(i)])];
    for (std::size_t i = at(std::max(n, 0)); i < sorted.size(); ++i) sorted[i] = pool.drifters[i];
    pool.drifters = std::move(sorted);
}

void sortDrifters(App& app, bool useOpen) { sortDrifters(useOpen ? app.openPool : app.workPool); }

void restoreYouth(Pool& pool) {
    for (int i = 0; i < pool.drifterCount; ++i) {
        DrifterRec& d = pool.drifters[at(i)];
        if (!(std::sqrt(static_cast<double>(d.x) * d.x + static_cast<double>(d.y) * d.y) < 3900)) continue;
        const double divisor = d.segmentCount < 2 ? 3 : d.segmentCount == 2 ? 8 : 15;
        d.age = rounded(d.age / divisor);
    }
}

void resetCounters(Pool& pool, bool meals, bool maternal, bool paternal) {
    for (int i = 0; i < pool.drifterCount; ++i) {
        DrifterRec& d = pool.drifters[at(i)];
        if (meals) d.mealsEaten = 0;
        if (maternal) d.maternalOffspring = 0;
        if (paternal) d.paternalOffspring = 0;
    }
}

void drainEdgeEnergy(Pool& pool) {
    for (int i = 0; i < pool.drifterCount; ++i) {
        DrifterRec& d = pool.drifters[at(i)];
        const double e = d.energy;
        // The edge is taken at 4000 whatever the pool's own size.
        double m = std::min(4000 - std::fabs(static_cast<double>(d.y)), 4000 - std::fabs(static_cast<double>(d.x)));
        if (m < 0) m = 0;
        double drain = m <= 300 ? std::sqrt((300 - m) * 10) : 0;
        if (e / 2 + 5 < drain) drain = e / 2 + 5;
        if (drain + 5 < e && drain > 1) d.energy = static_cast<float>(e - drain);
    }
}

void gravitateToCenter(Pool& pool, float percent, bool moveDrifters, bool moveFood) {
    const float w = 1.0f - percent / 100.0f;
    const float f = std::fabs(w - std::floor(w));
    if (moveFood)
        for (int k = 0; k < pool.foodCount; ++k) {
            pool.food[at(k)].x *= f;
            pool.food[at(k)].y *= f;
        }
    if (moveDrifters)
        for (int i = 0; i < pool.drifterCount; ++i) {
            const DrifterRec& d = pool.drifters[at(i)];
            MoveDrifter(pool, static_cast<std::int16_t>(i), f * d.x, f * d.y);
        }
}

void halveAges(Pool& pool) {
    for (int i = 0; i < pool.drifterCount; ++i) pool.drifters[at(i)].age = rounded(pool.drifters[at(i)].age / 2.0);
}

namespace {

// The generator's pairs of numbers come round again after this many draws, so a circle
// that no draw of a whole round has reached is never reached.
constexpr long kPairRound = 1L << 23;

void drawPoint(const Pool& pool, float& px, float& py) {
    const float u = RandomNext();
    const float v = RandomNext();
    px = u * (pool.maxX - pool.minX) + pool.minX;
    py = v * (pool.maxY - pool.minY) + pool.minY;
}

bool inCircle(float px, float py, float r) {
    return std::sqrt(static_cast<double>(px) * px + static_cast<double>(py) * py) <= r;
}

// Whether the pool's rectangle comes near the circle at all; a margin keeps rounding
// from ruling out a point the draws could reach.
bool rectangleMeetsCircle(const Pool& pool, float r) {
    const double x0 = pool.minX, x1 = pool.maxX, y0 = pool.minY, y1 = pool.maxY;
    if (!std::isfinite(x0) || !std::isfinite(x1) || !std::isfinite(y0) || !std::isfinite(y1) || !(r >= 0)) return false;
    const double cx = std::clamp(0.0, std::min(x0, x1), std::max(x0, x1));
    const double cy = std::clamp(0.0, std::min(y0, y1), std::max(y0, y1));
    const double reach = static_cast<double>(r) * 1.001 + 1;
    return cx * cx + cy * cy <= reach * reach;
}

// Points drawn until one falls in the circle, however long that takes. Once the draws
// of a harvest pass an eighth of a round, one round is walked and its hits noted, so each
// later drifter jumps to the next hit instead of drawing millions of times: the points
// and the generator's state are those of drawing one by one.
class CircleDraws {
public:
    CircleDraws(const Pool& pool, float r) : pool_(pool), r_(r), reachable_(rectangleMeetsCircle(pool, r)) {}

    void next(float& px, float& py) {
        if (!walked_) {
            const std::uint32_t start = randomState();
            drawPoint(pool_, px, py);
            if (!reachable_) return;  // no draw can ever fall in: the first point stays
            for (spent_ += 1; !inCircle(px, py, r_); spent_ += 1) {
                if (spent_ >= kPairRound / 8) {
                    walkRound(start);
                    break;
                }
                drawPoint(pool_, px, py);
            }
            if (!walked_) return;
        }
        if (hits_.empty()) {  // a whole round fell outside: the first point stays
            drawPoint(pool_, px, py);
            pos_ = (pos_ + 1) % kPairRound;
            return;
        }
        auto hit =
            std::lower_bound(hits_.begin(), hits_.end(), pos_, [](const Hit& h, long p) { return h.offset < p; });
        if (hit == hits_.end()) hit = hits_.begin();
        px = hit->px;
        py = hit->py;
        setRandomState(hit->stateAfter);
        pos_ = (hit->offset + 1) % kPairRound;
    }

private:
    struct Hit {
        long offset;  // draws from the round's start
        std::uint32_t stateAfter;
        float px, py;
    };

    void walkRound(std::uint32_t start) {
        setRandomState(start);
        for (long k = 0; k < kPairRound; ++k) {
            float x = 0, y = 0;
            drawPoint(pool_, x, y);
            if (inCircle(x, y, r_)) hits_.push_back({k, randomState(), x, y});
        }
        walked_ = true;  // and the state is back at `start`
        pos_ = 0;
    }

    const Pool& pool_;
    float r_;
    bool reachable_;
    bool walked_ = false;
    long spent_ = 0;  // draws before the walk
    long pos_ = 0;    // draws since the round's start, after the walk
    std::vector<Hit> hits_;
};

}  // namespace

void prepareHarvest(Pool& pool, float radius) {
    float r = radius;
    if (pool.drifterCount < 250) r = r / 250 * static_cast<float>(pool.drifterCount);
    CircleDraws draws(pool, r);
    for (int i = 0; i < pool.drifterCount; ++i) {
        DrifterRec& d = pool.drifters[at(i)];
        d.age = rounded(d.age / 75.0 + 150);
        d.mealsEaten = d.maternalOffspring = d.paternalOffspring = 0;
        d.energy = 50.0f;
        if (!(radius > 0)) continue;
        float px = 0, py = 0;
        draws.next(px, py);
        MoveDrifter(pool, static_cast<std::int16_t>(i), px, py);
    }
}

std::int16_t countYoungerThan(const Pool& pool, float limit) {
    int n = 0;
    for (int i = 0; i < pool.drifterCount; ++i) n += static_cast<double>(pool.drifters[at(i)].age) < limit;
    return static_cast<std::int16_t>(n);
}

void deleteStarters(Pool& pool, float limit) {
    for (int i = 0; i < pool.drifterCount; ++i)
        if (static_cast<double>(pool.drifters[at(i)].age) > limit) pool.drifters[at(i)].alive = 0;
    deleteDeadDrifters(pool);
}

}  // namespace aq
