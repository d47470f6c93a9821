#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "SeriesFakes.h"
#include "format/PoolFile.h"
#include "series/EvolveSeries.h"
#include "series/SeriesLinks.h"
#include "support/TempDir.h"

using namespace aqtest;

namespace {

struct Rig : SimRig {
    aq::SeriesOptions& options = app.series.options;
    TempDir dir;
    std::string pools = dir.file("pools");
    int stopAtStart = 0;  // press Stop once the simulator has been started this often
    bool chosen = false;

    explicit Rig(aq::Pool first = makePool(4, 6)) {
        for (const char* sub : {"pools", "prog", "sim"}) std::filesystem::create_directories(dir.file(sub));
        app.programFolder = dir.file("prog");
        app.comboAquariumPath = dir.file("sim");
        app.comboPoolPath = pools;
        app.series.controls.frameVisible = true;
        app.series.controls.sliderTimeDelay = 7;
        sim.executables = {aq::series::joinPath(dir.file("sim"), "Aquarium")};
        save("pool.aqp", first);
        ui.onYield = [this] { stopAfter(stopAtStart); };
    }
    void stopAfter(int starts) {
        if (starts > 0 && sim.starts >= starts && app.series.controls.stopEnabled) aq::cmdCreateSeriesStopClick(app);
    }
    void save(const std::string& name, const aq::Pool& p) { ASSERT_EQ(aq::writePool(pools + "/" + name, p), ""); }
    bool has(const std::string& name) const { return std::filesystem::exists(pools + "/" + name); }
    aq::Pool load(const std::string& name) const {
        aq::Pool p;
        EXPECT_EQ(aq::readPool(pools + "/" + name, p).status, aq::PoolReadStatus::Ok) << name;
        return p;
    }
    // The open dialogue's answer: the series' first file ("" cancels).
    void choose(const std::string& name) {
        ui.file("open", "Select Pool File", name.empty() ? "" : pools + "/" + name, pools + "||aqp|Aquarium Files");
        chosen = true;
    }
    // Runs the series (on pool.aqp unless chosen otherwise) and checks it ended cleanly, every
    // simulator closed; after a lost one the buttons may show the series as stopped already.
    void run(bool lostSimulator = false) {
        if (!chosen) choose("pool.aqp");
        aq::cmdCreateSeriesNowClick(app);
        EXPECT_TRUE(ui.done()) << ui.report();
        const auto& c = app.series.controls;
        EXPECT_TRUE(c.nowEnabled);
        EXPECT_FALSE(sim.isRunning());
        EXPECT_FALSE(sim.overlap);
        if (lostSimulator) return;
        EXPECT_FALSE(c.stopEnabled || c.restartEnabled || c.nextEnabled);
        EXPECT_EQ(c.focus, "cmdCreateSeriesNow");
        EXPECT_FALSE(app.uiBusy);
    }
};

void killAll(aq::Pool& p) {
    p.clock += 100;
    p.drifterCount = 0;
}

}  // namespace

TEST(EvolveSeries, PlainBranchingContinuedAndFed) {
    Rig r;
    r.options.chkBranchingSeries = false;
    r.stopAtStart = 4;
    r.run();
    EXPECT_EQ(r.sim.starts, 4);
    EXPECT_FALSE(r.has("pool4.aqp"));
    for (int k = 1; k <= 3; ++k) EXPECT_EQ(r.load("pool" + std::to_string(k) + ".aqp").clock, 77 + 100 * k) << k;
    EXPECT_EQ(r.load("pool1.aqp").drifterCount, 4);  // after the empty suffix the whole pool goes on
    // Stopped by the button: the progress selection is put away.
    EXPECT_FALSE(r.app.series.controls.selectRange);
    EXPECT_EQ(r.app.series.controls.selStart, 1200);
    // A branching series splits each pool in two.
    aq::Pool mixed = makePool(6, 6);
    for (int i = 0; i < 6; ++i) std::memset(mixed.drifters[i].genes, i % 2 ? 9 : 1, 1000);
    Rig tree(mixed);
    tree.stopAtStart = 4;
    tree.run();
    for (const char* name : {"pool0.aqp", "pool00.aqp", "pool1.aqp", "pool10.aqp", "pool2.aqp"})
        EXPECT_TRUE(tree.has(name)) << name;
    EXPECT_FALSE(tree.has("pool01.aqp"));
    EXPECT_EQ(tree.load("pool0.aqp").drifterCount, 6);
    EXPECT_EQ(tree.load("pool00.aqp").drifterCount, 3);
    EXPECT_EQ(tree.load("pool00.aqp").drifters[0].genes[0], 9);
    EXPECT_EQ(tree.load("pool1.aqp").drifters[0].genes[0], 1);
    EXPECT_EQ(tree.load("pool2.aqp").clock, 77 + 300);
    // Continue starts at the first pool with a missing child.
    Rig cont;
    aq::Pool markedPool = makePool(4, 6);
    markedPool.clock = 5000;
    cont.save("pool0.aqp", makePool(4, 6));
    cont.save("pool00.aqp", makePool(4, 6));
    cont.save("pool1.aqp", markedPool);
    cont.stopAtStart = 2;
    cont.run();
    ASSERT_TRUE(cont.has("pool2.aqp"));
    EXPECT_EQ(cont.load("pool10.aqp").clock, 5100);
    EXPECT_EQ(cont.load("pool00.aqp").clock, 77);  // an existing file is not touched
    // A pool without food gets the food of the chosen file.
    Rig fed;
    fed.save("pool0.aqp", makePool(4, 0));
    fed.options.mSeriesAddFood = false;  // its own food would come on top
    fed.stopAtStart = 2;
    fed.run();
    EXPECT_EQ(fed.load("pool00.aqp").foodCount, 6);
    EXPECT_EQ(fed.load("pool00.aqp").drifterCount, 2);  // the chosen file's drifters stay out
}

TEST(EvolveSeries, RestartAndSaveAndContinueButtons) {
    // Restart or Save and Continue, with extinctions stored or not: whether pool0 is stored.
    for (auto [next, allowExtinction, stored] :
         {std::array{false, false, false}, {false, true, true}, {true, false, true}}) {
        Rig r;
        r.options.mSeriesExtinction = allowExtinction;
        r.options.mCloneWhenExtinct = false;
        r.app.series.controls.sliderTimeDelay = 600;
        bool pressed = false;
        r.ui.onYield = [&] {
            if (!pressed && r.sim.starts == 1 && r.clock.seconds > 36000 + 40) {
                pressed = true;
                next ? aq::cmdCreateSeriesNextClick(r.app) : aq::cmdCreateSeriesRestartClick(r.app);
            }
            r.stopAfter(2);
        };
        r.run();
        EXPECT_EQ(r.sim.starts, 2);
        EXPECT_EQ(r.has("pool0.aqp"), stored);
        if (next) {
            EXPECT_EQ(r.load("pool0.aqp").clock, 177);
        }
        EXPECT_LT(r.clock.seconds, 36000 + 120);  // the run was cut short
    }
}

TEST(EvolveSeries, ExtinctionsAndMessagesThatEndTheSeries) {
    // Clones without storing extinctions: the series ends silently after 151.
    // Each retry hands over one drifter more, and no food of its own.
    Rig clone(makePool(1, 1));                // the retries multiply the pool; keep it small
    std::vector<std::pair<int, int>> handed;  // drifters and food at each start
    clone.sim.evolve = [&](aq::Pool& p) {
        handed.emplace_back(p.drifterCount, p.foodCount);
        killAll(p);
    };
    clone.ui.step = 1.0;
    clone.run();
    ASSERT_EQ(clone.sim.starts, 151);
    EXPECT_EQ(handed[1], std::make_pair(2, 100));
    EXPECT_EQ(handed[2], std::make_pair(3, 100));
    EXPECT_EQ(handed.back(), std::make_pair(151, 201));
    EXPECT_FALSE(clone.has("pool0.aqp"));

    // Clones and stored extinctions: the third one is stored, and the user is asked.
    Rig third;
    third.sim.evolve = killAll;
    third.options.mSeriesExtinction = true;
    third.choose("pool.aqp");
    third.ui.ask("yesno",
                 third.pools +
                     "/pool0.aqp\r\n\r\nAll animate life in is extinct this pool. There are no drifters to load. "
                     "Continue the series anyway?",
                 aq::kAppTitle, aq::Answer::No);
    third.run();
    EXPECT_EQ(third.sim.starts, 3);
    EXPECT_EQ(third.load("pool0.aqp").drifterCount, 0);

    // No clones: the extinct pool is stored, then the series says so.
    Rig plain;
    plain.sim.evolve = killAll;
    plain.options.mSeriesExtinction = true;
    plain.options.mCloneWhenExtinct = false;
    plain.options.chkBranchingSeries = false;
    plain.choose("pool.aqp");
    plain.ui.message(plain.pools +
                     "/pool1.aqp\r\n\r\nAll animate life is extinct in this pool. There are no drifters to load.");
    plain.run();
    EXPECT_EQ(plain.sim.starts, 1);
    EXPECT_TRUE(plain.has("pool1.aqp"));
    const std::tuple<aq::Pool, std::string, std::string> cases[] = {
        {makePool(4, 0), "pool.aqp", "Error Loading Food."},
        {makePool(0, 6), "pool.aqp", "Unable to Load Drifters."},
        {makePool(4, 6), "missing.aqp", "Nothing to Load"},
        {makePool(4, 6), "", ""},  // cancelled
    };
    for (const auto& [first, chosen, message] : cases) {
        Rig r(first);
        if (chosen == "missing.aqp") r.app.workPool.drifterCount = r.app.workPool.foodCount = -1;
        r.choose(chosen);
        if (!message.empty()) r.ui.message(message);
        r.run();
        EXPECT_EQ(r.sim.starts, 0) << message;
    }
    Rig r;
    r.sim.executables.clear();
    r.choose("pool.aqp");
    expectNoSimulator(r.ui, r.app.comboAquariumPath);
    r.run();
    EXPECT_FALSE(r.has("pool0.aqp"));
}

TEST(EvolveSeries, ColourMutantsAndALostSimulatorOnAnotherTab) {
    std::vector<aq::DrifterRec> ds;
    for (int i = 0; i < 10; ++i) ds.push_back(makeDrifter(i, 2, i == 4 ? 1 : 0));
    for (auto& d : ds) d.velocityX = 1;
    Rig r(poolOf(ds, 6));
    r.options.chkBranchingSeries = false;
    r.options.mSeriesNoMutantsByColors = true;  // alone
    r.stopAtStart = 2;
    r.run();
    EXPECT_EQ(idsOf(r.load("pool1.aqp")), (std::vector<int>{0, 1, 2, 3, 5, 6, 7, 8, 9}));
    Rig lost;
    lost.sim.windowAfter = 1e9;  // the window never turns up, so the simulator counts as lost
    lost.app.series.controls.frameVisible = false;
    lost.app.series.controls.sliderTimeDelay = 60;
    lost.ui.onYield = [&] {
        if (lost.sim.starts >= 2) lost.app.series.controls.frameVisible = true;  // the user comes back to the tab
        lost.stopAfter(2);
    };
    lost.run(true);
    // The run went its full time, and the pool, never taken up, went on unchanged.
    EXPECT_EQ(lost.sim.starts, 2);
    EXPECT_EQ(lost.load("pool0.aqp").clock, 77);
}

TEST(EvolveSeries, PlagueAndHarvestHappenInTheCycle) {
    auto body = [](int segments, int meals) {
        aq::DrifterRec d = makeDrifter(0, segments, 2);
        d.totalLength = 10.0f * static_cast<float>(segments);
        d.mealsEaten = meals;
        d.age = 100;
        d.energy = 500;
        d.velocityX = 1;
        return d;
    };
    struct Case {
        const char* what;
        std::vector<aq::DrifterRec> drifters;
        bool plague, harvest;
        std::vector<int> handedOver;
    } cases[] = {
        // 50 of the most successful form in 120: the plague takes them on load.
        {"plague", {}, true, false, {70}},
        // The pool dies out: the next cycle starts from 200 drifters drawn by the harvest,
        // with the file's own drifters merged in once for the retry.
        {"harvest", {body(1, 1), body(2, 2), body(3, 3), body(4, 4)}, false, true, {4, 204}},
        {"no plague unasked", {}, false, false, {120}},
    };
    for (int i = 0; i < 120; ++i) cases[0].drifters.push_back(body(i < 50 ? 3 : 2, i < 50 ? 9 : 1));
    cases[2].drifters = cases[0].drifters;
    for (const Case& c : cases) {
        Rig r(poolOf(c.drifters, 6));
        r.options.chkBranchingSeries = false;
        r.options.chkPlague = c.plague;
        r.options.chkGetSuc = c.harvest;
        std::vector<int> handedOver;
        r.sim.evolve = [&](aq::Pool& p) {
            handedOver.push_back(p.drifterCount);
            c.harvest&& handedOver.size() == 1 ? killAll(p) : void(p.clock += 100);
        };
        r.stopAtStart = static_cast<int>(c.handedOver.size());
        r.run();
        EXPECT_EQ(handedOver, c.handedOver) << c.what;
    }
}
