// Builds data/default.aqp, the pool the program carries inside itself: the fixed
// frame (header, 49 drifters with their segment counts, six food bits on a circle,
// bounds and walls) and deterministic genomes and bodies that look evolved.
//
// usage: build_default_pool OUTPUT
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "pool/PoolFile.h"

using namespace aq;

namespace {

const int kSegmentCounts[49] = {1, 5,  9,  5,  7,  10, 8,  8,  7,  10, 8,  7,  7,  9,  3,  11, 5,
                                12, 3, 9,  7,  8,  9,  9,  10, 5,  4,  9,  9,  3,  4,  5,  11, 3,
                                7, 11, 3, 11, 12, 12, 15, 15, 15, 15, 15, 4,  5,  5,  6};

// A small deterministic generator (xorshift) so the file never depends on the library.
struct Rng {
    std::uint64_t s;
    std::uint32_t next() {
        s ^= s << 13;
        s ^= s >> 7;
        s ^= s << 17;
        return static_cast<std::uint32_t>(s >> 11);
    }
    double uniform() { return next() / 4294967296.0; }
    int below(int n) { return static_cast<int>(uniform() * n); }
};

// Hand-set line facts for drifters the documentation shows.
struct Shown {
    int index, age, mother, father, meals;
    float energy, x, y;
    std::vector<int> colors;  // colour of each segment
};

const Shown kShown[] = {
    {1, 1941, 0, 3, 3, 46.31878f, 51.0f, 77.0f, {2, 0, 3, 3, 0}},
    {12, 1907, 2, 1, 2, 47.87592f, -24.0f, -44.0f, {4, 4, 3, 4, 3, 3, 4}},
    {35, 1811, 1, 2, 0, 0.0f, -85.0f, 116.0f, {2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2}},
};

void buildBody(DrifterRec& d, Rng& rng, const std::vector<int>* colors) {
    int n = d.segmentCount;
    // A tree of segments: each hangs on an earlier one, mostly on the one before it.
    int parent[kSegmentSlots];
    parent[0] = -1;
    for (int s = 1; s < n; ++s) parent[s] = (rng.below(4) == 0 && s > 1) ? rng.below(s) : s - 1;
    double dirX[kSegmentSlots], dirY[kSegmentSlots], endX[kSegmentSlots], endY[kSegmentSlots];
    double pts[kSegmentSlots][8];
    d.totalLength = 0;
    d.mass = 0;
    double heading = rng.uniform() * 360.0;
    d.heading = static_cast<float>(heading);
    int baseColor = rng.below(6);
    for (int s = 0; s < n; ++s) {
        Segment& g = d.segments[s];
        g.color = colors ? (*colors)[static_cast<std::size_t>(s)] : (rng.below(3) == 0 ? rng.below(6) : baseColor);
        g.length = static_cast<float>(6 + rng.below(30));
        g.width = static_cast<float>(2 + rng.below(10));
        g.mass = g.length * g.width;
        d.totalLength += g.length;
        d.mass += g.mass;
        double angle;
        double sx, sy;
        if (s == 0) {
            angle = heading * M_PI / 180.0;
            sx = -std::cos(angle) * g.length / 2;
            sy = -std::sin(angle) * g.length / 2;
        } else {
            int p = parent[s];
            angle = std::atan2(dirY[p], dirX[p]) + (rng.uniform() - 0.5) * 1.6;
            sx = endX[p];
            sy = endY[p];
        }
        dirX[s] = std::cos(angle);
        dirY[s] = std::sin(angle);
        endX[s] = sx + dirX[s] * g.length;
        endY[s] = sy + dirY[s] * g.length;
        double nx = -dirY[s] * g.width / 2, ny = dirX[s] * g.width / 2;
        double corners[8] = {sx + nx, sy + ny, endX[s] + nx, endY[s] + ny, endX[s] - nx, endY[s] - ny, sx - nx, sy - ny};
        std::memcpy(pts[s], corners, sizeof corners);
    }
    for (int s = 0; s < n; ++s) {
        Segment& g = d.segments[s];
        int hanging = 0;
        for (int t = s + 1; t < n; ++t) {
            for (int a = parent[t]; a >= 0; a = parent[a])
                if (a == s) {
                    if (hanging < 16) g.branchList[hanging] = t + 1;
                    ++hanging;
                    break;
                }
        }
        g.branchCount = hanging;
        float* p = &g.point1X;
        for (int k = 0; k < 8; ++k) p[k] = static_cast<float>(pts[s][k] + (k % 2 == 0 ? d.x : d.y));
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: build_default_pool OUTPUT\n");
        return 2;
    }
    Rng rng{0x5eed1234abcdULL};
    Pool pool;
    pool.version = 4;
    pool.clock = 51;
    pool.headerWord = 1;
    pool.drifterCount = 49;
    pool.drifters.assign(49, DrifterRec{});

    // Founders whose descendants share long runs of genes.
    std::vector<std::vector<std::uint8_t>> founders(6, std::vector<std::uint8_t>(kGeneCount));
    for (auto& f : founders)
        for (auto& g : f) g = (rng.below(5) == 0) ? 0 : static_cast<std::uint8_t>(rng.next());

    for (int i = 0; i < 49; ++i) {
        DrifterRec& d = pool.drifters[static_cast<std::size_t>(i)];
        std::memset(&d, 0, sizeof d);
        d.id = i;
        d.segmentCount = kSegmentCounts[i];
        d.carried1[0] = 0;
        d.carried1[1] = 1;
        d.alive = 1;
        d.age = 1500 + rng.below(500);
        d.energy = static_cast<float>(20 + rng.below(4000) / 100.0);
        d.energyEfficiency = 1.0f;
        d.mealsEaten = rng.below(4);
        d.maternalOffspring = rng.below(3);
        d.paternalOffspring = rng.below(3);
        double r = 50 + rng.uniform() * 250, a = rng.uniform() * 2 * M_PI;
        d.x = static_cast<float>(std::round(r * std::cos(a)));
        d.y = static_cast<float>(std::round(r * std::sin(a)));
        const std::vector<int>* colors = nullptr;
        for (const Shown& s : kShown)
            if (s.index == i) {
                d.age = s.age;
                d.maternalOffspring = s.mother;
                d.paternalOffspring = s.father;
                d.mealsEaten = s.meals;
                d.energy = s.energy;
                d.x = s.x;
                d.y = s.y;
                colors = &s.colors;
            }
        d.velocityX = static_cast<float>((rng.uniform() - 0.5) * 2);
        d.velocityY = static_cast<float>((rng.uniform() - 0.5) * 2);
        d.prevX = d.x - d.velocityX;
        d.prevY = d.y - d.velocityY;
        double h = rng.uniform() * 2 * M_PI;
        d.carried4[0] = static_cast<float>(std::cos(h));
        d.carried4[1] = static_cast<float>(std::sin(h));
        if (i > 0) {
            const auto& f = founders[static_cast<std::size_t>(i % 6)];
            for (int g = 0; g < kGeneCount; ++g)
                d.genes[g] = (rng.below(8) == 0) ? static_cast<std::uint8_t>(rng.next()) : f[static_cast<std::size_t>(g)];
        }
        buildBody(d, rng, colors);
    }

    pool.foodCount = 6;
    pool.food.assign(6, FoodBit{});
    for (int k = 0; k < 6; ++k) {
        double a = k * 3.1415926 / 3;
        pool.food[static_cast<std::size_t>(k)].family = static_cast<std::uint8_t>(k);
        pool.food[static_cast<std::size_t>(k)].x = static_cast<float>(100 * std::cos(a));
        pool.food[static_cast<std::size_t>(k)].y = static_cast<float>(100 * std::sin(a));
    }

    pool.worldValueA = 8000.0f;
    pool.worldValueB = 4.891f;
    pool.minX = -4000.0f;
    pool.minY = -4000.0f;
    pool.maxX = 4000.0f;
    pool.maxY = 4000.0f;
    GreatWall& w0 = pool.walls[0];
    w0.orientation = 1;
    w0.left = -2430;
    w0.right = -2370;
    w0.bottom = -2950;
    w0.top = -2250;
    w0.wallLength = 700;
    w0.wallFlag = -1;
    GreatWall& w1 = pool.walls[1];
    w1.orientation = 0;
    w1.left = -2800;
    w1.right = -1800;
    w1.bottom = -3230;
    w1.top = -3170;
    w1.wallLength = 1000;
    w1.wallFlag = -1;
    pool.lastWord = 2;

    std::string error = writePool(argv[1], pool);
    if (!error.empty()) {
        std::fprintf(stderr, "build_default_pool: %s: %s\n", argv[1], error.c_str());
        return 1;
    }
    return 0;
}
