// Saving changed or ticked DNA files, and moving or deleting the ticked ones, each
// command driven by its questions and ended by one report.
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "base/FileIo.h"
#include "base/Paths.h"
#include "dnaeditor/DrifterFiles.h"
#include "dnaeditor/GenePanel.h"

namespace aq {

namespace {

namespace fs = std::filesystem;

const char* const kMoveErrorTitle = "Aquarium File Manager - Delete or Move Selected Drifter Files";

std::string n(long long v) { return std::to_string(v); }

// Folders compared as the user sees them: any case, a trailing separator or not.
bool sameFolder(std::string a, std::string b) {
    while (a.size() > 1 && a.back() == '/') a.pop_back();
    while (b.size() > 1 && b.back() == '/') b.pop_back();
    return lowered(a) == lowered(b);
}

bool fileExists(const std::string& path) {
    std::error_code ec;
    return !path.empty() && fs::is_regular_file(path, ec);
}

struct Tally {
    int copied = 0, deleted = 0, notFound = 0, errors = 0;
};

void reportError(App& app, const std::error_code& ec) {
    app.ui.ShowMessage("Error #" + n(ec.value()) + ": " + ec.message(), kMoveErrorTitle);
}

// Copies through a temporary file and a rename, so a failed copy leaves the target as
// it was. True only when the target then holds the source's bytes.
bool copyFile(App& app, const std::string& from, const std::string& to, Tally& t) {
    if (!fileExists(from)) {
        ++t.notFound;
        return false;
    }
    std::error_code ec = copyFileAtomically(from, to);
    std::string a, b;
    if (!ec && (!readWholeFile(from, a, 1 << 20).empty() || !readWholeFile(to, b, 1 << 20).empty() || a != b))
        ec = std::make_error_code(std::errc::io_error);
    if (ec) {
        reportError(app, ec);
        ++t.errors;
        return false;
    }
    ++t.copied;
    return true;
}

void deleteFile(App& app, const std::string& path, Tally& t) {
    std::error_code ec;
    bool removed = fs::remove(path, ec);
    if (ec) {
        if (ec == std::errc::no_such_file_or_directory)
            ++t.notFound;
        else
            reportError(app, ec);
        return;
    }
    if (removed)
        ++t.deleted;
    else
        ++t.notFound;
}

std::string moveReport(const Tally& t, int ticked) {
    std::string r;
    const int net = t.copied - t.deleted;
    if (net == -1) r += "Deleted 1 file. ";
    if (net < -1) r += "Deleted " + n(t.deleted - t.copied) + " files. ";
    if (net == 1) r += "Copied 1 file. ";
    if (net > 1) r += "Copied " + n(net) + " files. ";
    if (!(t.copied < t.deleted)) {
        if (t.deleted == 1) r += "Moved 1 file. ";
        if (t.deleted > 1) r += "Moved " + n(t.deleted) + " files. ";
    }
    if (t.notFound == 1)
        r += "One of the selected source files was not found. ";
    else if (t.notFound == ticked)
        r += "None of the selected source files could be found. ";
    else if (t.notFound > 1)
        r += "Could not find " + n(t.notFound) + " of the selected source files. ";
    if (t.errors == 1) r += "Encountered 1 error. ";
    if (t.errors > 1) r += "Encountered " + n(t.errors) + " errors. ";
    if (r.empty()) r = "No files moved, deleted, or copied.";
    return r;
}

// Keeps the unticked entries, in list order, in all three arrays and the list.
void removeTickedEntries(App& app) {
    DnaFolder& d = app.dna;
    CheckList& list = app.lstSpeciateDrifters;
    int unticked = 0;
    for (int i = 0; i < list.count(); ++i) unticked += list.checked(i) ? 0 : 1;
    if (unticked == 0) {
        list.clear();
        app.dnaLoaded = false;
        d.dnaCount = 0;
        d.dnaGenes.clear();
        d.dnaPaths.clear();
        d.dnaChanged.clear();
        return;
    }
    DnaFolder kept;
    for (int i = 0; i < list.count() && i < d.dnaCount; ++i) {
        if (list.checked(i)) continue;
        kept.dnaGenes.push_back(d.dnaGenes[static_cast<std::size_t>(i)]);
        kept.dnaPaths.push_back(d.dnaPaths[static_cast<std::size_t>(i)]);
        kept.dnaChanged.push_back(d.dnaChanged[static_cast<std::size_t>(i)]);
    }
    list.setVisible(false);
    for (int i = list.count() - 1; i >= 0; --i)
        if (list.checked(i)) list.remove(i);
    list.setVisible(true);
    d.dnaGenes = std::move(kept.dnaGenes);
    d.dnaPaths = std::move(kept.dnaPaths);
    d.dnaChanged = std::move(kept.dnaChanged);
    d.dnaCount = static_cast<std::int32_t>(d.dnaPaths.size());
}

std::string chooseDestination(App& app, const std::string& srcName, const std::string& folder,
                              const std::string& name) {
    return app.ui.ChooseSaveFile(folder, name, "dna", "Aquarium's Drifter DNA files", "Move " + srcName + " to:");
}

}  // namespace

void saveChangedDrifterFiles(App& app, bool closing, bool selectedOnly) {
    if (!app.dnaLoaded) return;
    DnaFolder& d = app.dna;
    CheckList& list = app.lstSpeciateDrifters;
    bool saveAll = false;
    int changed = 0;
    for (int i = 0; i < d.dnaCount; ++i) changed += d.dnaChanged[static_cast<std::size_t>(i)] ? 1 : 0;
    int saved = 0;
    const int ticked = list.checkedCount();

    Answer bulk = Answer::Cancel;
    if (selectedOnly && ticked >= 3)
        bulk = app.ui.AskYesNo("Save all " + n(ticked) + " selected drifters?", "Save Selected Drifters");
    else if (!selectedOnly && changed > 2)
        bulk = app.ui.AskYesNo("Save changes to all " + n(changed) + " altered drifters?", "Save All Changes");
    if (bulk == Answer::Yes) {
        saveAll = true;
    } else if (bulk == Answer::No) {
        std::string text;
        if (closing)
            text = "Do you wish not to save any of the " + n(changed) +
                   " changed drifter files?\r\n\r\nWARNING: If you answer YES, all changes to the loaded drifter "
                   "files will be lost!";
        else if (selectedOnly)
            text = "Do you wish not to save any drifters at this time?";
        else
            text = "Do you wish not to save any changes at this time?";
        if (app.ui.AskYesNo(text, "Don't Save Any Changes") == Answer::Yes) return;
    }

    {
        BusyScope busy(app);
        for (int i = 0; i < d.dnaCount; ++i) {
            const auto k = static_cast<std::size_t>(i);
            const bool isChanged = d.dnaChanged[k] != 0;
            const bool isTicked = i < list.count() && list.checked(i);
            if (!((isChanged && (closing || !selectedOnly)) || (selectedOnly && isTicked))) continue;
            Answer a = Answer::Yes;
            if (!saveAll) {
                if (isChanged)
                    a = app.ui.AskYesNo(d.dnaPaths[k] + " has changed.\r\n\r\nSave file now?", "Save Changed Drifter");
                else
                    a = app.ui.AskYesNo(d.dnaPaths[k] + "\r\n\r\nSave file now?", "Save Drifter");
            }
            if (a == Answer::Yes && saveDrifterFile(app, d.dnaPaths[k], i)) {
                d.dnaChanged[k] = 0;
                ++saved;
            }
        }
        std::string report;
        if (saved == 1) report = "Saved 1 file. ";
        if (saved > 1) report = "Saved " + n(saved) + " files. ";
        if (saved == 0 && changed > 0) report = "No files saved.";
        if (!report.empty()) app.ui.ShowMessage(report, "Done");
    }
    app.stateChanged();
}

void MoveDrifterFilesCommand(App& app) {
    Answer a = app.ui.AskYesNoCancel(
        "You are about to move the " + n(app.lstSpeciateDrifters.checkedCount()) +
            " selected drifter files to a new location.  You can either choose to keep them listed for the purpose "
            "of editing and saving the edited copy to their old locations later, or have them deleted from the list "
            "after the files are moved.  Would you like the selcted files to be removed from the list after being "
            "moved?",
        "Moving Drifter Files");
    if (a == Answer::Cancel) return;
    moveSelectedDrifterFiles(app, a == Answer::Yes, true, true);
    setGeneSliders(app);
}

void deleteSelectedDrifterSpecies(App& app) {
    const int ticked = app.lstSpeciateDrifters.checkedCount();
    if (ticked == 0) {
        app.ui.ShowMessage("Nothing Selected");
        return;
    }
    Answer a = app.ui.AskYesNoCancel(
        "You are about to delete the " + n(ticked) +
            " selected entries from the list of drifter files. The associated drifter files will also be deleted or "
            "moved at this time if you answer NO to the following question.  Answering YES will cause only the "
            "entries to in the list to be deleted, along with any changes made to the drifters in the selected "
            "entries.\r\n\r\nWould you like only the entries to be deleted and the source files to be left alone at "
            "this time?",
        "Delete Entries Only");
    if (a == Answer::Cancel) return;
    if (a == Answer::Yes) {
        moveSelectedDrifterFiles(app, true, false, false);
    } else {
        Answer b = app.ui.AskYesNoCancel(
            "You have chosen to delete the " + n(ticked) +
            " drifter files associated with the selected entries. These drifter files can be moved to another "
            "archive at this time if you answer YES to the following question. If you answer NO, the pool files "
            "will simply be deleted.\r\n\r\nMove the selected drifter files rather than delete them?");
        if (b == Answer::Cancel) return;
        moveSelectedDrifterFiles(app, true, true, b == Answer::Yes);
    }
    setGeneSliders(app);
}

void moveSelectedDrifterFiles(App& app, bool removeEntries, bool touchFiles, bool moveFiles) {
    if (!app.dnaLoaded) {
        app.ui.ShowMessage("No Drifter Files Loaded");
        return;
    }
    DnaFolder& d = app.dna;
    CheckList& list = app.lstSpeciateDrifters;
    const int ticked = list.checkedCount();
    bool saveAll = false, discardAll = false;
    Tally t;
    int changedTicked = 0;
    if (removeEntries)
        for (int i = 0; i < list.count() && i < d.dnaCount; ++i)
            changedTicked += list.checked(i) && d.dnaChanged[static_cast<std::size_t>(i)] ? 1 : 0;

    if (removeEntries && touchFiles && !moveFiles && changedTicked > 0) {
        if (app.ui.AskYesNo("Changes to " + n(changedTicked) +
                                " drifters will be lost.\r\n\r\nAre you sure that you want to delete the selected "
                                "entries and their associated source files?",
                            "Warning!") != Answer::Yes)
            return;
    } else if (removeEntries && changedTicked >= 3) {
        if (app.ui.AskYesNo("Save changes to all " + n(changedTicked) + " altered drifters?", "Save All Changes") ==
            Answer::Yes)
            saveAll = true;
        else if (app.ui.AskYesNo("Do you wish to discard the changes to all " + n(changedTicked) + " altered drifters?",
                                 "Don't Save Any Changes") == Answer::Yes)
            discardAll = true;
    }

    std::string loaded, unused;
    if (d.dnaCount > 0) SplitPath(d.dnaPaths[0], loaded, unused);
    const std::string target = app.comboDrifterPath;
    bool askEach = false;
    if (sameFolder(loaded, target) && ticked > 1 && moveFiles) {
        Answer a = app.ui.AskYesNoCancel(
            "Loaded drifter archive and currently selected drifter archive are the same.  You will be prompted for a "
            "location to move the first file to.  If you answer NO to the following question, the path chosen for "
            "that file will be used on any other selected files being moved at this time.\r\n\r\nWould you like to "
            "be prompted for a destination location for each file being moved?",
            "Directory Conflict");
        if (a == Answer::Cancel) return;
        askEach = a == Answer::Yes;
    }

    {
        BusyScope busy(app);
        std::string dstFolder = target;
        for (int i = 0; i < list.count() && i < d.dnaCount; ++i) {
            if (!list.checked(i)) continue;
            const auto k = static_cast<std::size_t>(i);
            const std::string source = d.dnaPaths[k];
            std::string srcFolder, srcName;
            SplitPath(source, srcFolder, srcName);

            if (((removeEntries && !touchFiles) || (touchFiles && moveFiles)) && d.dnaChanged[k]) {
                Answer a = saveAll ? Answer::Yes : discardAll ? Answer::No : Answer::Cancel;
                if (a == Answer::Cancel) {
                    std::string text = removeEntries
                                           ? source +
                                                 " has changed.\r\n\r\nChanges to this drifter will be lost if not "
                                                 "saved now.  Save file now?"
                                           : source +
                                                 " has changed.\r\n\r\nChanges to this drifter will not be "
                                                 "reflected in the moved file unless saved now.\r\n\r\nSave "
                                                 "changes to this file now?";
                    a = app.ui.AskYesNo(text, "File Has Changed");
                }
                if (a == Answer::Yes && saveDrifterFile(app, source, i)) d.dnaChanged[k] = 0;
            }

            std::string dstName;
            bool copied = false;
            if (moveFiles) {
                dstName = srcName;
                auto choose = [&] {
                    dstName = chooseDestination(app, srcName, dstFolder, dstName);
                    if (dstName.find('/') != std::string::npos) SplitPath(std::string(dstName), dstFolder, dstName);
                };
                if (askEach || sameFolder(srcFolder, dstFolder)) choose();
                while (!dstName.empty() && fileExists(joinPath(dstFolder, dstName))) {
                    Answer a = app.ui.AskYesNoCancel(
                        joinPath(dstFolder, dstName) + " already exists.  Overwrite existing file?",
                        "Filename Conflict");
                    if (a == Answer::Yes) break;
                    if (a == Answer::Cancel) {
                        dstName.clear();
                        break;
                    }
                    choose();
                }
                // The source itself under another name: copying would gain nothing, and the
                // delete below would lose the only copy.
                const std::string dest = joinPath(dstFolder, dstName);
                if (!dstName.empty() && !sameFile(source, dest)) copied = copyFile(app, source, dest, t);
            }

            // A source goes only when its copy is whole: a failed copy keeps both files.
            if (moveFiles && touchFiles && copied) {
                const std::string dest = joinPath(dstFolder, dstName);
                if (fileExists(source) && lowered(dest) != lowered(source)) deleteFile(app, source, t);
            }
            if (touchFiles && !moveFiles && fileExists(source)) deleteFile(app, source, t);
        }

        std::string report = moveReport(t, ticked);
        if (removeEntries) removeTickedEntries(app);
        app.ui.ShowMessage(report, "Done");
    }
    app.stateChanged();
}

}  // namespace aq
