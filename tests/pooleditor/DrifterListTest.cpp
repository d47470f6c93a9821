#include <gtest/gtest.h>

#include "pooleditor/DrifterList.h"
#include "shell/NumberText.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

using namespace aq;
using namespace aqtest;

TEST(NumberText, WritesNumbersAsTheListsShowThem) {
    EXPECT_EQ(NumberText(0.0f), "0");
    EXPECT_EQ(NumberText(-0.0f), "0");
    EXPECT_EQ(NumberText(0.5f), ".5");
    EXPECT_EQ(NumberText(-0.25f), "-.25");
    EXPECT_EQ(NumberText(46.31878f), "46.31878");
    EXPECT_EQ(NumberText(86.60254f), "86.60254");
    EXPECT_EQ(NumberText(5.358979e-06f), "5.358979E-06");
    EXPECT_EQ(NumberText(150000.0f), "150000");
    EXPECT_EQ(NumberText(12345678.0f), "1.234568E+07");
    EXPECT_EQ(NumberText(-7), "-7");
    EXPECT_EQ(RoundedText(2.5f), "2");
    EXPECT_EQ(RoundedText(3.5f), "4");
    EXPECT_EQ(RoundedText(-84.5f), "-84");
}

TEST(DrifterList, LineTextOfTheDocumentedDrifters) {
    Pool p = defaultPool();
    EXPECT_EQ(DrifterLineText(p.drifters[1]),
              "three-color 5 segment drifter #1, age=1941, father of 3, energy level = 46.31878., @ 51X, 77Y, has eaten "
              "3 meals");
    EXPECT_EQ(DrifterLineText(p.drifters[12]),
              "Blue & green 7 segment drifter #12, age=1907, mother of 2, father of 1, energy level = 47.87592., @ "
              "-24X, -44Y, has eaten 2 meals");
    DrifterRec d = p.drifters[35];
    d.alive = 0;
    EXPECT_EQ(DrifterLineText(d),
              "Dead, Yellow 11 segment drifter #35, age=1811, mother of 1, father of 2, energy level = 0., @ -85X, 116Y");
}

TEST(DrifterList, ColourWordsMealsAndOffspring) {
    DrifterRec d = makeDrifter(7, 3, 4);
    d.segments[1].color = 0;
    EXPECT_EQ(DrifterLineText(d), "Blue & red 3 segment drifter #7, age=0, energy level = 0., @ 0X, 0Y");
    d.segments[0].color = 0;
    d.segments[1].color = 4;
    d.mealsEaten = 1;
    EXPECT_EQ(DrifterLineText(d), "Red & blue 3 segment drifter #7, age=0, energy level = 0., @ 0X, 0Y, has eaten 1 meal");
    DrifterRec multi = makeDrifter(1, 6);
    for (int s = 0; s < 6; ++s) multi.segments[s].color = s;
    EXPECT_EQ(DrifterLineText(multi).substr(0, 11), "Multicolor ");
    multi.segments[4].color = 0;
    multi.segments[5].color = 0;
    EXPECT_EQ(DrifterLineText(multi).substr(0, 11), "four-color ");
    multi.energy = 12.5f;
    multi.x = 0.5f;
    multi.y = -1.5f;
    EXPECT_NE(DrifterLineText(multi).find("energy level = 12.5., @ 0X, -2Y"), std::string::npos);
}

TEST(DrifterList, PopulateKeepsTicksAndTagsByPositionAndShrinks) {
    ScriptedUi ui;
    ManualClock clock;
    App app(ui, clock);
    app.openPool = makePool(0, 0);
    for (int i = 0; i < 5; ++i) app.openPool.drifters.push_back(makeDrifter(i));
    app.openPool.drifterCount = 5;
    populateSpeciatePoolList(app);
    ASSERT_EQ(app.lstSpeciatePool.count(), 5);
    EXPECT_EQ(app.lstSpeciatePool.tag(4), -1);
    app.lstSpeciatePool.setChecked(1, true);
    app.lstSpeciatePool.setTag(1, 0);
    app.lstSpeciatePool.setTag(2, 3);
    app.openPool.drifterCount = 3;
    populateSpeciatePoolList(app);
    ASSERT_EQ(app.lstSpeciatePool.count(), 3);
    EXPECT_TRUE(app.lstSpeciatePool.checked(1));
    EXPECT_EQ(app.lstSpeciatePool.text(1).substr(0, 4), "{0} ");
    EXPECT_EQ(app.lstSpeciatePool.text(2).substr(0, 4), "{3} ");
    EXPECT_EQ(app.lstSpeciatePool.text(0).substr(0, 4), "Red ");
    EXPECT_FALSE(app.uiBusy);
    app.openPool.drifterCount = 0;
    populateSpeciatePoolList(app);
    EXPECT_EQ(app.lstSpeciatePool.count(), 0);
}

TEST(DrifterList, LoadCommandAsksAboutChangesAndJudgesCounts) {
    TempDir dir;
    std::string path = dir.file("p.aqp");
    Pool negative = makePool(0, 2);
    negative.drifterCount = -1;
    writeBytes(path, poolBytes(negative));
    ScriptedUi ui;
    ManualClock clock;
    App app(ui, clock);
    app.openPool = makePool(2, 2);
    app.poolLoaded = true;
    app.poolChanged = true;
    app.openPoolPath = dir.file("open.aqp");
    app.comboPoolPath = dir.path();
    populateSpeciatePoolList(app);
    // Cancel leaves everything as it was.
    ui.ask("yesnocancel",
           "The currently open pool file has been changed.  Save changes before opening another file?",
           "File Has Changed", Answer::Cancel);
    initiateLoadPoolFile(app);
    EXPECT_EQ(app.lstSpeciatePool.count(), 2);
    // Yes saves first; a negative count is refused and the pool on show stays.
    ui.ask("yesnocancel",
           "The currently open pool file has been changed.  Save changes before opening another file?",
           "File Has Changed", Answer::Yes)
        .file("open", "Select Pool File", path, dir.path() + "||aqp|Aquarium Files")
        .message("Error Loading Drifters.");
    initiateLoadPoolFile(app);
    EXPECT_TRUE(ui.done()) << ui.report();
    EXPECT_EQ(readBytes(dir.file("open.aqp")), poolBytes(app.openPool));
    EXPECT_EQ(app.openPool.drifterCount, 2);
    EXPECT_EQ(app.openPoolPath, "");
    EXPECT_FALSE(app.poolChanged);
    EXPECT_EQ(app.lstSpeciatePool.count(), 2);
    // A dialog cancelled after the lists were cleared.
    ui.file("open", "Select Pool File", "");
    initiateLoadPoolFile(app);
    EXPECT_EQ(app.lstSpeciatePool.count(), 0);
    EXPECT_TRUE(ui.done()) << ui.report();
}
