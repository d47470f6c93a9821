#pragma once
// The three folder boxes of "Directory Paths": how a folder enters a box.
#include <cstdint>
#include <string>

#include "base/FilePatterns.h"
#include "state/App.h"

namespace aq {

// Bring `path` into the box: the box's text goes to it, and its list gains it at
// `position` (above 0) or at the end, unless the list holds it in any capitals.
void comboAquariumPath_set(App& app, const std::string& path, std::int16_t position = -1);
void comboDrifterPath_set(App& app, const std::string& path, std::int16_t position = -1);
void comboPoolPath_set(App& app, const std::string& path, std::int16_t position = -1);

}  // namespace aq
