#include "Bodies.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <set>
#include <vector>

using namespace aq;

namespace {

struct Plan {
    std::vector<int> parent;  // parent[0] = -1; others hang on an earlier segment
    std::vector<int> color;
    bool fixedColors = false;
};

// Distinct keys the minorities pass finds in the default pool.
constexpr int kBranchKeys = 33, kColorOrderKeys = 38, kColorSetKeys = 28;

std::vector<int> descendants(const Plan& p) {
    int n = static_cast<int>(p.parent.size());
    std::vector<int> count(static_cast<std::size_t>(n), 0);
    for (int s = n - 1; s > 0; --s) {
        int par = p.parent[static_cast<std::size_t>(s)];
        count[static_cast<std::size_t>(par)] += count[static_cast<std::size_t>(s)] + 1;
    }
    return count;
}

std::vector<int> collapsed(const std::vector<int>& v) {
    std::vector<int> out;
    for (int x : v)
        if (out.empty() || out.back() != x) out.push_back(x);
    return out;
}

int colorSet(const Plan& p) {
    int mask = 0;
    for (int c : p.color) mask |= 1 << c;
    return mask;
}

int distance(const std::vector<Plan>& plans) {
    std::set<std::vector<int>> branch, order;
    std::set<int> sets;
    for (const Plan& p : plans) {
        branch.insert(collapsed(descendants(p)));
        order.insert(collapsed(p.color));
        sets.insert(colorSet(p));
    }
    return std::abs(static_cast<int>(branch.size()) - kBranchKeys) +
           std::abs(static_cast<int>(order.size()) - kColorOrderKeys) +
           std::abs(static_cast<int>(sets.size()) - kColorSetKeys);
}

void randomTree(Plan& p, Rng& rng) {
    for (std::size_t s = 1; s < p.parent.size(); ++s)
        p.parent[s] = rng.below(10) < 7 ? static_cast<int>(s) - 1 : rng.below(static_cast<int>(s));
}

void randomColors(Plan& p, Rng& rng) {
    int kinds = 1 + rng.below(3);
    int palette[3] = {rng.below(6), rng.below(6), rng.below(6)};
    int current = palette[0];
    for (int& c : p.color) {
        if (rng.below(3) == 0) current = palette[rng.below(kinds)];
        c = current;
    }
}

// Corner points: each segment is a rectangle from where it hangs on its parent,
// turned a little from the parent's direction; the body is centred on (x, y).
void placeBody(DrifterRec& d, const Plan& plan, Rng& rng) {
    int n = d.segmentCount;
    std::vector<double> dirX(static_cast<std::size_t>(n)), dirY(static_cast<std::size_t>(n)),
        endX(static_cast<std::size_t>(n)), endY(static_cast<std::size_t>(n));
    std::vector<int> hanging = descendants(plan);
    double heading = rng.uniform() * 360.0;
    d.heading = static_cast<float>(heading);
    d.totalLength = 0;
    d.mass = 0;
    for (int s = 0; s < n; ++s) {
        auto si = static_cast<std::size_t>(s);
        Segment& g = d.segments[s];
        g.color = plan.color[si];
        g.branchCount = hanging[si];
        g.length = static_cast<float>(5 + rng.below(12));
        g.width = static_cast<float>(2 + rng.below(7));
        g.mass = g.length * g.width;
        d.totalLength += g.length;
        d.mass += g.mass;
        double angle, sx, sy;
        if (s == 0) {
            angle = heading * M_PI / 180.0;
            sx = -std::cos(angle) * g.length / 2;
            sy = -std::sin(angle) * g.length / 2;
        } else {
            auto p = static_cast<std::size_t>(plan.parent[si]);
            angle = std::atan2(dirY[p], dirX[p]) + (rng.uniform() - 0.5) * 1.6;
            sx = endX[p];
            sy = endY[p];
        }
        dirX[si] = std::cos(angle);
        dirY[si] = std::sin(angle);
        endX[si] = sx + dirX[si] * g.length;
        endY[si] = sy + dirY[si] * g.length;
        double nx = -dirY[si] * g.width / 2, ny = dirX[si] * g.width / 2;
        double corners[8] = {sx + nx, sy + ny, endX[si] + nx, endY[si] + ny, endX[si] - nx, endY[si] - ny, sx - nx, sy - ny};
        float* pt = &g.point1X;
        for (int k = 0; k < 8; ++k) pt[k] = static_cast<float>(corners[k] + (k % 2 == 0 ? d.x : d.y));
        // The segments hanging on this one, counted from 1.
        int listed = 0;
        for (int t = s + 1; t < n && listed < 16; ++t)
            for (int a = plan.parent[static_cast<std::size_t>(t)]; a >= 0; a = plan.parent[static_cast<std::size_t>(a)])
                if (a == s) {
                    g.branchList[listed++] = t + 1;
                    break;
                }
    }
}

}  // namespace

void buildBodies(Pool& pool, Rng& rng) {
    std::vector<Plan> plans(49);
    for (int i = 0; i < 49; ++i) {
        Plan& p = plans[static_cast<std::size_t>(i)];
        int n = pool.drifters[static_cast<std::size_t>(i)].segmentCount;
        p.parent.assign(static_cast<std::size_t>(n), 0);
        p.parent[0] = -1;
        p.color.assign(static_cast<std::size_t>(n), 0);
        randomTree(p, rng);
        randomColors(p, rng);
    }
    plans[0].color = {0};
    plans[0].fixedColors = true;
    plans[1].color = {2, 0, 3, 3, 0};
    plans[12].color = {4, 4, 3, 4, 3, 3, 4};
    plans[35].color = std::vector<int>(11, 2);
    for (int i : {1, 12, 35}) plans[static_cast<std::size_t>(i)].fixedColors = true;

    // Local search until the key counts come out right: change one body at a
    // time, keeping the change unless it moves the counts further away.
    int best = distance(plans);
    for (int step = 0; best > 0 && step < 200000; ++step) {
        int i = 1 + rng.below(48);
        Plan before = plans[static_cast<std::size_t>(i)];
        Plan& p = plans[static_cast<std::size_t>(i)];
        int move = rng.below(4);
        if (move == 0) {
            randomTree(p, rng);
        } else if (move == 1) {
            int j = rng.below(49);
            if (plans[static_cast<std::size_t>(j)].parent.size() == p.parent.size()) p.parent = plans[static_cast<std::size_t>(j)].parent;
        } else if (!p.fixedColors && move == 2) {
            randomColors(p, rng);
        } else if (!p.fixedColors) {
            const Plan& other = plans[static_cast<std::size_t>(rng.below(49))];
            for (std::size_t s = 0; s < p.color.size(); ++s) p.color[s] = other.color[std::min(s, other.color.size() - 1)];
        }
        int now = distance(plans);
        if (now <= best)
            best = now;
        else
            p = before;
    }
    for (int i = 0; i < 49; ++i) placeBody(pool.drifters[static_cast<std::size_t>(i)], plans[static_cast<std::size_t>(i)], rng);
}
