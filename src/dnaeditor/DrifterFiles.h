#pragma once
// The loaded folder of DNA files.
#include "shell/App.h"

namespace aq {

// One slice of the species pass over lstSpeciateDrifters.
void speciateDrifterList(App& app);
void validateDrifterSpeciesThreshold(App& app);
void scrollDrifterSpeciesThresholdChange(App& app);
// Offers to save the changed DNA files (at shutdown with `closing`).
void saveChangedDrifterFiles(App& app, bool closing, bool selectedOnly);

}  // namespace aq
