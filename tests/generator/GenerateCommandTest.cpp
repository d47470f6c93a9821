// "Generate Pool Now" on the program's state: the unsaved-changes question, the
// publish into the open pool and the lists, saving and reading back.
#include <gtest/gtest.h>

#include "generator/Generator.h"
#include "generator/Random.h"
#include "format/PoolFile.h"
#include "files/PoolOps.h"
#include "base/FileIo.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

namespace {

const char* const kChanged =
    "The currently open pool file has been changed.  Changes will be lost if not saved now.  Save changes?";
const char* const kRetryTitle = "Aquarium File Manager - Species Load";

// The disk is full until the user is asked whether to retry.
class FullDiskUi : public aqtest::ScriptedUi {
public:
    aq::Answer AskRetryCancel(const std::string& t, const std::string& title) override {
        aq::setWriteFailureAfter(-1);
        return ScriptedUi::AskRetryCancel(t, title);
    }
};

template <class Ui = aqtest::ScriptedUi>
struct Fixture {
    Ui ui;
    aqtest::ManualClock clock;
    aq::App app{ui, clock};
    aqtest::TempDir dir;
    Fixture() {
        aq::loadDefaultPool(app);
        aq::setRandomState(aq::kRandomStartState);
    }
    // A changed pool of three drifters on show, with ticks in the lists.
    void openChangedPool(const std::string& path) {
        app.openPool = aqtest::makePool(3, 2);
        app.openPoolPath = path;
        app.poolChanged = true;
        app.poolLoaded = true;
        for (int i = 0; i < 3; ++i) app.lstSpeciatePool.add("old");
        app.lstSpeciatePool.setChecked(1, true);
        app.lstPoolFood.add("old");
    }
};

TEST(GenerateCommand, PublishesThePoolIntoTheListsUnsaved) {
    Fixture<> f;
    f.app.openPoolPath = "/pools/kept.aqp";
    int refreshes = 0;
    f.app.onStateChanged = [&] { ++refreshes; };
    aq::generateStartupPool(f.app, aq::StartupSettings{});
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    EXPECT_EQ(aq::poolBytes(f.app.openPool), aq::poolBytes(f.app.workPool));
    EXPECT_TRUE(f.app.poolChanged && f.app.poolLoaded && f.app.poolSpeciesPending);
    EXPECT_EQ(f.app.openPoolPath, "/pools/kept.aqp");
    ASSERT_EQ(f.app.lstSpeciatePool.count(), 120);
    ASSERT_EQ(f.app.lstPoolFood.count(), 400);
    EXPECT_EQ(f.app.lstSpeciatePool.text(0).substr(0, 11), "three-color");
    EXPECT_NE(f.app.lstSpeciatePool.text(0).find("drifter #1, age=0, energy level = 50., @ 975X, 0Y"),
              std::string::npos);
    EXPECT_EQ(f.app.lstPoolFood.text(0), "{0} Food bit @ 507.5X, 0Y. ");
    EXPECT_TRUE(f.app.lstSpeciatePool.enabled());
    EXPECT_EQ(f.ui.waitDepth, 0);
    EXPECT_EQ(refreshes, 1);
    EXPECT_FALSE(f.app.uiBusy);

    // In extended species mode the list waits until the species are known.
    Fixture<> g;
    g.app.comboSpeciatePoolGroup0 = 2;
    aq::generateStartupPool(g.app, aq::StartupSettings{});
    EXPECT_FALSE(g.app.lstSpeciatePool.enabled());
}

TEST(GenerateCommand, CancelNowOrAtTheSaveKeepsTheChangedPool) {
    for (bool unnamed : {false, true}) {
        Fixture<> f;
        f.openChangedPool(unnamed ? "" : f.dir.file("open.aqp"));  // a pool without a file is asked a name for
        std::string before = aq::poolBytes(f.app.openPool);
        if (unnamed)
            f.ui.ask("yesnocancel", kChanged, "File Has Changed", aq::Answer::Yes).file("save", "Save Pool As", "");
        else
            f.ui.ask("yesnocancel", kChanged, "File Has Changed", aq::Answer::Cancel);
        aq::generateStartupPool(f.app, aq::StartupSettings{});
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
        EXPECT_EQ(aq::poolBytes(f.app.openPool), before);
        EXPECT_EQ(f.app.lstSpeciatePool.count(), 3);
        EXPECT_TRUE(f.app.poolChanged);
        EXPECT_EQ(f.ui.waitDepth, 0);
    }
}

TEST(GenerateCommand, YesSavesFirstRetryingAFailedSaveThenGenerates) {
    for (bool fullDisk : {false, true}) {
        Fixture<FullDiskUi> f;
        std::string path = f.dir.file("open.aqp");
        f.openChangedPool(path);
        std::string changed = aq::poolBytes(f.app.openPool);
        f.ui.ask("yesnocancel", kChanged, "File Has Changed", aq::Answer::Yes);
        if (fullDisk) {
            f.ui.message("Error saving " + path + ", error: No space left on device",
                         "Aquarium File Manager - Save Pool File")
                .ask("retrycancel", "Error saving file.", kRetryTitle, aq::Answer::Retry);
            aq::setWriteFailureAfter(10);
        }
        aq::generateStartupPool(f.app, aq::StartupSettings{});
        aq::setWriteFailureAfter(-1);
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
        EXPECT_EQ(aqtest::readBytes(path), changed);
        EXPECT_EQ(f.app.openPool.drifterCount, 120);
        EXPECT_TRUE(f.app.poolChanged);  // the new pool is unsaved
        EXPECT_EQ(f.ui.waitDepth, 0);
    }
}

TEST(GenerateCommand, SavedAndReadBackItIsTheSamePool) {
    Fixture<> f;
    for (const aq::StartupSettings& s : {aq::StartupSettings{}, aq::StartupSettings{0, 0, 0, 0, 0, true, false, true},
                                         aq::StartupSettings{-7, 2, 3, 2, 2, true, true, false}}) {
        aq::generateStartupPool(f.app, s);
        f.app.poolChanged = false;
        std::string path = f.dir.file("generated.aqp");
        ASSERT_TRUE(aq::savePoolFile(f.app, path, true));
        aq::Pool back;
        ASSERT_EQ(aq::readPool(path, back).status, aq::PoolReadStatus::Ok);
        EXPECT_EQ(aq::poolBytes(back), aq::poolBytes(f.app.openPool)) << s.seed;
        EXPECT_EQ(back.drifterCount, aq::startupCounts(s).drifters);
    }
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
}

TEST(GenerateCommand, AnUnusableDefaultPoolSaysSo) {
    Fixture<> f;
    f.app.defaultPool = aq::Pool{};
    f.ui.message("Error loading default pool. Not a Aquarium 4 data file");
    aq::generateStartupPool(f.app, aq::StartupSettings{});
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    EXPECT_FALSE(f.app.poolLoaded);
    EXPECT_EQ(f.ui.waitDepth, 0);
}

}  // namespace
