// The drifter list: number texts, line texts, refilling, and loading a pool through it.
#include <gtest/gtest.h>

#include "base/NumberText.h"
#include "pooleditor/PoolEditorFixture.h"
#include "support/TempDir.h"

using namespace aq;
using namespace aqtest;

TEST(DrifterList, LineTexts) {
    Pool p = defaultPool();
    DrifterRec dead = p.drifters[35], two = makeDrifter(7, 3, 4), multi = makeDrifter(1, 6);
    dead.alive = 0;
    // Colour words, one meal, and positions rounded half to even.
    two.segments[0].color = 0;
    two.mealsEaten = 1;
    two.x = 0.5f, two.y = -1.5f;
    for (int s = 0; s < 6; ++s) multi.segments[s].color = s;
    EXPECT_EQ(DrifterLineText(p.drifters[1]),
              "three-color 5 segment drifter #1, age=1941, father of 3, energy level = 46.31878., @ 51X, 77Y, has "
              "eaten 3 meals");
    EXPECT_EQ(DrifterLineText(p.drifters[12]),
              "Blue & green 7 segment drifter #12, age=1907, mother of 2, father of 1, energy level = 47.87592., @ "
              "-24X, -44Y, has eaten 2 meals");
    EXPECT_EQ(DrifterLineText(dead),
              "Dead, Yellow 11 segment drifter #35, age=1811, mother of 1, father of 2, energy level = 0., @ -85X, "
              "116Y");
    EXPECT_EQ(DrifterLineText(two),
              "Red & blue 3 segment drifter #7, age=0, energy level = 0., @ 0X, -2Y, has eaten 1 meal");
    EXPECT_EQ(DrifterLineText(multi).substr(0, 11), "Multicolor ");
    multi.segments[4].color = multi.segments[5].color = 0;
    EXPECT_EQ(DrifterLineText(multi).substr(0, 11), "four-color ");
    // Numbers as the lists show them.
    std::string all;
    for (float v : {-0.0f, 0.5f, -0.25f, 46.31878f, 150000.0f, 5.358979e-06f, 12345678.0f}) all += NumberText(v) + " ";
    EXPECT_EQ(all, "0 .5 -.25 46.31878 150000 5.358979E-06 1.234568E+07 ");
    EXPECT_EQ(RoundedText(2.5f) + RoundedText(3.5f) + RoundedText(-84.5f), "24-84");
}

TEST(DrifterList, PopulateKeepsTicksAndTagsByPositionAndShrinks) {
    PoolEditor e(poolOf({makeDrifter(0), makeDrifter(1), makeDrifter(2)}));
    EXPECT_EQ(e.tags(), std::vector<std::int32_t>(3, -1));  // new rows have no species yet
    e.app.lstSpeciatePool.setChecked(1, true);
    e.app.lstSpeciatePool.setTag(1, 3);
    e.app.openPool.drifterCount = 2;
    populateSpeciatePoolList(e.app);
    EXPECT_EQ(e.tags(), (std::vector<std::int32_t>{-1, 3}));
    EXPECT_EQ(e.ticked(), std::vector<int>{1});
    EXPECT_EQ(e.app.lstSpeciatePool.text(0).substr(0, 4) + e.app.lstSpeciatePool.text(1).substr(0, 4), "Red {3} ");
    EXPECT_TRUE(!e.app.uiBusy && e.app.lstSpeciatePool.visible());
    // A click or a current row outside the list does nothing.
    int clicks = 0;
    e.app.lstSpeciatePool.onUserCheck = [&](int, bool) { ++clicks; };
    for (int row : {-1, 2}) e.app.lstSpeciatePool.userCheck(row, true);
    e.app.lstSpeciatePool.setCurrentIndex(2);
    EXPECT_EQ(std::pair(clicks, e.app.lstSpeciatePool.currentIndex()), std::pair(0, -1));
}

TEST(DrifterList, LoadCommandAsksAboutChangesAndJudgesCounts) {
    TempDir dir;
    std::string path = dir.file("p.aqp");
    Pool negative = makePool(0, 2);
    negative.drifterCount = -1;
    writeBytes(path, poolBytes(negative));
    PoolEditor e(makePool(2, 2));
    App& app = e.app;
    app.poolLoaded = app.poolChanged = true;
    app.openPoolPath = dir.file("open.aqp");
    app.comboPoolPath = dir.path();
    app.comboSpeciatePoolGroup0 = 2;
    const char* changed = "The currently open pool file has been changed.  Save changes before opening another file?";
    // Cancel leaves everything as it was.
    e.ui.ask("yesnocancel", changed, "File Has Changed", Answer::Cancel);
    initiateLoadPoolFile(app);
    EXPECT_EQ(app.lstSpeciatePool.count(), 2);
    // Yes saves first; a negative count is refused and the pool on show stays.
    e.ui.ask("yesnocancel", changed, "File Has Changed", Answer::Yes)
        .file("open", "Select Pool File", path, dir.path() + "||aqp|Aquarium Files")
        .message("Error Loading Drifters.");
    initiateLoadPoolFile(app);
    EXPECT_TRUE(e.ui.done()) << e.ui.report();
    EXPECT_EQ(readBytes(dir.file("open.aqp")), poolBytes(app.openPool));
    EXPECT_EQ(std::tuple(app.openPool.drifterCount, app.openPoolPath, app.lstSpeciatePool.count()),
              std::tuple(2, std::string(), 2));
    // The rows are new: their species are due again, and mode 2 waits for them.
    EXPECT_TRUE(app.poolSpeciesPending && !app.poolChanged && !app.lstSpeciatePool.enabled());
    // A pool with no file is given a name before it is saved; then a dialog cancelled
    // after the lists were cleared.
    app.poolChanged = true;
    e.ui.ask("yesnocancel", changed, "File Has Changed", Answer::Yes)
        .file("save", "Save Pool As", dir.file("named.aqp"))
        .file("open", "Select Pool File", "");
    initiateLoadPoolFile(app);
    EXPECT_TRUE(e.ui.done()) << e.ui.report();
    EXPECT_EQ(readBytes(dir.file("named.aqp")), poolBytes(app.openPool));
    EXPECT_EQ(std::pair(app.lstSpeciatePool.count(), app.poolChanged), std::pair(0, false));  // it was saved
}
