// Path splitting and joining (the program's backslash forms and this system's "/" forms),
// names from the clock, unique names, numbered series and the two file dialogs.
#include <gtest/gtest.h>

#include <filesystem>

#include "base/Paths.h"
#include "files/FileNames.h"
#include "support/ScriptedSession.h"

namespace {

using Fixture = aqtest::Session;

TEST(Paths, JoinPath) {
    EXPECT_EQ(aq::joinPath("C:", "x") + "|" + aq::joinPath("C:\\", "x") + "|" + aq::joinPath("/home/aq", "aqfm.ini") +
                  "|" + aq::joinPath("/home/aq/", "x.dna"),
              "C:x|C:\\\\x|/home/aq/aqfm.ini|/home/aq/x.dna");
}

TEST(Paths, SplitPathFolderAndFile) {
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
        {"", "", ""}};
    for (auto [whole, folder, file] : cases) {
        std::string f = "junk", n = "junk";
        aq::SplitPath(whole, f, n);
        EXPECT_EQ(std::tuple(f, n, aq::folderOfPath(whole), aq::fileNameOfPath(whole)),
                  std::tuple(folder, file, folder, file))
            << whole;
    }
}

TEST(Paths, DriveOfPath) {
    const std::pair<const char*, const char*> cases[] = {{"\\\\host\\share\\x", "\\\\host"},
                                                         {"C:\\x", "C:"},
                                                         {"x", ""},
                                                         {"//host/share/x", "//host"},
                                                         {"\\\\host", ""},
                                                         {"/home/aq", "/"},
                                                         {"/home/a:b/x", "/"}};
    for (auto [path, drive] : cases) EXPECT_EQ(aq::driveOfPath(path), drive) << path;
}

TEST(FileNames, NowFileNameHoldsDateAndTimeWithoutColons) {
    Fixture f;
    f.clock.when = {2026, 3, 7, 9, 5, 4};
    EXPECT_EQ(aq::nowFileName(f.app), "2026-03-07 09'05'04");
}

TEST(FileNames, UniqueFileNameAlwaysNumbers) {
    aqtest::TempDir dir;
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
        Fixture f;
        for (auto [name, ext, want] : run)
            EXPECT_EQ(aq::nextNumberedName(f.app, "", name, ext), want) << name << " " << ext;
    }
}

TEST(FileNames, DialogFilters) {
    EXPECT_EQ(aq::fileDialogFilter("txt", "x"),
              "All Files (*.*)|*.*|Text Files (*.txt)|*.txt|Batch Files (*.bat)|*.bat");
    EXPECT_EQ(aq::fileDialogFilter("", "x"), "All Files (*.*)|*.*|Text Files (*.txt)|*.txt");
    EXPECT_EQ(aq::fileDialogFilter(".AQP", "Pool Files"),
              "All Files (*.*)|*.*|Pool Files (*.aqp)|*.aqp|Text Files (*.txt)|*.txt");
}

TEST(FileNames, DialogsSuggestAndRememberTheirFolder) {
    Fixture f;
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

TEST(FileNames, SaveDialogMakesItsFolderEvenWhenCancelled) {
    Fixture f;
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
}

TEST(FileNames, AFolderThatCannotBeMadeIsReportedAndTheNameReturned) {
    Fixture f;
    aqtest::writeBytes(f.dir.file("plain"), "x");
    std::string folder = f.dir.file("plain/sub");
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    f.ui.message(ec.message(), "Aquarium File Manager");
    EXPECT_EQ(aq::locateDestFile(f.app, folder, "Pool_1", "aqp", "Pools", "Save"), "Pool_1.aqp");
    EXPECT_SCRIPT_DONE(f.ui);
}

}  // namespace
