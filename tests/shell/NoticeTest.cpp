// When the notice window may go by itself.
#include <gtest/gtest.h>

#include "shell/App.h"
#include "support/ManualClock.h"
#include "support/ScriptedUi.h"

namespace {

TEST(Notice, FadesFiveSecondsAfterTheLastStirOnceBothListsAreFree) {
    struct Case {
        double since;
        bool poolList, dnaList, fades;
    } cases[] = {
        {5.0, true, true, false},  {5.1, true, true, true},   {60, false, true, false},
        {60, true, false, false},  {0.5, true, true, false},  {60, true, true, true},
    };
    for (const Case& c : cases) {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aq::App app(ui, clock);
        app.lstSpeciatePool.setEnabled(c.poolList);
        app.lstSpeciateDrifters.setEnabled(c.dnaList);
        double stir = clock.seconds;
        clock.advance(c.since);
        EXPECT_EQ(aq::noticeMayFade(app, stir), c.fades) << c.since << c.poolList << c.dnaList;
    }
}

TEST(Notice, AStirJustBeforeMidnightCountsAcrossIt) {
    aqtest::ScriptedUi ui;
    aqtest::ManualClock clock;
    aq::App app(ui, clock);
    clock.seconds = 86398.0;
    double stir = clock.seconds;
    clock.seconds = 2.0;
    EXPECT_FALSE(aq::noticeMayFade(app, stir));
    clock.seconds = 4.0;
    EXPECT_TRUE(aq::noticeMayFade(app, stir));
}

}  // namespace
