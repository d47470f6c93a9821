// Select All, Invert, the record holders and the quick-speciation switch.
#include <gtest/gtest.h>

#include "pooleditor/DrifterList.h"
#include "pooleditor/SelectionCommands.h"
#include "pooleditor/SpeciesPass.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"

using namespace aq;
using namespace aqtest;

namespace {

struct Rows {
    ScriptedUi ui;
    ManualClock clock;
    App app{ui, clock};
    explicit Rows(std::vector<DrifterRec> ds) {
        app.openPool = makePool(0, 0);
        app.openPool.drifters = std::move(ds);
        app.openPool.drifterCount = static_cast<int>(app.openPool.drifters.size());
        populateSpeciatePoolList(app);
    }
    std::vector<int> ticked() const {
        std::vector<int> t;
        for (int i = 0; i < app.lstSpeciatePool.count(); ++i)
            if (app.lstSpeciatePool.checked(i)) t.push_back(i);
        return t;
    }
};

DrifterRec with(int age, int mat, int pat, int meals, float mass) {
    DrifterRec d = makeDrifter(0);
    d.age = age;
    d.maternalOffspring = mat;
    d.paternalOffspring = pat;
    d.mealsEaten = meals;
    d.mass = mass;
    return d;
}

}  // namespace

TEST(RecordHolders, EachMeasureAndItsStart) {
    std::vector<DrifterRec> pool = {with(50, 1, 5, 3, 2.5f), with(90, 4, 1, 7, 9.25f), with(90, 0, 6, 7, 9.25f),
                                    with(10, 2, 2, 1, 1.0f)};
    pool[2].alive = 0;  // the dead take part
    struct Case {
        const char* name;
        void (*command)(App&);
        std::vector<int> ticked;
    } cases[] = {
        {"Oldest", mSelectOldest, {1, 2}},
        {"Most Prolithic", mSelectMostProlithic, {0, 2}},
        {"Most Maternal", mSelectMaternal, {1}},
        {"Most Paternal", mSelectPaternal, {2}},
        {"Biggest Eater", mSelectBiggestEater, {1, 2}},
        {"Heaviest", mSelectHeaviest, {1, 2}},
    };
    for (const Case& c : cases) {
        Rows r(pool);
        r.app.lstSpeciatePool.setChecked(3, true);  // ticks set before stay
        c.command(r.app);
        std::vector<int> expected = c.ticked;
        expected.push_back(3);
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(r.ticked(), expected) << c.name;
        EXPECT_TRUE(r.app.lstSpeciatePool.visible());
        EXPECT_FALSE(r.app.uiBusy);
    }
}

TEST(RecordHolders, TheCurrentRowMovesToTheFirstOtherHolder) {
    std::vector<DrifterRec> pool = {with(90, 0, 0, 0, 0), with(50, 0, 0, 0, 0), with(90, 0, 0, 0, 0)};
    Rows r(pool);
    r.app.lstSpeciatePool.setCurrentIndex(1);
    mSelectOldest(r.app);
    EXPECT_EQ(r.app.lstSpeciatePool.currentIndex(), 0);
    r.app.lstSpeciatePool.setCurrentIndex(0);
    mSelectOldest(r.app);
    EXPECT_EQ(r.app.lstSpeciatePool.currentIndex(), 2);

    Rows only({with(90, 0, 0, 0, 0), with(5, 0, 0, 0, 0)});
    only.app.lstSpeciatePool.setCurrentIndex(0);
    mSelectOldest(only.app);
    EXPECT_EQ(only.app.lstSpeciatePool.currentIndex(), 0);
}

TEST(RecordHolders, FloorsAndEmptyPools) {
    // Everyone more paternal than maternal: the least negative is still the most maternal.
    Rows r({with(1, 0, 5, 0, 0), with(1, 1, 3, 0, 0)});
    mSelectMaternal(r.app);
    EXPECT_EQ(r.ticked(), (std::vector<int>{1}));
    // Below the floor of -1000 nobody holds the record.
    Rows low({with(1, 0, 1500, 0, 0)});
    mSelectMaternal(low.app);
    EXPECT_TRUE(low.ticked().empty());
    Rows none({});
    mSelectHeaviest(none.app);
    EXPECT_TRUE(none.app.lstSpeciatePool.visible());
}

TEST(SelectionCommands, AllAndInvert) {
    Rows r({makeDrifter(0), makeDrifter(1), makeDrifter(2)});
    r.app.lstSpeciatePool.setChecked(1, true);
    InvertPoolDrifterSelection(r.app);
    EXPECT_EQ(r.ticked(), (std::vector<int>{0, 2}));
    InvertPoolDrifterSelection(r.app);
    EXPECT_EQ(r.ticked(), (std::vector<int>{1}));
    SelectAllDrifters(r.app);
    SelectAllDrifters(r.app);
    EXPECT_EQ(r.ticked(), (std::vector<int>{0, 1, 2}));
    // The sliders show the new selection: three drifters at the origin.
    EXPECT_FALSE(r.app.SliderSpeciatePoolDrifterWidth.visible);
    EXPECT_EQ(r.app.SliderSpeciatePoolDrifterX.min, -4000);
}

TEST(QuickSpeciate, TogglingChangesTheDepthAndRestartsThePass) {
    {
        Rows r({makeDrifter(0)});
        ToggleQuickSpeciate(r.app);
        EXPECT_FALSE(r.app.quickSpeciate);
        EXPECT_EQ(r.app.similarityDepth, 1000);
        EXPECT_FALSE(r.app.poolSpeciesPending);  // no pool file open
        EXPECT_EQ(r.app.scrollPoolSpeciesThreshold, 444);
        EXPECT_EQ(r.app.txtPoolSpeciesThreshold, " 44.4");
        EXPECT_FLOAT_EQ(r.app.poolThreshold, 44.4f);
        EXPECT_TRUE(r.app.poolThresholdTyped);
        ToggleQuickSpeciate(r.app);
        EXPECT_EQ(r.app.similarityDepth, 100);
    }
    {
        Rows r({makeDrifter(0), makeDrifter(1)});
        r.app.openPoolPath = "/pools/open.aqp";
        ToggleQuickSpeciate(r.app);
        EXPECT_TRUE(r.app.poolSpeciesPending);
        speciatePoolList(r.app);
        EXPECT_FALSE(r.app.poolSpeciesPending);
        EXPECT_EQ(r.app.lstSpeciatePool.text(1).substr(0, 4), "{0} ");
    }
    {
        // At position 0 the nudge goes to the other end and back.
        Rows r({makeDrifter(0)});
        r.app.scrollPoolSpeciesThreshold = 0;
        r.app.poolThreshold = 0;
        ToggleQuickSpeciate(r.app);
        EXPECT_EQ(r.app.scrollPoolSpeciesThreshold, 0);
        EXPECT_EQ(r.app.txtPoolSpeciesThreshold, " 0");
    }
}
