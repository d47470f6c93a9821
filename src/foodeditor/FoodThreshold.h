#pragma once
// The proximity threshold of the food tab: scrollbar and text box.
#include <string>

#include "state/App.h"

namespace aq {

// Reads the typed threshold of txtFoodThreshold.
void validateFoodThreshold(App& app);
// The change handler of scrollFoodThreshold.
void scrollFoodThresholdChange(App& app);
// Moves scrollFoodThreshold; its change handler runs when the position changes.
void setFoodThresholdPosition(App& app, int position);
// A keystroke in txtFoodThreshold: the text is read later by the timer.
void typeFoodThreshold(App& app, const std::string& text);

}  // namespace aq
