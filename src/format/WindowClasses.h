#pragma once
// The class names the simulator registers its window under, tried in this order: what
// the program looks the simulator up by, and what a stand-in registers.
#include <array>
#include <string>

namespace aq {

const std::array<std::string, 4>& simulatorWindowClasses();

}  // namespace aq
