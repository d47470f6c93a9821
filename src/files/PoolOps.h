#pragma once
// Loading and saving pools with the program's messages.
#include <cstdint>
#include <span>
#include <string>

#include "format/DefaultPool.h"
#include "state/App.h"

namespace aq {

// Reads `path` into workPool, and with `intoOpen` into openPool too. A missing file
// does nothing and says nothing; a bad one shows the program's message and leaves
// openPool as it was. Returns whether a pool was read.
bool loadPoolFile(App& app, const std::string& path, bool intoOpen);

// Writes workPool (first made a copy of openPool when `fromOpen`) to `path`.
bool savePoolFile(App& app, const std::string& path, bool fromOpen);

// Parses the embedded default pool into defaultPool.
void loadDefaultPool(App& app);

}  // namespace aq
