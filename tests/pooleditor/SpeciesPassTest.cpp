// The species pass in slices, the threshold controls and the range command.
#include <gtest/gtest.h>

#include "support/RecordingNotice.h"

#include <cstring>

#include "pooleditor/DrifterList.h"
#include "pooleditor/SpeciesPass.h"
#include "shell/MultiTask.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"

using namespace aq;
using namespace aqtest;

namespace {

// Every reading of the clock moves it on, so a pass runs out of time after a few drifters.
class SteppingClock : public ManualClock {
public:
    double step = 0;
    double secondsSinceMidnight() override {
        double now = seconds;
        seconds += step;
        return now;
    }
};

struct Editor {
    ScriptedUi ui;
    SteppingClock clock;
    App app{ui, clock};
    explicit Editor(const Pool& pool, int depth = 100) {
        app.openPool = pool;
        app.openPoolPath = "/pools/open.aqp";
        app.similarityDepth = static_cast<std::int16_t>(depth);
        app.poolLoaded = true;
        populateSpeciatePoolList(app);
        app.poolSpeciesPending = true;
    }
    // Runs slices as the timer would, until the pass is done; returns how many it took.
    int finish() {
        int slices = 0;
        while (app.poolSpeciesPending && slices < 10000) {
            speciatePoolList(app);
            ++slices;
        }
        return slices;
    }
    std::vector<std::int32_t> tags() const {
        std::vector<std::int32_t> t;
        for (int i = 0; i < app.lstSpeciatePool.count(); ++i) t.push_back(app.lstSpeciatePool.tag(i));
        return t;
    }
};

int species(const std::vector<std::int32_t>& tags) {
    std::int32_t top = -1;
    for (auto t : tags) top = std::max(top, t);
    return top + 1;
}

// A pool whose drifters differ only in how many of their first genes they share with drifter 0.
Pool kinPool(std::initializer_list<int> shared) {
    Pool p = makePool(static_cast<int>(shared.size()), 0);
    int i = 0;
    for (int s : shared) {
        auto& g = p.drifters[static_cast<std::size_t>(i++)].genes;
        for (int k = 0; k < 1000; ++k) g[k] = static_cast<std::uint8_t>(k < s ? k : 200 + i);
    }
    return p;
}

}  // namespace

TEST(SpeciesPass, TheDefaultPoolAtBothDepths) {
    struct Case {
        int depth;
        int position;
        int speciesCount;
        std::vector<std::int32_t> first;
    } cases[] = {
        {100, 444, 25, {0, 0, 0, 0, 0, 1, 2, 2, 2, 2, 2, 2, 2, 3, 4, 5, 6, 7, 8, 9}},
        {1000, 444, 27, {0, 0, 0, 0, 1, 2, 0, 0, 0, 0, 0, 0, 0, 3, 4, 5}},
        {1000, 965, 46, {0, 1, 2, 3}},
    };
    for (const Case& c : cases) {
        Editor e(defaultPool(), c.depth);
        e.app.poolThreshold = static_cast<float>(c.position / 10.0);
        e.finish();
        auto tags = e.tags();
        EXPECT_EQ(species(tags), c.speciesCount) << c.depth << " " << c.position;
        EXPECT_EQ(std::vector<std::int32_t>(tags.begin(), tags.begin() + static_cast<long>(c.first.size())), c.first);
        EXPECT_EQ(tags, poolSpeciesTags(e.app.openPool, e.app.poolThreshold, c.depth));
        // The tags stand at the head of the lines, and the pass leaves the list usable.
        EXPECT_EQ(e.app.lstSpeciatePool.text(0), "{0} " + DrifterLineText(e.app.openPool.drifters[0]));
        EXPECT_TRUE(e.app.lstSpeciatePool.enabled() && e.app.lstSpeciatePool.visible());
        EXPECT_FALSE(e.app.poolPassRunning || e.app.PoolProgressBar1.visible || e.app.uiBusy);
    }
}

TEST(SpeciesPass, KnownTagsOfABuiltPool) {
    // Shares with drifter 0 of 100 leading genes (depth 100); drifter 0 shares all with itself.
    Pool p = kinPool({100, 50, 44, 43, 100, 10});
    Editor e(p);
    e.finish();
    // 44 and more is similar at 44.4%; drifters 3 and 5 share their first 10 genes too (10 < 44).
    EXPECT_EQ(e.tags(), (std::vector<std::int32_t>{0, 0, 0, 1, 0, 2}));
    EXPECT_EQ(e.app.lstSpeciatePool.text(5).substr(0, 4), "{2} ");
}

TEST(SpeciesPass, SlicesGiveTheTagsOfOnePass) {
    Pool p = defaultPool();
    Editor whole(p, 1000);
    whole.finish();

    Editor sliced(p, 1000);
    sliced.clock.step = 0.7;  // three readings fill a slice
    int slices = sliced.finish();
    EXPECT_GT(slices, 10);
    EXPECT_EQ(sliced.tags(), whole.tags());
    EXPECT_EQ(sliced.app.lstSpeciatePool.text(4), whole.app.lstSpeciatePool.text(4));
}

TEST(SpeciesPass, TheNoticeComesOnceForASlowPassAndPatienceGrows) {
    // 1000 look-alike drifters.
    Pool p = makePool(1000, 0);
    for (auto& d : p.drifters) std::memset(d.genes, 7, sizeof d.genes);
    Editor e(p);
    e.app.comboSpeciatePoolGroup0 = 2;
    e.app.lastHelpMove = e.clock.seconds - 100;
    aqtest::RecordingNotice recorder;
    e.app.notice = &recorder;
    std::vector<std::string>& notices = recorder.shown;
    e.clock.step = 0.9;  // two drifters a slice: slow enough for every notice
    speciatePoolList(e.app);
    ASSERT_EQ(notices.size(), 1u);
    EXPECT_EQ(notices[0].substr(0, 94),
              "Please be patient. Extended species grouping may take several minutes on larger aquariums.\r\n\r\n");
    EXPECT_NE(notices[0].find("within the selected species boundary threshold."), std::string::npos);
    EXPECT_EQ(e.app.poolPatience, 16);
    EXPECT_FALSE(e.app.lstSpeciatePool.enabled());
    e.finish();
    EXPECT_EQ(notices.size(), 1u);
    EXPECT_TRUE(e.app.lstSpeciatePool.enabled());

    // Patience runs 16, 32, 64, 128, 256 and stays there.
    for (int expected : {32, 64, 128, 256, 256}) {
        e.app.poolSpeciesPending = true;
        e.finish();
        EXPECT_EQ(e.app.poolPatience, expected);
    }
    EXPECT_EQ(notices.size(), 6u);

    // None outside "extended species.".
    e.app.comboSpeciatePoolGroup0 = 1;
    e.app.poolSpeciesPending = true;
    e.finish();
    EXPECT_EQ(notices.size(), 6u);
}

TEST(SpeciesPass, AThresholdChangeDuringAPass) {
    // A pass that outlasts its slice keeps going under the new threshold: those numbered keep
    // their species, the rest are judged anew.
    Pool p = kinPool({100, 50, 10, 10, 10, 10, 10, 10, 10, 10});
    Editor e(p);
    e.clock.step = 0.7;
    speciatePoolList(e.app);  // numbers drifters 0 and 1, then runs out of time
    ASSERT_EQ(e.app.poolPassIndex, 2);
    setPoolSpeciesThresholdPosition(e.app, 0);  // everything is similar now
    EXPECT_EQ(e.app.txtPoolSpeciesThreshold, " 0");
    EXPECT_TRUE(e.app.poolSpeciesPending);
    EXPECT_TRUE(e.app.poolPassRunning);
    e.finish();
    EXPECT_EQ(e.tags(), (std::vector<std::int32_t>(10, 0)));

    // A change after the pass (or one that finishes in its slice) starts a new pass.
    Editor f(p);
    f.finish();
    EXPECT_EQ(f.tags(), (std::vector<std::int32_t>{0, 0, 1, 2, 3, 4, 5, 6, 7, 8}));
    setPoolSpeciesThresholdPosition(f.app, 0);
    EXPECT_TRUE(f.app.poolSpeciesPending);
    EXPECT_FALSE(f.app.poolPassRunning);
    f.finish();
    EXPECT_EQ(f.tags(), (std::vector<std::int32_t>(10, 0)));

    // A generated pool without a path doesn't restart.
    Editor g(p);
    g.finish();
    g.app.openPoolPath.clear();
    setPoolSpeciesThresholdPosition(g.app, 0);
    EXPECT_FALSE(g.app.poolSpeciesPending);
    EXPECT_FLOAT_EQ(g.app.poolThreshold, 0.0f);
}

TEST(SpeciesPass, AListOutOfStepWithThePoolRestartsThePass) {
    Pool p = kinPool({100, 50, 10, 10});
    Editor e(p);
    e.clock.step = 0.7;
    speciatePoolList(e.app);
    ASSERT_EQ(e.app.poolPassIndex, 2);
    e.app.lstSpeciatePool.remove(3);  // the list no longer matches the pool
    e.app.lstSpeciatePool.remove(2);
    speciatePoolList(e.app);
    EXPECT_EQ(e.app.poolPassIndex, 0);
    EXPECT_TRUE(e.app.poolPassRunning);
    EXPECT_TRUE(e.app.poolSpeciesPending);
    EXPECT_FALSE(e.app.uiBusy);
    populateSpeciatePoolList(e.app);
    e.finish();
    EXPECT_EQ(e.tags(), (std::vector<std::int32_t>{0, 0, 1, 2}));
}

TEST(SpeciesPass, AClockReadingThatRoundsUpStillGivesAFullSlice) {
    Editor e(defaultPool());
    e.clock.seconds = 4000.0002;  // single precision holds 4000.000244
    ASSERT_GT(static_cast<double>(static_cast<float>(e.clock.seconds)), e.clock.seconds);
    EXPECT_EQ(e.finish(), 1);
}

TEST(SpeciesThreshold, TypedTextsAndTheLateRewrite) {
    struct Case {
        const char* typed;
        int position;
        float threshold;
        const char* canonical;
    } cases[] = {
        {"95%", 950, 95.0f, " 95"},     {" 95 ", 950, 95.0f, " 95"},    {"abc", 0, 0.0f, " 0"},
        {"-5", 1000, 100.0f, " 100"},   {"12.34", 123, 12.3f, " 12.3"}, {".7", 7, 0.7f, " .7"},
        {"44.45", 444, 44.4f, " 44.4"},  // 444.5 goes to the even 444
        {"1e1", 100, 10.0f, " 10"},     {"300", 1000, 100.0f, " 100"},
    };
    for (const Case& c : cases) {
        ScriptedUi ui;
        ManualClock clock;
        App app(ui, clock);
        app.scrollPoolSpeciesThreshold = 500;
        typePoolSpeciesThreshold(app, c.typed);
        MultiTask task;
        FramesShown shown{true, false};
        for (int t = 0; t < 6; ++t) tmrMultiTaskTick(app, task, shown);
        EXPECT_FALSE(app.poolThresholdTyped);
        EXPECT_EQ(app.scrollPoolSpeciesThreshold, c.position) << c.typed;
        EXPECT_FLOAT_EQ(app.poolThreshold, c.threshold) << c.typed;
        EXPECT_EQ(app.txtPoolSpeciesThreshold, c.typed) << "the text stays as typed at first";
        // Typed again and left alone for more than five seconds: the text is rewritten.
        typePoolSpeciesThreshold(app, c.typed);
        clock.advance(5.5);
        for (int t = 0; t < 6; ++t) tmrMultiTaskTick(app, task, shown);
        EXPECT_EQ(app.txtPoolSpeciesThreshold, c.canonical) << c.typed;
    }
}

TEST(SpeciesThreshold, BusyDefersTheTypedText) {
    ScriptedUi ui;
    ManualClock clock;
    App app(ui, clock);
    typePoolSpeciesThreshold(app, "50");
    app.uiBusy = true;
    validatePoolSpeciesThreshold(app);
    EXPECT_TRUE(app.poolThresholdTyped);
    EXPECT_EQ(app.scrollPoolSpeciesThreshold, 444);
}

TEST(SpeciesThreshold, RangeMessages) {
    {
        Editor e(defaultPool(), 100);
        e.ui.message("Range found.  Listed drifters all match from 0% to  95% of each other's genetic sequences.");
        findPoolThresholdRange(e.app);
        EXPECT_TRUE(e.ui.done()) << e.ui.report();
    }
    {
        Editor e(defaultPool(), 1000);
        e.ui.message("Range found.  Listed drifters all match from 0% to  99.5% of each other's genetic sequences.");
        findPoolThresholdRange(e.app);
        EXPECT_TRUE(e.ui.done()) << e.ui.report();
    }
    {
        Editor e(kinPool({60, 60}), 100);  // two drifters equal in their first 100 genes at depth 100
        e.ui.message("Zero range found.  Listed drifters all match  60% of each other's genetic sequences.");
        findPoolThresholdRange(e.app);
        EXPECT_TRUE(e.ui.done()) << e.ui.report();
    }
    {
        Editor e(kinPool({100, 100, 90}), 1000);
        e.ui.message("Range found.  Listed drifters all match from 9% to  10% of each other's genetic sequences.");
        findPoolThresholdRange(e.app);
        EXPECT_TRUE(e.ui.done()) << e.ui.report();
        EXPECT_FALSE(e.app.PoolProgressBar1.visible);
    }
    {
        Editor e(kinPool({100, 100, 95, 3}), 100);  // half-way thousandths round to even
        e.ui.message("Range found.  Listed drifters all match from 3% to  100% of each other's genetic sequences.");
        findPoolThresholdRange(e.app);
        EXPECT_TRUE(e.ui.done()) << e.ui.report();
    }
    {
        Editor e(kinPool({100}), 100);  // one drifter: nothing to tell apart
        e.ui.message("Zero range found.  Listed drifters all match  100% of each other's genetic sequences.");
        findPoolThresholdRange(e.app);
        EXPECT_TRUE(e.ui.done()) << e.ui.report();
    }
}
