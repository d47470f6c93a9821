#include "shell/Shutdown.h"

#include "dnaeditor/DrifterFiles.h"
#include "files/PoolSave.h"
#include "shell/Settings.h"

namespace aq {

bool closeProgram(App& app) {
    ini(app, "Set");
    ini(app, "Save");
    if (app.poolChanged) {
        Answer a = app.ui.AskYesNoCancel(
            "The currently open pool file has been changed.  Changes will be lost if the file is not saved now.\r\n\r\n"
            "Save changes to the open pool file?",
            "Pool File Has Changed");
        if (a == Answer::Cancel) return false;
        // A cancelled dialog or a failed write leaves the pool changed: stay open.
        if (a == Answer::Yes && (!saveOpenPool(app) || app.poolChanged)) return false;
    }
    saveChangedDrifterFiles(app, true, false);
    return true;
}

}  // namespace aq
