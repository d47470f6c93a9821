// What the window leaves to the core: the timer's list rules on every tick, when the
// notice may go, the clock, the Selection menu on each tab, and the questions on closing.
#include <gtest/gtest.h>

#include <ctime>

#include "base/Clock.h"
#include "dnaeditor/DrifterFiles.h"
#include "foodeditor/FoodThreshold.h"
#include "format/PoolFile.h"
#include "pooleditor/SpeciesPass.h"
#include "shell/MenuState.h"
#include "shell/MultiTask.h"
#include "shell/Shutdown.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedSession.h"

namespace {

struct Fixture : aqtest::Session {
    aq::MultiTask task;
};

TEST(MultiTask, TheTimersListRulesTheClockAndTheNotice) {
    // Drifters, the pool's and the DNA list's passes pending; the list enabled and the pool's pass pending after.
    const std::tuple<int, bool, bool, bool, bool> cases[] = {{1, true, false, true, false},
                                                             {2, true, false, false, true},
                                                             {2, false, true, false, false},
                                                             {2, false, false, true, false}};
    for (auto [drifters, poolPending, dnaPending, enabled, poolPendingAfter] : cases) {
        SCOPED_TRACE(testing::Message() << drifters << poolPending << dnaPending);
        Fixture f;
        f.app.openPool = aqtest::makePool(drifters, 0);
        f.app.poolSpeciesPending = poolPending;
        f.app.speciesPending = dnaPending;
        f.app.lstSpeciatePool.setVisible(false);
        f.app.lstSpeciatePool.setEnabled(false);
        f.task.phase = 2;  // a threshold phase next: no pass runs this tick
        f.task.restart = false;
        aq::tmrMultiTaskTick(f.app, f.task, {});
        EXPECT_EQ(
            std::tuple(f.app.poolSpeciesPending, f.app.lstSpeciatePool.visible(), f.app.lstSpeciatePool.enabled()),
            std::tuple(poolPendingAfter, drifters == 1, enabled));
    }
    // Typed thresholds of hidden frames wait for every fourth sweep.
    Fixture f;
    f.app.openPool = aqtest::makePool(2, 0);
    aq::typePoolSpeciesThreshold(f.app, "50");
    aq::typeFoodThreshold(f.app, "50");
    aq::typeDrifterSpeciesThreshold(f.app, "50", 2);
    auto sweep = [&] {
        for (int t = 0; t < 6; ++t) aq::tmrMultiTaskTick(f.app, f.task, {});
    };
    for (int i = 0; i < 3; ++i) sweep();
    EXPECT_TRUE(f.app.poolThresholdTyped && f.app.foodThresholdTyped && f.app.drifterThresholdTyped);
    sweep();
    EXPECT_FALSE(f.app.poolThresholdTyped || f.app.foodThresholdTyped || f.app.drifterThresholdTyped);
    // The clock runs on across midnight.
    EXPECT_DOUBLE_EQ(aq::elapsedSeconds(86000, 100), 500);
    EXPECT_DOUBLE_EQ(aq::elapsedSeconds(100, 160.5), 60.5);
    std::time_t t = std::time(nullptr);
    std::tm local = *std::localtime(&t);
    const double expected = local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec;
    EXPECT_NEAR(aq::elapsedSeconds(expected, aq::SystemClock().secondsSinceMidnight()), 0.5, 1.5);
    // Seconds since the last stir, whether each list is free, whether the notice may fade.
    const std::tuple<double, bool, bool, bool> stirs[] = {
        {5.0, true, true, false}, {5.1, true, true, true},  {60, false, true, false},
        {60, true, false, false}, {0.5, true, true, false}, {60, true, true, true},
    };
    for (auto [since, poolList, dnaList, fades] : stirs) {
        Fixture f;
        f.app.lstSpeciatePool.setEnabled(poolList);
        f.app.lstSpeciateDrifters.setEnabled(dnaList);
        const double stir = f.clock.seconds;
        f.clock.advance(since);
        EXPECT_EQ(aq::noticeMayFade(f.app, stir), fades) << since << poolList << dnaList;
    }
}

TEST(Menus, SelectionItemsFollowTheTabUnlessAllAreEnabled) {
    // A tab's own items are on there only; the item that switches to a tab is off on it.
    const struct {
        int tab;
        bool all;
        const char* on;
    } cases[] = {
        {1, false, "mSelectSwitchFood mSelectSwitchPool mSelectSwitchDrifter"},
        {3, false,
         "mSelectSwitchFood mSelectPoolInvert mSelectKill mSelectRevive mSelectPoolFeed mSelectPoolMove "
         "mSelectPoolDelete mSelect mSelectSwitchDrifter"},
        {4, false, "mSelectFoodInvert mSelectFoodDelete mSelectSwitchPool mSelectSwitchDrifter"},
        {5, false, "mSelectSwitchFood mSelectSwitchPool mSelectDrifterInvert mSelectDrifterMove mSelectDrifterDelete"},
        {6, true,
         "mSelectSwitchFood mSelectFoodInvert mSelectFoodDelete mSelectSwitchPool mSelectPoolInvert mSelectKill "
         "mSelectRevive mSelectPoolFeed mSelectPoolMove mSelectPoolDelete mSelect mSelectSwitchDrifter "
         "mSelectDrifterInvert mSelectDrifterMove mSelectDrifterDelete"},
    };
    for (const auto& c : cases) {
        std::string on;
        for (const auto& [name, enabled] : aq::updateMenu(c.tab, c.all))
            if (enabled) on += (on.empty() ? "" : " ") + name;
        EXPECT_EQ(on, c.on) << "tab " << c.tab;
    }
}

TEST(Closing, SavesTheSettingsThenAsksForThePoolThenForEachChangedDnaFile) {
    const struct {
        bool poolChanged;
        aq::Answer pool, saveOver;  // to "Pool File Has Changed" and "Save Speciated Pool", if asked
        bool saved, asksDna;        // a window that stays open asks nothing more and loses nothing
    } cases[] = {
        {false, aq::Answer::Ok, aq::Answer::Ok, false, true},
        {true, aq::Answer::Cancel, aq::Answer::Ok, false, false},
        {true, aq::Answer::No, aq::Answer::Ok, false, true},
        {true, aq::Answer::Yes, aq::Answer::Yes, true, true},
        {true, aq::Answer::Yes, aq::Answer::Cancel, false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.poolChanged << " " << int(c.pool));
        aqtest::Session s;
        aq::App& app = s.app;
        app.programFolder = s.dir.path();
        app.openPool = aqtest::makePool(2, 1);
        app.poolLoaded = app.dnaLoaded = true;
        app.poolChanged = c.poolChanged;
        app.openPoolPath = s.dir.file("open.aqp");
        // Closing asks about every changed file, ticked or not, and about no other.
        app.dna.dnaCount = 2;
        app.dna.dnaGenes.assign(2, aq::Genome{});
        app.dna.dnaPaths = {s.dir.file("a.dna"), s.dir.file("b.dna")};
        app.dna.dnaChanged = {1, 0};
        app.lstSpeciateDrifters.add("a.dna");
        app.lstSpeciateDrifters.add("b.dna");
        app.lstSpeciateDrifters.setChecked(1, true);
        if (c.poolChanged)
            s.ui.ask("yesnocancel",
                     "The currently open pool file has been changed.  Changes will be lost if the file is not saved "
                     "now.\r\n\r\nSave changes to the open pool file?",
                     "Pool File Has Changed", c.pool);
        if (c.pool == aq::Answer::Yes)
            s.ui.ask("yesnocancel", "Would you like to save over " + app.openPoolPath, "Save Speciated Pool",
                     c.saveOver);
        if (c.asksDna)
            s.ui.ask("yesno", app.dna.dnaPaths[0] + " has changed.\r\n\r\nSave file now?", "Save Changed Drifter",
                     aq::Answer::No)
                .message("No files saved.", "Done");
        EXPECT_EQ(aq::closeProgram(app), c.asksDna);
        EXPECT_SCRIPT_DONE(s.ui);
        EXPECT_TRUE(!app.settingsText.empty() && aqtest::readBytes(s.dir.file("aqfm.ini")) == app.settingsText);
        EXPECT_EQ(app.poolChanged, c.poolChanged && !c.saved);
        EXPECT_EQ(aqtest::readBytes(app.openPoolPath), c.saved ? aq::poolBytes(app.openPool) : "");
    }
}

}  // namespace
