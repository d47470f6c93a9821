#pragma once
// The settings store kept in aqfm.ini: the archive tab's ticks and boxes and the
// three folder boxes, as lines of key, " = ", value.
#include <string>

#include "state/App.h"

namespace aq {

// "Set"/"Store" capture, "Load" reads the file, "Save" writes it, "Use"/"Get" applies.
// Verbs ignore case and blanks; nothing happens while uiBusy is set.
void ini(App& app, const std::string& verb);

// The settings file's path: aqfm.ini in the program's folder.
std::string settingsFilePath(const App& app);

// The whole file as text, or "" when there is none; a read error is shown.
std::string readTextFile(App& app, const std::string& path);
// Replaces the file with `text`; a write error is shown and gives false.
bool writeTextFile(App& app, const std::string& text, const std::string& path);

// Start-up's last steps: check all archive entries, read the settings file and
// apply it, or give the controls back their state when there is no file.
void startupSettings(App& app);

}  // namespace aq
