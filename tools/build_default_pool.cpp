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

#include "default_pool/Bodies.h"
#include "default_pool/Genomes.h"
#include "default_pool/Rng.h"
#include "format/PoolFile.h"

using namespace aq;

namespace {

const int kSegmentCounts[49] = {1, 5,  9,  5,  7,  10, 8,  8,  7,  10, 8,  7,  7,  9,  3,  11, 5,
                                12, 3, 9,  7,  8,  9,  9,  10, 5,  4,  9,  9,  3,  4,  5,  11, 3,
                                7, 11, 3, 11, 12, 12, 15, 15, 15, 15, 15, 4,  5,  5,  6};

// Hand-set line facts for drifters the documentation shows.
struct Shown {
    int index, age, mother, father, meals;
    float energy, x, y;
};

const Shown kShown[] = {
    {1, 1941, 0, 3, 3, 46.31878f, 51.0f, 77.0f},
    {12, 1907, 2, 1, 2, 47.87592f, -24.0f, -44.0f},
    {35, 1811, 1, 2, 0, 0.0f, -85.0f, 116.0f},
};

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
        double r = 80 + rng.uniform() * 700, a = rng.uniform() * 2 * M_PI;
        d.x = static_cast<float>(std::round(r * std::cos(a)));
        d.y = static_cast<float>(std::round(r * std::sin(a)));
        for (const Shown& s : kShown)
            if (s.index == i) {
                d.age = s.age;
                d.maternalOffspring = s.mother;
                d.paternalOffspring = s.father;
                d.mealsEaten = s.meals;
                d.energy = s.energy;
                d.x = s.x;
                d.y = s.y;
            }
        d.velocityX = static_cast<float>((rng.uniform() - 0.5) * 2);
        d.velocityY = static_cast<float>((rng.uniform() - 0.5) * 2);
        d.prevX = d.x - d.velocityX;
        d.prevY = d.y - d.velocityY;
        double h = rng.uniform() * 2 * M_PI;
        d.carried4[0] = static_cast<float>(std::cos(h));
        d.carried4[1] = static_cast<float>(std::sin(h));
    }
    buildGenomes(pool, rng);
    buildBodies(pool, rng);

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
