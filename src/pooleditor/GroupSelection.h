#pragma once
// The selection sentence above lstSpeciatePool: a tick on one drifter spreads to every
// drifter that the chosen criteria, joined left to right, relate to it.
#include <string>
#include <vector>

#include "state/App.h"

namespace aq {

// The item lists of the sentence's combo boxes.
const std::vector<std::string>& poolGroup0Items();     // 28 items
const std::vector<std::string>& poolGroupSlotItems();  // 14 items, the first empty
const std::vector<std::string>& poolBoolItems();       // "", "And", "Or", "Xor", "Eqv"

// The selected index of sentence control k: 0 Group0, 1 Bool0, 2 Group1, ... 6 Group3.
int poolSentenceIndex(const App& app, int k);
void setPoolSentenceIndex(App& app, int k, int index);

// Enables each control whose left neighbours all have an index above 0. A change of
// Group0 also decides whether the list takes ticks while species are pending.
void UpdatePoolGroupControls(App& app, bool fromGroup0);

// What a criterion needs besides the two drifters.
struct GroupContext {
    const Pool& pool;
    const CheckList& list;
    float threshold;
    int depth;
    double low, high;  // tolerance factors from the threshold
};
GroupContext groupContext(const App& app);

// Whether criterion `index` of control `slot` (0 Group0, 1..3 the others) relates row `c` to row `k`.
bool CriterionHolds(const GroupContext& g, int slot, int index, int k, int c);

// The user ticked or unticked `row`: it becomes the current row and its group follows.
void poolTickedByUser(App& app, int row);
// Spreads the current row's tick to the drifters the sentence relates to it.
void ApplyPoolGroup(App& app);

}  // namespace aq
