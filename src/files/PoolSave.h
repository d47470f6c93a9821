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

// Before a command replaces the pool on show: a changed pool gets `question` (title
// "File Has Changed"), and Yes saves it over its file, asking to retry while the save
// fails. False when the command is to stop: the user cancelled.
bool saveChangesFirst(App& app, const std::string& question);

// Writes undoPool (a pool made from the selection) to a file the user names.
void saveUndoPoolAs(App& app, const std::string& title);

// The menu command "Save Pool File": does nothing while no pool is loaded.
void mSavePool(App& app);

// "Save Pool As" with the open file's name suggested: the pool is saved there and
// belongs to that file from then on. Another file of the chosen name is replaced only
// after a "Filename Conflict" question. A cancelled dialog or a failed save leaves the
// pool's file and its changed mark as they were. True when the pool was saved.
bool saveOpenPoolAs(App& app);

// The menu command "Save Pool File As...": does nothing while no pool is loaded.
void mSavePoolAs(App& app);

}  // namespace aq
