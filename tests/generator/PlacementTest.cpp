// Resetting and moving a copied drifter as a whole body.
#include <gtest/gtest.h>

#include <cstring>

#include "generator/Placement.h"
#include "support/PoolFixtures.h"

namespace {

aq::Pool poolWithBody(int segments) {
    aq::Pool p = aqtest::makePool(1, 0);
    aq::DrifterRec& d = p.drifters[0];
    d.segmentCount = segments;
    d.x = 10.0f, d.y = -20.0f, d.prevX = 9.0f, d.prevY = -21.0f;
    for (int s = 0; s < aq::kSegmentSlots; ++s) {
        aq::Segment& g = d.segments[s];
        float base = static_cast<float>(s);
        g.point1X = 11 + base, g.point1Y = -19 + base, g.point2X = 12 + base, g.point2Y = -18 + base;
        g.point3X = 13 + base, g.point3Y = -17 + base, g.point4X = 14 + base, g.point4Y = -16 + base;
    }
    return p;
}

std::vector<float> points(const aq::Segment& g) {
    return {g.point1X, g.point1Y, g.point2X, g.point2Y, g.point3X, g.point3Y, g.point4X, g.point4Y};
}

TEST(ResetDrifter, MakesANewbornAtTheOriginAndKeepsTheRest) {
    aq::Pool p = poolWithBody(3);
    aq::DrifterRec& d = p.drifters[0];
    d.alive = 0;
    d.velocityX = 3.0f, d.velocityY = -4.5f;
    d.mealsEaten = 7, d.maternalOffspring = 2, d.paternalOffspring = 5;
    aq::DrifterRec before = d;
    aq::ResetDrifter(p, 0, 2.5f, 50.0f);
    EXPECT_EQ(std::vector<int>({d.alive, d.age, d.mealsEaten, d.maternalOffspring, d.paternalOffspring}),
              std::vector<int>({1, 2, 0, 0, 0}));  // the age rounds half to even
    EXPECT_EQ(std::vector<float>({d.energy, d.velocityX, d.velocityY, d.x, d.y, d.prevX, d.prevY}),
              std::vector<float>({50, 0, -4.5f, 0, 0, 0, 0}));
    for (int s = 0; s < 3; ++s) EXPECT_EQ(points(d.segments[s]), std::vector<float>(8, 0.0f)) << s;
    // Unused segments, the genes and everything else not named stay byte for byte.
    EXPECT_EQ(std::memcmp(&d.segments[3], &before.segments[3], sizeof(aq::Segment) * 13), 0);
    EXPECT_EQ(std::memcmp(d.genes, before.genes, sizeof d.genes), 0);
    EXPECT_EQ(d.heading, before.heading);
    EXPECT_EQ(d.segments[0].length, before.segments[0].length);
    aq::ResetDrifter(p, 0, 3.5f, 1.0f);
    EXPECT_EQ(d.age, 4);
}

TEST(MoveDrifter, CarriesTheWholeBody) {
    aq::Pool p = poolWithBody(2);
    aq::DrifterRec before = p.drifters[0];
    aq::MoveDrifter(p, 0, 110.0f, 80.0f);
    const aq::DrifterRec& d = p.drifters[0];
    EXPECT_EQ(std::vector<float>({d.x, d.y, d.prevX, d.prevY}), std::vector<float>({110, 80, 109, 79}));
    EXPECT_EQ(points(d.segments[1]), std::vector<float>({112, 82, 113, 83, 114, 84, 115, 85}));
    EXPECT_EQ(std::memcmp(&d.segments[2], &before.segments[2], sizeof(aq::Segment) * 14), 0);

    // After a reset every point stands at the new place.
    aq::Pool q = poolWithBody(16);
    aq::ResetDrifter(q, 0, 0, 50.0f);
    aq::MoveDrifter(q, 0, -974.5f, 12.25f);
    for (int s = 0; s < 16; ++s)
        EXPECT_EQ(points(q.drifters[0].segments[s]),
                  std::vector<float>({-974.5f, 12.25f, -974.5f, 12.25f, -974.5f, 12.25f, -974.5f, 12.25f}));
    EXPECT_EQ(q.drifters[0].prevX, -974.5f);
}

TEST(MoveDrifter, SubtractsTheOldPositionBeforeAddingTheNew) {
    // (1 - 1e8) rounds to -1e8 in a float, so the point lands on 0, not on 1.
    aq::Pool p = poolWithBody(1);
    aq::DrifterRec& d = p.drifters[0];
    d.x = 1e8f;
    d.segments[0].point1X = 1.0f;
    d.prevX = 1.0f;
    aq::MoveDrifter(p, 0, 1e8f, 0.0f);
    EXPECT_EQ(d.segments[0].point1X, 0.0f);
    EXPECT_EQ(d.prevX, 0.0f);
}

}  // namespace
