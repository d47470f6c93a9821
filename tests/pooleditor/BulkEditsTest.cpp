// Kill, revive, feed, delete and carry off the ticked drifters; the selection box.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "format/PoolFile.h"
#include "pooleditor/BulkEdits.h"
#include "pooleditor/PoolEditorFixture.h"
#include "support/TempDir.h"

using namespace aq;
using namespace aqtest;

namespace {

const char* const kNone = "No Drifters Selected in Open Pool";
const char* const kCloneFood =
    "If you answer NO to the following question, the generated pool file will not have any food bits in it.\r\n\r\n"
    "Would you like the food bits copied from the open pool to the pool file where the selected drifters are being "
    "saved?";

std::string deleteQuestion(int n) {
    return "You are about to delete the " + std::to_string(n) +
           " selected drifters. These drifters can be saved to a pool file before deletion if you answer YES to the "
           "following question. If you answer NO, they will simply be deleted from the open pool.\r\n\r\nSave the  "
           "selected drifters before deletion?";
}

// A drifter whose body points and previous position lie around (x, y), plus a stray unused slot.
DrifterRec bodyAt(int id, float x, float y) {
    DrifterRec d = makeDrifter(id, 3, 1, x, y);
    d.prevX = x - 1.25f;
    d.prevY = y + 0.5f;
    for (int s = 0; s < 3; ++s) {
        Segment& g = d.segments[s];
        g.point1X = x + s, g.point2X = x - 2 * s, g.point3X = x + 0.75f, g.point4X = x - 3;
        g.point1Y = y + s, g.point2Y = y - 1, g.point3Y = y + 2.5f, g.point4Y = y - 4 * s;
    }
    d.segments[5].point1X = 123.0f;
    return d;
}

struct Editor : PoolEditor {
    TempDir folder;
    explicit Editor(std::vector<DrifterRec> drifters, int food = 0) : PoolEditor(poolOf(std::move(drifters), food)) {
        app.openPoolPath = "/pools/open.aqp";
        app.comboPoolPath = folder.path();
    }
    void tick(std::initializer_list<int> rows) {
        for (int r : rows) app.lstSpeciatePool.setChecked(r, true);
        setSpeciatePoolSliders(app);
    }
};

// Offsets of the body from (x, y): a move or a stretch must keep them.
std::vector<float> shape(const DrifterRec& d) {
    std::vector<float> v{d.prevX - d.x, d.prevY - d.y, d.segments[5].point1X};
    for (int s = 0; s < d.segmentCount; ++s) {
        const Segment& g = d.segments[s];
        for (float p : {g.point1X, g.point2X, g.point3X, g.point4X}) v.push_back(p - d.x);
        for (float p : {g.point1Y, g.point2Y, g.point3Y, g.point4Y}) v.push_back(p - d.y);
    }
    return v;
}

}  // namespace

TEST(DrifterBox, SlidersForTheDocumentedSelections) {
    struct Case {
        const char* name;
        std::vector<std::pair<float, float>> ticked;
        int xMin, xMax, xValue;
        bool xShown;
        int widthMax, widthValue;
        bool widthShown, widthCaption;
    } cases[] = {
        {"nothing", {}, -8000, 8000, 0, true, 8000, 20, false, false},
        {"one drifter", {{123.4f, -55.5f}}, -4000, 4000, 123, true, 7753, 20, false, false},
        {"two at -1000 and 1000", {{-1000, 0}, {1000, 0}}, -3000, 3000, 0, true, 8000, 2000, true, true},
        {"centre at 3000", {{2500, 0}, {3500, 0}}, -3500, 3500, 3000, true, 2000, 1000, true, true},
        {"spanning the pool", {{-4000, 0}, {4000, 0}}, 0, 0, 0, false, 8000, 8000, true, true},
        {"beyond the bounds", {{-5000, 0}, {4500, 0}}, 0, 0, 0, false, 8000, 8000, true, true},
        {"width 19", {{0, 0}, {19, 0}}, -3990, 3990, 10, true, 7981, 20, true, false},  // 9.5 goes to 10
        {"width 18", {{0, 0}, {18, 0}}, -3991, 3991, 9, true, 7982, 20, false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<DrifterRec> ds{bodyAt(99, 0, 0)};
        for (auto [x, y] : c.ticked) ds.push_back(bodyAt(static_cast<int>(ds.size()), x, y));
        Editor e(ds);
        for (int i = 1; i < static_cast<int>(ds.size()); ++i) e.app.lstSpeciatePool.setChecked(i, true);
        setSpeciatePoolSliders(e.app);
        const App& a = e.app;
        EXPECT_EQ(std::vector<int>({a.SliderSpeciatePoolDrifterX.min, a.SliderSpeciatePoolDrifterX.max,
                                    a.SliderSpeciatePoolDrifterX.value, a.SliderSpeciatePoolDrifterWidth.min,
                                    a.SliderSpeciatePoolDrifterWidth.max, a.SliderSpeciatePoolDrifterWidth.value}),
                  std::vector<int>({c.xMin, c.xMax, c.xValue, 20, c.widthMax, c.widthValue}));
        EXPECT_EQ(a.SliderSpeciatePoolDrifterX.visible, c.xShown);
        EXPECT_EQ(a.lblSpeciatePoolDrifterX, c.xShown);
        EXPECT_EQ(a.SliderSpeciatePoolDrifterWidth.visible, c.widthShown);
        EXPECT_EQ(a.lblSpeciatePoolDrifterWidth, c.widthCaption);
        EXPECT_FALSE(a.uiBusy);
    }
}

TEST(DrifterBox, MovingCarriesWholeBodiesAndLeavesThePoolUnchanged) {
    Editor e({bodyAt(0, 123.4f, -55.5f), bodyAt(1, 10, 10)});
    e.tick({0});
    EXPECT_EQ(e.app.SliderSpeciatePoolDrifterY.value, -56);  // -55.5 goes to the even -56
    auto before = shape(e.d(0));
    DrifterRec other = e.d(1);
    MoveDrifterBox(e.app, Axis::X, 2500);
    MoveDrifterBox(e.app, Axis::Y, -3000);
    EXPECT_EQ(e.d(0).x, 2500.0f);
    EXPECT_EQ(e.d(0).y, -3000.0f);
    EXPECT_EQ(shape(e.d(0)), before);
    EXPECT_EQ(std::memcmp(&e.d(1), &other, sizeof other), 0);
    EXPECT_NE(e.app.lstSpeciatePool.text(0).find("@ 2500X, -3000Y"), std::string::npos);
    EXPECT_TRUE(e.app.lstSpeciatePool.checked(0));
    EXPECT_FALSE(e.app.poolChanged);

    // A change the program makes under uiBusy does nothing, nor does a move with nothing ticked.
    e.app.uiBusy = true;
    MoveDrifterBox(e.app, Axis::X, 0);
    EXPECT_EQ(e.d(0).x, 2500.0f);
    e.app.uiBusy = false;
    e.app.lstSpeciatePool.setChecked(0, false);
    setSpeciatePoolSliders(e.app);
    DrifterRec still = e.d(0);
    MoveDrifterBox(e.app, Axis::X, 1000);
    StretchDrifterBox(e.app, Axis::X, 1000);
    EXPECT_EQ(std::memcmp(&e.d(0), &still, sizeof still), 0);
}

TEST(DrifterBox, StretchingScalesDistancesNotBodies) {
    Editor e({bodyAt(0, -1000, 7), bodyAt(1, 1000, -7), bodyAt(2, 0, 0)});
    e.tick({0, 1});
    auto s0 = shape(e.d(0)), s1 = shape(e.d(1));
    StretchDrifterBox(e.app, Axis::X, 4000);
    StretchDrifterBox(e.app, Axis::Y, 28);
    EXPECT_EQ(std::vector<float>({e.d(0).x, e.d(0).y, e.d(1).x, e.d(1).y, e.d(2).x}),
              std::vector<float>({-2000, 14, 2000, -14, 0}));
    EXPECT_EQ(shape(e.d(0)), s0);
    EXPECT_EQ(shape(e.d(1)), s1);
    // The sliders follow the new box at once.
    EXPECT_EQ(e.app.SliderSpeciatePoolDrifterWidth.value, 4000);
    EXPECT_EQ(e.app.SliderSpeciatePoolDrifterX.min, -2000);
    EXPECT_FALSE(e.app.poolChanged);
}

TEST(BulkEdits, KillReviveAndTheirLines) {
    DrifterRec dead = bodyAt(1, 0, 0);
    dead.alive = 0;
    Editor e({bodyAt(0, 0, 0), dead, bodyAt(2, 0, 0)});
    e.ui.message(kNone);
    mSelectKill(e.app);
    EXPECT_TRUE(e.ui.done()) << e.ui.report();
    EXPECT_FALSE(e.app.poolChanged);

    e.tick({0});
    mSelectKill(e.app);
    EXPECT_EQ(e.d(0).alive, 0);
    EXPECT_EQ(e.app.lstSpeciatePool.text(0).rfind("Dead, ", 0), 0u);
    EXPECT_TRUE(e.app.lstSpeciatePool.checked(0));
    EXPECT_TRUE(e.app.poolChanged);

    e.app.lstSpeciatePool.setChecked(1, true);
    mSelectRevive(e.app);
    EXPECT_EQ(e.d(0).alive + e.d(1).alive + e.d(2).alive, 3);
    EXPECT_EQ(e.d(1).energy, 0.0f);  // revived with what it had
    EXPECT_EQ(e.app.lstSpeciatePool.text(1).rfind("Dead, ", 0), std::string::npos);
}

TEST(BulkEdits, FeedingBudget) {
    struct Case {
        const char* name;
        int food;
        std::vector<float> energies;
        std::vector<int> ticked;
        std::vector<float> after;
        bool dead = false;
    } cases[] = {
        {"a full pool still gives 50 / n", 4000, {10, 10, 10, 10}, {0, 1, 2, 3}, {22.5f, 22.5f, 22.5f, 22.5f}},
        {"1000 energy, no food, one ticked", 0, {500, 500}, {0}, {550, 500}},
        {"just below 2000 goes over", 0, {1999, 2000, 2500}, {0, 1, 2}, {2049, 2000, 2500}},
        {"budget shared", 3990, {400, 0, 0}, {1, 2}, {400, 50, 50}},                // 500 - 400 = 100, 100 / 2 = 50
        {"budget below 50 per drifter", 3995, {200, 0, 0}, {1, 2}, {200, 25, 25}},  // 250 - 200 = 50 -> 25 each
        {"dead drifters eat too", 0, {0}, {0}, {50}, true},
    };
    for (const Case& c : cases) {
        std::vector<DrifterRec> ds;
        for (float en : c.energies) {
            ds.push_back(bodyAt(static_cast<int>(ds.size()), 0, 0));
            ds.back().energy = en;
            ds.back().alive = !c.dead;
        }
        Editor e(ds, c.food);
        for (int r : c.ticked) e.app.lstSpeciatePool.setChecked(r, true);
        mSelectPoolFeed(e.app);
        std::vector<float> after;
        for (const DrifterRec& d : e.app.openPool.drifters) after.push_back(d.energy);
        EXPECT_EQ(after, c.after) << c.name;
        EXPECT_TRUE(e.app.poolChanged);
    }
}

TEST(BulkEdits, DeleteAndMoveQuestionsAndOutcomes) {
    TempDir dir;
    std::string saved = dir.file("sel.aqp");
    struct Case {
        const char* name;
        bool move;  // Move saves without asking first, then deletes
        std::vector<int> ticked;
        Answer answer, food;   // to the delete question and to the food question
        std::string savePath;  // "" cancels the save dialog
        std::vector<int> left;
    } cases[] = {
        {"cancel keeps all", false, {0, 2}, Answer::Cancel, Answer::No, "", {0, 1, 2, 3}},
        {"no deletes", false, {0, 2}, Answer::No, Answer::No, "", {1, 3}},
        {"yes then cancel deletes without saving", false, {0, 2}, Answer::Yes, Answer::No, "", {1, 3}},
        {"yes saves then deletes", false, {0, 2}, Answer::Yes, Answer::No, saved, {1, 3}},
        {"delete all", false, {0, 1, 2, 3}, Answer::No, Answer::No, "", {}},
        {"move saves with food", true, {1}, Answer::Yes, Answer::Yes, saved, {0, 2, 3}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::filesystem::remove(saved);
        Editor e({bodyAt(0, 0, 0), bodyAt(1, 1, 1), bodyAt(2, 2, 2), bodyAt(3, 3, 3)}, 5);
        const Pool open = e.app.openPool;
        e.app.lstSpeciatePool.setTag(3, 7);
        for (int r : c.ticked) e.app.lstSpeciatePool.setChecked(r, true);
        if (!c.move) e.ui.ask("yesnocancel", deleteQuestion(static_cast<int>(c.ticked.size())), kAppTitle, c.answer);
        if (c.answer == Answer::Yes) {
            e.ui.ask("yesno", kCloneFood, "Clone Food Bits into New Pool", c.food);
            e.ui.file("save", "Save New Pool of Selected Drifters", c.savePath, e.folder.path() + "||aqp|Pool Files");
        }
        c.move ? mSelectPoolMove(e.app) : mSelectPoolDelete(e.app);
        EXPECT_TRUE(e.ui.done()) << e.ui.report();
        std::vector<int> ids;
        for (int i = 0; i < e.app.openPool.drifterCount; ++i) ids.push_back(e.d(i).id);
        EXPECT_EQ(ids, c.left);
        EXPECT_EQ(e.app.lstSpeciatePool.count(), e.app.openPool.drifterCount);
        EXPECT_TRUE(c.left.empty() || e.app.lstSpeciatePool.tag(e.app.openPool.drifterCount - 1) == 7);  // tags stay
        EXPECT_EQ(e.app.lstSpeciatePool.checkedCount(), c.answer == Answer::Cancel ? 2 : 0);
        EXPECT_EQ(e.app.poolChanged, c.left.size() != 4);
        EXPECT_EQ(e.app.openPoolPath, "/pools/open.aqp");
        EXPECT_EQ(e.app.openPool.foodCount, 5);
        if (!c.savePath.empty()) {  // the ticked drifters byte for byte, food only when asked for
            Pool p;
            ASSERT_EQ(readPool(c.savePath, p).status, PoolReadStatus::Ok);
            ASSERT_EQ(p.drifterCount, static_cast<int>(c.ticked.size()));
            for (std::size_t i = 0; i < c.ticked.size(); ++i)
                EXPECT_EQ(std::memcmp(&p.drifters[i], &open.drifters[static_cast<std::size_t>(c.ticked[i])],
                                      sizeof(DrifterRec)),
                          0);
            EXPECT_EQ(p.foodCount, c.food == Answer::Yes ? 5 : 0);
            EXPECT_EQ(p.historyBlock, open.historyBlock);
        }
        if (c.left.empty()) {  // the empty box, and a file without drifters
            EXPECT_EQ(e.app.SliderSpeciatePoolDrifterX.min, -8000);
            std::string out = e.folder.file("empty.aqp");
            ASSERT_TRUE(savePoolFile(e.app, out, true));
            Pool p;
            ASSERT_EQ(readPool(out, p).status, PoolReadStatus::Ok);
            EXPECT_EQ(p.drifterCount, 0);
            EXPECT_EQ(readBytes(out).size(), p.fileSize());
        }
    }
    // Nothing ticked: the one message, nothing else.
    Editor e({bodyAt(0, 0, 0)});
    e.ui.message(kNone);
    mSelectPoolMove(e.app);
    e.ui.message("Nothing Selected");
    saveSelectedPoolSpecies(e.app);
    EXPECT_TRUE(e.ui.done()) << e.ui.report();
    EXPECT_EQ(e.app.openPool.drifterCount, 1);
}
