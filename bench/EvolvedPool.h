#pragma once
// Pools that look evolved, for the benchmarks that read many of them.
#include <random>

#include "format/Records.h"
#include "support/PoolFixtures.h"

namespace {

// Evolved-looking drifters: bodies of 1 to 16 segments in a handful of colours and
// branchings, so that many shapes recur across the folder.
aq::Pool evolvedPool(std::mt19937& rng) {
    auto pick = [&](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
    aq::Pool p = aqtest::makePool(0, 500);
    p.drifters.resize(2000);
    p.drifterCount = 2000;
    for (int i = 0; i < 2000; ++i) {
        aq::DrifterRec d = aqtest::makeDrifter(i, 1 + pick(8) + pick(9));
        for (int s = 0; s < d.segmentCount; ++s) {
            d.segments[s].color = pick(3) == 0 ? pick(6) : s % 2;
            d.segments[s].branchCount = s == 0 ? d.segmentCount - 1 : pick(2);
            d.segments[s].width = static_cast<float>(2 + pick(3));
            d.segments[s].length = static_cast<float>(8 + pick(3));
        }
        d.totalLength = static_cast<float>(9 * d.segmentCount + pick(40));
        d.mass = static_cast<float>(20 * d.segmentCount + pick(200));
        d.alive = pick(5) != 0;
        d.age = pick(20000);
        d.mealsEaten = pick(10);
        d.maternalOffspring = pick(4);
        d.paternalOffspring = pick(4);
        d.velocityX = pick(3) ? 0.001f : 0;
        for (int g = 0; g < aq::kGeneCount; ++g) d.genes[g] = static_cast<std::uint8_t>(pick(4));
        p.drifters[static_cast<std::size_t>(i)] = d;
    }
    return p;
}

}  // namespace
