#include "pool/PoolSave.h"

#include "pool/PoolOps.h"
#include "shell/FileNames.h"
#include "shell/Paths.h"

namespace aq {

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

}  // namespace aq
