#include "archive/ArchiveTransfers.h"

#include <filesystem>
#include <system_error>

#include "base/FileIo.h"
#include "base/Paths.h"
#include "files/FileNames.h"
#include "files/PathBoxes.h"

namespace aq {

namespace fs = std::filesystem;

namespace {

struct Kind {
    const char* filePrefix;
    const char* fileExt;
    const char* dialogExt;
    const char* dialogDesc;
};
const Kind kKinds[2] = {{"Drifter_", ".DNA", "dna", "Aquarium's Drifter DNA files"},
                        {"Pool_", ".AQP", "aqp", "Aquarium's Pool file"}};

std::string& archiveBox(App& app, int kind) { return kind == 0 ? app.comboDrifterPath : app.comboPoolPath; }

// A dialog's answer that names a folder as well as a file.
bool holdsFolder(const std::string& s) { return s.find('\\') != std::string::npos || s.find('/') != std::string::npos; }

bool fileExists(const std::string& path) {
    std::error_code ec;
    return fs::is_regular_file(path, ec);
}

bool isMissing(const std::error_code& ec) { return ec == std::errc::no_such_file_or_directory; }

void refreshBoxes(App& app, bool dnaDone, bool poolDone) {
    if (dnaDone) {
        comboDrifterPath_set(app, app.comboDrifterPath, -1);
        comboAquariumPath_set(app, app.comboAquariumPath, -1);
    }
    if (poolDone) {
        comboPoolPath_set(app, app.comboPoolPath, -1);
        comboAquariumPath_set(app, app.comboAquariumPath, -1);
    }
}

std::string counted(int n, const std::string& verb, const std::string& noun) {
    if (n == 1) return verb + " 1 " + noun + ". ";
    if (n > 1) return verb + " " + std::to_string(n) + " " + noun + "s. ";
    return {};
}

}  // namespace

std::string archiveLiveName(const CheckList& list, int index) {
    int half = list.count() / 2;
    int kind = half > 0 && index >= half ? 1 : 0;
    int i = index - half * kind;
    return kKinds[kind].filePrefix + std::to_string(i + 1) + kKinds[kind].fileExt;
}

std::string liveFilePath(const std::string& folder, const std::string& name) {
    std::string exact = joinPath(folder, name);
    if (fileExists(exact)) return exact;
    std::error_code ec;
    fs::directory_iterator it(folder.empty() ? "." : folder, ec), end;
    std::string key = lowered(name);
    for (; !ec && it != end; it.increment(ec))
        if (lowered(it->path().filename().string()) == key && it->is_regular_file(ec))
            return joinPath(folder, it->path().filename().string());
    return exact;
}

std::error_code copyFileSafely(const std::string& from, const std::string& to) {
    std::error_code ec;
    if (!fs::is_regular_file(from, ec)) return ec ? ec : std::make_error_code(std::errc::no_such_file_or_directory);
    return copyFileAtomically(from, to);
}

int errorNumber(const std::error_code& ec, bool sourceThere) {
    if (isMissing(ec)) return sourceThere ? 76 : 53;
    if (ec == std::errc::permission_denied || ec == std::errc::operation_not_permitted ||
        ec == std::errc::read_only_file_system)
        return 70;
    if (ec == std::errc::no_space_on_device) return 61;
    if (ec == std::errc::not_a_directory) return 76;
    return 75;
}

void cmdCopyToArchive(App& app) {
    ArchiveOptions& opt = app.archive;
    const CheckList& list = opt.lstArchive;
    int copied = 0, moved = 0, notFound = 0, errors = 0;
    bool done[2] = {false, false};
    const std::string nowText = nowFileName(app);
    const std::string sourceFolder = app.comboAquariumPath;
    const bool deleting = opt.chkDeleteOriginal != 0;
    BusyScope busy(app);
    int half = list.count() / 2;
    for (int kind = 0; kind < 2; ++kind) {
        const Kind& k = kKinds[kind];
        for (int i = 0; i < half; ++i) {
            if (!list.checked(i + half * kind)) continue;
            std::string destFolder = archiveBox(app, kind);
            const std::string srcName = k.filePrefix + std::to_string(i + 1) + k.fileExt;
            std::string destName = opt.chkNowName != 0
                                       ? k.filePrefix + nowText + " #" + std::to_string(i + 1) + k.fileExt
                                       : uniqueFileName(destFolder, srcName);
            auto askName = [&](const std::string& verb) {
                destName =
                    locateDestFile(app, destFolder, destName, k.dialogExt, k.dialogDesc, verb + srcName + " to:");
                if (holdsFolder(destName)) SplitPath(destName, destFolder, destName);
            };
            if (opt.chkAutoName == 0) askName(deleting ? "Move " : "Copy ");
            while (!destName.empty() && fileExists(joinPath(destFolder, destName))) {
                Answer a = app.ui.AskYesNoCancel(
                    joinPath(destFolder, destName) + " already exists.  Overwrite existing file?", "Filename Conflict");
                if (a == Answer::Yes) break;
                if (a == Answer::Cancel)
                    destName.clear();
                else
                    askName("Move ");
            }
            if (destName.empty()) continue;
            std::string from = liveFilePath(sourceFolder, srcName);
            std::string to = joinPath(destFolder, destName);
            // Already there under another name: a copy onto itself, then a delete, would lose it.
            if (sameFile(from, to)) continue;
            std::error_code ec = copyFileSafely(from, to);
            if (isMissing(ec) && !fileExists(from)) {
                ++notFound;
                continue;
            }
            if (ec) {
                app.ui.ShowMessage("Error #" + std::to_string(errorNumber(ec, true)) + ": " + ec.message(),
                                   "Aquarium File Manager - Copy to Archive");
                ++errors;
                continue;
            }
            ++copied;
            done[kind] = true;
            if (deleting && fileExists(from) && fileExists(to) && lowered(from) != lowered(to)) {
                std::error_code del;
                if (fs::remove(from, del) && !del)
                    ++moved;
                else if (isMissing(del))
                    ++notFound;
            }
        }
    }
    refreshBoxes(app, done[0], done[1]);
    int c = copied - moved;
    std::string summary = counted(c, "Copied", "file") + counted(moved, "Moved", "file");
    if (notFound == 1)
        summary += "One of the selected source files was not found. ";
    else if (notFound == selectedCount(list))
        summary += "None of the selected source files could be found. ";
    else if (notFound > 1)
        summary += "Could not find " + std::to_string(notFound) + " of the selected source files. ";
    summary += counted(errors, "Encountered", "error");
    if (summary.empty()) summary = "No files moved or copied.";
    app.ui.ShowMessage(summary, "Done");
    app.stateChanged();
}

void cmdReplaceFromArchive(App& app) {
    ArchiveOptions& opt = app.archive;
    const CheckList& list = opt.lstArchive;
    int copied = 0, errors = 0, backupErrors = 0;
    bool done[2] = {false, false};
    std::string srcName;
    const std::string liveFolder = app.comboAquariumPath;
    BusyScope busy(app);
    int half = list.count() / 2;
    for (int kind = 0; kind < 2; ++kind) {
        const Kind& k = kKinds[kind];
        const std::string archiveFolder = archiveBox(app, kind);
        std::string srcFolder = archiveFolder;
        for (int i = 0; i < half; ++i) {
            if (!list.checked(i + half * kind)) continue;
            const std::string liveName = k.filePrefix + std::to_string(i + 1) + k.fileExt;
            const std::string backupName = uniqueFileName(archiveFolder, liveName);
            srcName = nextNumberedName(app, srcFolder, srcName, k.fileExt);
            if (holdsFolder(srcName)) SplitPath(srcName, srcFolder, srcName);
            auto ask = [&] {
                srcName = locateSourceFile(app, srcFolder, srcName, k.dialogExt, k.dialogDesc,
                                           "Copy which file over " + liveName + "?");
                if (holdsFolder(srcName)) SplitPath(srcName, srcFolder, srcName);
            };
            ask();
            bool givenUp = srcName.empty();
            while (!givenUp && !fileExists(joinPath(srcFolder, srcName))) {
                Answer a = app.ui.AskOkCancel(
                    joinPath(srcFolder, srcName) + " could not be found.  Please select a different source file.",
                    "File Not Found");
                if (a == Answer::Cancel) {
                    givenUp = true;
                } else {
                    ask();
                    givenUp = srcName.empty();
                }
            }
            if (givenUp) continue;
            const std::string live = liveFilePath(liveFolder, liveName);
            if (opt.chkAutoBackup != 0) {
                std::string backup = joinPath(archiveFolder, backupName);
                std::error_code ec = copyFileSafely(live, backup);
                if (!ec) {
                    if (fileExists(live) && fileExists(backup)) {
                        std::error_code del;
                        fs::remove(live, del);
                    }
                } else if (!(isMissing(ec) && !fileExists(live))) {
                    app.ui.ShowMessage("Error #" + std::to_string(errorNumber(ec, fileExists(live))) +
                                           " attempting to backup " + srcName + ": " + ec.message(),
                                       "Aquarium File Manager - Replace from Archive, Backup");
                    ++backupErrors;
                }
            } else if (fileExists(live)) {
                if (app.ui.AskYesNo(live + "\r\n\r\nOverwrite this file?", "Overwite Existing File") == Answer::No)
                    continue;
            }
            std::string from = joinPath(srcFolder, srcName);
            std::error_code ec = copyFileSafely(from, live);
            if (!ec) {
                ++copied;
                done[kind] = true;
            } else if (!(isMissing(ec) && !fileExists(from))) {
                app.ui.ShowMessage("Error #" + std::to_string(errorNumber(ec, fileExists(from))) + ": " + ec.message(),
                                   "Aquarium File Manager - Replace from Archive");
                ++errors;
            }
        }
    }
    refreshBoxes(app, done[0], done[1]);
    std::string summary = counted(copied, "Copied", "file") + counted(errors + backupErrors, "Encountered", "error");
    if (summary.empty()) summary = "Nothing copied";
    app.ui.ShowMessage(summary, "Done");
    app.stateChanged();
}

}  // namespace aq
