// Paths split and joined (the program's backslash forms and this system's "/" forms), names
// from the clock, unique and numbered names, the two file dialogs; the folder boxes and the
// hunt for the simulator's folders, on trees built in a temporary folder.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "base/Paths.h"
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

// Only Linux runs a program without ".exe".
#ifdef _WIN32
constexpr bool kWindows = true;
#else
constexpr bool kWindows = false;
#endif

TEST(PathBoxes, SetAndPatterns) {
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
    Fixture g;
    g.touch("Sim/AQUARIUM5.EXE");
    g.program("Bin/aquarium4");
    g.touch("Notes/aquarium_notes.txt");
    g.touch("Data/x.Dna");
    g.mkdir("Dirs/aquarium5.exe");
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"Sim", "aquarium*.EXE", true},    {"Bin", "Aquarium*.exe", !kWindows}, {"Bin", "Aquarium5*.exe", false},
        {"Data", "?.DNA", true},           {"Dirs", "aquarium*.exe", false},    {"Missing", "*.dna", false},
        {"Notes", "Aquarium*.exe", false},  // named like the simulator, but no program
    };
    for (auto [folder, pattern, found] : cases)
        EXPECT_EQ(aq::filePatternExists(g.at(folder), pattern), found) << folder;
}

TEST(Discovery, ProgramFolderAloneReadOnlyOrUnreadable) {
    Fixture f("a/b/prog");
    EXPECT_EQ(f.found(), (Items{f.at("a/b/prog"), f.at("a/b/prog/Drifters"), f.at("a/b/prog/Pools")}));
    EXPECT_EQ(f.app.comboAquariumPathItems, (Items{f.at("a/b/prog")}));
    EXPECT_FALSE(f.app.uiBusy);
    // A Windows home climbs to its top and stops there.
    f.app.homeFolder = "\\Aquarium";
    EXPECT_EQ(f.found()[1], "\\Aquarium\\Drifters");
    // A read-only install searches and asks from its own folder.
    Fixture ro("data");  // where the settings go instead
    ro.app.homeFolder = ro.at("opt/aq");
    ro.touch("opt/aq/Aquarium.exe");
    EXPECT_EQ(ro.found()[0], ro.at("opt/aq"));
    ro.ui.file("open", "T", "", ro.at("opt/aq") + "||aqp|D");
    aq::locateSourceFile(ro.app, "", "", "aqp", "D", "T");
    EXPECT_SCRIPT_DONE(ro.ui);
    // An unreadable folder counts as not found.
    Fixture u("prog");
    u.touch("prog/Aquarium5/Aquarium.exe");
    fs::permissions(u.at("prog/Aquarium5"), fs::perms::none);
    bool readable =
        fs::directory_iterator(u.at("prog/Aquarium5"), fs::directory_options::none) != fs::directory_iterator();
    if (!readable) {  // with rights that read any folder there is nothing to see
        u.found();
        fs::permissions(u.at("prog/Aquarium5"), fs::perms::owner_all);
        EXPECT_EQ(u.app.comboAquariumPathItems, (Items{u.at("prog")}));
    }
}

TEST(Discovery, SeveralLevelsAndTheFourPairs) {
    Fixture f("games/tools/fm");
    f.touch("games/tools/Aquarium5/Aquarium.exe");  // beside the program, one level up
    f.program("games/Aquarium/aquarium5");          // "Aquarium" needs an Aquarium5 program
    f.program("games/aquarium4.1/Aquarium41");      // capitals differ from the candidate
    f.touch("games/Aquarium5/x.txt");               // no program: not taken
    Items found = f.found();
    EXPECT_EQ(f.app.comboAquariumPathItems,
              (Items{f.at("games/tools/fm"), f.at("games/tools/Aquarium5"), f.at("games/Aquarium")}));
    EXPECT_EQ(std::tuple(found[0], found[1], f.app.comboDrifterPathItems.size()),
              std::tuple(f.at("games/Aquarium"), f.at("games/Aquarium/Drifters"), 3u));
    // The simulator's folder, its program, a file in it, and the drifter and pool folders that pair finds.
    const std::tuple<const char*, const char*, const char*, std::string, std::string> cases[] = {
        {"Aquarium4", "Aquarium.exe", "Drifters/a.dna", "Drifters", "Pools"},
        {"Aquarium4", "Aquarium.exe", "Pools/a.AQP", "Drifters", "Pools"},
        {"Aquarium4", "Aquarium.exe", "Drifter/a.DNA", "Drifter", "Pool"},
        {"Aquarium4", "Aquarium.exe", "Pool/a.aqp", "Drifter", "Pool"},
        {"Aquarium4", "Aquarium.exe", "Aquariums/a.aqp", "Drifts", "Aquariums"},
        {"Aquarium4", "Aquarium.exe", "Drift/a.dna", "Drift", "Pool"},
        {"Aquarium5", "aquarium.exe", "Pool/a.aqp", "Drifter", "Pool"},  // pair 2 finds it; pair 4 adds nothing
    };
    for (const auto& [simulator, program, file, drifters, pools] : cases) {
        Fixture f("prog");
        const std::string rel = std::string("prog/") + simulator, sim = f.at(rel);
        f.touch(rel + "/" + program);
        f.touch(rel + "/" + file);
        EXPECT_EQ(f.found()[0], sim) << file;
        // The pair found comes first; the final rule then ends both boxes on the
        // candidate's own "Drifters" and "Pools".
        Items d = {f.at("prog/Drifters"), sim + "/" + drifters}, p = {f.at("prog/Pools"), sim + "/" + pools};
        if (drifters != "Drifters") d.push_back(sim + "/Drifters");
        if (pools != "Pools") p.push_back(sim + "/Pools");
        EXPECT_EQ(std::pair(f.app.comboDrifterPathItems, f.app.comboPoolPathItems), std::pair(d, p))
            << simulator << "/" << file;
    }
}

TEST(Discovery, ProgramBesideTheSimulatorAndTheBoxesOwnTexts) {
    // Why, the program's folder, a file, and the simulator, drifter and pool folders found.
    const std::array<const char*, 6> cases[] = {
        {"the simulator in the program's own folder", "aq", "aq/Aquarium.exe", "aq", "aq/Drifters", "aq/Pools"},
        {"DNA files in the program's folder: it is both archives", "aq", "aq/x.DNA", "aq", "aq", "aq"},
        {"an Aquarium5 program at a level takes that level", "top/prog", "top/Aquarium5.exe", "top", "top/Drifters",
         "top/Pools"},
    };
    for (auto [why, program, file, simulator, drifters, pools] : cases) {
        Fixture f(program);
        f.touch(file);
        EXPECT_EQ(f.found(), (Items{f.at(simulator), f.at(drifters), f.at(pools)})) << why;
    }
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

TEST(Paths, SplitJoinAndDrive) {
    // The whole path, its folder and its file.
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"x.dna", "", "x.dna"},
        {"C:\\x.dna", "C:\\", "x.dna"},
        {"C:x", "C:", "x"},
        {"a/b/x", "a/b/", "x"},
        {"/x.dna", "/", "x.dna"},
        {"\\\\host\\share\\x", "\\\\host\\share", "x"},
        {"/home/aq/Pools/Pool_1.AQP", "/home/aq/Pools", "Pool_1.AQP"},
        {"/home/aq/", "/home/aq", ""},
        {"", "", ""},
    };
    for (auto [whole, folder, file] : cases) {
        std::string f = "junk", n = "junk";
        aq::SplitPath(whole, f, n);
        EXPECT_EQ(std::tuple(f, n, aq::folderOfPath(whole), aq::fileNameOfPath(whole)),
                  std::tuple(folder, file, folder, file))
            << whole;
    }
    EXPECT_EQ(aq::joinPath("C:", "x") + "|" + aq::joinPath("C:\\", "x") + "|" + aq::joinPath("/home/aq", "aqfm.ini") +
                  "|" + aq::joinPath("/home/aq/", "x.dna"),
              "C:x|C:\\\\x|/home/aq/aqfm.ini|/home/aq/x.dna");
    const std::pair<const char*, const char*> drives[] = {
        {"\\\\host\\share\\x", "\\\\host"},
        {"C:\\x", "C:"},
        {"x", ""},
        {"//host/share/x", "//host"},
        {"\\\\host", ""},
        {"/home/aq", "/"},
        {"/home/a:b/x", "/"},
    };
    for (auto [path, drive] : drives) EXPECT_EQ(aq::driveOfPath(path), drive) << path;
}

TEST(FileNames, NamesFromTheClockAndUniqueNames) {
    aqtest::Session f;
    f.clock.when = {2026, 3, 7, 9, 5, 4};
    EXPECT_EQ(aq::nowFileName(f.app), "2026-03-07 09'05'04");  // no colons in a file name
    const aqtest::TempDir& dir = f.dir;
    EXPECT_EQ(aq::uniqueFileName(dir.path(), "Drifter_1.DNA"), "Drifter_1.0.DNA");
    aqtest::writeBytes(dir.file("Drifter_1.0.DNA"), "x");
    EXPECT_EQ(aq::uniqueFileName(dir.path(), "Drifter_1.DNA"), "Drifter_1.1.DNA");
    EXPECT_EQ(aq::uniqueFileName(dir.path(), "noext"), "noext.0");
    EXPECT_EQ(aq::uniqueFileName(dir.path(), "a.b.AQP"), "a.b.0.AQP");
}

TEST(FileNames, NextNumberedNameSeries) {
    using Step = std::tuple<const char*, const char*, const char*>;  // the name, the extension, the next name
    const std::vector<std::vector<Step>> runs = {
        {{"Pool_1.AQP", ".AQP", "Pool_2.AQP"},
         {"Pool_2.AQP", ".AQP", "Pool_3.AQP"},
         {"Pool_3.AQP", ".AQP", "Pool_4.AQP"}},
        {{"Drifter_9.DNA", ".DNA", "Drifter_10.DNA"}},
        {{"Bar4.dna", ".AQP", "Bar5.AQP"}},
        {{"Foo.AQP", ".AQP", "Foo.AQP"}},
        {{"", ".AQP", ""}, {"Pool_1.AQP", ".AQP", "Pool_2.AQP"}},
        {{"Drifter_3.0.DNA", ".DNA", "Drifter_4.0.DNA"}},
        {{"Pool_12.AQP", ".AQP", "Pool_12.AQP"}},
        {{"Pool_000003.AQP", ".AQP", "Pool_000003.AQP"}},  // six digits: held at the top
        {{"pool_1.aqp", "aqp", "pool_2.aqp"}},
        {{"Pool_1.AQP", "", "Pool_2.AQP."}},
    };
    for (const auto& run : runs) {
        aqtest::Session f;
        for (auto [name, ext, want] : run)
            EXPECT_EQ(aq::nextNumberedName(f.app, "", name, ext), want) << name << " " << ext;
    }
}

TEST(FileNames, DialogFiltersAndSuggestions) {
    EXPECT_EQ(aq::fileDialogFilter("txt", "x"),
              "All Files (*.*)|*.*|Text Files (*.txt)|*.txt|Batch Files (*.bat)|*.bat");
    EXPECT_EQ(aq::fileDialogFilter("", "x"), "All Files (*.*)|*.*|Text Files (*.txt)|*.txt");
    EXPECT_EQ(aq::fileDialogFilter(".AQP", "Pool Files"),
              "All Files (*.*)|*.*|Pool Files (*.aqp)|*.aqp|Text Files (*.txt)|*.txt");
    aqtest::Session f;
    const auto& dir = f.dir;
    f.app.programFolder = dir.path();
    std::string data = dir.file("data");
    // Empty arguments fall back on the dialog's own start folder: the program's folder.
    f.ui.file("open", "", "", dir.path() + "|||")
        .file("save", "Save As", dir.file("Foo.aqp"), data + "|Foo.aqp|aqp|Pool Files")
        .file("open", "Pick", "", data + "|Pool_1.AQP|dna|Drifter Files")
        .file("open", "", "", dir.path() + "|||")
        .file("save", "", "", dir.path() + "|x.dna|dna|");
    EXPECT_EQ(aq::locateSourceFile(f.app, "", "", "", "", ""), "");
    EXPECT_EQ(aq::locateDestFile(f.app, data, "Foo", ".AQP", "Pool Files", "Save As"), dir.file("Foo.aqp"));
    EXPECT_EQ(aq::locateSourceFile(f.app, data, "Pool_1.AQP", "DNA", "Drifter Files", "Pick"), "");
    // A title or folder given once is not kept for the next call.
    EXPECT_EQ(aq::locateSourceFile(f.app, "", "", "", "", ""), "");
    EXPECT_EQ(aq::locateDestFile(f.app, "", "x", "DNA", "", ""), "");
    EXPECT_SCRIPT_DONE(f.ui);
}

TEST(FileNames, SaveDialogMakesItsFolderOrSaysWhyNot) {
    aqtest::Session f;
    std::string folder = f.dir.file("new/deeper");
    f.ui.file("save", "Save", "", folder + "|x.dna|dna|DNA");
    EXPECT_EQ(aq::locateDestFile(f.app, folder, "x", "dna", "DNA", "Save"), "");
    EXPECT_TRUE(std::filesystem::is_directory(folder));
    // The open dialog makes no folder.
    std::string other = f.dir.file("other");
    f.ui.file("open", "Open", "", other + "|||");
    aq::locateSourceFile(f.app, other, "", "", "", "Open");
    EXPECT_FALSE(std::filesystem::exists(other));
    EXPECT_SCRIPT_DONE(f.ui);
    aqtest::Session g;
    aqtest::writeBytes(g.dir.file("plain"), "x");
    std::string blocked = g.dir.file("plain/sub");
    std::error_code ec;
    std::filesystem::create_directories(blocked, ec);
    g.ui.message(ec.message(), "Aquarium File Manager");
    EXPECT_EQ(aq::locateDestFile(g.app, blocked, "Pool_1", "aqp", "Pools", "Save"), "Pool_1.aqp");
    EXPECT_SCRIPT_DONE(g.ui);
}

}  // namespace
