#include "shell/Settings.h"

namespace aq {

// The settings file arrives with the shell feature.
void ini(App& /*app*/, const std::string& /*verb*/) {}

}  // namespace aq
