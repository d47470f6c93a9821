// The folder boxes and the hunt for the simulator's folders, on trees built in a temporary folder.
#include <gtest/gtest.h>

#include <filesystem>

#include "files/FileNames.h"
#include "files/PathBoxes.h"
#include "shell/FolderDiscovery.h"
#include "support/ScriptedSession.h"

namespace {

namespace fs = std::filesystem;
using Items = std::vector<std::string>;

struct Fixture : aqtest::Session {
    // The program stands in `program`, a folder made for it unless empty.
    explicit Fixture(const std::string& program = "") {
        if (program.empty()) return;
        app.programFolder = at(program);
        mkdir(program);
    }
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
    Items found() {
        aq::AttemptAqQuickFind(app);
        return {app.comboAquariumPath, app.comboDrifterPath, app.comboPoolPath};
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
        {"Sim", "aquarium*.EXE", true},    {"Bin", "Aquarium*.exe", !kWindows}, {"Bin", "Aquarium5*.exe", false},
        {"Data", "?.DNA", true},           {"Dirs", "aquarium*.exe", false},    {"Missing", "*.dna", false},
        {"Notes", "Aquarium*.exe", false},  // named like the simulator, but no program
    };
    for (const Case& c : cases) EXPECT_EQ(aq::filePatternExists(f.at(c.folder), c.pattern), c.found) << c.folder;
}

TEST(Discovery, ProgramFolderWithNothingAroundIt) {
    Fixture f("a/b/prog");
    EXPECT_EQ(f.found(), (Items{f.at("a/b/prog"), f.at("a/b/prog/Drifters"), f.at("a/b/prog/Pools")}));
    EXPECT_EQ(f.app.comboAquariumPathItems, (Items{f.at("a/b/prog")}));
    EXPECT_FALSE(f.app.uiBusy);
}

TEST(Discovery, AReadOnlyInstallSearchesAndAsksFromItsOwnFolder) {
    Fixture f("data");  // where the settings go instead
    f.app.homeFolder = f.at("opt/aq");
    f.touch("opt/aq/Aquarium.exe");
    EXPECT_EQ(f.found()[0], f.at("opt/aq"));
    f.ui.file("open", "T", "", f.at("opt/aq") + "||aqp|D");
    aq::locateSourceFile(f.app, "", "", "aqp", "D", "T");
    EXPECT_SCRIPT_DONE(f.ui);
}

TEST(Discovery, SimulatorFoldersAtSeveralLevels) {
    Fixture f("games/tools/fm");
    f.touch("games/tools/Aquarium5/Aquarium.exe");  // beside the program, one level up
    f.program("games/Aquarium/aquarium5");          // "Aquarium" needs an Aquarium5 program
    f.program("games/aquarium4.1/Aquarium41");      // capitals differ from the candidate
    f.touch("games/Aquarium5/x.txt");               // no program: not taken
    Items found = f.found();
    EXPECT_EQ(f.app.comboAquariumPathItems,
              (Items{f.at("games/tools/fm"), f.at("games/tools/Aquarium5"), f.at("games/Aquarium")}));
    EXPECT_EQ(found[0], f.at("games/Aquarium"));
    EXPECT_EQ(found[1], f.at("games/Aquarium/Drifters"));
    EXPECT_EQ(f.app.comboDrifterPathItems.size(), 3u);
}

TEST(Discovery, TheFourPairs) {
    struct Case {
        const char *simulator, *program, *file;
        const char *drifters, *pools;
    } cases[] = {
        {"Aquarium4", "Aquarium.exe", "Drifters/a.dna", "Drifters", "Pools"},
        {"Aquarium4", "Aquarium.exe", "Pools/a.AQP", "Drifters", "Pools"},
        {"Aquarium4", "Aquarium.exe", "Drifter/a.DNA", "Drifter", "Pool"},
        {"Aquarium4", "Aquarium.exe", "Pool/a.aqp", "Drifter", "Pool"},
        {"Aquarium4", "Aquarium.exe", "Aquariums/a.aqp", "Drifts", "Aquariums"},
        {"Aquarium4", "Aquarium.exe", "Drift/a.dna", "Drift", "Pool"},
        {"Aquarium5", "aquarium.exe", "Pool/a.aqp", "Drifter", "Pool"},  // pair 2 finds it; pair 4 adds nothing
    };
    for (const Case& c : cases) {
        Fixture f("prog");
        std::string sim = f.at(std::string("prog/") + c.simulator);
        f.touch(std::string("prog/") + c.simulator + "/" + c.program);
        f.touch(std::string("prog/") + c.simulator + "/" + c.file);
        EXPECT_EQ(f.found()[0], sim) << c.file;
        // The pair found comes first; the final rule then ends both boxes on the
        // candidate's own "Drifters" and "Pools".
        Items drifters = {f.at("prog/Drifters"), sim + "/" + c.drifters};
        Items pools = {f.at("prog/Pools"), sim + "/" + c.pools};
        if (std::string(c.drifters) != "Drifters") drifters.push_back(sim + "/Drifters");
        if (std::string(c.pools) != "Pools") pools.push_back(sim + "/Pools");
        EXPECT_EQ(f.app.comboDrifterPathItems, drifters) << c.simulator << "/" << c.file;
        EXPECT_EQ(f.app.comboPoolPathItems, pools) << c.simulator << "/" << c.file;
    }
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
        Fixture f(c.program);
        f.touch(c.file);
        EXPECT_EQ(f.found(), (Items{f.at(c.simulator), f.at(c.drifters), f.at(c.pools)})) << c.why;
    }
}

TEST(Discovery, TheBoxesOwnTextsComeFirst) {
    Fixture f("prog");
    f.touch("mine/Aquarium4.exe");
    f.touch("dna/a.dna");
    f.touch("pools/a.aqp");
    f.app.comboAquariumPath = f.at("mine");
    f.app.comboDrifterPath = f.at("dna");
    f.app.comboPoolPath = f.at("nopools");
    f.found();
    EXPECT_EQ(f.app.comboAquariumPathItems, (Items{f.at("mine"), f.at("prog")}));
    EXPECT_EQ(f.app.comboDrifterPathItems, (Items{f.at("dna"), f.at("prog/Drifters")}));
    EXPECT_EQ(f.app.comboPoolPathItems, (Items{f.at("prog/Pools")}));
}

TEST(Discovery, AnUnreadableFolderCountsAsNotFound) {
    Fixture f("prog");
    f.touch("prog/Aquarium5/Aquarium.exe");
    fs::permissions(f.at("prog/Aquarium5"), fs::perms::none);
    bool readable =
        fs::directory_iterator(f.at("prog/Aquarium5"), fs::directory_options::none) != fs::directory_iterator();
    if (readable) GTEST_SKIP() << "running with rights that read any folder";
    f.found();
    fs::permissions(f.at("prog/Aquarium5"), fs::perms::owner_all);
    EXPECT_EQ(f.app.comboAquariumPathItems, (Items{f.at("prog")}));
}

}  // namespace
