// "Generate Pool Now" on the program's state: the unsaved-changes question, the publish into
// the open pool and the lists, saving and reading back; and aqfm generate and food.
#include <gtest/gtest.h>

#include "base/FileIo.h"
#include "files/PoolOps.h"
#include "format/PoolFile.h"
#include "generator/Generator.h"
#include "generator/Random.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/RunCli.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

namespace {

using aq::Answer;
using aq::StartupSettings;

const char* const kChanged =
    "The currently open pool file has been changed.  Changes will be lost if not saved now.  Save changes?";

// The disk is full until the user is asked whether to retry.
class FullDiskUi : public aqtest::ScriptedUi {
public:
    Answer AskRetryCancel(const std::string& t, const std::string& title) override {
        aq::setWriteFailureAfter(-1);
        return ScriptedUi::AskRetryCancel(t, title);
    }
};

struct Fixture {
    FullDiskUi ui;
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
        app.poolChanged = app.poolLoaded = true;
        for (int i = 0; i < 3; ++i) app.lstSpeciatePool.add("old");
        app.lstSpeciatePool.setChecked(1, true);
        app.lstPoolFood.add("old");
    }
};

TEST(GenerateCommand, PublishesThePoolUnsavedOrSaysWhyNot) {
    Fixture f, g;
    f.app.openPoolPath = "/pools/kept.aqp";
    aq::generateStartupPool(f.app, StartupSettings{});
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    EXPECT_TRUE(f.app.poolChanged && f.app.poolLoaded && f.app.poolSpeciesPending);
    EXPECT_EQ(f.app.openPoolPath, "/pools/kept.aqp");
    ASSERT_EQ(std::pair(f.app.lstSpeciatePool.count(), f.app.lstPoolFood.count()), std::pair(120, 400));
    EXPECT_TRUE(f.app.lstSpeciatePool.enabled());
    // In extended species mode the list waits until the species are known.
    g.app.comboSpeciatePoolGroup0 = 2;
    aq::generateStartupPool(g.app, StartupSettings{});
    EXPECT_FALSE(g.app.lstSpeciatePool.enabled());
    Fixture bad;
    bad.app.defaultPool = aq::Pool{};
    bad.ui.message("Error loading default pool. Not a Aquarium 4 data file");
    aq::generateStartupPool(bad.app, StartupSettings{});
    EXPECT_TRUE(bad.ui.done()) << bad.ui.report();
    EXPECT_FALSE(bad.app.poolLoaded);
    EXPECT_EQ(bad.ui.waitDepth, 0);
}

TEST(GenerateCommand, TheChangedPoolIsSavedFirstOrKept) {
    // A pool without a file is asked a name for, which it keeps once saved; a full disk is retried.
    enum Case { Cancel, UnnamedCancelsTheName, Yes, YesOnAFullDisk, FullDiskCancelled, UnnamedFullDiskCancelled };
    for (Case c : {Cancel, UnnamedCancelsTheName, Yes, YesOnAFullDisk, FullDiskCancelled, UnnamedFullDiskCancelled}) {
        SCOPED_TRACE(c);
        Fixture f;
        const bool unnamed = c == UnnamedCancelsTheName || c == UnnamedFullDiskCancelled;
        std::string path = unnamed ? "" : f.dir.file("open.aqp");
        f.openChangedPool(path);
        std::string before = aq::poolBytes(f.app.openPool);
        f.ui.ask("yesnocancel", kChanged, "File Has Changed", c == Cancel ? Answer::Cancel : Answer::Yes);
        if (unnamed) f.ui.file("save", "Save Pool As", c == UnnamedCancelsTheName ? "" : f.dir.file("new.aqp"));
        if (c == YesOnAFullDisk || c == FullDiskCancelled || c == UnnamedFullDiskCancelled) {
            f.ui.message(
                    "Error saving " + (unnamed ? f.dir.file("new.aqp") : path) + ", error: No space left on device",
                    "Aquarium File Manager - Save Pool File")
                .ask("retrycancel", "Error saving file.", "Aquarium File Manager - Species Load",
                     c == YesOnAFullDisk ? Answer::Retry : Answer::Cancel);
            aq::setWriteFailureAfter(10);
        }
        aq::generateStartupPool(f.app, StartupSettings{});
        aq::setWriteFailureAfter(-1);
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
        bool generated = c == Yes || c == YesOnAFullDisk;
        EXPECT_EQ(aq::poolBytes(f.app.openPool) == before, !generated);
        EXPECT_EQ(generated ? aqtest::readBytes(path) : before, before);  // saved first
        EXPECT_EQ(std::tuple(f.app.openPool.drifterCount, f.app.lstSpeciatePool.count()),
                  generated ? std::tuple(120, 120) : std::tuple(3, 3));
        EXPECT_EQ(std::tuple(f.app.poolChanged, f.ui.waitDepth), std::tuple(true, 0));  // a new pool is unsaved
        EXPECT_EQ(f.app.openPoolPath, path);
    }
}

TEST(CliGenerate, GenerateAndFood) {
    aqtest::TempDir dir;
    const std::string out = dir.file("new.aqp");
    const std::tuple<std::string, StartupSettings, std::uint32_t> cases[] = {
        {"", StartupSettings{}, 0x50000},
        {"--seed 12345 --type 0 --food 0 --placement 0 --walls 2 --split --no-extra-food --extra-drifters",
         StartupSettings{12345, 0, 0, 0, 2, true, false, true}, 0x50000},
        {"--seed=-7 --type 2 --food 3 --state ABCD12", StartupSettings{-7, 2, 3, 1, 1, false, true, false}, 0xABCD12},
    };
    for (const auto& [args, s, state] : cases) {
        ASSERT_EQ(aqtest::runCli("generate " + args + " -o " + out).status, 0) << args;
        aq::setRandomState(state);
        aq::Pool pool;
        aq::buildStartupPool(aqtest::defaultPool(), s, pool);
        EXPECT_EQ(aqtest::readBytes(out), aq::poolBytes(pool)) << args;
    }
    // aqfm food: one line per food bit, with its trailing blank.
    aqtest::TempDir foodDir;
    const std::string path = foodDir.file("default.aqp");
    ASSERT_EQ(aqtest::runCli("default -o " + path).status, 0);
    aqtest::CliResult food = aqtest::runCli("food " + path);
    EXPECT_EQ(food.status, 0);
    EXPECT_EQ(food.out,
              "{0} Food bit @ 100X, 0Y. \n{1} Food bit @ 50X, 86.60254Y. \n{2} Food bit @ -50X, 86.60254Y. \n"
              "{3} Food bit @ -100X, 5.358979E-06Y. \n{4} Food bit @ -50.00001X, -86.60254Y. \n"
              "{5} Food bit @ 49.99999X, -86.60255Y. \n");
}

}  // namespace
