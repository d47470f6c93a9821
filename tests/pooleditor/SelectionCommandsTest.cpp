// Select All, Invert, the record holders and the quick-speciation switch.
#include <gtest/gtest.h>

#include "pooleditor/PoolEditorFixture.h"
#include "pooleditor/SelectionCommands.h"
#include "pooleditor/SpeciesPass.h"

using namespace aq;
using namespace aqtest;

namespace {

DrifterRec with(int age, int mat = 0, int pat = 0, int meals = 0, float mass = 0) {
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
        std::vector<int> ticked;  // with row 3, ticked before, staying
    } cases[] = {
        {"Oldest", mSelectOldest, {1, 2, 3}},
        {"Most Prolithic", mSelectMostProlithic, {0, 2, 3}},
        {"Most Maternal", mSelectMaternal, {1, 3}},
        {"Most Paternal", mSelectPaternal, {2, 3}},
        {"Biggest Eater", mSelectBiggestEater, {1, 2, 3}},
        {"Heaviest", mSelectHeaviest, {1, 2, 3}},
    };
    for (const Case& c : cases) {
        PoolEditor r(poolOf(pool));
        r.app.lstSpeciatePool.setChecked(3, true);
        c.command(r.app);
        EXPECT_EQ(r.ticked(), c.ticked) << c.name;
        EXPECT_TRUE(r.app.lstSpeciatePool.visible());
        EXPECT_FALSE(r.app.uiBusy);
    }
    // Everyone more paternal than maternal: the least negative is still the most maternal,
    // but below the floor of -1000 nobody holds the record.
    PoolEditor r(poolOf({with(1, 0, 5), with(1, 1, 3)})), low(poolOf({with(1, 0, 1500)})), none(poolOf({}));
    mSelectMaternal(r.app);
    mSelectMaternal(low.app);
    mSelectHeaviest(none.app);
    EXPECT_EQ(r.ticked(), (std::vector<int>{1}));
    EXPECT_TRUE(low.ticked().empty());
    EXPECT_TRUE(none.app.lstSpeciatePool.visible());
}

TEST(RecordHolders, TheCurrentRowMovesToTheFirstOtherHolder) {
    PoolEditor r(poolOf({with(90), with(50), with(90)}));
    r.app.lstSpeciatePool.setCurrentIndex(1);
    mSelectOldest(r.app);
    EXPECT_EQ(r.app.lstSpeciatePool.currentIndex(), 0);
    mSelectOldest(r.app);
    EXPECT_EQ(r.app.lstSpeciatePool.currentIndex(), 2);
    PoolEditor only(poolOf({with(90), with(5)}));
    mSelectOldest(only.app);
    EXPECT_EQ(only.app.lstSpeciatePool.currentIndex(), 0);
}

TEST(SelectionCommands, AllAndInvert) {
    PoolEditor r(poolOf({makeDrifter(0), makeDrifter(1), makeDrifter(2)}));
    r.app.lstSpeciatePool.setChecked(1, true);
    InvertPoolDrifterSelection(r.app);
    EXPECT_EQ(r.ticked(), (std::vector<int>{0, 2}));
    SelectAllDrifters(r.app);
    SelectAllDrifters(r.app);
    EXPECT_EQ(r.ticked(), (std::vector<int>{0, 1, 2}));
    // The sliders show the new selection: three drifters at the origin.
    EXPECT_FALSE(r.app.SliderSpeciatePoolDrifterWidth.visible);
    EXPECT_EQ(r.app.SliderSpeciatePoolDrifterX.min, -4000);
}

TEST(QuickSpeciate, TogglingChangesTheDepthAndRestartsThePass) {
    PoolEditor r(poolOf({makeDrifter(0), makeDrifter(1)}));
    ToggleQuickSpeciate(r.app);
    EXPECT_FALSE(r.app.quickSpeciate);
    EXPECT_EQ(r.app.similarityDepth, 1000);
    EXPECT_FALSE(r.app.poolSpeciesPending);  // no pool file open
    EXPECT_EQ(r.app.scrollPoolSpeciesThreshold, 444);
    EXPECT_EQ(r.app.txtPoolSpeciesThreshold, " 44.4");
    EXPECT_TRUE(r.app.poolThresholdTyped);
    EXPECT_EQ(r.app.dna.scrollDrifterSpeciesThreshold.pos, 965);  // nudged and put back
    EXPECT_TRUE(r.app.drifterThresholdTyped);

    r.app.openPoolPath = "/pools/open.aqp";
    ToggleQuickSpeciate(r.app);
    EXPECT_EQ(r.app.similarityDepth, 100);
    EXPECT_TRUE(r.app.poolSpeciesPending);
    speciatePoolList(r.app);
    EXPECT_FALSE(r.app.poolSpeciesPending);
    EXPECT_EQ(r.app.lstSpeciatePool.text(1).substr(0, 4), "{0} ");

    // At position 0 the nudge goes to the other end and back.
    r.app.scrollPoolSpeciesThreshold = 0;
    r.app.poolThreshold = 0;
    ToggleQuickSpeciate(r.app);
    EXPECT_EQ(r.app.scrollPoolSpeciesThreshold, 0);
    EXPECT_EQ(r.app.txtPoolSpeciesThreshold, " 0");
}
