#pragma once
// The loaded folder of DNA files as one population: loading, the list, its
// species, the group ticks and the threshold controls.
#include <string>

#include "state/App.h"

namespace aq {

// Writes dnaGenes[index] to `path`; shows the program's message on failure.
bool saveDrifterFile(App& app, const std::string& path, int index);

// mLoadDrifter, and the first focus on the empty list: loads comboDrifterPath's folder.
void initiateLoadDrifterArchive(App& app);
// Reads every "*.dna" file of `folder` (any case), in name order, into the arrays.
void loadDrifterFiles(App& app, const std::string& folder);
void populateSpeciateDriftersList(App& app);
// Shows a folder just loaded or imported: new lines, a new species pass, the gene panel.
void showNewDnaList(App& app);
void restoreDrifterSpeciateScroll(App& app);

// The user's tick on line `row` of lstSpeciateDrifters.
void ApplyDrifterGroup(App& app);
void InvertDrifterSelection(App& app);
// A new choice in comboSpeciateDrifterGroup.
void setDrifterGroupMode(App& app, int mode);

// Similar at the drifter tab's threshold and the shared similarity depth.
bool drifterGenomesSimilar(const App& app, const Genome& a, const Genome& b);

// One slice of the species pass over lstSpeciateDrifters.
void speciateDrifterList(App& app);
void validateDrifterSpeciesThreshold(App& app);
void scrollDrifterSpeciesThresholdChange(App& app);
// Moves scrollDrifterSpeciesThreshold (within its present range); its handler runs on a change.
void setDrifterThresholdPosition(App& app, int position);
// A keystroke or choice in comboDrifterSpeciesThreshold: the text is read later by the timer.
void typeDrifterSpeciesThreshold(App& app, const std::string& text, int caret);
void findDrifterThresholdRange(App& app);

// Offers to save the changed DNA files (at shutdown with `closing`).
void saveChangedDrifterFiles(App& app, bool closing, bool selectedOnly);
void MoveDrifterFilesCommand(App& app);
void deleteSelectedDrifterSpecies(App& app);
void moveSelectedDrifterFiles(App& app, bool removeEntries, bool touchFiles, bool moveFiles);

// mImportDrifters: the drifters of the open pool or of a pool file join the list.
void importDrifters(App& app);
void importDriftersFromAquarium(App& app);
// Positions below similarityDepth at which the two genomes differ.
int GeneDifferences(const App& app, const Genome& a, const std::uint8_t* b);

}  // namespace aq
