#pragma once
// The three folder boxes of "Directory Paths": how a folder enters a box, and the
// hunt for the simulator's folders at start-up.
#include <cstdint>
#include <string>
#include <unordered_set>

#include "shell/App.h"

namespace aq {

// Bring `path` into the box: the box's text goes to it, and its list gains it at
// `position` (above 0) or at the end, unless the list holds it in any capitals.
void comboAquariumPath_set(App& app, const std::string& path, std::int16_t position = -1);
void comboDrifterPath_set(App& app, const std::string& path, std::int16_t position = -1);
void comboPoolPath_set(App& app, const std::string& path, std::int16_t position = -1);

// Appends many entries to a box (0 Aquarium, 1 drifter, 2 pool) as its _set does,
// looking each up in `known` (the box's entries in small letters, kept up to date) so a
// long history is not compared entry by entry.
void pathBoxAppend(App& app, int box, const std::string& path, std::unordered_set<std::string>& known);

// Whether a file in `folder` matches `pattern` ("*" and "?", any capitals). A folder
// that can't be read has none. A pattern for a Windows program ("*.exe") also
// matches the name without ".exe", as programs are named here.
bool filePatternExists(const std::string& folder, const std::string& pattern);
bool wildcardMatch(const std::string& pattern, const std::string& name);

// Fills the three boxes from their own texts and a walk from the program's folder
// up to its drive, looking for the simulator and its archive folders.
void AttemptAqQuickFind(App& app);

}  // namespace aq
