// Saving, moving and deleting drifter files: every question, word for word, and the reports.
#include <gtest/gtest.h>

#include <filesystem>

#include "dnaeditor/DnaFixture.h"
#include "base/FileIo.h"

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
    void askChanged(int i, Answer a) {
        ui.ask("yesno", src(i) + " has changed.\r\n\r\nSave file now?", "Save Changed Drifter", a);
    }
    void askAll(Answer a) { ui.ask("yesno", "Save changes to all 3 altered drifters?", "Save All Changes", a); }
};

TEST(SaveChangedDrifterFiles, AsksPerFileOrInBulk) {
    {  // Two changed: no bulk question, one question each.
        Folder f(3);
        f.edit({0, 2});
        f.askChanged(0, Answer::Yes);
        f.askChanged(2, Answer::No);
        f.ui.message("Saved 1 file. ", "Done");
        aq::saveChangedDrifterFiles(f.app, false, false);
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
        EXPECT_EQ(f.firstByte(f.src(0)), '\xc8');
        EXPECT_EQ(f.firstByte(f.src(2)), '\x03');
        EXPECT_EQ(f.app.dna.dnaChanged, (std::vector<std::uint8_t>{0, 0, 1}));
    }
    {  // Three changed: No, then No to giving up, then each file; all No.
        Folder f(3);
        f.edit({0, 1, 2});
        f.askAll(Answer::No);
        f.ui.ask("yesno", "Do you wish not to save any changes at this time?", "Don't Save Any Changes", Answer::No);
        for (int i = 0; i < 3; ++i) f.askChanged(i, Answer::No);
        f.ui.message("No files saved.", "Done");
        aq::saveChangedDrifterFiles(f.app, false, false);
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
    }
    {  // Closing: Yes to the bulk question saves all without asking.
        Folder f(3);
        f.edit({0, 1, 2});
        f.askAll(Answer::Yes);
        f.ui.message("Saved 3 files. ", "Done");
        aq::saveChangedDrifterFiles(f.app, true, false);
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
    }
    {  // Closing and giving up: the warning, and nothing is written.
        Folder f(3);
        f.edit({0, 1, 2});
        f.askAll(Answer::No);
        f.ui.ask("yesno",
                 "Do you wish not to save any of the 3 changed drifter files?\r\n\r\nWARNING: If you answer YES, all "
                 "changes to the loaded drifter files will be lost!",
                 "Don't Save Any Changes", Answer::Yes);
        aq::saveChangedDrifterFiles(f.app, true, false);
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
        EXPECT_EQ(f.firstByte(f.src(0)), '\x01');
    }
    {  // Nothing changed, or nothing loaded: not a word.
        Folder f(2);
        aq::saveChangedDrifterFiles(f.app, false, false);
        f.app.dnaLoaded = false;
        f.edit({0});
        aq::saveChangedDrifterFiles(f.app, true, false);
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
    }
}

TEST(SaveChangedDrifterFiles, SelectedFilesAreWrittenChangedOrNot) {
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
    EXPECT_EQ(f.app.dna.dnaChanged[3], 1);
}

TEST(MoveDrifterFiles, MovesToTheArchiveAndReports) {
    Folder f(3);
    f.tick({0, 2});
    f.edit({2});
    f.ui.ask("yesnocancel", moveQuestion(2), "Moving Drifter Files", Answer::Yes)
        .ask("yesno",
             f.src(2) + " has changed.\r\n\r\nChanges to this drifter will be lost if not saved now.  Save file now?",
             "File Has Changed", Answer::Yes)
        .message("Moved 2 files. ", "Done");
    aq::MoveDrifterFilesCommand(f.app);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    EXPECT_FALSE(fs::exists(f.src(0)));
    EXPECT_TRUE(fs::exists(f.path("dst/a.dna")));
    EXPECT_EQ(f.firstByte(f.path("dst/c.dna")), '\xc8');  // saved before the move
    EXPECT_EQ(f.lines(), (std::vector<std::string>{"b.dna"}));
    EXPECT_EQ(f.app.dna.dnaPaths, (std::vector<std::string>{f.src(1)}));
    EXPECT_EQ(f.app.dna.dnaCount, 1);
    EXPECT_FALSE(f.app.uiBusy);

    // Keeping the entries listed: the changed one keeps its old path and its change.
    Folder g(2);
    g.tick({1});
    g.edit({1});
    g.ui.ask("yesno",
             g.src(1) +
                 " has changed.\r\n\r\nChanges to this drifter will not be reflected in the moved file unless "
                 "saved now.\r\n\r\nSave changes to this file now?",
             "File Has Changed", Answer::No)
        .message("Moved 1 file. ", "Done");
    aq::moveSelectedDrifterFiles(g.app, false, true, true);
    EXPECT_TRUE(g.ui.done()) << g.ui.report();
    EXPECT_EQ(g.app.dna.dnaPaths, (std::vector<std::string>{g.src(0), g.src(1)}));
    EXPECT_EQ(g.app.dna.dnaChanged[1], 1);
    EXPECT_EQ(g.firstByte(g.path("dst/b.dna")), '\x02');
}

TEST(MoveDrifterFiles, SameFolderAsksWhereAndFollowsTheFirstChoice) {
    Folder f(3);
    f.app.comboDrifterPath = f.path("src");
    f.tick({0, 1, 2});
    f.ui.ask("yesnocancel", kDirectoryConflict, "Directory Conflict", Answer::No)
        .file("save", "Move a.dna to:", f.path("dst/first.dna"),
              f.path("src") + "|a.dna|dna|Aquarium's Drifter DNA files")
        .message("Moved 3 files. ", "Done");
    aq::moveSelectedDrifterFiles(f.app, true, true, true);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    for (const char* moved : {"dst/first.dna", "dst/b.dna", "dst/c.dna"}) EXPECT_TRUE(fs::exists(f.path(moved)));
    EXPECT_FALSE(f.app.dnaLoaded);  // every entry went
    EXPECT_EQ(f.app.lstSpeciateDrifters.count(), 0);
}

TEST(MoveDrifterFiles, CancelledDialogAndNameConflicts) {
    Folder f(3);
    f.app.comboDrifterPath = f.path("src/");
    f.tick({0, 1, 2});
    aqtest::writeBytes(f.path("dst/b.dna"), "old");
    aqtest::writeBytes(f.path("dst/c.dna"), "old");
    auto exists = [&](const char* name, Answer a) {
        f.ui.ask("yesnocancel", f.path(name) + " already exists.  Overwrite existing file?", "Filename Conflict", a);
    };
    f.ui.ask("yesnocancel", kDirectoryConflict, "Directory Conflict", Answer::Yes)
        .file("save", "Move a.dna to:", "")  // cancelled: a.dna stays
        .file("save", "Move b.dna to:", f.path("dst/b.dna"));
    exists("dst/b.dna", Answer::No);
    f.ui.file("save", "Move b.dna to:", f.path("dst/b.dna"), f.path("dst") + "|b.dna|dna|Aquarium's Drifter DNA files");
    exists("dst/b.dna", Answer::Yes);
    f.ui.file("save", "Move c.dna to:", f.path("dst/c.dna"));
    exists("dst/c.dna", Answer::Cancel);
    f.ui.message("Moved 1 file. ", "Done");
    aq::moveSelectedDrifterFiles(f.app, true, true, true);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    EXPECT_TRUE(fs::exists(f.src(0)) && fs::exists(f.src(2)));
    EXPECT_FALSE(fs::exists(f.src(1)));
    EXPECT_EQ(f.firstByte(f.path("dst/b.dna")), '\x02');
    EXPECT_EQ(aqtest::readBytes(f.path("dst/c.dna")), "old");
    EXPECT_EQ(f.app.dna.dnaCount, 0);  // the entries go all the same
}

TEST(MoveDrifterFiles, MissingSourcesAndNothingLoaded) {
    Folder f(3);
    f.tick({0, 1});
    fs::remove(f.src(1));
    f.ui.message("Moved 1 file. One of the selected source files was not found. ", "Done");
    aq::moveSelectedDrifterFiles(f.app, true, true, true);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();

    Folder none(2);  // nothing ticked
    none.ui.ask("yesnocancel", moveQuestion(0), "Moving Drifter Files", Answer::Yes)
        .message("None of the selected source files could be found. ", "Done");
    aq::MoveDrifterFilesCommand(none.app);
    EXPECT_TRUE(none.ui.done()) << none.ui.report();
    EXPECT_EQ(none.app.dna.dnaCount, 2);

    Folder empty(0);
    empty.ui.script.clear();
    empty.ui.failures.clear();
    empty.ui.message("No Drifter Files Loaded");
    aq::moveSelectedDrifterFiles(empty.app, true, true, true);
    EXPECT_TRUE(empty.ui.done()) << empty.ui.report();
}

TEST(DeleteDrifterFiles, EntriesOnlyOrFilesToo) {
    {
        Folder f(3);
        f.tick({0, 2});
        f.ui.ask("yesnocancel", kEntriesOnly, "Delete Entries Only", Answer::Yes)
            .message("No files moved, deleted, or copied.", "Done");
        aq::deleteSelectedDrifterSpecies(f.app);
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
        EXPECT_TRUE(fs::exists(f.src(0)));
        EXPECT_EQ(f.lines(), (std::vector<std::string>{"b.dna"}));
    }
    {
        Folder f(3);
        f.tick({0, 2});
        f.edit({0, 2});
        for (Answer sure : {Answer::No, Answer::Yes}) {
            if (sure == Answer::Yes) fs::remove(f.src(2));  // gone behind the program's back
            f.ui.ask("yesnocancel", kEntriesOnly, "Delete Entries Only", Answer::No)
                .ask("yesnocancel", kFilesToo, aq::kAppTitle, Answer::No)
                .ask("yesno", kChangesLost, "Warning!", sure);
            if (sure == Answer::Yes) f.ui.message("Deleted 1 file. ", "Done");
            aq::deleteSelectedDrifterSpecies(f.app);
            EXPECT_TRUE(f.ui.done()) << f.ui.report();
            EXPECT_EQ(fs::exists(f.src(0)), sure == Answer::No);
        }
        EXPECT_EQ(f.lines(), (std::vector<std::string>{"b.dna"}));
    }
    Folder f(2);
    f.ui.message("Nothing Selected");
    aq::deleteSelectedDrifterSpecies(f.app);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
}

}  // namespace

TEST(MoveDrifterFiles, AFailedCopyKeepsTheSourceAndTheOldTarget) {
    const std::string title = "Aquarium File Manager - Delete or Move Selected Drifter Files";
    struct Case {
        const char* error;
        long long failAfter;
        bool refuse;
    } cases[] = {{"Error #28: No space left on device", 0, false},
                 {"Error #28: No space left on device", 999, false},
                 {"Error #13: Permission denied", -1, true}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.error);
        Folder f(2);
        f.tick({0, 1});
        aqtest::writeBytes(f.path("dst/b.dna"), "old");
        f.ui.message(c.error, title)
            .ask("yesnocancel", f.path("dst/b.dna") + " already exists.  Overwrite existing file?", "Filename Conflict",
                 Answer::Yes)
            .message(c.error, title)
            .message("Encountered 2 errors. ", "Done");
        aq::setWriteFailureAfter(c.failAfter);
        aq::setRefusingFolder(c.refuse ? f.path("dst") : "");
        aq::moveSelectedDrifterFiles(f.app, true, true, true);
        aq::setWriteFailureAfter(-1);
        aq::setRefusingFolder("");
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
        EXPECT_EQ(f.firstByte(f.src(0)), '\x01');
        EXPECT_EQ(f.firstByte(f.src(1)), '\x02');
        EXPECT_FALSE(fs::exists(f.path("dst/a.dna")));
        EXPECT_EQ(aqtest::readBytes(f.path("dst/b.dna")), "old");
    }
}
