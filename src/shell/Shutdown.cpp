#include "shell/Shutdown.h"

#include "dnaeditor/DrifterFiles.h"
#include "pool/PoolOps.h"
#include "shell/FileNames.h"
#include "shell/Paths.h"
#include "shell/Settings.h"

namespace aq {

void closeProgram(App& app) {
    ini(app, "Set");
    ini(app, "Save");
    if (app.poolChanged) {
        Answer a = app.ui.AskYesNoCancel(
            "The currently open pool file has been changed.  Changes will be lost if the file is not saved now.\r\n\r\n"
            "Save changes to the open pool file?",
            "Pool File Has Changed");
        if (a == Answer::Cancel) return;
        if (a == Answer::Yes) {
            std::string path;
            if (!app.openPoolPath.empty()) {
                Answer over =
                    app.ui.AskYesNoCancel("Would you like to save over " + app.openPoolPath, "Save Speciated Pool");
                if (over == Answer::Cancel) return;
                if (over == Answer::Yes)
                    path = app.openPoolPath;
                else
                    path = locateDestFile(app, app.comboPoolPath, fileNameOfPath(app.openPoolPath), "aqp", "Pool Files",
                                          "Save Pool As");
            } else {
                path = locateDestFile(app, app.comboPoolPath, "", "aqp", "Pool Files", "Save Pool As");
            }
            if (savePoolFile(app, path, true)) {
                app.poolChanged = false;
                app.openPoolPath = path;
            }
        }
    }
    saveChangedDrifterFiles(app, true, false);
}

}  // namespace aq
