#include "files/PoolSave.h"

#include <filesystem>

#include "base/Paths.h"
#include "files/FileNames.h"
#include "files/PoolOps.h"

namespace aq {

const char* const kUnsavedPoolQuestion =
    "The currently open pool file has been changed.  Changes will be lost if not saved now.  Save changes?";

bool saveOpenPool(App& app) {
    std::string path;
    if (!app.openPoolPath.empty()) {
        Answer a = app.ui.AskYesNoCancel("Would you like to save over " + app.openPoolPath, "Save Speciated Pool");
        if (a == Answer::Cancel) return false;
        if (a == Answer::Yes) {
            path = app.openPoolPath;
        } else {
            path = locateDestFile(app, app.comboPoolPath, fileNameOfPath(app.openPoolPath), "aqp", "Pool Files",
                                  "Save Pool As");
        }
    } else {
        path = locateDestFile(app, app.comboPoolPath, "", "aqp", "Pool Files", "Save Pool As");
    }
    // A cancelled dialog gives no path: the writer writes nothing and the pool stays changed.
    if (savePoolFile(app, path, true)) {
        app.poolChanged = false;
        app.openPoolPath = path;
    }
    return true;
}

void mSavePool(App& app) {
    if (!app.poolLoaded) return;
    saveOpenPool(app);
    app.stateChanged();
}

bool saveOpenPoolAs(App& app) {
    const std::string suggested = app.openPoolPath.empty() ? "" : fileNameOfPath(app.openPoolPath);
    std::string path = locateDestFile(app, app.comboPoolPath, suggested, "aqp", "Pool Files", "Save Pool As");
    // A new name that another file already has is asked about: No picks another name.
    std::error_code ec;
    while (!path.empty() && path != app.openPoolPath && std::filesystem::exists(path, ec)) {
        Answer a = app.ui.AskYesNoCancel(path + " already exists.  Overwrite existing file?", "Filename Conflict");
        if (a == Answer::Yes) break;
        path = a == Answer::No ? locateDestFile(app, folderOfPath(path), fileNameOfPath(path), "aqp", "Pool Files",
                                                "Save Pool As")
                               : "";
    }
    if (path.empty() || !savePoolFile(app, path, true)) return false;
    app.poolChanged = false;
    app.openPoolPath = path;
    return true;
}

void mSavePoolAs(App& app) {
    if (!app.poolLoaded) return;
    saveOpenPoolAs(app);
    app.stateChanged();
}

namespace {

bool saveChangesBeforeReplacing(App& app) {
    // A pool with no file yet (generated, or merged into nothing) is asked a name first,
    // or the save below could only fail, again at every Retry; it takes the name only
    // once a file holds it.
    std::string path = app.openPoolPath;
    if (path.empty()) {
        path = locateDestFile(app, app.comboPoolPath, "", "aqp", "Pool Files", "Save Pool As");
        if (path.empty()) return false;
    }
    while (!savePoolFile(app, path, true)) {
        if (app.ui.AskRetryCancel("Error saving file.", "Aquarium File Manager - Species Load") == Answer::Cancel)
            return false;
    }
    app.openPoolPath = path;
    app.poolChanged = false;
    return true;
}

}  // namespace

bool saveChangesFirst(App& app, const std::string& question) {
    if (!app.poolChanged) return true;
    Answer a = app.ui.AskYesNoCancel(question, "File Has Changed");
    if (a == Answer::Cancel) return false;
    return a != Answer::Yes || saveChangesBeforeReplacing(app);
}

void saveUndoPoolAs(App& app, const std::string& title) {
    // The writer saves openPool, so the new pool stands in for it while it is written.
    Pool kept = std::move(app.openPool);
    app.openPool = app.undoPool;
    std::string path = locateDestFile(app, app.comboPoolPath, "", "aqp", "Pool Files", title);
    savePoolFile(app, path, true);
    app.openPool = std::move(kept);
}

}  // namespace aq
