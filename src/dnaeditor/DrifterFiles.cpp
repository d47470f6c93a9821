#include "dnaeditor/DrifterFiles.h"

namespace aq {

// The drifter files tab fills these in.
void speciateDrifterList(App& app) { app.speciesPending = false; }
void validateDrifterSpeciesThreshold(App& app) { app.drifterThresholdTyped = false; }
void scrollDrifterSpeciesThresholdChange(App& /*app*/) {}
void saveChangedDrifterFiles(App& /*app*/, bool /*closing*/, bool /*selectedOnly*/) {}

}  // namespace aq
