// Running the simulator: one run against a fake in virtual time (the names tried, the
// waits, a lost window), and the stand-in simulator as a real child process, the way a
// series runs it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <thread>

#include "SeriesFakes.h"
#include "base/Clock.h"
#include "format/PoolFile.h"
#include "series/AqRun.h"
#include "series/EvolveSeries.h"
#include "series/Simulator.h"
#include "support/TempDir.h"

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

TEST(AqRun, StartTriesEachNameInOrderAndCloseEndsTheLast) {
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
    // Installed, the data lives elsewhere: the Wine helper is looked for with the binaries.
    Rig installed;
    installed.app.homeFolder = "/usr/bin";
    EXPECT_EQ(aq::startSimulator(installed.app), 1001u);
    EXPECT_EQ(installed.sim.folderSeen, "/usr/bin");
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
    // Closing with no window given closes the last process, once.
    Rig q;
    const std::uint32_t pid = aq::startSimulator(q.app);
    q.clock.advance(2);
    aq::closeSimulator(q.app, 0);
    aq::closeSimulator(q.app, 0);
    EXPECT_EQ(q.sim.closes, std::vector<std::string>{"close " + std::to_string(pid + 5000)});
    EXPECT_FALSE(q.sim.isRunning());
}

TEST(AqRun, MissingLostAndTimedRuns) {
    Rig r("");
    expectNoSimulator(r.ui, "/sim");
    double start = r.clock.seconds, runStart = -1;
    EXPECT_EQ(r.run(runStart), aq::RunOutcome::NoSimulator);
    EXPECT_GT(r.clock.seconds - start, 10.0);
    EXPECT_LE(r.clock.seconds - start, 13.0);
    EXPECT_TRUE(r.ui.done()) << r.ui.report();
    // A run lasts the slider time and shows its progress.
    Rig timed("/sim/Aquarium", 30);
    int maxShown = 0;
    timed.app.series.onChange = [&] { maxShown = std::max(maxShown, timed.c.selLength); };
    double timedStart = 0;
    EXPECT_EQ(timed.run(timedStart), aq::RunOutcome::Finished);
    EXPECT_GE(timed.clock.seconds - timedStart, 30.0);
    EXPECT_LT(timed.clock.seconds - timedStart, 32.0);
    EXPECT_EQ(maxShown, 30 - 7);
    EXPECT_FALSE(timed.sim.isRunning());
    EXPECT_EQ(timed.app.series.run.lastSimulatorWindow, 0u);
    Rig quick("/sim/Aquarium", 7);  // a slow start outlasts the run: looked at once, at its end
    quick.sim.windowAfter = 14;
    EXPECT_EQ(quick.run(timedStart), aq::RunOutcome::Finished);
    // The remembered window hides a death until the series clears it, so the run ends by time.
    Rig l;
    l.sim.diesAfter = 3;
    double lostStart = 0;
    EXPECT_EQ(l.run(lostStart), aq::RunOutcome::Finished);
    EXPECT_TRUE(l.c.stopEnabled);

    // A window never seen: 20 seconds of grace, a third of the run, 10 seconds more, then the
    // series stops itself; a run shorter than the grace notices it too. Either way the
    // process is ended by its id.
    for (int seconds : {60, 10}) {
        Rig never("/sim/Aquarium", seconds);
        never.sim.windowAfter = 1e9;
        EXPECT_EQ(never.run(lostStart), aq::RunOutcome::NotFinished) << seconds;
        EXPECT_TRUE(never.c.nowEnabled);
        EXPECT_FALSE(never.c.stopEnabled || never.c.restartEnabled || never.c.nextEnabled);
        EXPECT_EQ(never.c.focus, "cmdCreateSeriesNow");
        const double took = never.clock.seconds - lostStart;
        EXPECT_TRUE(seconds != 60 || (took > 50 && took < 53)) << took;
        EXPECT_EQ(never.sim.closes, std::vector<std::string>{"end 1001"}) << seconds;
        EXPECT_FALSE(never.sim.isRunning());
    }
}

namespace {

#ifdef _WIN32
const std::string kStandin = AQ_BINARY_DIR "/standin/Aquarium.exe";
#else
const std::string kStandin = AQ_BINARY_DIR "/standin/Aquarium";
#endif

// Real time for a real process: each yield rests 10 ms.
class RestingUi : public ScriptedUi {
public:
    std::function<void()> onYield;
    void YieldToUi() override {
        ScriptedUi::YieldToUi();
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        if (onYield) onYield();
    }
};

// A plain series of the default pool with a copy of `standin` named `exe` as the simulator,
// stopped once pool<runs>.aqp is stored: the chosen pool and the stored ones, each evolved
// further than the one before.
// `keepEveryDrifter` leaves out the stillborns' removal and the sort for the food.
template <class SeriesUi>
std::vector<aq::Pool> runStandinSeries(SeriesUi& ui, aq::Clock& clock, const std::string& standin,
                                       const std::string& exe, int runs, bool keepEveryDrifter = false) {
    TempDir dir;
    const std::string sim = dir.file("sim"), pools = dir.file("pools"), first = pools + "/pool.aqp";
    std::filesystem::create_directories(sim);
    std::filesystem::create_directories(pools);
    std::filesystem::copy_file(standin, sim + "/" + exe);
    EXPECT_EQ(aq::writePool(first, defaultPool()), "");
    aq::App app(ui, clock);
    app.programFolder = dir.path();
    app.comboAquariumPath = sim;
    app.comboPoolPath = pools;
    app.series.options.chkBranchingSeries = false;
    app.series.options.mNoStill = app.series.options.mSeriesAddFood = !keepEveryDrifter;
    app.series.controls.frameVisible = true;
    app.series.controls.sliderTimeDelay = aq::SeriesControls::kSliderMin;
    ui.file("open", "Select Pool File", first);
    const std::string last = pools + "/pool" + std::to_string(runs) + ".aqp";
    ui.onYield = [&] {
        if (std::filesystem::exists(last) && app.series.controls.stopEnabled) aq::cmdCreateSeriesStopClick(app);
    };
    aq::cmdCreateSeriesNowClick(app);
    ui.onYield = nullptr;
    EXPECT_TRUE(ui.done()) << ui.report();
    EXPECT_TRUE(app.series.controls.nowEnabled);
    std::vector<aq::Pool> stored(std::size_t(runs) + 1, defaultPool());
    for (int k = 1; k <= runs; ++k) {
        const std::string name = pools + "/pool" + std::to_string(k) + ".aqp";
        EXPECT_EQ(aq::readPool(name, stored[k]).status, aq::PoolReadStatus::Ok) << name;
        EXPECT_GT(stored[k].clock, stored[k - 1].clock) << name;
    }
    return stored;
}

}  // namespace

// A series of two runs through the Windows calls: the Windows build runs its stand-in
// directly; here the Windows stand-in runs under Wine when test.sh hands over a Windows
// build in AQ_WIN_BUILD and a display.
TEST(Standin, WindowsSeriesStoresTwoEvolvedPools) {
#ifdef _WIN32
    std::string standin = kStandin;
#else
    const char* win = std::getenv("AQ_WIN_BUILD");
    if (!win || !std::getenv("DISPLAY")) GTEST_SKIP() << "needs AQ_WIN_BUILD and a display: test.sh runs it";
    std::string standin = std::string(win) + "/standin/Aquarium.exe";
    setenv("AQFM_WINCTL", (std::string(win) + "/aqwinctl.exe").c_str(), 1);
#endif
    aq::SystemClock clock;
    RestingUi ui;
    auto began = std::chrono::steady_clock::now();
    runStandinSeries(ui, clock, standin, "Aquarium.exe", 2);
    double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
    std::printf("two runs of %d s took %.1f s\n", aq::SeriesControls::kSliderMin, seconds);
}

#ifndef _WIN32
// Virtual time runs too fast for a simulator under Wine; the Windows series is above.
TEST(Standin, ShortPlainSeriesLeavesEvolvedFilesOnDisk) {
    setenv("AQUARIUM_STANDIN_HEADLESS", "1", 1);
    setenv("AQUARIUM_STANDIN_STEPS", "2000", 1);
    // Each rest of 5 ms between two yields moves the clock a tenth of a second: a seven-second run
    // takes a third of a real second.
    ManualClock clock;
    TickingUi ui(clock);
    ui.step = 0.1;
    const std::vector<aq::Pool> pools = runStandinSeries(ui, clock, kStandin, "Aquarium", 3, true);
    // The first file holds every drifter of the chosen pool, each one older now.
    ASSERT_GE(pools[1].drifterCount, pools[0].drifterCount);
    for (int i = 0; i < pools[0].drifterCount; ++i) EXPECT_GT(pools[1].drifters[i].age, pools[0].drifters[i].age);
    for (const aq::Pool& p : pools) EXPECT_GT(p.drifterCount, 0);
}

namespace {

// Processes whose command line names `text`; under Wine a Windows program's command line
// is its Windows path.
std::vector<std::string> processesNaming(const std::string& text) {
    std::vector<std::string> found;
    std::error_code ec;
    for (auto it = std::filesystem::directory_iterator("/proc", ec); !ec && it != std::filesystem::directory_iterator();
         it.increment(ec)) {
        std::string line = readBytes(it->path().string() + "/cmdline");
        std::replace(line.begin(), line.end(), '\0', ' ');
        if (line.find(text) != std::string::npos) found.push_back(line);
    }
    return found;
}

// A copy of `standin` named `exe` that never shows a window (and lets SIGTERM pass) is
// started as a series starts the simulator and ended as Finish ends it, through the
// system's simulators: within a short grace no process of it is left. Returns its id.
std::uint32_t finishNeverReady(const std::string& standin, const std::string& exe) {
    TempDir dir;
    const std::string name = std::filesystem::path(dir.path()).filename().string();
    std::filesystem::create_directories(dir.file("sim"));
    std::filesystem::copy_file(standin, dir.file("sim/" + exe));
    EnvVar mode("AQUARIUM_STANDIN_NEVER_READY", "1");
    UiRig r;
    r.app.comboAquariumPath = dir.file("sim");
    r.app.programFolder = dir.path();
    const std::uint32_t pid = aq::startSimulator(r.app);
    EXPECT_NE(pid, 0u);
    std::this_thread::sleep_for(std::chrono::milliseconds(500));  // its SIGTERM handler is set by now
    EXPECT_EQ(aq::findSimulatorWindow(r.app, pid), 0u) << "the never-ready mode did not reach the stand-in";
    EXPECT_FALSE(processesNaming(name).empty());
    const auto began = std::chrono::steady_clock::now();
    aq::closeSimulator(r.app, 0);
    aq::closeStartedProcesses(r.app);
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(10));
    for (int i = 0; i < 60 && !processesNaming(name).empty(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(processesNaming(name), std::vector<std::string>{});
    EXPECT_TRUE(r.ui.done()) << r.ui.report();
    return pid;
}

}  // namespace

TEST(Standin, NeverReadyIsEndedAtFinish) {
    const std::uint32_t pid = finishNeverReady(kStandin, "Aquarium");
    // Reaped too: a zombie would still answer.
    const bool gone = ::kill(static_cast<pid_t>(pid), 0) == -1 && errno == ESRCH;
    EXPECT_TRUE(gone);
    if (!gone) ::kill(static_cast<pid_t>(pid), SIGKILL);
}

// Under Wine the broker passes its environment on, so this runs in a process of its own
// (as scripts/wine-tests.sh runs it), before any other start has launched the broker.
TEST(Standin, WindowsNeverReadyIsEndedAtFinish) {
    const char* win = std::getenv("AQ_WIN_BUILD");
    if (!win || !std::getenv("DISPLAY")) GTEST_SKIP() << "needs AQ_WIN_BUILD and a display: test.sh runs it";
    EnvVar broker("AQFM_WINCTL", std::string(win) + "/aqwinctl.exe");
    finishNeverReady(std::string(win) + "/standin/Aquarium.exe", "Aquarium.exe");
}
#endif
