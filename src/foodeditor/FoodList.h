#pragma once
// The lines of lstPoolFood: one per food bit of openPool.
#include "shell/App.h"

namespace aq {

// Brings lstPoolFood in step with openPool.
void populateFoodList(App& app);

}  // namespace aq
