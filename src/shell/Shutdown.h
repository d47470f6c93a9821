#pragma once
#include "state/App.h"

namespace aq {

// What happens when the main window closes: settings, the changed pool, the changed
// DNA files. The window closes whatever the answers.
void closeProgram(App& app);

}  // namespace aq
