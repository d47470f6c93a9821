// The archive tab's two commands walked through their dialogues with real files.
#include <gtest/gtest.h>

#include <filesystem>

#include "archive/ArchiveChecks.h"
#include "archive/ArchiveHelp.h"
#include "archive/ArchiveTransfers.h"
#include "support/ScriptedSession.h"

namespace {

namespace fs = std::filesystem;
using aq::Answer;

// The simulator's folder and the two archive folders; automatic names from the clock.
struct Fixture : aqtest::Session {
    std::string sim = dir.file("sim"), drifters = dir.file("drifters"), pools = dir.file("pools");
    Fixture() {
        for (const auto& d : {sim, drifters, pools}) fs::create_directories(d);
        app.comboAquariumPath = sim;
        app.comboDrifterPath = drifters;
        app.comboPoolPath = pools;
        app.archive.chkDeleteOriginal = 0;
        app.archive.chkAutoName = app.archive.chkNowName = 1;
        clock.when = {2026, 11, 23, 10, 4, 5};
    }
    void only(std::initializer_list<int> entries) {
        for (int i = 0; i < 8; ++i) app.archive.lstArchive.setChecked(i, false);
        for (int i : entries) app.archive.lstArchive.setChecked(i, true);
    }
    void put(const std::string& folder, const std::string& name, const std::string& bytes) {
        aqtest::writeBytes(folder + "/" + name, bytes);
    }
    std::string get(const std::string& folder, const std::string& name) {
        return aqtest::readBytes(folder + "/" + name);
    }
    bool has(const std::string& folder, const std::string& name) { return fs::exists(folder + "/" + name); }
    void run(void (*command)(aq::App&)) {
        command(app);
        EXPECT_TRUE(ui.done()) << ui.report();
        EXPECT_FALSE(app.uiBusy);
    }
};

const std::string kNow = "2026-11-23 10'04'05", kConflict = " already exists.  Overwrite existing file?";

TEST(ArchiveChecks, HalvesRuleLiveNamesAndTheHelpLine) {
    Fixture f;
    aq::CheckList& list = f.app.archive.lstArchive;
    f.only({});
    aq::cmdLstArchiveAll(f.app);
    EXPECT_EQ(list.checkedCount(), 8);
    aq::cmdLstArchiveAll(f.app);
    EXPECT_EQ(list.checkedCount(), 0);
    f.only({0, 1, 4, 5});  // four of eight: at most half, so all get checked
    list.setCurrentIndex(6);
    aq::cmdLstArchiveAll(f.app);
    EXPECT_EQ(list.checkedCount(), 8);
    EXPECT_EQ(list.currentIndex(), 6);
    f.only({1, 2, 4, 5, 6});
    aq::cmdLstArchiveAllDrifter(f.app);  // two of four drifters: all checked
    aq::cmdLstArchiveAllPool(f.app);     // three of four pools: cleared
    for (int i = 0; i < 8; ++i) EXPECT_EQ(list.checked(i), i < 4) << i;
    EXPECT_FALSE(f.app.uiBusy);

    EXPECT_EQ(aq::archiveLiveName(list, 2), "Drifter_3.DNA");
    EXPECT_EQ(aq::archiveLiveName(list, 4), "Pool_1.AQP");
    aq::ArchiveOptions opt;
    opt.chkDeleteOriginal = 2;  // the third state moves too
    EXPECT_EQ(aq::copyToArchiveCaption(opt), "Move Selected Files to Archive");
    // The program's error numbers: a missing source, a missing folder, no right, a full disk.
    const std::pair<std::errc, int> numbers[] = {
        {std::errc::permission_denied, 70},     {std::errc::operation_not_permitted, 70},
        {std::errc::read_only_file_system, 70}, {std::errc::no_space_on_device, 61},
        {std::errc::not_a_directory, 76},       {std::errc::io_error, 75}};
    EXPECT_EQ(aq::errorNumber(std::make_error_code(std::errc::no_such_file_or_directory), false), 53);
    for (auto [e, number] : numbers) EXPECT_EQ(aq::errorNumber(std::make_error_code(e), true), number) << number;
    // The help line follows the pointer.
    Fixture g;
    aq::archiveHelpMove(g.app, "chkNowName");
    EXPECT_EQ(g.app.archive.lblArchiveInstruct,
              "When you click the Move or Copy files to Archive button, the automatically generated filenames will be "
              "based on the current time and date if there is a checkmark in the Using Date and Time checkbox.");
    aq::archiveHelpMove(g.app, "cmdReplaceFromArchive");
    EXPECT_NE(g.app.archive.lblArchiveInstruct.find("destination filenames.\r\n\r\nThe copied files"),
              std::string::npos);
}

TEST(CopyToArchive, NothingCheckedCancelledAutoNamesAndOverwrites) {
    Fixture f;
    f.only({});
    f.ui.message("None of the selected source files could be found. ", "Done");
    f.run(aq::cmdCopyToArchive);

    f.only({0, 4});
    f.app.archive.chkAutoName = 0;
    f.put(f.sim, "Drifter_1.DNA", "d1");
    f.put(f.sim, "Pool_1.AQP", "p1");
    f.ui.file("save", "Copy Drifter_1.DNA to:", "",
              f.drifters + "|Drifter_" + kNow + " #1.DNA|dna|Aquarium's Drifter DNA files")
        .file("save", "Copy Pool_1.AQP to:", "", f.pools + "|Pool_" + kNow + " #1.AQP|aqp|Aquarium's Pool file")
        .message("No files moved or copied.", "Done");
    f.run(aq::cmdCopyToArchive);
    EXPECT_TRUE(f.has(f.sim, "Drifter_1.DNA"));
    Fixture a;
    a.only({0, 1});
    a.put(a.sim, "Drifter_1.DNA", "one");
    a.put(a.sim, "drifter_2.dna", "two");  // any capitals on disk
    a.app.comboAquariumPathItems = a.app.comboDrifterPathItems = {"/a", "/b"};
    a.ui.message("Copied 2 files. ", "Done");
    a.run(aq::cmdCopyToArchive);
    EXPECT_EQ(a.get(a.drifters, "Drifter_" + kNow + " #1.DNA"), "one");
    EXPECT_EQ(a.get(a.drifters, "Drifter_" + kNow + " #2.DNA"), "two");
    // The boxes of the folders used keep them, last in their lists.
    EXPECT_EQ(a.app.comboDrifterPathItems, (std::vector<std::string>{"/a", "/b", a.drifters}));
    EXPECT_EQ(a.app.comboAquariumPathItems, (std::vector<std::string>{"/a", "/b", a.sim}));
    EXPECT_TRUE(a.app.comboPoolPathItems.empty());

    // Within the same clock text the names are taken: each answer of the question.
    a.put(a.sim, "Drifter_1.DNA", "one again");
    const std::string first = a.drifters + "/Drifter_" + kNow + " #1.DNA";
    const std::string second = a.drifters + "/Drifter_" + kNow + " #2.DNA";
    a.ui.ask("yesnocancel", first + kConflict, "Filename Conflict", Answer::Yes)
        .ask("yesnocancel", second + kConflict, "Filename Conflict", Answer::No)
        .file("save", "Move Drifter_2.DNA to:", a.drifters + "/other.DNA",
              a.drifters + "|Drifter_" + kNow + " #2.DNA|dna|Aquarium's Drifter DNA files")
        .message("Copied 2 files. ", "Done");
    a.run(aq::cmdCopyToArchive);
    EXPECT_EQ(a.get(a.drifters, "Drifter_" + kNow + " #1.DNA"), "one again");
    EXPECT_EQ(a.get(a.drifters, "other.DNA"), "two");

    a.ui.ask("yesnocancel", first + kConflict, "Filename Conflict", Answer::Cancel)
        .ask("yesnocancel", second + kConflict, "Filename Conflict", Answer::No)
        .file("save", "Move Drifter_2.DNA to:", a.drifters + "/other.DNA", "*")
        .ask("yesnocancel", a.drifters + "/other.DNA" + kConflict, "Filename Conflict", Answer::Cancel)
        .message("No files moved or copied.", "Done");
    a.run(aq::cmdCopyToArchive);
}

TEST(CopyToArchive, NumberedNamesThirdStateOwnFolderAndFailures) {
    Fixture f;
    f.only({2});
    f.app.archive.chkNowName = 0;
    f.put(f.sim, "Drifter_3.DNA", "three");
    f.ui.message("Copied 1 file. ", "Done").message("Copied 1 file. ", "Done");
    aq::cmdCopyToArchive(f.app);
    f.run(aq::cmdCopyToArchive);
    EXPECT_EQ(f.get(f.drifters, "Drifter_3.0.DNA"), "three");
    EXPECT_EQ(f.get(f.drifters, "Drifter_3.1.DNA"), "three");
    EXPECT_EQ(std::distance(fs::directory_iterator(f.drifters), {}), 2);  // no temporary file is left behind
    // The third state moves, and counts what is missing.
    Fixture g;
    g.only({0, 1, 4, 5});
    g.app.archive.chkDeleteOriginal = 2;
    g.app.archive.chkAutoName = 0;
    g.put(g.sim, "Drifter_1.DNA", "d1");
    g.put(g.sim, "Pool_1.AQP", "p1");
    g.ui.file("save", "Move Drifter_1.DNA to:", g.drifters + "/a.DNA", "*")
        .file("save", "Move Drifter_2.DNA to:", g.drifters + "/b.DNA", "*")
        .file("save", "Move Pool_1.AQP to:", g.pools + "/a.AQP", "*")
        .file("save", "Move Pool_2.AQP to:", g.pools + "/b.AQP", "*")
        .message("Moved 2 files. Could not find 2 of the selected source files. ", "Done");
    g.run(aq::cmdCopyToArchive);
    EXPECT_FALSE(g.has(g.sim, "Drifter_1.DNA"));
    EXPECT_FALSE(g.has(g.sim, "Pool_1.AQP"));
    EXPECT_EQ(g.get(g.pools, "a.AQP"), "p1");

    g.only({0, 3});
    g.put(g.sim, "Drifter_4.DNA", "d4");
    g.app.archive.chkAutoName = 1;
    g.ui.message("Moved 1 file. One of the selected source files was not found. ", "Done");
    g.run(aq::cmdCopyToArchive);
#ifndef _WIN32  // the path is built with "/", where Windows joins with "\\"
    // Into the simulator's own folder, by its name or through a link: nothing is copied or deleted.
    Fixture o;
    o.only({4});
    o.app.archive.chkAutoName = 0;
    o.app.archive.chkDeleteOriginal = 1;
    o.put(o.sim, "Pool_1.AQP", "p1");
    fs::create_directory_symlink(o.sim, o.dir.file("link"));
    for (const std::string& live : {o.sim + "/Pool_1.AQP", o.dir.file("link") + "/Pool_1.AQP"}) {
        o.ui.file("save", "Move Pool_1.AQP to:", live, "*")
            .ask("yesnocancel", live + kConflict, "Filename Conflict", Answer::Yes)
            .message("No files moved or copied.", "Done");
        o.run(aq::cmdCopyToArchive);
        EXPECT_EQ(o.get(o.sim, "Pool_1.AQP"), "p1");
    }
#endif
    // A failed copy is shown and the command goes on.
    Fixture h;
    h.only({0, 4});
    h.app.comboDrifterPath = h.dir.file("no/such/folder");
    h.put(h.sim, "Drifter_1.DNA", "d1");
    h.put(h.sim, "Pool_1.AQP", "p1");
    h.ui.message("Error #76: No such file or directory", "Aquarium File Manager - Copy to Archive")
        .message("Copied 1 file. Encountered 1 error. ", "Done");
    h.run(aq::cmdCopyToArchive);
    EXPECT_TRUE(h.has(h.pools, "Pool_" + kNow + " #1.AQP"));
}

TEST(ReplaceFromArchive, WithoutBackupAndTheFileNotFoundLoop) {
    Fixture f;
    f.only({4, 5, 6});
    f.put(f.pools, "Pool_1.AQP", "archived 1");
    f.put(f.pools, "Pool_2.AQP", "archived 2");
    f.put(f.sim, "pool_1.aqp", "live 1");
    f.put(f.sim, "Pool_2.AQP", "live 2");
    const std::string d = "|aqp|Aquarium's Pool file", q = "\r\n\r\nOverwrite this file?";
    f.ui.file("open", "Copy which file over Pool_1.AQP?", f.pools + "/Pool_1.AQP", f.pools + "|" + d)
        .ask("yesno", f.sim + "/pool_1.aqp" + q, "Overwite Existing File", Answer::Yes)
        .file("open", "Copy which file over Pool_2.AQP?", f.pools + "/Pool_2.AQP", f.pools + "|Pool_2.AQP" + d)
        .ask("yesno", f.sim + "/Pool_2.AQP" + q, "Overwite Existing File", Answer::No)
        .file("open", "Copy which file over Pool_3.AQP?", f.pools + "/Pool_2.AQP", f.pools + "|Pool_3.AQP" + d)
        .message("Copied 2 files. ", "Done");
    f.run(aq::cmdReplaceFromArchive);
    EXPECT_EQ(f.get(f.sim, "pool_1.aqp"), "archived 1");
    EXPECT_FALSE(f.has(f.sim, "Pool_1.AQP"));  // the file on disk, not a second one in other capitals
    EXPECT_EQ(f.get(f.sim, "Pool_2.AQP"), "live 2");
    EXPECT_EQ(f.get(f.sim, "Pool_3.AQP"), "archived 2");
    EXPECT_EQ(f.get(f.pools, "Pool_1.AQP"), "archived 1");  // the archive keeps its files
    Fixture g;
    g.only({0});
    g.put(g.drifters, "real.DNA", "r");
    const std::string ghost = g.drifters + "/ghost.DNA", ghostTitle = "Copy which file over Drifter_1.DNA?";
    const std::string nf = ghost + " could not be found.  Please select a different source file.";
    g.ui.file("open", ghostTitle, ghost, "*")
        .ask("okcancel", nf, "File Not Found", Answer::Ok)
        .file("open", ghostTitle, ghost, g.drifters + "|ghost.DNA|dna|Aquarium's Drifter DNA files")
        .ask("okcancel", nf, "File Not Found", Answer::Cancel)
        .message("Nothing copied", "Done");
    g.run(aq::cmdReplaceFromArchive);

    g.ui.file("open", ghostTitle, ghost, "*")
        .ask("okcancel", nf, "File Not Found", Answer::Ok)
        .file("open", ghostTitle, g.drifters + "/real.DNA", "*")
        .message("Copied 1 file. ", "Done");
    g.run(aq::cmdReplaceFromArchive);
    EXPECT_EQ(g.get(g.sim, "Drifter_1.DNA"), "r");
}

TEST(ReplaceFromArchive, AutomaticBackupAndSuggestions) {
    Fixture f;
    f.only({0, 1});
    f.app.archive.chkAutoBackup = 1;
    f.put(f.drifters, "keep.DNA", "archived");
    f.put(f.sim, "Drifter_1.DNA", "live 1");
    f.ui.file("open", "Copy which file over Drifter_1.DNA?", f.drifters + "/keep.DNA", "*")
        .file("open", "Copy which file over Drifter_2.DNA?", f.drifters + "/keep.DNA", "*")
        .message("Copied 2 files. ", "Done");
    f.run(aq::cmdReplaceFromArchive);
    EXPECT_EQ(f.get(f.drifters, "Drifter_1.0.DNA"), "live 1");
    EXPECT_FALSE(f.has(f.drifters, "Drifter_2.0.DNA"));  // no live file: nothing to back up
    EXPECT_EQ(f.get(f.sim, "Drifter_1.DNA"), "archived");
    EXPECT_EQ(f.get(f.sim, "Drifter_2.DNA"), "archived");
    EXPECT_TRUE(f.app.comboPoolPathItems.empty());  // no pool came back: its box is left alone
    // The suggestions follow the last choice.
    Fixture g;
    g.only({4, 5, 7});
    for (const char* n : {"Pool_1.AQP", "Pool_2.AQP", "Pool_3.AQP"}) g.put(g.pools, n, n);
    const std::string kind = "aqp|Aquarium's Pool file";
    g.ui.file("open", "Copy which file over Pool_1.AQP?", g.pools + "/Pool_1.AQP", g.pools + "||" + kind)
        .file("open", "Copy which file over Pool_2.AQP?", "", g.pools + "|Pool_2.AQP|" + kind)
        .file("open", "Copy which file over Pool_4.AQP?", g.pools + "/Pool_3.AQP", g.pools + "||" + kind)
        .message("Copied 2 files. ", "Done");
    g.run(aq::cmdReplaceFromArchive);
    EXPECT_EQ(g.get(g.sim, "Pool_4.AQP"), "Pool_3.AQP");
}

}  // namespace
