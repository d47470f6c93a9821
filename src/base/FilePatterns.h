#pragma once
// File name patterns with "*" and "?", as the folder search uses them.
#include <string>

namespace aq {

// Whether a file in `folder` matches `pattern` ("*" and "?", any capitals). A folder
// that can't be read has none. A pattern for a Windows program ("*.exe") also
// matches an executable file named without ".exe", as programs are named here.
bool filePatternExists(const std::string& folder, const std::string& pattern);
bool wildcardMatch(const std::string& pattern, const std::string& name);

}  // namespace aq
