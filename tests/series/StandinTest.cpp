// The stand-in simulator run as a child process, the way a series runs it.
#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <cstring>
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

#ifdef _WIN32
const std::string kStandin = AQ_BINARY_DIR "/standin/Aquarium.exe";
void setenv(const char* name, const char* value, int) { _putenv_s(name, value); }
#else
const std::string kStandin = AQ_BINARY_DIR "/standin/Aquarium";
#endif

// Byte ranges the toy model may change in a drifter it did not create.
bool drifterByteMayChange(std::size_t b) {
    auto in = [b](std::size_t off, std::size_t len) { return b >= off && b < off + len; };
    if (in(offsetof(aq::DrifterRec, age), 4) || in(offsetof(aq::DrifterRec, alive), 16) ||
        in(offsetof(aq::DrifterRec, energy), 4) || in(offsetof(aq::DrifterRec, heading), 4) ||
        in(offsetof(aq::DrifterRec, x), 24))
        return true;
    if (b >= offsetof(aq::DrifterRec, segments) && b < offsetof(aq::DrifterRec, tailState)) {
        std::size_t s = (b - offsetof(aq::DrifterRec, segments)) % sizeof(aq::Segment);
        return s >= offsetof(aq::Segment, point1X) && s < offsetof(aq::Segment, carried4);
    }
    return false;
}

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

TEST(Standin, EvolvesTheHandOverPoolAndKeepsEveryCarriedByte) {
    setenv("AQUARIUM_STANDIN_HEADLESS", "1", 1);
    setenv("AQUARIUM_STANDIN_STEPS", "2000", 1);
    TempDir dir;
    aq::Pool before = defaultPool(), after;
    ASSERT_EQ(aq::writePool(dir.file(aq::kHandOverFileName), before), "");
    aq::Simulator& sim = aq::systemSimulator();
    EXPECT_EQ(sim.start(dir.file("no-such-simulator"), dir.path()), 0u);
    std::uint32_t pid = sim.start(kStandin, dir.path()), w = 0;
    ASSERT_NE(pid, 0u);
    for (int i = 0; i < 1000 && !(w = sim.findWindow(pid)); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    ASSERT_NE(w, 0u);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    sim.close(w);
    EXPECT_EQ(sim.findWindow(pid), 0u);  // closed means gone

    ASSERT_EQ(aq::readPool(dir.file(aq::kHandOverFileName), after).status, aq::PoolReadStatus::Ok);
    EXPECT_GT(after.clock, before.clock);
    EXPECT_GE(after.drifterCount, before.drifterCount);
    EXPECT_GT(after.drifters[0].age, before.drifters[0].age);
    for (int i = 0; i < before.drifterCount; ++i) {
        auto* a = reinterpret_cast<const unsigned char*>(&before.drifters[i]);
        auto* b = reinterpret_cast<const unsigned char*>(&after.drifters[i]);
        for (std::size_t k = 0; k < sizeof(aq::DrifterRec); ++k)
            ASSERT_TRUE(drifterByteMayChange(k) || a[k] == b[k]) << "drifter " << i << " byte " << k;
    }
    for (int j = 0; j < before.foodCount; ++j) {
        const auto &f0 = before.food[j], &f1 = after.food[j];
        EXPECT_EQ(f0.family, f1.family);
        EXPECT_EQ(0, std::memcmp(f0.carried1, f1.carried1, sizeof f0.carried1));
        EXPECT_EQ(0, std::memcmp(f0.carried2, f1.carried2, sizeof f0.carried2));
    }
    EXPECT_EQ(after.historyBlock, before.historyBlock);
    EXPECT_EQ(0, std::memcmp(after.walls, before.walls, sizeof before.walls));
    EXPECT_EQ(after.headerWord, before.headerWord);
    EXPECT_EQ(after.lastWord, before.lastWord);
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
#endif

TEST(DemoFolder, IsLaidOutOnceAndNeverOverwritten) {
    const std::string tool = AQ_BINARY_DIR "/tools/aquarium-standin/make_demo_folder";
    if (!std::filesystem::exists(tool)) GTEST_SKIP() << "built without the window program";
    TempDir dir;
    std::string demo = dir.file("Aquarium5"), command = tool + " " + demo + " " + kStandin;
    ASSERT_EQ(std::system(command.c_str()), 0);
    for (const char* name : {"Aquarium", "Drifter_1.DNA", "Drifter_4.DNA", "Pool_1.AQP", "Pool_4.AQP",
                             "Drifters/Default_0.DNA", "Pools/Default.aqp", "Pools/Evolved.aqp", "Pools/Seed_2024.aqp"})
        EXPECT_TRUE(std::filesystem::exists(demo + "/" + name)) << name;
    EXPECT_EQ(std::filesystem::file_size(demo + "/Drifter_2.DNA"), 1000u);
    aq::Pool evolved;
    ASSERT_EQ(aq::readPool(demo + "/Pools/Evolved.aqp", evolved).status, aq::PoolReadStatus::Ok);
    EXPECT_GT(evolved.clock, defaultPool().clock);
    writeBytes(demo + "/Pool_1.AQP", "mine");
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(readBytes(demo + "/Pool_1.AQP"), "mine");
}
