// The embedded default pool gives the figures its users know from the program's
// documentation: a tutorial written for it shows the same numbers here.
#include <gtest/gtest.h>

#include "foodeditor/FoodList.h"
#include "pooleditor/Minorities.h"
#include "support/PoolFixtures.h"

using namespace aq;

TEST(DefaultPoolFigures, MinorityKeysPerStage) {
    Pool p = aqtest::defaultPool();
    EXPECT_EQ(distinctMinorityKeys(p, {true, false, false, false}), 12);
    EXPECT_EQ(distinctMinorityKeys(p, {false, true, false, false}), 33);
    EXPECT_EQ(distinctMinorityKeys(p, {false, false, true, false}), 38);
    EXPECT_EQ(distinctMinorityKeys(p, {false, false, false, true}), 28);
}

TEST(DefaultPoolFigures, FoodLinesOnTheCircle) {
    Pool p = aqtest::defaultPool();
    EXPECT_EQ(FoodLineText(p.food[0]), "{0} Food bit @ 100X, 0Y. ");
    EXPECT_EQ(FoodLineText(p.food[1]), "{1} Food bit @ 50X, 86.60254Y. ");
    EXPECT_EQ(FoodLineText(p.food[3]), "{3} Food bit @ -100X, 5.358979E-06Y. ");
}
