#pragma once
// Saving the open pool from the menu, with its questions.
#include <string>

#include "state/App.h"

namespace aq {

// "Save over" the open file, or "Save Pool As". Returns false when the user cancelled
// the first question, so a caller that was closing stops too.
bool saveOpenPool(App& app);

// The question before a command replaces a changed pool with a new one.
extern const char* const kUnsavedPoolQuestion;

// Saves the changed open pool over its file before it is replaced, asking to retry
// while the save fails. False when the user cancelled.
bool saveChangesBeforeReplacing(App& app);

// Writes undoPool (a pool made from the selection) to a file the user names.
void saveUndoPoolAs(App& app, const std::string& title);

// The menu command "Save Pool File": does nothing while no pool is loaded.
void mSavePool(App& app);

}  // namespace aq
