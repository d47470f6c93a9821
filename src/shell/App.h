#pragma once
// The program's shared state: the six pools, the flags every tab reads, the three
// check-list boxes and the folder boxes. One App lives for the whole run; every
// operation takes it, so tests can build one with a scripted Ui and a manual clock.
#include <cstdint>
#include <functional>
#include <string>

#include "dnaeditor/DnaFolder.h"
#include "pool/Records.h"
#include "shell/CheckList.h"
#include "shell/Clock.h"
#include "shell/Ui.h"

namespace aq {

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

    // The folder the program runs from (settings and the simulator hand-over file live here).
    std::string programFolder;

    // Called after an operation changed state that widgets other than the lists show.
    std::function<void()> onStateChanged;
    void stateChanged() {
        if (onStateChanged) onStateChanged();
    }

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
