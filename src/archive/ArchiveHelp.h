#pragma once
// The help line of the archive tab: what lblArchiveInstruct says about the control
// under the pointer.
#include <string>

#include "state/App.h"

namespace aq {

// The text for a control by its name; "" for a control that has none.
std::string archiveHelpText(const std::string& control);
// The pointer moved over `control`: its text goes to the line and lastHelpMove is stamped.
void archiveHelpMove(App& app, const std::string& control);

}  // namespace aq
