#include "pooleditor/SpeciesPass.h"

namespace aq {

// The species pass arrives with the species feature; until then nothing is pending work.
void speciatePoolList(App& app) { app.poolSpeciesPending = false; }
void validatePoolSpeciesThreshold(App& app) { app.poolThresholdTyped = false; }
void scrollPoolSpeciesThresholdChange(App& /*app*/) {}

}  // namespace aq
