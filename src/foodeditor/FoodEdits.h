#pragma once
// The ticked food bits of lstPoolFood: how far a tick spreads, the selection box and
// its sliders, deletion and saving to a new pool.
#include "pooleditor/SelectionBox.h"
#include "state/App.h"

namespace aq {

// The user ticked or unticked `row`: it becomes the current entry and its group follows.
void foodTickedByUser(App& app, int row);
// Spreads the tick of the current entry to its group (family or proximity).
void ApplyFoodGroup(App& app);
// The menu command "&Invert Selection" of the food list.
void InvertFoodSelection(App& app);
// Whether the threshold controls show: only for the proximity mode.
inline bool foodThresholdShown(const App& app) { return app.comboFoodGroup == 2; }

void setFoodSliders(App& app);
void MoveFoodBox(App& app, Axis axis, int position);
void StretchFoodBox(App& app, Axis axis, int position);

void deleteSelectedFood(App& app);
void saveSelectedFood(App& app);
// The menu command "&Delete Selected Food".
void mSelectFoodDelete(App& app);

}  // namespace aq
