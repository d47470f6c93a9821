#pragma once
// The lines of lstSpeciatePool: one per drifter of openPool, and the load command.
#include <string>

#include "format/Records.h"
#include "state/App.h"

namespace aq {

// The line of a drifter, without its species prefix.
std::string DrifterLineText(const DrifterRec& d);

// Writes drifter `index`'s line to its row, adding the row when the list is shorter.
void listPoolDrifter(App& app, int index);

// Brings lstSpeciatePool in step with openPool; remaining rows keep tick and tag.
void populateSpeciatePoolList(App& app);

// Lists a pool just loaded or generated into openPool and starts its species pass.
void showNewOpenPool(App& app);

// The user's load of a pool into the two editor lists; `chosen`, when given (a file
// opened from outside the program), stands for the file dialog's answer.
void initiateLoadPoolFile(App& app, const std::string& chosen = {});

}  // namespace aq
