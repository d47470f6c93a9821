#pragma once
// What can be done to the ticked drifters of lstSpeciatePool: kill, revive, feed,
// carry off into a new pool file, delete, and move or stretch as one group.
#include "pooleditor/SelectionBox.h"
#include "state/App.h"

namespace aq {

void killSelectedPoolSpecies(App& app);
void reviveSelectedPoolSpecies(App& app);
void feedSelectedPoolSpecies(App& app);
// `askFirst` true is the Delete command, false the Move command (save, then delete).
void deleteSelectedPoolSpecies(App& app, bool askFirst);
// Writes the ticked drifters to a new pool file; the open pool stays open.
void saveSelectedPoolSpecies(App& app);

// The sliders of the selection box, from the ticks.
void setSpeciatePoolSliders(App& app);
// Slider handlers: the slider moved to `position` (by the user, unless uiBusy is set).
void MoveDrifterBox(App& app, Axis axis, int position);
void StretchDrifterBox(App& app, Axis axis, int position);

// The menu commands of "Drifters in Pool File", each with the refreshes that follow it.
void mSelectKill(App& app);
void mSelectRevive(App& app);
void mSelectPoolFeed(App& app);
void mSelectPoolMove(App& app);
void mSelectPoolDelete(App& app);

}  // namespace aq
