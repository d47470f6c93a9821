#pragma once
#include "state/App.h"

namespace aq {

// What happens when the main window closes: settings, the changed pool, the changed
// DNA files. Returns false when the window must stay open: the user cancelled the
// question about the changed pool, or its save did not happen, so no edit is lost
// unasked.
bool closeProgram(App& app);

}  // namespace aq
