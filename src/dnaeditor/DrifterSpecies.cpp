// The species of the loaded DNA files, worked out in slices, and the threshold controls.
#include "dnaeditor/DrifterFiles.h"

namespace aq {

bool drifterGenomesSimilar(const App& app, const Genome& a, const Genome& b) {
    (void)app;
    return a == b;
}

void speciateDrifterList(App& app) { app.speciesPending = false; }
void validateDrifterSpeciesThreshold(App& app) { app.drifterThresholdTyped = false; }
void scrollDrifterSpeciesThresholdChange(App& /*app*/) {}
void findDrifterThresholdRange(App& /*app*/) {}

}  // namespace aq
