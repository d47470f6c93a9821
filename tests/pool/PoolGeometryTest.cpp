#include <gtest/gtest.h>

#include "format/PoolGeometry.h"
#include "support/PoolFixtures.h"

using namespace aq;

TEST(PoolGeometry, FindsBodiesAndFoodUnderAPoint) {
    Pool pool = aqtest::makePool(0, 0);
    DrifterRec a = aqtest::makeDrifter(0, 1, 0, 100, 100);
    Segment& s = a.segments[0];
    s.point1X = 90, s.point1Y = 95, s.point2X = 110, s.point2Y = 95, s.point3X = 110, s.point3Y = 105;
    s.point4X = 90, s.point4Y = 105;
    DrifterRec b = a;  // drawn on top of a
    b.id = 1;
    pool.drifters = {a, b, aqtest::makeDrifter(2, 0, 0, 500, 500)};
    pool.drifterCount = 3;
    EXPECT_EQ(drifterAt(pool, 100, 100, 0), 1);
    EXPECT_EQ(drifterAt(pool, 109, 96, 0), 1);
    EXPECT_EQ(drifterAt(pool, 111, 96, 0), -1);
    EXPECT_EQ(drifterAt(pool, 503, 500, 5), 2);
    pool.drifterCount = 1;  // the count rules, not the array
    EXPECT_EQ(drifterAt(pool, 100, 100, 0), 0);
    EXPECT_EQ(drifterAt(pool, 503, 500, 5), -1);
    WorldRect r = drifterBounds(a);
    EXPECT_EQ(r.left, 90);
    EXPECT_EQ(r.top, 105);

    pool.food.resize(2);
    pool.food[0].x = 0, pool.food[0].y = 0;
    pool.food[1].x = 10, pool.food[1].y = 0;
    pool.foodCount = 2;
    EXPECT_EQ(foodAt(pool, 6, 0, 5), 1);
    EXPECT_EQ(foodAt(pool, 4, 0, 5), 0);
    EXPECT_EQ(foodAt(pool, 50, 0, 5), -1);
}
