#include "format/PoolGeometry.h"

#include <algorithm>
#include <cmath>

namespace aq {

std::array<std::array<float, 2>, 4> segmentQuad(const Segment& s) {
    return {{{s.point1X, s.point1Y}, {s.point2X, s.point2Y}, {s.point3X, s.point3Y}, {s.point4X, s.point4Y}}};
}

namespace {

int usedSegments(const DrifterRec& d) { return std::clamp(d.segmentCount, 0, kSegmentSlots); }

// Which of the first `n` records lies nearest to (x, y) within `slack`; of equals, the last.
template <class Rec>
int nearest(const std::vector<Rec>& records, int n, float x, float y, float slack) {
    int best = -1;
    float bestDist = slack * slack;
    for (int i = 0; i < n; ++i) {
        const Rec& r = records[static_cast<std::size_t>(i)];
        float dx = r.x - x, dy = r.y - y, dist = dx * dx + dy * dy;
        if (dist <= bestDist) {
            bestDist = dist;
            best = i;
        }
    }
    return best;
}

// Whether (x, y) lies in the quadrilateral, by the crossing rule (works for any
// simple polygon, whichever way round its corners run).
bool inQuad(const std::array<std::array<float, 2>, 4>& q, float x, float y) {
    bool inside = false;
    for (int i = 0, j = 3; i < 4; j = i++) {
        float yi = q[static_cast<std::size_t>(i)][1], yj = q[static_cast<std::size_t>(j)][1];
        float xi = q[static_cast<std::size_t>(i)][0], xj = q[static_cast<std::size_t>(j)][0];
        if ((yi > y) != (yj > y) && x < (xj - xi) * (y - yi) / (yj - yi) + xi) inside = !inside;
    }
    return inside;
}

}  // namespace

WorldRect drifterBounds(const DrifterRec& d) {
    WorldRect r{d.x, d.y, d.x, d.y};
    for (int s = 0; s < usedSegments(d); ++s)
        for (const auto& p : segmentQuad(d.segments[s])) {
            if (!std::isfinite(p[0]) || !std::isfinite(p[1])) continue;
            r.left = std::min(r.left, p[0]);
            r.right = std::max(r.right, p[0]);
            r.bottom = std::min(r.bottom, p[1]);
            r.top = std::max(r.top, p[1]);
        }
    return r;
}

int drifterAt(const Pool& pool, float x, float y, float slack) {
    int n = std::min<int>(pool.drifterCount, static_cast<int>(pool.drifters.size()));
    for (int i = n - 1; i >= 0; --i) {
        const DrifterRec& d = pool.drifters[static_cast<std::size_t>(i)];
        if (!drifterBounds(d).contains(x, y)) continue;
        for (int s = 0; s < usedSegments(d); ++s)
            if (inQuad(segmentQuad(d.segments[s]), x, y)) return i;
    }
    return nearest(pool.drifters, n, x, y, slack);
}

int foodAt(const Pool& pool, float x, float y, float slack) {
    int n = std::min<int>(pool.foodCount, static_cast<int>(pool.food.size()));
    return nearest(pool.food, n, x, y, slack);
}

}  // namespace aq
