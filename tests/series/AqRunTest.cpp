#include <gtest/gtest.h>

#include "SeriesFakes.h"
#include "series/AqRun.h"

using namespace aqtest;

namespace {

struct Rig {
    ManualClock clock;
    TickingUi ui{clock};
    aq::App app{ui, clock};
    FakeSimulator sim;
    Rig() {
        sim.clock = &clock;
        app.series.simulator = &sim;
        app.series.pauseMs = 0;
        app.comboAquariumPath = "/sim";
        app.programFolder = "/prog";
    }
};

}  // namespace

TEST(AqRun, StartTriesEachNameWithAndWithoutExeInOrder) {
    struct Case {
        std::string present;
        int triesUntilStart;
    } cases[] = {
        {"/sim/Aquarium5.1.exe", 1}, {"/sim/Aquarium4.1.exe", 5}, {"/sim/Aquarium4.1", 6}, {"/sim/Aquarium", 10}};
    for (const auto& c : cases) {
        Rig r;
        r.sim.executables = {c.present};
        EXPECT_NE(r.app.series.run.simulatorProcessId, 1001u);
        EXPECT_EQ(aq::startSimulator(r.app), 1001u) << c.present;
        EXPECT_EQ(static_cast<int>(r.sim.tried.size()), c.triesUntilStart) << c.present;
        EXPECT_EQ(r.sim.tried.back(), c.present);
        EXPECT_EQ(r.sim.folderSeen, "/prog");
        EXPECT_EQ(r.app.series.run.simulatorProcessId, 1001u);
        EXPECT_TRUE(r.ui.done()) << r.ui.report();
    }
}

TEST(AqRun, NoCandidateShowsThePathOfTheLastExeName) {
    Rig r;
    r.ui.message(
        "Unable to start Aquarium.  Please select the correct Aquarium path and try again. "
        "/sim/Aquarium.exe");
    EXPECT_EQ(aq::startSimulator(r.app), 0u);
    std::vector<std::string> expected = {
        "/sim/Aquarium5.1.exe", "/sim/Aquarium5.1",   "/sim/Aquarium5.exe", "/sim/Aquarium5",    "/sim/Aquarium4.1.exe",
        "/sim/Aquarium4.1",     "/sim/Aquarium4.exe", "/sim/Aquarium4",     "/sim/Aquarium.exe", "/sim/Aquarium"};
    EXPECT_EQ(r.sim.tried, expected);
    EXPECT_TRUE(r.ui.done()) << r.ui.report();
}

TEST(AqRun, RememberedWindowOutlivesTheProcessUntilCleared) {
    Rig r;
    r.sim.executables = {"/sim/Aquarium"};
    r.sim.diesAfter = 5;
    std::uint32_t pid = aq::startSimulator(r.app);
    EXPECT_EQ(aq::getSimulatorWindow(r.app, pid), 0u);  // not up yet
    r.clock.advance(2);
    std::uint32_t w = aq::getSimulatorWindow(r.app, pid);
    EXPECT_NE(w, 0u);
    r.clock.advance(10);  // the process has died
    EXPECT_EQ(aq::findSimulatorWindow(r.app, pid), 0u);
    EXPECT_EQ(aq::getSimulatorWindow(r.app, pid), w);
    EXPECT_EQ(aq::getSimulatorWindow(r.app, 0), 0u);
    EXPECT_EQ(aq::getSimulatorWindow(r.app, pid), 0u);
}

TEST(AqRun, CloseWithNoWindowClosesTheLastProcessUntilNoWindowIsLeft) {
    Rig r;
    r.sim.executables = {"/sim/Aquarium"};
    std::uint32_t pid = aq::startSimulator(r.app);
    r.clock.advance(2);
    aq::closeSimulator(r.app, 0);
    EXPECT_EQ(r.sim.closes, std::vector<std::string>{"close " + std::to_string(pid + 5000)});
    EXPECT_FALSE(r.sim.isRunning());
    aq::closeSimulator(r.app, 0);  // nothing left to close
    EXPECT_EQ(r.sim.closes.size(), 1u);
}

TEST(AqRun, MissingSimulatorShowsBothMessagesAfterTenSeconds) {
    Rig r;
    r.ui.message(
            "Unable to start Aquarium.  Please select the correct Aquarium path and try again. "
            "/sim/Aquarium.exe")
        .message(
            "Aquarium could not be found at the specified location.  Please select the correct Aquarium "
            "program path in the field provided.");
    double start = r.clock.seconds, runStart = -1;
    bool ranOnce = false;
    EXPECT_EQ(aq::runPoolInSimulator(r.app, runStart, ranOnce), aq::RunOutcome::NoSimulator);
    EXPECT_FALSE(ranOnce);
    EXPECT_GT(r.clock.seconds - start, 10.0);
    EXPECT_LE(r.clock.seconds - start, 13.0);
    EXPECT_TRUE(r.ui.done()) << r.ui.report();
}

TEST(AqRun, RunLastsTheSliderTimeAndShowsProgress) {
    Rig r;
    r.sim.executables = {"/sim/Aquarium"};
    r.app.series.controls.stopEnabled = true;
    r.app.series.controls.frameVisible = true;
    r.app.series.controls.sliderTimeDelay = 30;
    int maxShown = 0;
    r.app.series.onChange = [&] { maxShown = std::max(maxShown, r.app.series.controls.selLength); };
    double runStart = 0;
    bool ranOnce = false;
    EXPECT_EQ(aq::runPoolInSimulator(r.app, runStart, ranOnce), aq::RunOutcome::Finished);
    EXPECT_TRUE(ranOnce);
    EXPECT_GE(r.clock.seconds - runStart, 30.0);
    EXPECT_LT(r.clock.seconds - runStart, 32.0);
    EXPECT_EQ(maxShown, 30 - 7);
    EXPECT_FALSE(r.sim.isRunning());
    EXPECT_EQ(r.app.series.run.lastSimulatorWindow, 0u);
}

TEST(AqRun, LostSimulatorResetsTheButtonsAndTheRunIsNotFinished) {
    Rig r;
    r.sim.executables = {"/sim/Aquarium"};
    r.sim.diesAfter = 3;
    auto& c = r.app.series.controls;
    c.stopEnabled = c.restartEnabled = c.nextEnabled = true;
    c.nowEnabled = false;
    c.frameVisible = true;
    c.sliderTimeDelay = 60;
    double runStart = 0;
    bool ranOnce = false;
    // The remembered window hides the death until the series clears it, so the run ends only by time.
    EXPECT_EQ(aq::runPoolInSimulator(r.app, runStart, ranOnce), aq::RunOutcome::Finished);
    EXPECT_TRUE(c.stopEnabled);

    // A window never seen: 20 seconds of grace, a third of the run, 10 seconds more, then the
    // series stops itself.
    Rig q;
    q.sim.executables = {"/sim/Aquarium"};
    q.sim.windowAfter = 1e9;
    auto& d = q.app.series.controls;
    d.stopEnabled = d.restartEnabled = d.nextEnabled = true;
    d.nowEnabled = false;
    d.frameVisible = true;
    d.sliderTimeDelay = 60;
    EXPECT_EQ(aq::runPoolInSimulator(q.app, runStart, ranOnce), aq::RunOutcome::NotFinished);
    EXPECT_TRUE(d.nowEnabled);
    EXPECT_FALSE(d.stopEnabled || d.restartEnabled || d.nextEnabled);
    EXPECT_EQ(d.focus, "cmdCreateSeriesNow");
    EXPECT_GT(q.clock.seconds - runStart, 50.0);
    EXPECT_LT(q.clock.seconds - runStart, 53.0);
}

TEST(AqRun, SaveAndContinueEndsTheWaitEarly) {
    Rig r;
    r.sim.executables = {"/sim/Aquarium"};
    auto& c = r.app.series.controls;
    c.stopEnabled = true;
    c.frameVisible = true;
    c.sliderTimeDelay = 600;
    r.ui.onYield = [&] {
        if (r.clock.seconds > 36000 + 40) c.nextRequested = true;
    };
    double runStart = 0;
    bool ranOnce = false;
    EXPECT_EQ(aq::runPoolInSimulator(r.app, runStart, ranOnce), aq::RunOutcome::Finished);
    EXPECT_LT(r.clock.seconds - runStart, 45.0);
    EXPECT_EQ(r.sim.closes.size(), 1u);
}
