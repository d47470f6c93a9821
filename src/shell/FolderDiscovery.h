#pragma once
// The hunt for the simulator's folders at start-up.
#include "state/App.h"

namespace aq {

// Fills the three boxes from their own texts and a walk from the program's folder
// up to its drive, looking for the simulator and its archive folders.
void AttemptAqQuickFind(App& app);

}  // namespace aq
