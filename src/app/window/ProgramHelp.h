#pragma once
// `AqFileManager --help` and `--version`: answered before any window or display is
// needed, so that scripts and the manual page's build can ask for them anywhere.
#include <optional>

namespace aqapp {

// Nothing unless the first argument is "--help", "-h" or "--version"; then prints the
// text and gives the exit status.
std::optional<int> runProgramHelp(int argc, char** argv);

}  // namespace aqapp
