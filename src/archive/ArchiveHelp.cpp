#include "archive/ArchiveHelp.h"

#include <map>

namespace aq {

namespace {
const char* const kEach =
    " Files can be selected or deselected individually by clicking the ckeckbox next to an individual file.  Clicking "
    "one of the buttons to the right of the list will cause the action associated with that button to be performed on "
    "all checkmarked files in the list.";
}

std::string archiveHelpText(const std::string& control) {
    static const std::map<std::string, std::string> texts = {
        {"cmdLstArchiveAll",
         std::string("Click the tall button near the lefthand edge of the Aquarium File Selection list to select or "
                     "deselect all of the files in the list at once.") +
             kEach},
        {"cmdLstArchiveAllDrifter",
         std::string("Click the button near the upper left corner of the Aquarium File Selection list to select or "
                     "deselect all of the drifter files in the list at once.") +
             kEach},
        {"cmdLstArchiveAllPool",
         std::string("Click the button near the lower left corner of the Aquarium File Selection list to select or "
                     "deselect all of the pool files in the list at once.") +
             kEach},
        {"chkAutoName",
         "When you click the Move or Copy files to Archive button, if there is a checkmark next to Auto-name Archive "
         "Copies, you will not be asked to supply filenames for the files being archived.  Filenames will be "
         "generated for you and chosen automatically."},
        {"chkNowName",
         "When you click the Move or Copy files to Archive button, the automatically generated filenames will be "
         "based on the current time and date if there is a checkmark in the Using Date and Time checkbox."},
        {"cmdCopyToArchive",
         "When you click the Move or Copy files to Archive button, the files checkmarked in the list to it's left "
         "will be moved or copied from the folder specified the Aquarium Path combobox."},
        {"chkDeleteOriginal",
         "When you click the Move or Copy files to Archive button, the files checkmarked in the list to it's left "
         "will be copied from the folder Aquarium Path to the Archive Path selected for that type of file. If there "
         "is a checkmark in the Delete Original After Making Copy checkbox, then the files will be deleted from their "
         "old location after they are copied to the archive.  Essentially, this means the files will be moved to the "
         "archive rather than simply copied there."},
        {"chkAutoBackup",
         "The Automatically backup selected files before over-writing checkbox specifies that if the files selected "
         "in the list already exist in the Aquarium Path they are to be automatically copied to the archive before "
         "being over-written. If this checkbox is unckecked when files are copied from the archive over the existing "
         "files in the Aquarium path, you will be given the option to cancel the copy and leave the original file "
         "unharmed."},
        {"cmdReplaceFromArchive",
         "Clicking the Replace Selected Files from Archive button begins a copy operation that copies the files you "
         "are then asked to select from their archive into the Aquarium path using the filenames checkmarked in the "
         "list on the left as destination filenames.\r\n\r\nThe copied files will not be deleted from the archive, "
         "but rather duplicated into the selected Aquarium path."},
        {"TabStrip1",
         "Welcome to the Aquarium File Manager. Use the tabs at the top of the application window to select a group "
         "of functions and display their associated interface."},
    };
    auto it = texts.find(control);
    return it == texts.end() ? std::string() : it->second;
}

void archiveHelpMove(App& app, const std::string& control) {
    std::string text = archiveHelpText(control);
    if (text.empty()) return;
    app.archive.lblArchiveInstruct = text;
    app.lastHelpMove = app.clock.secondsSinceMidnight();
}

}  // namespace aq
