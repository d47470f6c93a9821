#include "format/WindowClasses.h"

namespace aq {

namespace {
// The simulator's web-site addresses, part of its window's class names.
const std::string kSite = "http://www.aquarium.example";
const std::string kMirror = "http://aquarium.example.net";
}  // namespace

const std::array<std::string, 4>& simulatorWindowClasses() {
    static const std::array<std::string, 4> names = {
        "Aquarium version 4 (" + kSite + ")",
        "Aquarium version 4 (" + kSite + ") (" + kMirror + ")",
        "Aquarium version 4.1 (" + kSite + ")",
        "Aquarium version 4.1 (" + kSite + ") (" + kMirror + ")",
    };
    return names;
}

}  // namespace aq
