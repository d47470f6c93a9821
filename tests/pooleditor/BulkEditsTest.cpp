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
    void tick(const std::vector<int>& rows) {
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
    // The ticked drifters beside an unticked one at the origin; then the X slider's min, max and value, the width
    // slider's max and value, whether the X slider, the width slider and the width's caption show.
    const std::tuple<const char*, std::vector<std::pair<float, float>>, std::vector<int>> cases[] = {
        {"nothing", {}, {-8000, 8000, 0, 8000, 20, 1, 0, 0}},
        {"one drifter", {{123.4f, -55.5f}}, {-4000, 4000, 123, 7753, 20, 1, 0, 0}},
        {"two at -1000 and 1000", {{-1000, 0}, {1000, 0}}, {-3000, 3000, 0, 8000, 2000, 1, 1, 1}},
        {"centre at 3000", {{2500, 0}, {3500, 0}}, {-3500, 3500, 3000, 2000, 1000, 1, 1, 1}},
        {"spanning the pool", {{-4000, 0}, {4000, 0}}, {0, 0, 0, 8000, 8000, 0, 1, 1}},
        {"beyond the bounds", {{-5000, 0}, {4500, 0}}, {0, 0, 0, 8000, 8000, 0, 1, 1}},
        {"width 19", {{0, 0}, {19, 0}}, {-3990, 3990, 10, 7981, 20, 1, 1, 0}},  // 9.5 goes to 10
        {"width 18", {{0, 0}, {18, 0}}, {-3991, 3991, 9, 7982, 20, 1, 0, 0}},
    };
    for (const auto& [name, ticked, expected] : cases) {
        std::vector<DrifterRec> ds{bodyAt(99, 0, 0)};
        std::vector<int> rows;
        for (auto [x, y] : ticked) rows.push_back(static_cast<int>(ds.size())), ds.push_back(bodyAt(rows.back(), x, y));
        Editor e(ds);
        e.tick(rows);
        const App& a = e.app;
        const SliderState &x = a.SliderSpeciatePoolDrifterX, &w = a.SliderSpeciatePoolDrifterWidth;
        EXPECT_EQ(std::vector<int>(
                      {x.min, x.max, x.value, w.max, w.value, x.visible, w.visible, a.lblSpeciatePoolDrifterWidth}),
                  expected)
            << name;
        EXPECT_EQ(std::tuple(w.min, a.lblSpeciatePoolDrifterX, a.uiBusy), std::tuple(20, x.visible, false)) << name;
    }
}

TEST(DrifterBox, MovingAndStretchingCarryWholeBodiesAndMarkThePoolChanged) {
    Editor e({bodyAt(0, 123.4f, -55.5f), bodyAt(1, 10, 10)});
    e.tick({0});
    EXPECT_EQ(e.app.SliderSpeciatePoolDrifterY.value, -56);  // -55.5 goes to the even -56
    auto before = shape(e.d(0));
    DrifterRec other = e.d(1);
    MoveDrifterBox(e.app, Axis::X, 2500);
    MoveDrifterBox(e.app, Axis::Y, -3000);
    EXPECT_EQ(std::vector<float>({e.d(0).x, e.d(0).y, float(e.app.SliderSpeciatePoolDrifterX.value),
                                  float(e.app.SliderSpeciatePoolDrifterY.value)}),
              std::vector<float>({2500, -3000, 2500, -3000}));
    EXPECT_EQ(shape(e.d(0)), before);
    EXPECT_EQ(std::memcmp(&e.d(1), &other, sizeof other), 0);
    EXPECT_NE(e.app.lstSpeciatePool.text(0).find("@ 2500X, -3000Y"), std::string::npos);
    EXPECT_TRUE(e.app.lstSpeciatePool.checked(0) && e.app.poolChanged);
    // A change the program makes under uiBusy does nothing, nor does a move with nothing ticked.
    e.app.uiBusy = true;
    MoveDrifterBox(e.app, Axis::X, 0);
    StretchDrifterBox(e.app, Axis::X, 1234);  // the slider still takes the value
    EXPECT_EQ(std::tuple(e.d(0).x, e.app.SliderSpeciatePoolDrifterX.value, e.app.SliderSpeciatePoolDrifterWidth.value),
              std::tuple(2500.0f, 0, 1234));
    e.app.uiBusy = false;
    e.app.lstSpeciatePool.setChecked(0, false);
    e.tick({});
    DrifterRec still = e.d(0);
    MoveDrifterBox(e.app, Axis::X, 1000);
    StretchDrifterBox(e.app, Axis::X, 1000);
    EXPECT_EQ(std::memcmp(&e.d(0), &still, sizeof still), 0);

    // A stretch scales the distances from the centre, not the bodies.
    Editor s({bodyAt(0, -1000, 7), bodyAt(1, 1000, -7), bodyAt(2, 0, 0)});
    s.tick({0, 1});
    auto s0 = shape(s.d(0)), s1 = shape(s.d(1));
    StretchDrifterBox(s.app, Axis::X, 4000);
    StretchDrifterBox(s.app, Axis::Y, 28);
    EXPECT_EQ(std::vector<float>({s.d(0).x, s.d(0).y, s.d(1).x, s.d(1).y, s.d(2).x}),
              std::vector<float>({-2000, 14, 2000, -14, 0}));
    EXPECT_EQ(std::pair(shape(s.d(0)), shape(s.d(1))), std::pair(s0, s1));
    // The sliders follow the new box at once.
    EXPECT_EQ(
        std::tuple(s.app.SliderSpeciatePoolDrifterWidth.value, s.app.SliderSpeciatePoolDrifterX.min, s.app.poolChanged),
        std::tuple(4000, -2000, true));
}

TEST(BulkEdits, KillReviveAndFeed) {
    DrifterRec dead = bodyAt(1, 0, 0);
    dead.alive = 0;
    Editor e({bodyAt(0, 0, 0), dead, bodyAt(2, 0, 0)});
    e.tick({0});
    mSelectKill(e.app);
    EXPECT_EQ(std::tuple(e.d(0).alive, e.app.lstSpeciatePool.text(0).rfind("Dead, ", 0)), std::tuple(0, 0u));
    EXPECT_TRUE(e.app.lstSpeciatePool.checked(0) && e.app.poolChanged);
    e.app.lstSpeciatePool.setChecked(1, true);
    e.app.poolChanged = false;
    mSelectRevive(e.app);
    EXPECT_TRUE(e.app.poolChanged);
    // All alive, the revived one with the energy it had.
    EXPECT_EQ(std::tuple(e.d(0).alive + e.d(1).alive + e.d(2).alive, e.d(1).energy), std::tuple(3, 0.0f));
    EXPECT_EQ(e.app.lstSpeciatePool.text(1).rfind("Dead, ", 0), std::string::npos);
    // Food bits in the pool, the drifters' energies, the ticked rows, the energies after.
    const std::tuple<const char*, int, std::vector<float>, std::vector<int>, std::vector<float>> cases[] = {
        {"a full pool still gives 50 / n", 4000, {10, 10, 10, 10}, {0, 1, 2, 3}, {22.5f, 22.5f, 22.5f, 22.5f}},
        {"1000 energy, no food, one ticked", 0, {500, 500}, {0}, {550, 500}},
        {"just below 2000 goes over", 0, {1999, 2000, 2500}, {0, 1, 2}, {2049, 2000, 2500}},
        {"budget shared", 3990, {400, 0, 0}, {1, 2}, {400, 50, 50}},                // 500 - 400 = 100, 100 / 2 = 50
        {"budget below 50 per drifter", 3995, {200, 0, 0}, {1, 2}, {200, 25, 25}},  // 250 - 200 = 50 -> 25 each
        {"dead drifters eat too", 0, {0}, {0}, {50}},
    };
    for (const auto& [name, food, energies, ticked, expected] : cases) {
        std::vector<DrifterRec> ds;
        for (float en : energies) {
            ds.push_back(bodyAt(static_cast<int>(ds.size()), 0, 0));
            ds.back().energy = en;
            ds.back().alive = en != 0;  // a drifter without energy is dead, and eats too
        }
        Editor e(ds, food);
        e.tick(ticked);
        mSelectPoolFeed(e.app);
        std::vector<float> after;
        for (const DrifterRec& d : e.app.openPool.drifters) after.push_back(d.energy);
        EXPECT_EQ(after, expected) << name;
        EXPECT_TRUE(e.app.poolChanged);
    }
}

TEST(BulkEdits, DeleteAndMoveQuestionsAndOutcomes) {
    TempDir dir;
    const std::string saved = dir.file("sel.aqp"), open = "/pools/open.aqp";
    // Move or Delete (Move saves without asking first, then deletes), the ticked rows, the answers to the delete and
    // the food questions, the saved file ("" cancels the save dialog), the drifters left.
    const std::tuple<const char*, bool, std::vector<int>, Answer, Answer, std::string, std::vector<int>> cases[] = {
        {"cancel keeps all", false, {0, 2}, Answer::Cancel, Answer::No, "", {0, 1, 2, 3}},
        {"no deletes", false, {0, 2}, Answer::No, Answer::No, "", {1, 3}},
        {"yes then cancel deletes without saving", false, {0, 2}, Answer::Yes, Answer::No, "", {1, 3}},
        {"yes saves then deletes", false, {0, 2}, Answer::Yes, Answer::No, saved, {1, 3}},
        {"delete all", false, {0, 1, 2, 3}, Answer::No, Answer::No, "", {}},
        {"move saves with food", true, {1}, Answer::Yes, Answer::Yes, saved, {0, 2, 3}},
    };
    for (const auto& [name, move, ticked, answer, food, savePath, left] : cases) {
        SCOPED_TRACE(name);
        std::filesystem::remove(saved);
        Editor e({bodyAt(0, 0, 0), bodyAt(1, 1, 1), bodyAt(2, 2, 2), bodyAt(3, 3, 3)}, 5);
        const Pool before = e.app.openPool;
        CheckList& list = e.app.lstSpeciatePool;
        list.setTag(3, 7);
        e.tick(ticked);
        if (!move)
            e.ui.ask("yesnocancel",
                     "You are about to delete the " + std::to_string(ticked.size()) +
                         " selected drifters. These drifters can be saved to a pool file before deletion if you "
                         "answer YES to the following question. If you answer NO, they will simply be deleted from "
                         "the open pool.\r\n\r\nSave the  selected drifters before deletion?",
                     kAppTitle, answer);
        if (answer == Answer::Yes)
            e.ui.ask("yesno",
                     "If you answer NO to the following question, the generated pool file will not have any food "
                     "bits in it.\r\n\r\nWould you like the food bits copied from the open pool to the pool file "
                     "where the selected drifters are being saved?",
                     "Clone Food Bits into New Pool", food)
                .file("save", "Save New Pool of Selected Drifters", savePath, e.folder.path() + "||aqp|Pool Files");
        move ? mSelectPoolMove(e.app) : mSelectPoolDelete(e.app);
        EXPECT_TRUE(e.ui.done()) << e.ui.report();
        std::vector<int> ids;
        for (int i = 0; i < e.app.openPool.drifterCount; ++i) ids.push_back(e.d(i).id);
        EXPECT_EQ(ids, left);
        EXPECT_EQ(
            std::tuple(list.count(), list.checkedCount(), e.app.poolChanged, e.app.openPoolPath,
                       e.app.openPool.foodCount),
            std::tuple(static_cast<int>(left.size()), answer == Answer::Cancel ? 2 : 0, left.size() != 4, open, 5));
        EXPECT_TRUE(left.empty() || list.tag(static_cast<int>(left.size()) - 1) == 7);  // tags stay
        if (!savePath.empty()) {  // the open pool with the ticked drifters only, and food only when asked for
            Pool want = before;
            want.drifters.clear();
            for (int r : ticked) want.drifters.push_back(before.drifters[static_cast<std::size_t>(r)]);
            want.drifterCount = static_cast<int>(ticked.size());
            if (food == Answer::No) want.foodCount = 0;
            EXPECT_EQ(readBytes(savePath), poolBytes(want));
        }
        if (left.empty()) {  // the empty box, and a file without drifter records
            EXPECT_EQ(e.app.SliderSpeciatePoolDrifterX.min, -8000);
            EXPECT_EQ(poolBytes(e.app.openPool).size(), 20 + 5 * 20u + 32280u);
        }
    }
    // Nothing ticked: the one message each, and nothing changes.
    Editor e({bodyAt(0, 0, 0)});
    e.ui.message(kNone).message(kNone).message("Nothing Selected");
    mSelectKill(e.app);
    mSelectPoolMove(e.app);
    saveSelectedPoolSpecies(e.app);
    EXPECT_TRUE(e.ui.done()) << e.ui.report();
    EXPECT_EQ(e.app.openPool.drifterCount, 1);
    EXPECT_FALSE(e.app.poolChanged);
}
