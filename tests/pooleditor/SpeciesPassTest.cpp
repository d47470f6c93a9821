// The species pass in slices, the threshold controls and the range command.
#include <gtest/gtest.h>

#include <cstring>

#include "pooleditor/PoolEditorFixture.h"
#include "pooleditor/SpeciesPass.h"
#include "shell/MultiTask.h"
#include "support/RecordingNotice.h"

using namespace aq;
using namespace aqtest;

namespace {

struct Editor : PoolEditor {
    explicit Editor(const Pool& pool, int depth = 100) : PoolEditor(pool) {
        app.openPoolPath = "/pools/open.aqp";
        app.similarityDepth = static_cast<std::int16_t>(depth);
        app.poolLoaded = true;
        app.poolSpeciesPending = true;
    }
    // Runs slices as the timer would, until the pass is done; returns how many it took.
    int finish() {
        int slices = 0;
        for (; app.poolSpeciesPending && slices < 10000; ++slices) speciatePoolList(app);
        return slices;
    }
};

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
        EXPECT_EQ(*std::max_element(tags.begin(), tags.end()) + 1, c.speciesCount) << c.depth << " " << c.position;
        EXPECT_EQ(std::vector<std::int32_t>(tags.begin(), tags.begin() + static_cast<long>(c.first.size())), c.first);
        EXPECT_EQ(tags, poolSpeciesTags(e.app.openPool, e.app.poolThreshold, c.depth));
        // The tags stand at the head of the lines, and the pass leaves the list usable.
        EXPECT_EQ(e.app.lstSpeciatePool.text(0), "{0} " + DrifterLineText(e.app.openPool.drifters[0]));
        EXPECT_TRUE(e.app.lstSpeciatePool.enabled() && e.app.lstSpeciatePool.visible());
        EXPECT_FALSE(e.app.poolPassRunning || e.app.PoolProgressBar1.visible || e.app.uiBusy);
    }
}

TEST(SpeciesPass, SlicesGiveTheTagsOfOnePass) {
    Editor whole(defaultPool(), 1000), sliced(defaultPool(), 1000);
    EXPECT_EQ(whole.finish(), 1);
    sliced.clock.step = 0.7;  // three readings fill a slice
    EXPECT_GT(sliced.finish(), 10);
    EXPECT_EQ(sliced.tags(), whole.tags());
    EXPECT_EQ(sliced.app.lstSpeciatePool.text(4), whole.app.lstSpeciatePool.text(4));
    // A start time that single precision rounds up still gets its whole slice.
    Editor late(defaultPool());
    late.clock.seconds = 4000.0002;
    EXPECT_EQ(late.finish(), 1);
}

TEST(SpeciesPass, TheNoticeComesOnceForASlowPassAndPatienceGrows) {
    Pool p = makePool(1000, 0);  // look-alikes: the pass compares every pair
    for (auto& d : p.drifters) std::memset(d.genes, 7, sizeof d.genes);
    Editor e(p);
    e.app.comboSpeciatePoolGroup0 = 2;
    e.app.lastHelpMove = e.clock.seconds - 100;
    RecordingNotice recorder;
    e.app.notice = &recorder;
    e.clock.step = 0.9;  // two drifters a slice
    speciatePoolList(e.app);
    ASSERT_EQ(recorder.shown.size(), 1u);
    EXPECT_EQ(recorder.shown[0].substr(0, 94),
              "Please be patient. Extended species grouping may take several minutes on larger aquariums.\r\n\r\n");
    EXPECT_NE(recorder.shown[0].find("within the selected species boundary threshold."), std::string::npos);
    EXPECT_EQ(e.app.poolPatience, 16);
    EXPECT_FALSE(e.app.lstSpeciatePool.enabled());
    e.finish();
    EXPECT_EQ(recorder.shown.size(), 1u);
    EXPECT_TRUE(e.app.lstSpeciatePool.enabled());
    for (int expected : {32, 64, 128, 256, 256}) {
        e.app.poolSpeciesPending = true;
        e.finish();
        EXPECT_EQ(e.app.poolPatience, expected);
    }
    // None outside "extended species.".
    e.app.comboSpeciatePoolGroup0 = 1;
    e.app.poolSpeciesPending = true;
    e.finish();
    EXPECT_EQ(recorder.shown.size(), 6u);
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
    EXPECT_TRUE(e.app.poolSpeciesPending && e.app.poolPassRunning);
    e.finish();
    EXPECT_EQ(e.tags(), (std::vector<std::int32_t>(10, 0)));

    // A change after the pass starts a new one.
    Editor f(p);
    f.finish();
    EXPECT_EQ(f.tags(), (std::vector<std::int32_t>{0, 0, 1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(f.app.lstSpeciatePool.text(2).substr(0, 4), "{1} ");
    setPoolSpeciesThresholdPosition(f.app, 0);
    EXPECT_TRUE(f.app.poolSpeciesPending);
    EXPECT_FALSE(f.app.poolPassRunning);
    f.finish();
    EXPECT_EQ(f.tags(), (std::vector<std::int32_t>(10, 0)));

    // A generated pool without a path doesn't restart.
    f.app.openPoolPath.clear();
    setPoolSpeciesThresholdPosition(f.app, 500);
    EXPECT_FALSE(f.app.poolSpeciesPending);
    EXPECT_FLOAT_EQ(f.app.poolThreshold, 50.0f);
}

TEST(SpeciesPass, AListOutOfStepWithThePoolRestartsThePass) {
    Editor e(kinPool({100, 50, 10, 10}));
    e.clock.step = 0.7;
    speciatePoolList(e.app);
    ASSERT_EQ(e.app.poolPassIndex, 2);
    e.app.lstSpeciatePool.remove(3);  // the list no longer matches the pool
    speciatePoolList(e.app);
    EXPECT_EQ(e.app.poolPassIndex, 0);
    EXPECT_TRUE(e.app.poolPassRunning && e.app.poolSpeciesPending);
    EXPECT_FALSE(e.app.uiBusy);
    populateSpeciatePoolList(e.app);
    e.finish();
    EXPECT_EQ(e.tags(), (std::vector<std::int32_t>{0, 0, 1, 2}));
}

TEST(SpeciesThreshold, TypedTextsAndTheLateRewrite) {
    struct Case {
        const char* typed;
        int position;
        const char* canonical;
    } cases[] = {
        {" 95% ", 950, " 95"}, {"abc", 0, " 0"},    {"-5", 1000, " 100"},    {"300", 1000, " 100"},
        {".7", 7, " .7"},      {"1e1", 100, " 10"}, {"44.45", 444, " 44.4"},  // 444.5 goes to the even 444
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        ScriptedUi ui;
        ManualClock clock;
        App app(ui, clock);
        MultiTask task;
        FramesShown shown{true, false};
        typePoolSpeciesThreshold(app, c.typed);
        app.uiBusy = true;  // busy: the typed text waits for the next sweep
        validatePoolSpeciesThreshold(app);
        EXPECT_TRUE(app.poolThresholdTyped);
        EXPECT_EQ(app.scrollPoolSpeciesThreshold, 444);
        app.uiBusy = false;
        for (int t = 0; t < 6; ++t) tmrMultiTaskTick(app, task, shown);
        EXPECT_FALSE(app.poolThresholdTyped);
        EXPECT_EQ(app.scrollPoolSpeciesThreshold, c.position);
        EXPECT_FLOAT_EQ(app.poolThreshold, static_cast<float>(c.position / 10.0));
        EXPECT_EQ(app.txtPoolSpeciesThreshold, c.typed) << "the text stays as typed at first";
        // Typed again and left alone for more than five seconds: the text is rewritten.
        typePoolSpeciesThreshold(app, c.typed);
        clock.advance(5.5);
        for (int t = 0; t < 6; ++t) tmrMultiTaskTick(app, task, shown);
        EXPECT_EQ(app.txtPoolSpeciesThreshold, c.canonical);
    }
}

TEST(SpeciesThreshold, RangeMessages) {
    struct Case {
        Pool pool;
        int depth;
        const char* message;
    } cases[] = {
        {defaultPool(), 100, "Range found.  Listed drifters all match from 0% to  95%"},
        {defaultPool(), 1000, "Range found.  Listed drifters all match from 0% to  99.5%"},
        {kinPool({60, 60}), 100, "Zero range found.  Listed drifters all match  60%"},
        {kinPool({100, 100, 95, 3}), 100, "Range found.  Listed drifters all match from 3% to  100%"},  // to even
        {kinPool({100, 100, 90}), 1000, "Range found.  Listed drifters all match from 9% to  10%"},
        {kinPool({100}), 100, "Zero range found.  Listed drifters all match  100%"},  // one drifter
    };
    for (const Case& c : cases) {
        Editor e(c.pool, c.depth);
        e.ui.message(std::string(c.message) + " of each other's genetic sequences.");
        findPoolThresholdRange(e.app);
        EXPECT_TRUE(e.ui.done()) << e.ui.report();
        EXPECT_FALSE(e.app.PoolProgressBar1.visible);
    }
}
