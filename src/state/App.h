#pragma once
// The program's shared state: the six pools, the flags every tab reads, the three
// check-list boxes and the folder boxes. One App lives for the whole run; every
// operation takes it, so tests can build one with a scripted Ui and a manual clock.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "state/ArchiveOptions.h"
#include "state/DnaFolder.h"
#include "format/Records.h"
#include "state/PoolFileImages.h"
#include "state/SeriesState.h"
#include "base/CheckList.h"
#include "base/Clock.h"
#include "base/Notice.h"
#include "base/Controls.h"
#include "base/Ui.h"

namespace aq {

// What a file dialog keeps between calls: whether it was used, its title and start folder.
struct FileDialogMemory {
    bool used = false;
    std::string title, folder;
};

struct App {
    App(Ui& ui, Clock& clock) : ui(ui), clock(clock) {}
    App(const App&) = delete;
    App& operator=(const App&) = delete;

    Ui& ui;
    Clock& clock;

    // The six pools. Assignment between them is a full copy.
    Pool openPool;     // what the editing tabs show and change
    Pool workPool;     // the file image the reader fills and the writer writes
    Pool defaultPool;  // the embedded pool, never changed after start-up
    Pool undoPool;     // scratch of the merges and the save-as-new-pool commands
    Pool tempPool;     // scratch of the bulk edits
    Pool keepPool;     // holds workPool while a merge uses it
    bool defaultPoolUsable = false;

    // Shared flags.
    std::string openPoolPath;
    bool poolChanged = false;
    bool poolLoaded = false;
    // What the pool files read or written hold, and how many times a file was read
    // into openPool: the undo history tells a load from an edit by it.
    PoolFileImages poolFiles;
    std::uint64_t poolReads = 0;
    bool uiBusy = false;
    bool poolSpeciesPending = false;
    bool speciesPending = false;
    bool dnaLoaded = false;
    std::int16_t similarityDepth = 100;
    bool quickSpeciate = true;  // the check of mQuickSpec
    float poolThreshold = 44.4f;
    float foodThreshold = 88.8f;
    float drifterThreshold = 96.5f;
    bool poolThresholdTyped = false, foodThresholdTyped = false, drifterThresholdTyped = false;
    double lastThresholdEdit = 0;
    double lastHelpMove = 0;
    // Series selections that are not plain menu checks; -1 is off.
    int feedColor = -1, feedMode = -1, groupMode = -1;

    // The three folder boxes.
    std::string comboAquariumPath, comboDrifterPath, comboPoolPath;

    // The check-list boxes: row i is record i.
    CheckList lstSpeciatePool;
    CheckList lstPoolFood;
    CheckList lstSpeciateDrifters;

    // Selected entry of comboSpeciatePoolGroup0 (2 is "extended species.").
    int comboSpeciatePoolGroup0 = 1;

    // The folder of the program's data: settings and the simulator hand-over file. It is
    // the program's own folder unless that one is not writable.
    std::string programFolder;
    // The program's own folder, where the folder search and the file dialogs start; empty
    // when it is programFolder.
    std::string homeFolder;

    // Pool drifter editor: the species pass (kept between slices), its threshold
    // controls, the progress bar and the four sliders of the selection box.
    bool poolPassRunning = false;
    std::int32_t poolPassIndex = 0;
    std::int16_t poolLastIndex = 0;
    std::int16_t poolMaxGroup = -1;
    float poolSliceStart = 0;
    std::int32_t poolPassStart = 0;
    bool poolNoticeShown = false;
    std::int16_t poolPatience = 0;
    // The threshold and depth the species numbers of lstSpeciatePool were worked out at.
    float poolTagsThreshold = 44.4f;
    std::int16_t poolTagsDepth = 100;
    int scrollPoolSpeciesThreshold = 444;
    std::string txtPoolSpeciesThreshold = "44.4";
    ProgressBarState PoolProgressBar1;
    SliderState SliderSpeciatePoolDrifterX{-4000, 4000, 0, 400, true};
    SliderState SliderSpeciatePoolDrifterY{-4000, 4000, 0, 400, true};
    SliderState SliderSpeciatePoolDrifterWidth{20, 8000, 20, 399, true};
    SliderState SliderSpeciatePoolDrifterHeight{20, 8000, 20, 399, true};
    bool lblSpeciatePoolDrifterX = true, lblSpeciatePoolDrifterY = true;
    bool lblSpeciatePoolDrifterWidth = true, lblSpeciatePoolDrifterHeight = true;
    // The selection sentence after comboSpeciatePoolGroup0: Bool0, Group1, Bool1, Group2,
    // Bool2, Group3 (-1: nothing selected), and which of the seven controls are enabled.
    int comboSpeciatePoolSentence[6] = {-1, 13, -1, 6, -1, 8};
    bool poolSentenceEnabled[7] = {true, true, false, false, false, false, false};

    // Food editor: the group mode, the proximity threshold controls and the four
    // sliders of the food selection box.
    int comboFoodGroup = 1;  // 0 individual, 1 family, 2 proximity
    int scrollFoodThreshold = 888;
    std::string txtFoodThreshold = "88.8";
    SliderState SliderFoodX{-4000, 4000, 0, 400, true};
    SliderState SliderFoodY{-4000, 4000, 0, 400, true};
    SliderState SliderFoodWidth{20, 8000, 20, 399, true};
    SliderState SliderFoodHeight{20, 8000, 20, 399, true};
    bool lblFoodX = true, lblFoodY = true, lblFoodWidth = true, lblFoodHeight = true;

    // Pool series: its options, the run controls of its tab and the simulator.
    SeriesState series;

    // Called after an operation changed state that widgets other than the lists show.
    std::function<void()> onStateChanged;
    void stateChanged() {
        if (onStateChanged) onStateChanged();
    }

    // Shell: folder box lists, name and dialog memory, settings text, the notice window.
    std::vector<std::string> comboAquariumPathItems, comboDrifterPathItems, comboPoolPathItems;
    std::string lastBase, lastDigit;     // nextNumberedName's memory
    FileDialogMemory destDialog;         // locateDestFile's dialog
    FileDialogMemory sourceDialog;       // locateSourceFile's dialog
    std::string settingsText;            // what aqfm.ini holds or will hold
    ArchiveOptions archive;              // the archive tab's controls
    Notice noNotice;
    Notice* notice = &noNotice;          // the window sets its dlgNotification here

    // Drifter files tab: the loaded DNA folder and the controls its operations set.
    DnaFolder dna;
};

// Sets uiBusy for a scope and gives it back its old value after.
class BusyScope {
public:
    explicit BusyScope(App& app) : app_(app), saved_(app.uiBusy) { app_.uiBusy = true; }
    ~BusyScope() { app_.uiBusy = saved_; }
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;

private:
    App& app_;
    bool saved_;
};

}  // namespace aq
