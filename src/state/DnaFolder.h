#pragma once
// The loaded folder of DNA files and the state of the "Edit Drifter Files" tab's
// controls that the core sets: parallel arrays, one entry per file and per list line.
#include <cstdint>
#include <string>
#include <vector>

#include "format/DnaFile.h"
#include "base/Controls.h"

namespace aq {

struct ScrollBarState {
    int min = 0;
    int max = 0;
    int pos = 0;
    bool visible = true;
};

// The gene panel beside the list: one gene of all ticked files.
struct GenePanelState {
    std::string txtGene = "0";
    ScrollBarState VsGeneValue{0, 255, 128, true};
    ScrollBarState VsGeneRange{1, 255, 2, true};
    std::string lblGeneRange = "Use the scrollbars to change the numeric value of the chosen gene.";
    bool cmdZeroGeneEnabled = true;
};

// The species pass's state, kept from slice to slice.
struct DrifterSpeciesPass {
    bool passRunning = false;
    std::int32_t passIndex = 0;
    std::int32_t passStart = 0;
    std::int16_t lastIndex = 0;
    std::int16_t groupNumber = 0;
    std::int16_t maxGroup = -1;
    float sliceStart = 0;
    bool noticeShown = false;
    std::int16_t patience = 0;
};

struct DnaFolder {
    std::int32_t dnaCount = 0;
    std::vector<Genome> dnaGenes;
    std::vector<std::string> dnaPaths;
    std::vector<std::uint8_t> dnaChanged;  // 1 while the genome has edits no file holds
    std::string dnaFolder;

    int comboSpeciateDrifterGroup = 2;  // 2: "Click selects entire extended species."
    ScrollBarState scrollDrifterSpeciesThreshold{0, 1000, 965, true};
    std::vector<std::string> thresholdItems{"5",  "10", "20", "30", "35", "40", "45", "50", "55", "60", "65",
                                            "70", "75", "80", "85", "90", "92", "94", "96", "98", "100"};
    std::string thresholdText = "96.5%";  // the text of comboDrifterSpeciesThreshold
    int thresholdCaret = 0;
    ProgressBarState drifterProgressBar1;
    GenePanelState gene;
    DrifterSpeciesPass pass;
};

}  // namespace aq
