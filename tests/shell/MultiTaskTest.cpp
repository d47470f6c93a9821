// The background timer's list rules on every tick.
#include <gtest/gtest.h>

#include "shell/MultiTask.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"

namespace {

struct Fixture {
    aqtest::ScriptedUi ui;
    aqtest::ManualClock clock;
    aq::App app{ui, clock};
    aq::MultiTask task;
};

TEST(MultiTask, OneDrifterNeedsNoSpeciesPass) {
    Fixture f;
    f.app.openPool = aqtest::makePool(1, 0);
    f.app.poolSpeciesPending = true;
    f.app.lstSpeciatePool.setVisible(false);
    f.app.lstSpeciatePool.setEnabled(false);
    f.task.phase = 1;  // not the pool's phase
    f.task.restart = false;
    aq::tmrMultiTaskTick(f.app, f.task, {});
    EXPECT_FALSE(f.app.poolSpeciesPending);
    EXPECT_TRUE(f.app.lstSpeciatePool.visible());
    EXPECT_TRUE(f.app.lstSpeciatePool.enabled());
}

TEST(MultiTask, TheListStaysDisabledWhileAPassIsPending) {
    struct Case {
        bool poolPending, dnaPending, enabled;
    } cases[] = {{true, false, false}, {false, true, false}, {false, false, true}};
    for (const Case& c : cases) {
        Fixture f;
        f.app.openPool = aqtest::makePool(2, 0);
        f.app.poolSpeciesPending = c.poolPending;
        f.app.speciesPending = c.dnaPending;
        f.app.lstSpeciatePool.setEnabled(false);
        f.task.phase = 2;  // a threshold phase: no pass runs this tick
        f.task.restart = false;
        aq::tmrMultiTaskTick(f.app, f.task, {});
        EXPECT_EQ(f.app.lstSpeciatePool.enabled(), c.enabled) << c.poolPending << c.dnaPending;
    }
}

}  // namespace
