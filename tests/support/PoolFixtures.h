#pragma once
// Small pools built in code for tests.
#include <cstring>
#include <vector>

#include "files/PoolOps.h"
#include "format/PoolFile.h"

namespace aqtest {

// The embedded default pool, parsed.
inline aq::Pool defaultPool() {
    aq::Pool p;
    aq::parsePool(aq::defaultPoolBytes(), p);
    return p;
}

// A drifter with `segments` segments of the given colour, alive, at (x, y).
inline aq::DrifterRec makeDrifter(int id, int segments = 1, int color = 0, float x = 0, float y = 0) {
    aq::DrifterRec d;
    std::memset(&d, 0, sizeof d);
    d.id = id;
    d.segmentCount = segments;
    d.alive = 1;
    d.x = d.prevX = x;
    d.y = d.prevY = y;
    for (int s = 0; s < segments && s < aq::kSegmentSlots; ++s) d.segments[s].color = color;
    return d;
}

// A pool of `n` drifters and `m` food bits, every carried byte patterned so a
// test notices one that is lost.
inline aq::Pool makePool(int n, int m, int version = 4) {
    aq::Pool p;
    p.version = version;
    p.clock = 77;
    p.headerWord = 1;
    p.drifterCount = n;
    p.drifters.resize(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) {
        auto* bytes = reinterpret_cast<unsigned char*>(&p.drifters[static_cast<std::size_t>(i)]);
        for (std::size_t b = 0; b < sizeof(aq::DrifterRec); ++b) bytes[b] = static_cast<unsigned char>(b * 7 + i);
        p.drifters[static_cast<std::size_t>(i)].segmentCount = 1 + i % 16;
        p.drifters[static_cast<std::size_t>(i)].id = i;
    }
    p.foodCount = m;
    p.food.resize(static_cast<std::size_t>(m));
    for (int i = 0; i < m; ++i) {
        auto* bytes = reinterpret_cast<unsigned char*>(&p.food[static_cast<std::size_t>(i)]);
        for (std::size_t b = 0; b < sizeof(aq::FoodBit); ++b) bytes[b] = static_cast<unsigned char>(b * 13 + i);
    }
    p.worldValueA = 8000;
    p.worldValueB = 4.891f;
    p.minX = p.minY = -4000;
    p.maxX = p.maxY = 4000;
    for (std::size_t b = 0; b < p.historyBlock.size(); ++b) p.historyBlock[b] = static_cast<unsigned char>(b * 31);
    p.lastWord = 2;
    return p;
}

// A pool of these drifters and `food` patterned food bits.
inline aq::Pool poolOf(std::vector<aq::DrifterRec> drifters, int food = 0) {
    aq::Pool p = makePool(0, food);
    p.drifterCount = static_cast<int>(drifters.size());
    p.drifters = std::move(drifters);
    return p;
}

}  // namespace aqtest
