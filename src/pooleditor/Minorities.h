#pragma once
// Minorities: body plans that few living drifters share, found stage by stage.
#include "state/App.h"

namespace aq {

struct MutantStages {
    bool bySegmentCount = false;
    bool byBranching = false;
    bool byColorOrder = false;
    bool byColors = false;
};

// Works on workPool (a copy of openPool when selecting or deselecting): kills, ticks or
// unticks the drifters of every minority key of the stages asked for.
void poolMutants(App& app, bool kill, bool select, bool countStill, MutantStages stages, bool deselect);

// How many distinct keys the living drifters have in the first stage asked for.
int distinctMinorityKeys(const Pool& pool, MutantStages stage);

// The five Minorities commands.
void mSelectMutantsBySegmentCount(App& app);
void mSelectMutantsByBranching(App& app);
void mSelectMutantsByColorOrder(App& app);
void mSelectMutantsByColors(App& app);
void mDeSelectMutants(App& app);

}  // namespace aq
