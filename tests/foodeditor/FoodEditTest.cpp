// The food list: lines, group ticks, the threshold box, the box sliders, deletion.
#include <gtest/gtest.h>

#include "foodeditor/FoodEdits.h"
#include "foodeditor/FoodList.h"
#include "foodeditor/FoodThreshold.h"
#include "format/PoolFile.h"
#include "shell/MultiTask.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedSession.h"

using namespace aq;
using namespace aqtest;

namespace {

FoodBit bit(int family, float x, float y) {
    FoodBit f{};
    f.family = static_cast<std::uint8_t>(family);
    f.x = x;
    f.y = y;
    f.carried1[0] = 0xAB;
    return f;
}

struct FoodTab : Session {
    explicit FoodTab(std::vector<FoodBit> food) {
        app.openPool = makePool(2, 0);
        app.openPool.food = std::move(food);
        app.openPool.foodCount = static_cast<int>(app.openPool.food.size());
        app.openPoolPath = "/pools/open.aqp";
        app.comboPoolPath = dir.path();
        app.poolLoaded = true;
        populateFoodList(app);
        app.lstPoolFood.onUserCheck = [this](int row, bool) { foodTickedByUser(app, row); };
    }
    std::vector<bool> ticks() const {
        std::vector<bool> t;
        for (int i = 0; i < app.lstPoolFood.count(); ++i) t.push_back(app.lstPoolFood.checked(i));
        return t;
    }
    void tick(std::initializer_list<int> rows) {
        for (int r : rows) app.lstPoolFood.setChecked(r, true);
    }
    FoodBit& f(int i) { return app.openPool.food[static_cast<std::size_t>(i)]; }
};

}  // namespace

TEST(FoodList, LinesAndTypedThresholds) {
    const std::pair<FoodBit, const char*> lines[] = {
        {bit(255, 0, 0), "{FF} Food bit @ 0X, 0Y. "},
        {bit(10, 507.5f, -0.25f), "{A} Food bit @ 507.5X, -.25Y. "},
        {bit(0, 1234567.8f, 3e9f), "{0} Food bit @ 1234568X, 3E+09Y. "},
    };
    for (const auto& [f, line] : lines) EXPECT_EQ(FoodLineText(f), line);

    // Fewer food bits: the surplus lines at the end go, the rest keep their ticks and show new texts.
    FoodTab t({bit(0, 0, 0), bit(1, 1, 0), bit(2, 2, 0), bit(3, 3, 0), bit(4, 4, 0)});
    t.tick({1, 4});
    t.app.openPool.foodCount = 3;
    t.f(1).x = 9;
    populateFoodList(t.app);
    EXPECT_EQ(t.ticks(), (std::vector<bool>{false, true, false}));
    EXPECT_EQ(t.app.lstPoolFood.text(1), "{1} Food bit @ 9X, 0Y. ");
    EXPECT_TRUE(t.app.lstPoolFood.visible());
    t.app.openPool.foodCount = 0;
    populateFoodList(t.app);
    EXPECT_EQ(t.app.lstPoolFood.count(), 0);
    EXPECT_FALSE(t.app.uiBusy);
    // Typed thresholds: the text stays while typing, then takes its plain form.
    const std::tuple<const char*, int, float, const char*> typedCases[] = {
        {"95%", 950, 95.0f, " 95"},   {" 95 ", 950, 95.0f, " 95"},    {"abc", 0, 0.0f, " 0"},
        {"-5", 1000, 100.0f, " 100"}, {"12.34", 123, 12.3f, " 12.3"},
    };
    for (auto [typed, position, threshold, canonical] : typedCases) {
        Session s;
        MultiTask task;
        auto sweep = [&] {
            for (int t = 0; t < 6; ++t) tmrMultiTaskTick(s.app, task, {true, false});
        };
        typeFoodThreshold(s.app, typed);
        sweep();
        EXPECT_EQ(std::tuple(s.app.scrollFoodThreshold, s.app.txtFoodThreshold), std::tuple(position, typed)) << typed;
        EXPECT_FLOAT_EQ(s.app.foodThreshold, threshold) << typed;  // still typing: the text is left alone
        typeFoodThreshold(s.app, typed);
        s.clock.advance(6);
        sweep();
        EXPECT_EQ(s.app.txtFoodThreshold, canonical) << typed;
    }
}

TEST(FoodGroup, ATickSpreadsByMode) {
    struct Case {
        const char* name;
        int mode, position, row;  // position: of scrollFoodThreshold
        std::vector<bool> ticks;
    } cases[] = {
        {"individual", 0, 888, 0, {true, false, false, false, false}},
        {"family", 1, 888, 0, {true, false, true, false, false}},
        {"proximity at 100: the same x only, whatever y", 2, 1000, 1, {false, true, false, true, false}},
        {"proximity at 0: the whole pool", 2, 0, 4, {true, true, true, true, true}},
        {"proximity at 88.8: about 1267 either side", 2, 888, 0, {true, true, false, true, false}},
    };
    for (const Case& c : cases) {
        FoodTab t({bit(1, -1000, 0), bit(2, 200, 5), bit(1, 2000, 0), bit(3, 200, -3000), bit(4, 3999, 3999)});
        t.app.comboFoodGroup = c.mode;
        setFoodThresholdPosition(t.app, c.position);
        t.app.lstPoolFood.userCheck(c.row, true);
        EXPECT_EQ(t.ticks(), c.ticks) << c.name;
        EXPECT_EQ(t.app.lstPoolFood.currentIndex(), c.row);
        EXPECT_EQ(foodThresholdShown(t.app), c.mode == 2);
        EXPECT_TRUE(t.app.lstPoolFood.visible());
        t.app.lstPoolFood.userCheck(c.row, false);  // unticking takes the whole group away again
        EXPECT_EQ(t.ticks(), std::vector<bool>(5, false)) << c.name;
    }
    FoodTab none({bit(1, 0, 0)});
    ApplyFoodGroup(none.app);  // no current row: nothing to spread, and the program is free again
    EXPECT_FALSE(none.app.uiBusy);
    FoodTab t({bit(1, 0, 0), bit(1, 10, 0), bit(2, 20, 0)});
    InvertFoodSelection(t.app);
    EXPECT_EQ(t.ticks(), std::vector<bool>(3, true));
    EXPECT_TRUE(t.app.lstPoolFood.visible());
    EXPECT_EQ(t.app.SliderFoodWidth.value, 20);  // the sliders follow
    t.app.lstPoolFood.setChecked(0, false);      // a change by the program does not spread
    EXPECT_EQ(t.ticks(), (std::vector<bool>{false, true, true}));
}

TEST(FoodBox, SlidersMovesAndStretches) {
    // The ticked bits beside an unticked one; then the X slider's min, max and value, the width slider's max, and
    // whether the X slider, its caption and the width slider show.
    const std::pair<std::vector<FoodBit>, std::vector<int>> cases[] = {
        {{}, {-8000, 8000, 0, 8000, 1, 1, 0}},
        {{bit(1, -1000, 0), bit(1, 1000, 0)}, {-3000, 3000, 0, 8000, 1, 1, 1}},
        {{bit(1, -4000, 0), bit(1, 4000, 0)}, {0, 0, 0, 8000, 0, 0, 1}},  // spanning the pool
    };
    for (const auto& [ticked, expected] : cases) {
        std::vector<FoodBit> food{bit(9, 77, 77)};
        food.insert(food.end(), ticked.begin(), ticked.end());
        FoodTab t(food);
        for (int i = 1; i < static_cast<int>(food.size()); ++i) t.tick({i});
        setFoodSliders(t.app);
        const SliderState &x = t.app.SliderFoodX, &w = t.app.SliderFoodWidth;
        EXPECT_EQ(std::vector<int>({x.min, x.max, x.value, w.max, x.visible, t.app.lblFoodX, w.visible}), expected)
            << ticked.size();
    }
    // One bit moves to exactly the slider's position; the unticked one and the carried bytes stay.
    FoodTab one({bit(1, 321, -45), bit(2, 5, 5)});
    one.tick({0});
    setFoodSliders(one.app);
    MoveFoodBox(one.app, Axis::X, -2500);
    MoveFoodBox(one.app, Axis::Y, 1234);
    EXPECT_EQ(std::pair(one.f(0).carried1[0], one.f(1).x), std::pair(std::uint8_t{0xAB}, 5.0f));
    EXPECT_EQ(one.app.lstPoolFood.text(0), "{1} Food bit @ -2500X, 1234Y. ");
    EXPECT_TRUE(one.app.poolChanged);

    FoodTab two({bit(1, -1000, 0), bit(1, 1000, 0)});
    two.tick({0, 1});
    setFoodSliders(two.app);
    StretchFoodBox(two.app, Axis::X, 4000);
    EXPECT_EQ(std::tuple(two.f(0).x, two.f(1).x, two.app.SliderFoodX.min), std::tuple(-2000.0f, 2000.0f, -2000));
    two.app.uiBusy = true;
    StretchFoodBox(two.app, Axis::X, 100);
    EXPECT_EQ(two.f(1).x, 2000.0f);
}

TEST(FoodDelete, QuestionsAndOutcomes) {
    const std::string question =
        "You are about to delete the 2 selected food bits. These food bits can be saved to a pool file before deletion "
        "if you answer YES to the following question. If you answer NO, they will simply be deleted from the open "
        "pool.\r\n\r\nSave the  selected food bits before deletion?";
    const std::string clone =
        "If you answer NO to the following question, the generated pool file will not have any drifters in it.\r\n\r\n"
        "Would you like the drifters copied from the open pool to the pool file where the selected food bits are being "
        "saved?";
    TempDir dir;
    const std::tuple<Answer, std::string, int> cases[] = {
        {Answer::Cancel, "", 3}, {Answer::No, "", 1}, {Answer::Yes, "", 1}, {Answer::Yes, dir.file("f.aqp"), 1}};
    for (const auto& [answer, path, left] : cases) {
        FoodTab t({bit(1, 0, 0), bit(2, 1, 1), bit(3, 2, 2)});
        t.tick({0, 2});
        t.ui.ask("yesnocancel", question, kAppTitle, answer);
        if (answer == Answer::Yes) {
            t.ui.ask("yesno", clone, "Clone Drifters into New Pool", Answer::No);
            t.ui.file("save", "Save New Pool with Selected Food Bits", path, t.dir.path() + "||aqp|Pool Files");
        }
        mSelectFoodDelete(t.app);
        EXPECT_TRUE(t.ui.done()) << t.ui.report();
        EXPECT_EQ(std::tuple(t.app.openPool.foodCount, t.app.lstPoolFood.count(), t.app.poolChanged, t.f(0).family,
                             t.app.openPool.drifterCount),
                  std::tuple(left, left, left != 3, left == 3 ? 1 : 2, 2));
        if (!path.empty()) {  // the food family is one byte: the carried bytes beside it come back too
            Pool p;
            ASSERT_EQ(readPool(path, p).status, PoolReadStatus::Ok);
            EXPECT_EQ(std::tuple(p.foodCount, p.food[1].family, p.food[1].carried1[0], p.drifterCount),
                      std::tuple(2, 3, 0xAB, 0));
        }
    }
    FoodTab none({bit(1, 0, 0)});
    none.ui.message("No Food Selected");
    mSelectFoodDelete(none.app);
    none.ui.message("Nothing Selected");
    saveSelectedFood(none.app);
    EXPECT_TRUE(none.ui.done()) << none.ui.report();

    // Deleting all food leaves none, and a save writes no food records.
    FoodTab all({bit(1, 0, 0), bit(2, 0, 0)});
    InvertFoodSelection(all.app);
    all.ui.ask("yesnocancel", question, kAppTitle, Answer::No);
    mSelectFoodDelete(all.app);
    EXPECT_EQ(std::pair(all.app.lstPoolFood.count(), all.app.openPool.foodCount), std::pair(0, 0));
    EXPECT_EQ(poolBytes(all.app.openPool).size(), 20 + 2 * 4016u + 32280u);
}
