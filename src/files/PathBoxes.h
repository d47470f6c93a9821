#pragma once
// The three folder boxes of "Directory Paths": how a folder enters a box.
#include <cstdint>
#include <string>
#include <unordered_set>

#include "base/FilePatterns.h"
#include "state/App.h"

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

}  // namespace aq
