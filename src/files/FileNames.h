#pragma once
// Names made from the clock, the next name of a numbered series, and the file
// dialogs with their memory.
#include <string>

#include "base/Names.h"
#include "state/App.h"

namespace aq {

// The date and time as a text that can stand in a file name ("2026-11-23 10'00'00").
std::string nowFileName(App& app);
// The name after `name` in a numbered series ("Pool_1.AQP" gives "Pool_2.AQP"); it
// remembers the last base and digit in `app`. `folder` is not used.
std::string nextNumberedName(App& app, const std::string& folder, const std::string& name,
                             const std::string& extension);

// Asks for a file to write; a missing `folder` is made first. "" when cancelled.
std::string locateDestFile(App& app, const std::string& folder, const std::string& name, const std::string& extension,
                           const std::string& description, const std::string& title);
// Asks for a file to read; the callers test that it exists. "" when cancelled.
std::string locateSourceFile(App& app, const std::string& folder, const std::string& name, const std::string& extension,
                             const std::string& description, const std::string& title);

}  // namespace aq
