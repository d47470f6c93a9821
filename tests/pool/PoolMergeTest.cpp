// Merging a second pool file into the open pool or the work pool, and saving from the menu.
#include <gtest/gtest.h>

#include <cstring>

#include "pool/PoolFile.h"
#include "pool/PoolMerge.h"
#include "pool/PoolSave.h"
#include "pooleditor/DrifterList.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

using namespace aq;
using namespace aqtest;

namespace {

// A pool whose records say where they came from: drifter ages and food families start at `mark`.
Pool markedPool(int drifters, int food, int mark) {
    Pool p = makePool(drifters, food);
    for (int i = 0; i < drifters; ++i) {
        p.drifters[static_cast<std::size_t>(i)].age = mark + i;
        p.drifters[static_cast<std::size_t>(i)].id = 7777;
    }
    for (int i = 0; i < food; ++i) p.food[static_cast<std::size_t>(i)].family = static_cast<std::uint8_t>(mark + i);
    return p;
}

struct Session {
    ScriptedUi ui;
    ManualClock clock;
    App app{ui, clock};
    TempDir dir;
    Session(const Pool& open) {
        app.openPool = open;
        app.workPool = open;
        app.poolLoaded = true;
        app.openPoolPath = dir.file("open.aqp");
        app.comboPoolPath = dir.path();
        populateSpeciatePoolList(app);
    }
    std::string file(const Pool& p, const std::string& name = "other.aqp") {
        std::string path = dir.file(name);
        EXPECT_EQ(writePool(path, p), "");
        return path;
    }
};

void expectIdsAreIndices(const Pool& p) {
    for (int i = 0; i < p.drifterCount; ++i) EXPECT_EQ(p.drifters[static_cast<std::size_t>(i)].id, i);
}

}  // namespace

TEST(PoolMerge, DriftersUpToTheLimitTakeTheFileFirstOnes) {
    Session s(markedPool(1990, 3, 0));
    s.app.openPool.walls[0].wallFlag = 5;
    Pool before = s.app.openPool;
    Pool work = s.app.workPool;
    std::string other = s.file(markedPool(50, 4, 100000));
    s.ui.file("open", "Select Pool File", other, s.dir.path() + "||aqp|Aquarium Files");
    mMergePool(s.app);
    EXPECT_TRUE(s.ui.done()) << s.ui.report();
    const Pool& p = s.app.openPool;
    ASSERT_EQ(p.drifterCount, 2000);
    EXPECT_EQ(p.drifters[0].age, 0);
    EXPECT_EQ(p.drifters[1989].age, 1989);
    EXPECT_EQ(p.drifters[1990].age, 100000);
    EXPECT_EQ(p.drifters[1999].age, 100009);
    expectIdsAreIndices(p);
    // The food and everything around the arrays stay those of the open pool.
    EXPECT_EQ(p.foodCount, 3);
    EXPECT_EQ(std::memcmp(p.food.data(), before.food.data(), 3 * sizeof(FoodBit)), 0);
    EXPECT_EQ(p.walls[0].wallFlag, 5);
    EXPECT_EQ(p.historyBlock, before.historyBlock);
    EXPECT_TRUE(s.app.poolChanged);
    EXPECT_TRUE(s.app.poolSpeciesPending);
    EXPECT_EQ(s.app.lstSpeciatePool.count(), 2000);
    EXPECT_EQ(s.app.openPoolPath, s.dir.file("open.aqp"));
    EXPECT_EQ(poolBytes(s.app.workPool), poolBytes(work));
}

TEST(PoolMerge, TheLimitMessagesComeWithoutADialog) {
    {
        Session s(markedPool(2000, 0, 0));
        s.ui.message("Limit reached. No more drifters can be added at this time.", "Merge Drifters into Pool");
        mMergePool(s.app);
        EXPECT_TRUE(s.ui.done()) << s.ui.report();
        EXPECT_FALSE(s.app.poolChanged);
    }
    {
        Session s(markedPool(1, 2000, 0));
        s.ui.message("Limit reached. No more food can be added at this time.", "Merge Food into Pool");
        mMergeFood(s.app);
        EXPECT_TRUE(s.ui.done()) << s.ui.report();
    }
}

TEST(PoolMerge, FoodAloneKeepsTheDriftersAndIsCutAtTheLimit) {
    Session s(markedPool(5, 1995, 0));
    Pool before = s.app.openPool;
    std::string other = s.file(markedPool(9, 10, 200));
    s.ui.file("open", "Select Pool File", other);
    mMergeFood(s.app);
    EXPECT_TRUE(s.ui.done()) << s.ui.report();
    const Pool& p = s.app.openPool;
    EXPECT_EQ(p.drifterCount, 5);
    EXPECT_EQ(p.foodCount, 2000);
    EXPECT_EQ(p.food[1995].family, 200);
    EXPECT_EQ(p.food[1999].family, 204);
    // The open pool's own drifters only get their ids set to their indices.
    for (int i = 0; i < 5; ++i) {
        DrifterRec d = before.drifters[static_cast<std::size_t>(i)];
        d.id = i;
        EXPECT_EQ(std::memcmp(&p.drifters[static_cast<std::size_t>(i)], &d, sizeof d), 0);
    }
}

TEST(PoolMerge, AFileWithoutDriftersOnlyRenumbers) {
    Session s(markedPool(5, 2, 0));
    std::string other = s.file(markedPool(0, 0, 0));
    s.ui.file("open", "Select Pool File", other);
    mMergePool(s.app);
    EXPECT_EQ(s.app.openPool.drifterCount, 5);
    expectIdsAreIndices(s.app.openPool);
}

TEST(PoolMerge, CancellingTheDialogChangesNothing) {
    for (bool changed : {false, true}) {
        Session s(markedPool(3, 3, 0));
        s.app.poolChanged = changed;
        Pool before = s.app.openPool;
        s.ui.file("open", "Select Pool File", "");
        mMergePool(s.app);
        EXPECT_TRUE(s.ui.done()) << s.ui.report();
        EXPECT_EQ(s.app.poolChanged, changed);
        EXPECT_EQ(poolBytes(s.app.openPool), poolBytes(before));
        EXPECT_FALSE(s.app.poolSpeciesPending);
    }
}

TEST(PoolMerge, IntoTheWorkPoolWithAPath) {
    Session s(markedPool(3, 3, 0));
    s.app.workPool = markedPool(2, 1, 50);
    Pool open = s.app.openPool;
    std::string other = s.file(markedPool(4, 4, 300));
    mergePoolFile(s.app, true, true, other, false);
    EXPECT_TRUE(s.ui.done()) << s.ui.report();
    EXPECT_EQ(s.app.workPool.drifterCount, 6);
    EXPECT_EQ(s.app.workPool.drifters[2].age, 300);
    EXPECT_EQ(s.app.workPool.foodCount, 5);
    EXPECT_EQ(s.app.workPool.food[1].family, 44);  // 300 + 0 in a byte
    expectIdsAreIndices(s.app.workPool);
    EXPECT_EQ(poolBytes(s.app.openPool), poolBytes(open));
    EXPECT_FALSE(s.app.poolChanged);
}

TEST(PoolMerge, WithNoPoolLoadedTheFileOpensAsANewPoolOfThatKind) {
    Session s(markedPool(0, 0, 0));
    s.app.poolLoaded = false;
    s.app.openPoolPath.clear();
    Pool work = s.app.workPool;
    std::string other = s.file(markedPool(4, 4, 10));
    s.ui.file("open", "Select Pool File", other);
    mMergePool(s.app);
    EXPECT_TRUE(s.ui.done()) << s.ui.report();
    EXPECT_TRUE(s.app.poolLoaded);
    EXPECT_EQ(s.app.openPool.drifterCount, 4);
    EXPECT_EQ(s.app.openPool.foodCount, 0);
    expectIdsAreIndices(s.app.openPool);
    EXPECT_EQ(s.app.openPoolPath, "");
    EXPECT_EQ(s.app.lstSpeciatePool.count(), 4);
    EXPECT_EQ(poolBytes(s.app.workPool), poolBytes(work));
}

TEST(PoolSave, QuestionsOfTheMenuCommand) {
    {
        // No, then a cancelled dialog: still changed, still the same file.
        Session s(markedPool(2, 2, 0));
        s.app.poolChanged = true;
        std::string open = s.app.openPoolPath;
        s.ui.ask("yesnocancel", "Would you like to save over " + open, "Save Speciated Pool", Answer::No);
        s.ui.file("save", "Save Pool As", "", s.dir.path() + "|open.aqp|aqp|Pool Files");
        mSavePool(s.app);
        EXPECT_TRUE(s.ui.done()) << s.ui.report();
        EXPECT_TRUE(s.app.poolChanged);
        EXPECT_EQ(s.app.openPoolPath, open);
    }
    {
        // Yes: written over the open file.
        Session s(markedPool(2, 2, 0));
        s.app.poolChanged = true;
        std::string open = s.app.openPoolPath;
        s.ui.ask("yesnocancel", "Would you like to save over " + open, "Save Speciated Pool", Answer::Yes);
        mSavePool(s.app);
        EXPECT_TRUE(s.ui.done()) << s.ui.report();
        EXPECT_FALSE(s.app.poolChanged);
        EXPECT_EQ(readBytes(open), std::string(reinterpret_cast<const char*>(poolBytes(s.app.openPool).data()),
                                               poolBytes(s.app.openPool).size()));
    }
    {
        // No path yet: straight to "Save Pool As"; the new file becomes the open one.
        Session s(markedPool(2, 2, 0));
        s.app.openPoolPath.clear();
        s.app.poolChanged = true;
        std::string to = s.dir.file("new.aqp");
        s.ui.file("save", "Save Pool As", to, s.dir.path() + "||aqp|Pool Files");
        mSavePool(s.app);
        EXPECT_TRUE(s.ui.done()) << s.ui.report();
        EXPECT_EQ(s.app.openPoolPath, to);
        EXPECT_FALSE(s.app.poolChanged);
    }
    {
        // Cancel, and nothing loaded: nothing happens.
        Session s(markedPool(2, 2, 0));
        s.ui.ask("yesnocancel", "Would you like to save over " + s.app.openPoolPath, "Save Speciated Pool",
                 Answer::Cancel);
        mSavePool(s.app);
        s.app.poolLoaded = false;
        mSavePool(s.app);
        EXPECT_TRUE(s.ui.done()) << s.ui.report();
    }
}
