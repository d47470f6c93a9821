#include "foodeditor/FoodThreshold.h"

#include <algorithm>

#include "base/ThresholdText.h"

namespace aq {

void scrollFoodThresholdChange(App& app) {
    if (!app.uiBusy) app.txtFoodThreshold = thresholdText(app.scrollFoodThreshold);
    app.foodThreshold = static_cast<float>(app.scrollFoodThreshold / 10.0);
}

void setFoodThresholdPosition(App& app, int position) {
    position = std::clamp(position, 0, 1000);
    if (position == app.scrollFoodThreshold) return;
    app.scrollFoodThreshold = position;
    scrollFoodThresholdChange(app);
}

void typeFoodThreshold(App& app, const std::string& text) {
    app.txtFoodThreshold = text;
    app.lastThresholdEdit = app.clock.secondsSinceMidnight();
    app.foodThresholdTyped = true;
}

void validateFoodThreshold(App& app) {
    if (app.uiBusy) {
        app.foodThresholdTyped = true;
        return;
    }
    app.foodThresholdTyped = false;
    int position = thresholdPosition(app.txtFoodThreshold, 0, 1000);
    // Under uiBusy the text stays as typed while the threshold follows the scrollbar.
    app.uiBusy = true;
    setFoodThresholdPosition(app, position);
    app.ui.YieldToUi();
    app.uiBusy = false;
}

}  // namespace aq
