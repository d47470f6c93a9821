#pragma once
// What the series tab and the Pool Series Options menu hold, and the state a running
// series keeps between its steps. The window copies the user's changes in here as
// they happen, so a running series sees them at its next test; the series reports its
// own changes through onChange.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace aq {

class Simulator;

// The checks of the "Pool Series Options" menu and of the series tab.
struct SeriesOptions {
    bool chkPlague = false;
    bool chkGetSuc = false;
    bool chkBranchingSeries = true;
    // The frame "If the series already exists".
    enum class IfExists { Prompt, Continue, Overwrite } ifExists = IfExists::Continue;

    bool mNoStill = true;
    bool mNoOld = false;
    bool mSeriesGroup = false;
    std::string mSeriesGroupCaption = "&Group Drifters at Start";
    bool mFeedColor = false;
    std::string mFeedColorCaption = "Feed D&rifters by Color";
    bool mSeriesFeedAll = false;
    bool mSeriesFeedHungry = false;
    bool mSeriesFeedFed = false;
    bool mSeriesGatherFood = false;
    bool mSeriesCloneSuccessful = true;
    bool mRestoreYouth = false;
    bool mCloneWhenExtinct = true;
    bool mNoFoodEaten = false;
    bool mNoOffspring = false;
    bool mSeriesAddFood = true;
    bool mSeriesGravity = true;
    bool mSeriesNoMutantsBySegmentCount = false;
    bool mSeriesNoMutantsByBranching = false;
    bool mSeriesNoMutantsByColorOrder = false;
    bool mSeriesNoMutantsByColors = false;
    bool mSeriesDeleteStarters = false;
    bool mDrainEdge = false;
    bool mSeriesExtinction = false;
};

// The run controls of the series tab.
struct SeriesControls {
    static constexpr int kSliderMin = 7;
    static constexpr int kSliderMax = 1200;

    bool nowEnabled = true;  // cmdCreateSeriesNow
    bool stopEnabled = false;
    bool restartEnabled = false;
    bool nextEnabled = false;
    std::string focus;          // the control that should have the focus
    bool frameVisible = false;  // FrmTa(6) is on show
    int sliderTimeDelay = 500;  // seconds to run each pool
    bool selectRange = false;   // the slider's selection shows a run's progress
    int selStart = 0;
    int selLength = 0;
    int runSeconds = 0;  // seconds the present run has gone, as the tab shows them
    bool restartRequested = false;
    bool nextRequested = false;
};

// The simulator process as the program remembers it.
struct AqRunState {
    std::uint32_t simulatorProcessId = 0;
    std::uint32_t lastSimulatorWindow = 0;
    // Every process the running series has started and not yet seen closed: one that never
    // showed its window has no window to close it by.
    std::vector<std::uint32_t> startedProcesses;
    bool seriesRunning = false;  // a series is on, until its Finish has run
    std::string seriesFile;      // the file the present or the last series started from
    std::string runningSuffix;   // the pool the present series works on
};

struct SeriesState {
    SeriesOptions options;
    SeriesControls controls;
    AqRunState run;
    Simulator* simulator = nullptr;  // null: the system's child processes
    int pauseMs = 5;                 // rest between two yields of a wait, so a wait doesn't spin a core
    std::function<void()> onChange;  // the controls above changed under the series
    void changed() const {
        if (onChange) onChange();
    }
};

}  // namespace aq
