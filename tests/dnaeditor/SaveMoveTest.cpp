// Saving, moving and deleting drifter files: every question, word for word, and the reports.
#include <gtest/gtest.h>

#include <filesystem>

#include "base/FileIo.h"
#include "dnaeditor/DnaFixture.h"

namespace {

using aq::Answer;
namespace fs = std::filesystem;

const char* const kDirectoryConflict =
    "Loaded drifter archive and currently selected drifter archive are the same.  You will be prompted for a "
    "location to move the first file to.  If you answer NO to the following question, the path chosen for that file "
    "will be used on any other selected files being moved at this time.\r\n\r\nWould you like to be prompted for a "
    "destination location for each file being moved?";
const char* const kEntriesOnly =
    "You are about to delete the 2 selected entries from the list of drifter files. The associated drifter files "
    "will also be deleted or moved at this time if you answer NO to the following question.  Answering YES will "
    "cause only the entries to in the list to be deleted, along with any changes made to the drifters in the "
    "selected entries.\r\n\r\nWould you like only the entries to be deleted and the source files to be left "
    "alone at this time?";
const char* const kFilesToo =
    "You have chosen to delete the 2 drifter files associated with the selected entries. These drifter files can "
    "be moved to another archive at this time if you answer YES to the following question. If you answer NO, "
    "the pool files will simply be deleted.\r\n\r\nMove the selected drifter files rather than delete them?";
const char* const kChangesLost =
    "Changes to 2 drifters will be lost.\r\n\r\nAre you sure that you want to delete the selected entries and their "
    "associated source files?";

std::string moveQuestion(int n) {
    return "You are about to move the " + std::to_string(n) +
           " selected drifter files to a new location.  You can either choose to keep them listed for the purpose of "
           "editing and saving the edited copy to their old locations later, or have them deleted from the list "
           "after the files are moved.  Would you like the selcted files to be removed from the list after being "
           "moved?";
}

// A loaded folder "src" of files a.dna, b.dna, ... with genes 1, 2, ...; "dst" beside it.
struct Folder : aqtest::DnaFixture {
    explicit Folder(int files) {
        fs::create_directories(path("src"));
        fs::create_directories(path("dst"));
        for (int i = 0; i < files; ++i) writeDna("src/" + name(i), aqtest::genome(i + 1));
        app.comboDrifterPath = path("src");
        aq::initiateLoadDrifterArchive(app);
        app.comboDrifterPath = path("dst");
    }
    static std::string name(int i) { return std::string(1, static_cast<char>('a' + i)) + ".dna"; }
    std::string src(int i) const { return path("src/" + name(i)); }
    void edit(std::initializer_list<int> files) {
        for (int i : files) {
            app.dna.dnaGenes[static_cast<std::size_t>(i)][0] = 200;
            app.dna.dnaChanged[static_cast<std::size_t>(i)] = 1;
        }
    }
    char firstByte(const std::string& p) const { return aqtest::readBytes(p)[0]; }
    // The first byte of each file, 0 for a file that isn't there.
    std::string firstBytes(std::initializer_list<std::string> names) const {
        std::string out;
        for (const std::string& name : names) out += firstByte(path(name));
        return out;
    }
    void askChanged(int i, Answer a) {
        ui.ask("yesno", src(i) + " has changed.\r\n\r\nSave file now?", "Save Changed Drifter", a);
    }
    void askAll(Answer a) { ui.ask("yesno", "Save changes to all 3 altered drifters?", "Save All Changes", a); }
    // Moves the ticked files as the Selection menu does and checks that every scripted prompt came.
    void move(bool askWhere = true) {
        aq::moveSelectedDrifterFiles(app, askWhere, true, true);
        EXPECT_TRUE(ui.done()) << ui.report();
    }
};

TEST(SaveChangedDrifterFiles, AsksPerFileOrInBulkAndSelectedOnesAreWritten) {
    // Saves, then checks the questions, the first byte of each file and the change marks.
    auto save = [](Folder& f, bool closing, const std::string& firstBytes, std::vector<std::uint8_t> changed) {
        aq::saveChangedDrifterFiles(f.app, closing, false);
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
        EXPECT_EQ(f.firstBytes({"src/a.dna", "src/b.dna", "src/c.dna"}), firstBytes);
        EXPECT_EQ(f.app.dna.dnaChanged, changed);
    };
    Folder two(3), three(3), bulk(3), giveUp(3), none(3);
    // Two changed: no bulk question, one question each.
    two.edit({0, 2});
    two.askChanged(0, Answer::Yes);
    two.askChanged(2, Answer::No);
    two.ui.message("Saved 1 file. ", "Done");
    save(two, false, "\xc8\x02\x03", {0, 0, 1});
    // Three changed: No, then No to giving up, then each file; all No.
    three.edit({0, 1, 2});
    three.askAll(Answer::No);
    three.ui.ask("yesno", "Do you wish not to save any changes at this time?", "Don't Save Any Changes", Answer::No);
    for (int i = 0; i < 3; ++i) three.askChanged(i, Answer::No);
    three.ui.message("No files saved.", "Done");
    save(three, false, "\x01\x02\x03", {1, 1, 1});
    // Closing: Yes to the bulk question saves all without asking.
    bulk.edit({0, 1, 2});
    bulk.askAll(Answer::Yes);
    bulk.ui.message("Saved 3 files. ", "Done");
    save(bulk, true, "\xc8\xc8\xc8", {0, 0, 0});
    // Closing and giving up: the warning, and nothing is written.
    giveUp.edit({0, 1, 2});
    giveUp.askAll(Answer::No);
    giveUp.ui.ask("yesno",
                  "Do you wish not to save any of the 3 changed drifter files?\r\n\r\nWARNING: If you answer YES, "
                  "all changes to the loaded drifter files will be lost!",
                  "Don't Save Any Changes", Answer::Yes);
    save(giveUp, true, "\x01\x02\x03", {1, 1, 1});
    // Nothing changed, or nothing loaded: not a word.
    save(none, false, "\x01\x02\x03", {0, 0, 0});
    none.app.dnaLoaded = false;
    none.edit({0});
    save(none, true, "\x01\x02\x03", {1, 0, 0});
    // Selected files are written, changed or not.
    Folder f(4);
    f.tick({1});
    f.ui.ask("yesno", f.src(1) + "\r\n\r\nSave file now?", "Save Drifter", Answer::Yes)
        .message("Saved 1 file. ", "Done");
    aq::saveChangedDrifterFiles(f.app, false, true);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();

    f.tick({0, 2});
    f.edit({3});  // changed but not ticked: left out
    f.ui.ask("yesno", "Save all 3 selected drifters?", "Save Selected Drifters", Answer::Yes)
        .message("Saved 3 files. ", "Done");
    aq::saveChangedDrifterFiles(f.app, false, true);
    f.ui.ask("yesno", "Save all 3 selected drifters?", "Save Selected Drifters", Answer::No)
        .ask("yesno", "Do you wish not to save any drifters at this time?", "Don't Save Any Changes", Answer::Yes);
    aq::saveChangedDrifterFiles(f.app, false, true);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
}

TEST(MoveDrifterFiles, MovesReportsCancelledDialogsAndNameConflicts) {
    Folder f(3);
    f.tick({0, 2});
    f.edit({2});
    f.ui.ask("yesnocancel", moveQuestion(2), "Moving Drifter Files", Answer::Yes)
        .ask("yesno",
             f.src(2) + " has changed.\r\n\r\nChanges to this drifter will be lost if not saved now.  Save file now?",
             "File Has Changed", Answer::Yes)
        .message("Moved 2 files. ", "Done");
    f.run(aq::MoveDrifterFilesCommand);
    EXPECT_EQ(f.firstBytes({"src/a.dna", "dst/a.dna", "dst/c.dna"}), std::string("\0\x01\xc8", 3));  // c saved first
    // Three changed files or more: one question for all of them.
    Folder h(3);
    h.tick({0, 1, 2});
    h.edit({0, 1, 2});
    h.ui.ask("yesnocancel", moveQuestion(3), "Moving Drifter Files", Answer::Yes);
    h.askAll(Answer::Yes);
    h.ui.message("Moved 3 files. ", "Done");
    h.run(aq::MoveDrifterFilesCommand);
    EXPECT_EQ(h.firstBytes({"dst/a.dna", "dst/b.dna", "dst/c.dna"}), "\xc8\xc8\xc8");

    // Keeping the entries listed: the changed one keeps its change, and the moved file is the old one.
    Folder g(2);
    g.tick({1});
    g.edit({1});
    g.ui.ask("yesno",
             g.src(1) +
                 " has changed.\r\n\r\nChanges to this drifter will not be reflected in the moved file unless "
                 "saved now.\r\n\r\nSave changes to this file now?",
             "File Has Changed", Answer::No)
        .message("Moved 1 file. ", "Done");
    g.move(false);
    EXPECT_EQ(std::pair(g.app.dna.dnaChanged[1], g.firstByte(g.path("dst/b.dna"))), std::pair(std::uint8_t{1}, '\x02'));
    Folder c(3);
    c.app.comboDrifterPath = c.path("src/");
    c.tick({0, 1, 2});
    aqtest::writeBytes(c.path("dst/b.dna"), "old");
    aqtest::writeBytes(c.path("dst/c.dna"), "old");
    auto exists = [&](const char* name, Answer a) {
        c.ui.ask("yesnocancel", c.path(name) + " already exists.  Overwrite existing file?", "Filename Conflict", a);
    };
    c.ui.ask("yesnocancel", kDirectoryConflict, "Directory Conflict", Answer::Yes)
        .file("save", "Move a.dna to:", "")  // cancelled: a.dna stays
        .file("save", "Move b.dna to:", c.path("dst/b.dna"));
    exists("dst/b.dna", Answer::No);
    c.ui.file("save", "Move b.dna to:", c.path("dst/b.dna"), c.path("dst") + "|b.dna|dna|Aquarium's Drifter DNA files");
    exists("dst/b.dna", Answer::Yes);
    c.ui.file("save", "Move c.dna to:", c.path("dst/c.dna"));
    exists("dst/c.dna", Answer::Cancel);
    c.ui.message("Moved 1 file. ", "Done");
    c.move();
    EXPECT_EQ(c.firstBytes({"src/a.dna", "src/b.dna", "src/c.dna", "dst/b.dna"}), std::string("\x01\0\x03\x02", 4));
    EXPECT_EQ(c.app.dna.dnaCount, 0);  // the entries go all the same
}

TEST(MoveDrifterFiles, SameFolderMissingSourcesNothingLoadedAndFailedCopies) {
    Folder f(3);
    f.app.comboDrifterPath = f.path("src");
    f.tick({0, 1, 2});
    f.ui.ask("yesnocancel", kDirectoryConflict, "Directory Conflict", Answer::No)
        .file("save", "Move a.dna to:", f.path("dst/first.dna"),
              f.path("src") + "|a.dna|dna|Aquarium's Drifter DNA files")
        .message("Moved 3 files. ", "Done");
    f.move();
    EXPECT_EQ(f.firstBytes({"dst/first.dna", "dst/b.dna", "dst/c.dna", "src/a.dna"}), std::string("\x01\x02\x03\0", 4));
    EXPECT_EQ(std::pair(f.app.dnaLoaded, f.app.lstSpeciateDrifters.count()), std::pair(false, 0));  // every entry went
    // The loaded folder named another way is the same folder: the file is neither copied onto
    // itself nor deleted.
    for (const char* other : {"link", "src/."}) {
        Folder s(1);
        fs::create_directory_symlink("src", s.path("link"));
        s.tick({0});
        s.app.comboDrifterPath = s.path(other);
        s.ui.ask("yesnocancel", s.path(other) + "/a.dna already exists.  Overwrite existing file?", "Filename Conflict",
                 Answer::Yes)
            .message("No files moved, deleted, or copied.", "Done");
        s.move();
        EXPECT_EQ(s.firstByte(s.src(0)), '\x01') << other;
    }
    Folder m(3);
    m.tick({0, 1});
    fs::remove(m.src(1));
    m.ui.message("Moved 1 file. One of the selected source files was not found. ", "Done");
    m.move();

    Folder none(2);  // nothing ticked
    none.ui.ask("yesnocancel", moveQuestion(0), "Moving Drifter Files", Answer::Yes)
        .message("None of the selected source files could be found. ", "Done");
    none.run(aq::MoveDrifterFilesCommand);
    EXPECT_EQ(none.app.dna.dnaCount, 2);

    Folder empty(0);
    empty.ui.script.clear();
    empty.ui.failures.clear();
    empty.ui.message("No Drifter Files Loaded");
    empty.move();
    const std::string failTitle = "Aquarium File Manager - Delete or Move Selected Drifter Files";
    // The error, the bytes written before the disk fills up (or -1), whether the target folder refuses files.
    const std::tuple<const char*, long long, bool> cases[] = {{"Error #28: No space left on device", 0, false},
                                                              {"Error #28: No space left on device", 999, false},
                                                              {"Error #13: Permission denied", -1, true}};
    for (auto [error, failAfter, refuse] : cases) {
        SCOPED_TRACE(error);
        Folder f(2);
        f.tick({0, 1});
        aqtest::writeBytes(f.path("dst/b.dna"), "old");
        f.ui.message(error, failTitle)
            .ask("yesnocancel", f.path("dst/b.dna") + " already exists.  Overwrite existing file?", "Filename Conflict",
                 Answer::Yes)
            .message(error, failTitle)
            .message("Encountered 2 errors. ", "Done");
        aq::setWriteFailureAfter(failAfter);
        aq::setRefusingFolder(refuse ? f.path("dst") : "");
        f.move();
        aq::setWriteFailureAfter(-1);
        aq::setRefusingFolder("");
        EXPECT_EQ(f.firstBytes({"src/a.dna", "src/b.dna", "dst/a.dna"}) + aqtest::readBytes(f.path("dst/b.dna")),
                  std::string("\x01\x02\0old", 6));
    }
}

TEST(DeleteDrifterFiles, EntriesOnlyOrFilesToo) {
    Folder only(3), files(3), none(2);
    only.tick({0, 2});
    only.ui.ask("yesnocancel", kEntriesOnly, "Delete Entries Only", Answer::Yes)
        .message("No files moved, deleted, or copied.", "Done");
    only.run(aq::deleteSelectedDrifterSpecies);
    EXPECT_EQ(only.lines(), (std::vector<std::string>{"b.dna"}));

    files.tick({0, 2});
    files.edit({0, 2});
    for (Answer sure : {Answer::No, Answer::Yes}) {
        if (sure == Answer::Yes) fs::remove(files.src(2));  // gone behind the program's back
        files.ui.ask("yesnocancel", kEntriesOnly, "Delete Entries Only", Answer::No)
            .ask("yesnocancel", kFilesToo, aq::kAppTitle, Answer::No)
            .ask("yesno", kChangesLost, "Warning!", sure);
        if (sure == Answer::Yes) files.ui.message("Deleted 1 file. ", "Done");
        files.run(aq::deleteSelectedDrifterSpecies);
    }

    none.ui.message("Nothing Selected");
    none.run(aq::deleteSelectedDrifterSpecies);
}

}  // namespace
