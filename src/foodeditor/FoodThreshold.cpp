#include "foodeditor/FoodThreshold.h"

namespace aq {

void validateFoodThreshold(App& app) { app.foodThresholdTyped = false; }
void scrollFoodThresholdChange(App& /*app*/) {}

}  // namespace aq
