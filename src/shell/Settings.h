#pragma once
// The settings store kept in aqfm.ini.
#include <string>

#include "shell/App.h"

namespace aq {

// "Set"/"Store" capture, "Load" reads the file, "Save" writes it, "Use"/"Get" applies.
void ini(App& app, const std::string& verb);

}  // namespace aq
