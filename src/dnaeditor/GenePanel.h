#pragma once
// The gene panel: one gene of all ticked DNA files, shifted or spread as a whole.
#include <optional>
#include <string>

#include "state/App.h"

namespace aq {

// The gene a txtGene text chooses: | round(n + 1000) mod 1000 |, so "-1" is 999.
int chosenGene(const std::string& text);
// cmdIncGene / cmdDecGene: the text's number plus `delta`, " 5" or "-1".
std::optional<std::string> steppedGeneText(const std::string& text, int delta);

// Brings the scrollbars and the caption in step with the ticked files.
void setGeneSliders(App& app);
// The handlers of VsGeneValue and VsGeneRange, after the tab stored the new position.
void ShiftGeneValues(App& app);
void ScaleGeneSpread(App& app);

// Focus hints of the two scrollbars.
void geneScrollFocus(App& app, bool rangeBar, bool gained);

}  // namespace aq
