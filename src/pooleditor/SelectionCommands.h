#pragma once
// Direct selections on lstSpeciatePool: all, invert, the record holders of the pool,
// and the switch between quick and full genetic comparisons.
#include <functional>

#include "state/App.h"

namespace aq {

void SelectAllDrifters(App& app);
void InvertPoolDrifterSelection(App& app);
// Ticks every drifter whose measure equals the highest, searched from `start` up.
void SelectRecordHolders(App& app, const std::function<double(const DrifterRec&)>& measure, double start);

// The six record-holder commands of the Select menu.
void mSelectOldest(App& app);
void mSelectMostProlithic(App& app);
void mSelectMaternal(App& app);
void mSelectPaternal(App& app);
void mSelectBiggestEater(App& app);
void mSelectHeaviest(App& app);

// Flips mQuickSpec (app.quickSpeciate) and restarts the species passes at the new depth.
void ToggleQuickSpeciate(App& app);

}  // namespace aq
