#include <gtest/gtest.h>

#include <filesystem>

#include "SeriesFakes.h"
#include "series/AqRun.h"

using namespace aqtest;

namespace {

// The simulator in /sim, the program in /prog, the series buttons as during a run.
struct Rig : SimRig {
    aq::SeriesControls& c = app.series.controls;
    explicit Rig(const std::string& present = "/sim/Aquarium", int seconds = 60) {
        if (!present.empty()) sim.executables = {present};
        app.comboAquariumPath = "/sim";
        app.programFolder = "/prog";
        c.stopEnabled = c.restartEnabled = c.nextEnabled = c.frameVisible = true;
        c.nowEnabled = false;
        c.sliderTimeDelay = seconds;
    }
    aq::RunOutcome run(double& runStart) {
        bool ranOnce = false;
        return aq::runPoolInSimulator(app, runStart, ranOnce);
    }
};

}  // namespace

TEST(AqRun, StartTriesEachNameWithAndWithoutExeInOrder) {
    const std::vector<std::string> names = {
        "/sim/Aquarium5.1.exe", "/sim/Aquarium5.1",   "/sim/Aquarium5.exe", "/sim/Aquarium5",    "/sim/Aquarium4.1.exe",
        "/sim/Aquarium4.1",     "/sim/Aquarium4.exe", "/sim/Aquarium4",     "/sim/Aquarium.exe", "/sim/Aquarium"};
    for (std::size_t present : {0, 4, 5, 9}) {
        Rig r(names[present]);
        EXPECT_EQ(aq::startSimulator(r.app), 1001u) << names[present];
        EXPECT_EQ(r.sim.tried, std::vector<std::string>(names.begin(), names.begin() + long(present) + 1));
        EXPECT_EQ(r.sim.folderSeen, "/prog");
        EXPECT_EQ(r.app.series.run.simulatorProcessId, 1001u);
    }
#ifndef _WIN32
    // A relative folder is read from the current folder, for the check and the start alike.
    Rig relative(std::filesystem::current_path().string() + "/sim/Aquarium");
    relative.app.comboAquariumPath = "sim/";
    EXPECT_EQ(aq::startSimulator(relative.app), 1001u);
#endif
    Rig none("");
    none.ui.message(
        "Unable to start Aquarium.  Please select the correct Aquarium path and try again. /sim/Aquarium.exe");
    EXPECT_EQ(aq::startSimulator(none.app), 0u);
    EXPECT_EQ(none.sim.tried, names);
    EXPECT_TRUE(none.ui.done()) << none.ui.report();
}

TEST(AqRun, RememberedWindowOutlivesTheProcessUntilCleared) {
    Rig r;
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

    // Closing with no window given closes the last process, once.
    Rig q;
    pid = aq::startSimulator(q.app);
    q.clock.advance(2);
    aq::closeSimulator(q.app, 0);
    aq::closeSimulator(q.app, 0);
    EXPECT_EQ(q.sim.closes, std::vector<std::string>{"close " + std::to_string(pid + 5000)});
    EXPECT_FALSE(q.sim.isRunning());
}

TEST(AqRun, MissingSimulatorShowsBothMessagesAfterTenSeconds) {
    Rig r("");
    expectNoSimulator(r.ui, "/sim");
    double start = r.clock.seconds, runStart = -1;
    EXPECT_EQ(r.run(runStart), aq::RunOutcome::NoSimulator);
    EXPECT_GT(r.clock.seconds - start, 10.0);
    EXPECT_LE(r.clock.seconds - start, 13.0);
    EXPECT_TRUE(r.ui.done()) << r.ui.report();
}

TEST(AqRun, RunLastsTheSliderTimeAndShowsProgress) {
    Rig r("/sim/Aquarium", 30);
    int maxShown = 0;
    r.app.series.onChange = [&] { maxShown = std::max(maxShown, r.c.selLength); };
    double runStart = 0;
    EXPECT_EQ(r.run(runStart), aq::RunOutcome::Finished);
    EXPECT_GE(r.clock.seconds - runStart, 30.0);
    EXPECT_LT(r.clock.seconds - runStart, 32.0);
    EXPECT_EQ(maxShown, 30 - 7);
    EXPECT_FALSE(r.sim.isRunning());
    EXPECT_EQ(r.app.series.run.lastSimulatorWindow, 0u);
    Rig quick("/sim/Aquarium", 7);  // a slow start outlasts the run: looked at once, at its end
    quick.sim.windowAfter = 14;
    EXPECT_EQ(quick.run(runStart), aq::RunOutcome::Finished);
}

TEST(AqRun, LostSimulator) {
    // The remembered window hides a death until the series clears it, so the run ends by time.
    Rig r;
    r.sim.diesAfter = 3;
    double runStart = 0;
    EXPECT_EQ(r.run(runStart), aq::RunOutcome::Finished);
    EXPECT_TRUE(r.c.stopEnabled);

    // A window never seen: 20 seconds of grace, a third of the run, 10 seconds more, then the
    // series stops itself; a run shorter than the grace notices it too. Either way the
    // process is ended by its id.
    for (int seconds : {60, 10}) {
        Rig q("/sim/Aquarium", seconds);
        q.sim.windowAfter = 1e9;
        EXPECT_EQ(q.run(runStart), aq::RunOutcome::NotFinished) << seconds;
        EXPECT_TRUE(q.c.nowEnabled);
        EXPECT_FALSE(q.c.stopEnabled || q.c.restartEnabled || q.c.nextEnabled);
        EXPECT_EQ(q.c.focus, "cmdCreateSeriesNow");
        const double took = q.clock.seconds - runStart;
        EXPECT_TRUE(seconds != 60 || (took > 50 && took < 53)) << took;
        EXPECT_EQ(q.sim.closes, std::vector<std::string>{"end 1001"}) << seconds;
        EXPECT_FALSE(q.sim.isRunning());
    }
}
