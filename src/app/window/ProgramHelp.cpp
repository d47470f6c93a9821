#include "app/window/ProgramHelp.h"

#include <iostream>
#include <string>

namespace aqapp {

namespace {

const char* const kHelp = R"(usage: AqFileManager [FILE...]
       AqFileManager --picture map|genes POOL OUT [--size WxH]
       AqFileManager --picture series FIRST OUT [--size WxH] [--plain]

Reads, edits, generates, archives and exchanges the pool files (*.aqp) and
drifter DNA files (*.dna) of the Aquarium artificial-life simulator, and runs
the simulator to evolve chains and trees of pools. Every edit is exact to the
byte: what is not changed comes back as it was.

Options:
  FILE...
        Opened once the window is up: a pool on the drifter tab, after the
        question about unsaved changes; a DNA file or a folder on the drifter
        files tab.
  --picture map POOL OUT
        Draws the map of the pool POOL into OUT without a window (no display
        is needed), 1200x900 pixels unless --size says otherwise.
  --picture genes POOL OUT
        Draws every drifter's genes of POOL into OUT, one strip each.
  --picture series FIRST OUT
        Draws the series that the pool FIRST starts, coloured by species at
        44.4 percent, into OUT.
  --size WxH
        The picture's width and height, 16 to 8000 pixels each.
  --plain
        The series is a plain one (one file after another), not a tree.
  --help
        Prints this text.
  --version
        Prints the program's version.

Pictures:
  OUT's extension chooses the format: .svg, or any that Qt has an image
  writer for (.png, .jpg, .bmp, ...). "AqFileManager --picture --help" lists
  them. A picture command exits with 0 on success, 1 on a file error (its
  message on stderr) and 2 on a usage error.

Files:
  aqfm.ini, recent_pool_version_4.aqp
        The settings and the pool handed to the simulator: beside the program
        when its folder is the user's to write (a portable install), otherwise
        in ~/.local/share/Aquarium/AqFileManager.
  ~/.config/Aquarium/AqFileManager.ini
        The window's size and place, its splitter and the recent pool files.
)";

}  // namespace

std::optional<int> runProgramHelp(int argc, char** argv) {
    if (argc < 2) return std::nullopt;
    std::string first = argv[1];
    if (first == "--help" || first == "-h") {
        std::cout << kHelp;
        return 0;
    }
    if (first == "--version") {
        std::cout << "AqFileManager (Aquarium File Manager) " << AQ_VERSION << "\n";
        return 0;
    }
    return std::nullopt;
}

}  // namespace aqapp
