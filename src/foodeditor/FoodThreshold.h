#pragma once
#include "shell/App.h"

namespace aq {

// Reads the typed threshold of txtFoodThreshold.
void validateFoodThreshold(App& app);
// The change handler of scrollFoodThreshold.
void scrollFoodThresholdChange(App& app);

}  // namespace aq
