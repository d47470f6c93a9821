#include "generator/Placement.h"

#include <cmath>

namespace aq {

namespace {
int usedSegments(const DrifterRec& d) {
    if (d.segmentCount < 0) return 0;
    return d.segmentCount < kSegmentSlots ? d.segmentCount : kSegmentSlots;
}
}  // namespace

void ResetDrifter(Pool& pool, std::int16_t index, float age, float energy) {
    DrifterRec& d = pool.drifters[static_cast<std::size_t>(index)];
    d.prevX = 0;
    d.prevY = 0;
    for (int s = 0; s < usedSegments(d); ++s) {
        Segment& g = d.segments[s];
        g.point1X = g.point1Y = g.point2X = g.point2Y = 0;
        g.point3X = g.point3Y = g.point4X = g.point4Y = 0;
    }
    d.x = 0;
    d.y = 0;
    d.age = static_cast<std::int32_t>(std::nearbyint(age));
    d.alive = 1;
    d.energy = energy;
    d.mealsEaten = 0;
    d.maternalOffspring = 0;
    d.paternalOffspring = 0;
    d.velocityX = 0;
}

void MoveDrifter(Pool& pool, std::int16_t index, float x, float y) {
    DrifterRec& d = pool.drifters[static_cast<std::size_t>(index)];
    const float ox = d.x;
    const float oy = d.y;
    // Subtract first, then add, each step rounded to a float, so a body moved back
    // and forth ends where the simulator expects it.
    auto sx = [&](float v) -> float { return (v - ox) + x; };
    auto sy = [&](float v) -> float { return (v - oy) + y; };
    d.prevX = sx(d.prevX);
    d.prevY = sy(d.prevY);
    for (int s = 0; s < usedSegments(d); ++s) {
        Segment& g = d.segments[s];
        g.point1X = sx(g.point1X);
        g.point1Y = sy(g.point1Y);
        g.point2X = sx(g.point2X);
        g.point2Y = sy(g.point2Y);
        g.point3X = sx(g.point3X);
        g.point3Y = sy(g.point3Y);
        g.point4X = sx(g.point4X);
        g.point4Y = sy(g.point4Y);
    }
    d.x = x;
    d.y = y;
}

}  // namespace aq
