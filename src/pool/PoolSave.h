#pragma once
// Saving the open pool from the menu, with its questions.
#include "shell/App.h"

namespace aq {

// "Save over" the open file, or "Save Pool As". Returns false when the user cancelled
// the first question, so a caller that was closing stops too.
bool saveOpenPool(App& app);

// The menu command "Save Pool File": does nothing while no pool is loaded.
void mSavePool(App& app);

}  // namespace aq
