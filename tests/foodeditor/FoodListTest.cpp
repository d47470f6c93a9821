// The food list's lines and how they follow the open pool.
#include <gtest/gtest.h>

#include "foodeditor/FoodList.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"

namespace {

aq::FoodBit food(int family, float x, float y) {
    aq::FoodBit f{};
    f.family = static_cast<std::uint8_t>(family);
    f.x = x;
    f.y = y;
    return f;
}

TEST(FoodLineText, FamilyInHexAndShortNumbers) {
    const struct {
        aq::FoodBit f;
        const char* line;
    } cases[] = {
        {food(1, 50, 86.60254f), "{1} Food bit @ 50X, 86.60254Y. "},
        {food(3, -100, 5.358979e-06f), "{3} Food bit @ -100X, 5.358979E-06Y. "},
        {food(255, 0, 0), "{FF} Food bit @ 0X, 0Y. "},
        {food(10, 507.5f, -0.25f), "{A} Food bit @ 507.5X, -.25Y. "},
        {food(0, 1234567.8f, 3e9f), "{0} Food bit @ 1234568X, 3E+09Y. "},
    };
    for (const auto& c : cases) EXPECT_EQ(aq::FoodLineText(c.f), c.line);
}

TEST(PopulateFoodList, FollowsThePoolAndKeepsTicks) {
    aqtest::ScriptedUi ui;
    aqtest::ManualClock clock;
    aq::App app(ui, clock);
    app.openPool = aqtest::makePool(0, 5);
    for (int i = 0; i < 5; ++i) app.openPool.food[static_cast<std::size_t>(i)] = food(i, static_cast<float>(i), 0);
    aq::populateFoodList(app);
    ASSERT_EQ(app.lstPoolFood.count(), 5);
    EXPECT_EQ(app.lstPoolFood.text(4), "{4} Food bit @ 4X, 0Y. ");
    app.lstPoolFood.setChecked(1, true);
    app.lstPoolFood.setChecked(4, true);

    // Fewer food bits: exactly the surplus lines at the end go; ticks of the rest stay.
    app.openPool.foodCount = 3;
    app.openPool.food[1].x = 9;
    aq::populateFoodList(app);
    ASSERT_EQ(app.lstPoolFood.count(), 3);
    EXPECT_TRUE(app.lstPoolFood.checked(1));
    EXPECT_EQ(app.lstPoolFood.text(1), "{1} Food bit @ 9X, 0Y. ");
    EXPECT_TRUE(app.lstPoolFood.visible());

    app.openPool.foodCount = 0;
    aq::populateFoodList(app);
    EXPECT_EQ(app.lstPoolFood.count(), 0);
    EXPECT_FALSE(app.uiBusy);
}

}  // namespace
