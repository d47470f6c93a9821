#include <gtest/gtest.h>

#include <filesystem>

#include "SeriesFakes.h"
#include "pool/PoolFile.h"
#include "series/EvolveSeries.h"
#include "support/PoolFixtures.h"
#include "support/TempDir.h"

using namespace aqtest;

namespace {

const std::string kExtinctPlain = "\r\n\r\nAll animate life is extinct in this pool. There are no drifters to load.";
const std::string kExtinctBranching =
    "\r\n\r\nAll animate life in is extinct this pool. There are no drifters to load. Continue the series anyway?";

struct Rig {
    ManualClock clock;
    TickingUi ui{clock};
    aq::App app{ui, clock};
    FakeSimulator sim;
    TempDir dir;
    std::string pools = dir.file("pools");
    std::string seriesFile = pools + "/pool.aqp";
    int stopAtStart = 0;  // press Stop once the simulator has been started this often

    explicit Rig(aq::Pool first = makePool(4, 6)) {
        std::filesystem::create_directories(pools);
        std::filesystem::create_directories(dir.file("prog"));
        std::filesystem::create_directories(dir.file("sim"));
        app.programFolder = dir.file("prog");
        app.comboAquariumPath = dir.file("sim");
        app.comboPoolPath = pools;
        app.series.simulator = &sim;
        app.series.pauseMs = 0;
        app.series.controls.frameVisible = true;
        app.series.controls.sliderTimeDelay = 7;
        sim.clock = &clock;
        sim.executables = {dir.file("sim") + "/Aquarium"};
        save("pool.aqp", first);
        ui.onYield = [this] {
            if (stopAtStart > 0 && sim.starts >= stopAtStart && app.series.controls.stopEnabled)
                aq::cmdCreateSeriesStopClick(app);
        };
    }
    void save(const std::string& name, const aq::Pool& p) { ASSERT_EQ(aq::writePool(pools + "/" + name, p), ""); }
    bool has(const std::string& name) const { return std::filesystem::exists(pools + "/" + name); }
    aq::Pool load(const std::string& name) const {
        aq::Pool p;
        EXPECT_EQ(aq::readPool(pools + "/" + name, p).status, aq::PoolReadStatus::Ok) << name;
        return p;
    }
    void choose(const std::string& path) { ui.file("open", "Select Pool File", path, pools + "||aqp|Aquarium Files"); }
    void run() { aq::cmdCreateSeriesNowClick(app); }
    void expectFinished() {
        const auto& c = app.series.controls;
        EXPECT_TRUE(c.nowEnabled);
        EXPECT_FALSE(c.stopEnabled || c.restartEnabled || c.nextEnabled);
        EXPECT_EQ(c.focus, "cmdCreateSeriesNow");
        EXPECT_FALSE(app.uiBusy);
        EXPECT_FALSE(sim.isRunning());
        EXPECT_FALSE(sim.overlap);
        EXPECT_TRUE(ui.done()) << ui.report();
    }
};

void killAll(aq::Pool& p) {
    p.clock += 100;
    p.drifterCount = 0;
}

}  // namespace

TEST(EvolveSeries, PlainSeriesOfThreePools) {
    Rig r;
    r.app.series.options.chkBranchingSeries = false;
    r.stopAtStart = 4;
    r.choose(r.seriesFile);
    r.run();
    r.expectFinished();
    EXPECT_EQ(r.sim.starts, 4);
    ASSERT_TRUE(r.has("pool1.aqp") && r.has("pool2.aqp") && r.has("pool3.aqp"));
    EXPECT_FALSE(r.has("pool4.aqp"));
    EXPECT_EQ(r.load("pool1.aqp").clock, 177);
    EXPECT_EQ(r.load("pool2.aqp").clock, 277);
    EXPECT_EQ(r.load("pool3.aqp").clock, 377);
    EXPECT_EQ(r.load("pool1.aqp").drifterCount, 4);  // after the empty suffix the whole pool goes on
    EXPECT_EQ(r.load("pool2.aqp").drifters[0].age, r.load("pool1.aqp").drifters[0].age + 100);
    // Stopped by the button: the progress selection is put away.
    EXPECT_FALSE(r.app.series.controls.selectRange);
    EXPECT_EQ(r.app.series.controls.selStart, 1200);
    EXPECT_EQ(r.sim.folderSeen, r.app.programFolder);
}

TEST(EvolveSeries, BranchingSeriesSplitsEachPoolInTwo) {
    aq::Pool first = makePool(6, 6);
    for (int i = 0; i < 6; ++i) std::memset(first.drifters[static_cast<std::size_t>(i)].genes, i % 2 ? 9 : 1, 1000);
    Rig r(first);
    r.stopAtStart = 4;
    r.choose(r.seriesFile);
    r.run();
    r.expectFinished();
    for (const char* name : {"pool0.aqp", "pool00.aqp", "pool1.aqp", "pool10.aqp", "pool2.aqp"})
        EXPECT_TRUE(r.has(name)) << name;
    EXPECT_FALSE(r.has("pool01.aqp"));
    EXPECT_EQ(r.load("pool0.aqp").drifterCount, 6);
    EXPECT_EQ(r.load("pool00.aqp").drifterCount, 3);
    EXPECT_EQ(r.load("pool1.aqp").drifterCount, 3);
    EXPECT_EQ(r.load("pool00.aqp").drifters[0].genes[0], 9);
    EXPECT_EQ(r.load("pool1.aqp").drifters[0].genes[0], 1);
    EXPECT_EQ(r.load("pool2.aqp").clock, 77 + 300);
}

TEST(EvolveSeries, RestartRunsTheSamePoolAgainUnlessExtinctionStoresIt) {
    for (bool allowExtinction : {false, true}) {
        Rig r;
        r.app.series.options.mSeriesExtinction = allowExtinction;
        r.app.series.options.mCloneWhenExtinct = false;
        r.app.series.controls.sliderTimeDelay = 300;
        bool pressed = false;
        r.ui.onYield = [&] {
            if (!pressed && r.sim.starts == 1 && r.clock.seconds > 36000 + 40) {
                pressed = true;
                aq::cmdCreateSeriesRestartClick(r.app);
            }
            if (r.sim.starts >= 2 && r.app.series.controls.stopEnabled) aq::cmdCreateSeriesStopClick(r.app);
        };
        r.choose(r.seriesFile);
        r.run();
        r.expectFinished();
        EXPECT_EQ(r.sim.starts, 2);
        EXPECT_EQ(r.has("pool0.aqp"), allowExtinction);
        EXPECT_LT(r.clock.seconds, 36000 + 120);
    }
}

TEST(EvolveSeries, SaveAndContinueStoresThePoolAtOnce) {
    Rig r;
    r.app.series.controls.sliderTimeDelay = 600;
    r.ui.onYield = [&] {
        if (r.sim.starts == 1 && r.clock.seconds > 36000 + 40) aq::cmdCreateSeriesNextClick(r.app);
        if (r.sim.starts >= 2 && r.app.series.controls.stopEnabled) aq::cmdCreateSeriesStopClick(r.app);
    };
    r.choose(r.seriesFile);
    r.run();
    r.expectFinished();
    EXPECT_TRUE(r.has("pool0.aqp"));
    EXPECT_EQ(r.load("pool0.aqp").clock, 177);
    EXPECT_LT(r.clock.seconds, 36000 + 120);
}

TEST(EvolveSeries, CloneWithoutExtinctionEndsSilentlyAfter151Extinctions) {
    Rig r(makePool(1, 1));  // the retries multiply the pool; keep it small
    r.sim.evolve = killAll;
    r.ui.step = 1.0;
    r.choose(r.seriesFile);
    r.run();
    r.expectFinished();
    EXPECT_EQ(r.sim.starts, 151);
    EXPECT_FALSE(r.has("pool0.aqp"));
}

TEST(EvolveSeries, CloneWithExtinctionStoresTheThirdExtinction) {
    Rig r;
    r.sim.evolve = killAll;
    r.app.series.options.mSeriesExtinction = true;
    r.choose(r.seriesFile);
    r.ui.ask("yesno", r.pools + "/pool0.aqp" + kExtinctBranching, aq::kAppTitle, aq::Answer::No);
    r.run();
    r.expectFinished();
    EXPECT_EQ(r.sim.starts, 3);
    ASSERT_TRUE(r.has("pool0.aqp"));
    EXPECT_EQ(r.load("pool0.aqp").drifterCount, 0);
}

TEST(EvolveSeries, ExtinctionWithoutCloneStoresThePoolThenSaysSo) {
    Rig r;
    r.sim.evolve = killAll;
    r.app.series.options.mSeriesExtinction = true;
    r.app.series.options.mCloneWhenExtinct = false;
    r.app.series.options.chkBranchingSeries = false;
    r.choose(r.seriesFile);
    r.ui.message(r.pools + "/pool1.aqp" + kExtinctPlain);
    r.run();
    r.expectFinished();
    EXPECT_EQ(r.sim.starts, 1);
    EXPECT_TRUE(r.has("pool1.aqp"));
}

TEST(EvolveSeries, ContinueStartsAtTheFirstPoolWithAMissingChild) {
    Rig r;
    aq::Pool marked = makePool(4, 6);
    marked.clock = 5000;
    r.save("pool0.aqp", makePool(4, 6));
    r.save("pool00.aqp", makePool(4, 6));
    r.save("pool1.aqp", marked);
    r.stopAtStart = 2;
    r.choose(r.seriesFile);
    r.run();
    r.expectFinished();
    ASSERT_TRUE(r.has("pool10.aqp") && r.has("pool2.aqp"));
    EXPECT_EQ(r.load("pool10.aqp").clock, 5100);
    EXPECT_EQ(r.load("pool00.aqp").clock, 77);  // an existing file is not touched
}

TEST(EvolveSeries, PoolWithoutFoodGetsTheFoodOfTheChosenFile) {
    Rig r;
    aq::Pool hungry = makePool(4, 0);
    r.save("pool0.aqp", hungry);
    r.app.series.options.mSeriesAddFood = false;  // its own food would come on top
    r.stopAtStart = 2;
    r.choose(r.seriesFile);
    r.run();
    r.expectFinished();
    EXPECT_EQ(r.load("pool00.aqp").foodCount, 6);
}

TEST(EvolveSeries, MessagesThatEndTheSeries) {
    {
        Rig r(makePool(4, 0));
        r.choose(r.seriesFile);
        r.ui.message("Error Loading Food.");
        r.run();
        r.expectFinished();
        EXPECT_EQ(r.sim.starts, 0);
    }
    {
        Rig r;
        r.app.workPool.drifterCount = -1;
        r.app.workPool.foodCount = -1;
        r.choose(r.pools + "/missing.aqp");
        r.ui.message("Nothing to Load");
        r.run();
        r.expectFinished();
    }
    {
        Rig r(makePool(0, 6));
        r.choose(r.seriesFile);
        r.ui.message("Unable to Load Drifters.");
        r.run();
        r.expectFinished();
    }
    {
        Rig r;
        r.sim.executables.clear();
        r.choose(r.seriesFile);
        r.ui.message("Unable to start Aquarium.  Please select the correct Aquarium path and try again. " +
                     r.app.comboAquariumPath + "/Aquarium.exe")
            .message(
                "Aquarium could not be found at the specified location.  Please select the correct Aquarium "
                "program path in the field provided.");
        r.run();
        r.expectFinished();
        EXPECT_FALSE(r.has("pool0.aqp"));
    }
    {
        Rig r;
        r.choose("");  // cancelled
        r.run();
        r.expectFinished();
        EXPECT_EQ(r.sim.tried.size(), 0u);
    }
}

TEST(EvolveSeries, LostSimulatorOnAnotherTabDoesNotEndTheSeries) {
    Rig r;
    r.sim.windowAfter = 1e9;  // the window never turns up, so the simulator counts as lost
    r.app.series.controls.frameVisible = false;
    r.app.series.controls.sliderTimeDelay = 60;
    r.ui.onYield = [&] {
        if (r.sim.starts >= 2) {
            r.app.series.controls.frameVisible = true;  // the user comes back to the tab
            if (r.app.series.controls.stopEnabled) aq::cmdCreateSeriesStopClick(r.app);
        }
    };
    r.choose(r.seriesFile);
    r.run();
    EXPECT_TRUE(r.ui.done()) << r.ui.report();
    EXPECT_EQ(r.sim.starts, 2);
    // The run went its full time, and the pool, never taken up, went on unchanged.
    ASSERT_TRUE(r.has("pool0.aqp"));
    EXPECT_EQ(r.load("pool0.aqp").clock, 77);
    EXPECT_TRUE(r.app.series.controls.nowEnabled);
}

namespace {

aq::DrifterRec bodyOf(int segments, int meals) {
    aq::DrifterRec d = makeDrifter(0, segments, 2);
    d.totalLength = 10.0f * static_cast<float>(segments);
    d.mealsEaten = meals;
    d.age = 100;
    d.energy = 500;
    d.velocityX = 1;
    return d;
}

}  // namespace

TEST(EvolveSeries, PlagueAndHarvestHappenInTheCycle) {
    // 50 of the most successful form in 120: the plague takes them on load.
    {
        aq::Pool first = makePool(0, 6);
        for (int i = 0; i < 120; ++i) first.drifters.push_back(bodyOf(i < 50 ? 3 : 2, i < 50 ? 9 : 1));
        first.drifterCount = 120;
        Rig r(first);
        r.app.series.options.chkBranchingSeries = false;
        r.app.series.options.chkPlague = true;
        std::vector<int> handedOver;
        r.sim.evolve = [&](aq::Pool& p) {
            handedOver.push_back(p.drifterCount);
            p.clock += 100;
        };
        r.stopAtStart = 1;
        r.choose(r.seriesFile);
        r.run();
        r.expectFinished();
        ASSERT_EQ(handedOver.size(), 1u);
        EXPECT_EQ(handedOver[0], 70);
    }
    // The pool dies out: the next cycle starts from 200 drifters drawn by the harvest,
    // with the file's own drifters merged in once for the retry.
    {
        aq::Pool first = makePool(0, 6);
        for (int i = 0; i < 4; ++i) first.drifters.push_back(bodyOf(1 + i, 1 + i));
        first.drifterCount = 4;
        Rig r(first);
        r.app.series.options.chkBranchingSeries = false;
        r.app.series.options.chkGetSuc = true;
        std::vector<int> handedOver;
        r.sim.evolve = [&](aq::Pool& p) {
            handedOver.push_back(p.drifterCount);
            if (handedOver.size() == 1) {
                killAll(p);
            } else {
                p.clock += 100;
            }
        };
        r.stopAtStart = 2;
        r.choose(r.seriesFile);
        r.run();
        r.expectFinished();
        ASSERT_EQ(handedOver.size(), 2u);
        EXPECT_EQ(handedOver[0], 4);
        EXPECT_EQ(handedOver[1], 204);
    }
}
