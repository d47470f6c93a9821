// When the notice window may go by itself.
#include <gtest/gtest.h>

#include "shell/MultiTask.h"
#include "state/App.h"
#include "support/ManualClock.h"
#include "support/ScriptedUi.h"

namespace {

TEST(Notice, FadesFiveSecondsAfterTheLastStirOnceBothListsAreFree) {
    struct Case {
        double since;
        bool poolList, dnaList, fades;
    } cases[] = {
        {5.0, true, true, false}, {5.1, true, true, true},  {60, false, true, false},
        {60, true, false, false}, {0.5, true, true, false}, {60, true, true, true},
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

}  // namespace
