#pragma once
// `AqFileManager --picture map|genes POOL OUT [--size WxH]`: writes the pool map or the
// picture of all drifters' genomes in the format of OUT's extension (PNG, JPEG, SVG ...)
// without a window, for scripts; `--picture series FIRST OUT [--size WxH] [--plain]` the
// series that starts from FIRST. Exit status as aqfm's: 0 done, 1 file or data error, 2
// usage error, an extension no writer knows among them.
#include <optional>
#include <string>
#include <vector>

namespace aqapp {

// The mode's work, with a QApplication running; `args` follow "--picture". What went
// wrong, or the help, goes to `message`.
int pictureCommand(const std::vector<std::string>& args, std::string& message);

// For main(): nothing unless the first argument is "--picture"; then runs the mode on
// an offscreen platform and gives the exit status.
std::optional<int> runPictureCommand(int argc, char** argv);

}  // namespace aqapp
