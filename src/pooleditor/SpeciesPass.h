#pragma once
// The species of the open pool's drifters, worked out in background slices.
#include "shell/App.h"

namespace aq {

// One slice of the species pass over lstSpeciatePool.
void speciatePoolList(App& app);
// Reads the typed threshold of txtPoolSpeciesThreshold.
void validatePoolSpeciesThreshold(App& app);
// The change handler of scrollPoolSpeciesThreshold.
void scrollPoolSpeciesThresholdChange(App& app);

}  // namespace aq
