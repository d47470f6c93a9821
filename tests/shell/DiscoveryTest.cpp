// The folder boxes and the hunt for the simulator's folders, on trees built in a temporary folder.
#include <gtest/gtest.h>

#include <filesystem>

#include "files/PathBoxes.h"
#include "shell/FolderDiscovery.h"
#include "files/FileNames.h"
#include "support/ManualClock.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

namespace {

namespace fs = std::filesystem;
using Items = std::vector<std::string>;

struct Fixture {
    aqtest::ScriptedUi ui;
    aqtest::ManualClock clock;
    aq::App app{ui, clock};
    aqtest::TempDir dir;
    std::string at(const std::string& rel) const { return rel.empty() ? dir.path() : dir.file(rel); }
    void touch(const std::string& rel) {
        fs::create_directories(fs::path(at(rel)).parent_path());
        aqtest::writeBytes(at(rel), "x");
    }
    void mkdir(const std::string& rel) { fs::create_directories(at(rel)); }
    void program(const std::string& rel) {
        touch(rel);
        fs::permissions(at(rel), fs::perms::owner_exec, fs::perm_options::add);
    }
};

TEST(PathBoxes, SetKeepsOneEntryPerFolderAndLeavesTheTextOnIt) {
    Fixture f;
    aq::comboAquariumPath_set(f.app, "/a", -1);
    aq::comboAquariumPath_set(f.app, "/B", -1);
    aq::comboAquariumPath_set(f.app, " /b ", -1);
    EXPECT_EQ(f.app.comboAquariumPath, " /b ");  // set as given
    EXPECT_EQ(f.app.comboAquariumPathItems, (Items{"/a", "/B"}));
    aq::comboAquariumPath_set(f.app, "/c", 1);
    EXPECT_EQ(f.app.comboAquariumPathItems, (Items{"/a", "/c", "/B"}));
    aq::comboAquariumPath_set(f.app, "   ", -1);
    EXPECT_EQ(f.app.comboAquariumPath, "/c");

    // The pool box compares trimmed and in any capitals, and sets the trimmed text.
    f.app.comboPoolPath = "/Pools";
    aq::comboPoolPath_set(f.app, " /pools ", -1);
    EXPECT_EQ(f.app.comboPoolPath, "/Pools");
    EXPECT_EQ(f.app.comboPoolPathItems, (Items{"/pools"}));
    aq::comboPoolPath_set(f.app, " /other ", -1);
    EXPECT_EQ(f.app.comboPoolPath, "/other");
    aq::comboDrifterPath_set(f.app, "/D", -1);
    aq::comboDrifterPath_set(f.app, "/d", -1);
    EXPECT_EQ(f.app.comboDrifterPath, "/d");
    EXPECT_EQ(f.app.comboDrifterPathItems, (Items{"/D"}));
}

// Only Linux runs a program without ".exe".
#ifdef _WIN32
constexpr bool kWindows = true;
#else
constexpr bool kWindows = false;
#endif

TEST(PathBoxes, PatternsIgnoreCaseAndProgramsNeedNoExe) {
    Fixture f;
    f.touch("Sim/AQUARIUM5.EXE");
    f.program("Bin/aquarium4");
    f.touch("Notes/aquarium_notes.txt");
    f.touch("Data/x.Dna");
    f.mkdir("Dirs/aquarium5.exe");
    struct Case {
        const char *folder, *pattern;
        bool found;
    } cases[] = {
        {"Sim", "aquarium*.EXE", true},    {"Bin", "Aquarium*.exe", !kWindows},   {"Bin", "Aquarium5*.exe", false},
        {"Data", "?.DNA", true},           {"Dirs", "aquarium*.exe", false}, {"Missing", "*.dna", false},
        {"Notes", "Aquarium*.exe", false},  // named like the simulator, but no program
    };
    for (const Case& c : cases) EXPECT_EQ(aq::filePatternExists(f.at(c.folder), c.pattern), c.found) << c.folder;
}

TEST(Discovery, ProgramFolderWithNothingAroundIt) {
    Fixture f;
    f.app.programFolder = f.at("a/b/prog");
    f.mkdir("a/b/prog");
    aq::AttemptAqQuickFind(f.app);
    EXPECT_EQ(f.app.comboAquariumPath, f.at("a/b/prog"));
    EXPECT_EQ(f.app.comboPoolPath, f.at("a/b/prog/Pools"));
    EXPECT_EQ(f.app.comboAquariumPathItems, (Items{f.at("a/b/prog")}));
    EXPECT_FALSE(f.app.uiBusy);
}

TEST(Discovery, AReadOnlyInstallSearchesAndAsksFromItsOwnFolder) {
    Fixture f;
    f.app.programFolder = f.at("data");  // where the settings go instead
    f.app.homeFolder = f.at("opt/aq");
    f.mkdir("data");
    f.touch("opt/aq/Aquarium.exe");
    aq::AttemptAqQuickFind(f.app);
    EXPECT_EQ(f.app.comboAquariumPath, f.at("opt/aq"));
    f.ui.file("open", "T", "", f.at("opt/aq") + "||aqp|D");
    aq::locateSourceFile(f.app, "", "", "aqp", "D", "T");
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
}

TEST(Discovery, SimulatorFoldersAtSeveralLevels) {
    Fixture f;
    f.app.programFolder = f.at("games/tools/fm");
    f.mkdir("games/tools/fm");
    f.touch("games/tools/Aquarium5/Aquarium.exe");  // beside the program, one level up
    f.program("games/Aquarium/aquarium5");          // "Aquarium" needs an Aquarium5 program
    f.program("games/aquarium4.1/Aquarium41");      // capitals differ from the candidate
    f.touch("games/Aquarium5/x.txt");               // no program: not taken
    aq::AttemptAqQuickFind(f.app);
    Items want = {f.at("games/tools/fm"), f.at("games/tools/Aquarium5"), f.at("games/Aquarium")};
    EXPECT_EQ(f.app.comboAquariumPathItems, want);
    EXPECT_EQ(f.app.comboAquariumPath, f.at("games/Aquarium"));
    EXPECT_EQ(f.app.comboDrifterPath, f.at("games/Aquarium/Drifters"));
    EXPECT_EQ(f.app.comboDrifterPathItems.size(), 3u);
}

TEST(Discovery, TheFourPairs) {
    struct Case {
        const char* file;
        const char *drifters, *pools;
    } cases[] = {
        {"Drifters/a.dna", "Drifters", "Pools"},    {"Pools/a.AQP", "Drifters", "Pools"},
        {"Drifter/a.DNA", "Drifter", "Pool"},       {"Pool/a.aqp", "Drifter", "Pool"},
        {"Aquariums/a.aqp", "Drifts", "Aquariums"}, {"Drift/a.dna", "Drift", "Pool"},
    };
    for (const Case& c : cases) {
        Fixture f;
        f.app.programFolder = f.at("prog");
        f.touch("Aq4/Aquarium.exe");
        f.touch(std::string("Aq4/") + c.file);
        f.mkdir("prog");
        fs::rename(f.at("Aq4"), f.at("prog/Aquarium4"));
        aq::AttemptAqQuickFind(f.app);
        std::string sim = f.at("prog/Aquarium4");
        // The pair found comes first; the final rule then ends both boxes on the
        // candidate's own "Drifters" and "Pools".
        Items drifters = {f.at("prog/Drifters"), sim + "/" + c.drifters};
        Items pools = {f.at("prog/Pools"), sim + "/" + c.pools};
        if (std::string(c.drifters) != "Drifters") drifters.push_back(sim + "/Drifters");
        if (std::string(c.pools) != "Pools") pools.push_back(sim + "/Pools");
        EXPECT_EQ(f.app.comboDrifterPathItems, drifters) << c.file;
        EXPECT_EQ(f.app.comboPoolPathItems, pools) << c.file;
        EXPECT_EQ(f.app.comboAquariumPath, sim) << c.file;
    }
}

TEST(Discovery, PoolOfPairFourIsNotTested) {
    Fixture f;
    f.app.programFolder = f.at("prog");
    f.touch("prog/Aquarium5/aquarium.exe");
    f.touch("prog/Aquarium5/Pool/a.aqp");  // pair 2 finds this; pair 4 adds nothing more
    aq::AttemptAqQuickFind(f.app);
    std::string sim = f.at("prog/Aquarium5");
    EXPECT_EQ(f.app.comboDrifterPathItems, (Items{f.at("prog/Drifters"), sim + "/Drifter", sim + "/Drifters"}));
}

TEST(Discovery, ProgramBesideTheSimulatorOrItsFiles) {
    const struct {
        const char *why, *program, *file, *simulator, *drifters, *pools;
    } cases[] = {
        {"the simulator in the program's own folder", "aq", "aq/Aquarium.exe", "aq", "aq/Drifters", "aq/Pools"},
        {"DNA files in the program's folder: it is both archives", "aq", "aq/x.DNA", "aq", "aq", "aq"},
        {"an Aquarium5 program at a level takes that level", "top/prog", "top/Aquarium5.exe", "top", "top/Drifters",
         "top/Pools"},
    };
    for (const auto& c : cases) {
        Fixture f;
        f.app.programFolder = f.at(c.program);
        f.mkdir(c.program);
        f.touch(c.file);
        aq::AttemptAqQuickFind(f.app);
        EXPECT_EQ(std::vector<std::string>({f.app.comboAquariumPath, f.app.comboDrifterPath, f.app.comboPoolPath}),
                  std::vector<std::string>({f.at(c.simulator), f.at(c.drifters), f.at(c.pools)}))
            << c.why;
    }
}

TEST(Discovery, TheBoxesOwnTextsComeFirst) {
    Fixture f;
    f.app.programFolder = f.at("prog");
    f.mkdir("prog");
    f.touch("mine/Aquarium4.exe");
    f.touch("dna/a.dna");
    f.touch("pools/a.aqp");
    f.app.comboAquariumPath = f.at("mine");
    f.app.comboDrifterPath = f.at("dna");
    f.app.comboPoolPath = f.at("nopools");
    aq::AttemptAqQuickFind(f.app);
    EXPECT_EQ(f.app.comboAquariumPathItems, (Items{f.at("mine"), f.at("prog")}));
    EXPECT_EQ(f.app.comboDrifterPathItems, (Items{f.at("dna"), f.at("prog/Drifters")}));
    EXPECT_EQ(f.app.comboPoolPathItems, (Items{f.at("prog/Pools")}));
}

TEST(Discovery, AnUnreadableFolderCountsAsNotFound) {
    Fixture f;
    f.app.programFolder = f.at("prog");
    f.touch("prog/Aquarium5/Aquarium.exe");
    fs::permissions(f.at("prog/Aquarium5"), fs::perms::none);
    bool readable =
        fs::directory_iterator(f.at("prog/Aquarium5"), fs::directory_options::none) != fs::directory_iterator();
    if (readable) GTEST_SKIP() << "running with rights that read any folder";
    aq::AttemptAqQuickFind(f.app);
    fs::permissions(f.at("prog/Aquarium5"), fs::perms::owner_all);
    EXPECT_EQ(f.app.comboAquariumPathItems, (Items{f.at("prog")}));
}

}  // namespace
