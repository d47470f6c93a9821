#include "series/EvolveSeries.h"

#include "files/PoolOps.h"
#include "series/AqRun.h"
#include "series/SeriesLinks.h"
#include "series/SeriesNames.h"

namespace aq {

namespace {

void setButtons(App& app, bool running) {
    SeriesControls& c = app.series.controls;
    c.nowEnabled = !running;
    c.stopEnabled = c.restartEnabled = c.nextEnabled = running;
    c.focus = running ? "cmdCreateSeriesStop" : "cmdCreateSeriesNow";
    app.series.changed();
}

// One series from its first file to its end. Returning from run() is the Finish.
class SeriesRun {
public:
    explicit SeriesRun(App& app)
        : app_(app),
          c_(app.series.controls),
          o_(app.series.options),
          w_(app.workPool),
          handOver_(series::joinPath(app.programFolder, kHandOverFileName)) {}

    void run() {
        std::string currentFile;
        if (c_.stopEnabled)
            currentFile =
                series::locateSourceFile(app_, app_.comboPoolPath, "", "aqp", "Aquarium Files", "Select Pool File");
        seriesFile_ = currentFile;
        if (!seriesFile_.empty()) app_.series.run.seriesFile = seriesFile_;
        c_.selectRange = true;
        c_.selStart = SeriesControls::kSliderMin;
        app_.series.changed();
        while (c_.stopEnabled || !c_.frameVisible) {
            if (!cycle(currentFile)) return;
        }
        c_.selLength = c_.runSeconds = 0;
        c_.selStart = SeriesControls::kSliderMax;
        c_.selectRange = false;
        app_.series.changed();
    }

private:
    bool branching() const { return o_.chkBranchingSeries; }

    // One pass of the cycle; false ends the series.
    bool cycle(std::string& currentFile) {
        if (extinctionRetries_ > 150) return false;
        c_.nextRequested = c_.restartRequested = false;
        if (currentFile.empty()) return false;
        if (o_.ifExists == SeriesOptions::IfExists::Continue)
            while (!isOffspringMissing(seriesFile_, suffix_, 0, branching()) &&
                   !isOffspringMissing(seriesFile_, suffix_, 1, branching()))
                suffix_ = getNextParent(suffix_, branching());
        const bool keptBusy = app_.uiBusy;
        app_.uiBusy = true;
        currentFile = seriesFileName(seriesFile_, suffix_);
        app_.series.run.runningSuffix = suffix_;
        loadPoolFile(app_, currentFile, false);
        if (o_.chkPlague && w_.drifterCount > 100) series::applyPlague(app_);
        if (lastDrifterCount_ == 0 && o_.chkGetSuc) {
            WaitCursor wait(app_.ui);
            series::reseedRandomFromClock(app_);
            series::HarvestSuccessful(app_, series::folderOfPath(seriesFile_), 0, 200, false, true);
            series::prepareHarvest(app_, 2500.0);
        }
        if (o_.mSeriesGravity) series::gravitateToCenter(app_, 10.0, true, true);

        double runStart = 0;
        bool finished;
        if (w_.drifterCount <= 0 && extinctionRetries_ > 0 && extinctionRetries_ < 20) {
            // An extinct file on a retry: no run, the last hand-over file is read again.
            app_.uiBusy = keptBusy;
            ranOnce_ = true;
            closeSimulator(app_, getSimulatorWindow(app_, simulatorPid_));
            getSimulatorWindow(app_, 0);
            finished = elapsedSeconds(runStart, app_.clock.secondsSinceMidnight()) >= c_.sliderTimeDelay ||
                       c_.nextRequested || c_.restartRequested;
        } else {
            if (w_.drifterCount > 0) multiplyForRetries(currentFile);
            switch (checkLoaded(currentFile)) {
                case Loaded::Finish:
                    return false;
                case Loaded::NextPool:
                    return true;
                case Loaded::Run:
                    break;
            }
            app_.uiBusy = keptBusy;
            prepare();
            currentFile = handOver_;
            savePoolFile(app_, handOver_, false);
            clockAtStart_ = static_cast<float>(w_.clock);
            RunOutcome outcome = runPoolInSimulator(app_, runStart, ranOnce_);
            simulatorPid_ = app_.series.run.simulatorProcessId;
            if (outcome == RunOutcome::NoSimulator) return false;
            finished = outcome == RunOutcome::Finished;
        }
        if (!finished) return true;
        readBack(currentFile);
        return true;
    }

    // The pool holds the file's drifters about once more per retry, each time younger.
    void multiplyForRetries(const std::string& currentFile) {
        int i = 1;
        while (i <= extinctionRetries_) {
            series::halveAges(app_);
            if (2 * i < extinctionRetries_) {
                savePoolFile(app_, handOver_, false);
                series::mergePoolFile(app_, true, true, handOver_);
                i *= 2;
            } else {
                series::mergePoolFile(app_, true, true, currentFile);
                ++i;
            }
        }
        if (!o_.mSeriesExtinction && extinctionRetries_ > 0) series::feedPool(app_, true, true, false, true, false);
    }

    enum class Loaded { Run, Finish, NextPool };

    Loaded checkLoaded(std::string& currentFile) {
        if (o_.chkGetSuc && w_.drifterCount < 1) harvest();
        if (ranOnce_ && w_.foodCount < 26) series::mergePoolFile(app_, false, true, currentFile);
        if (w_.drifterCount < 0 && w_.foodCount < 0) {
            currentFile.clear();
            app_.ui.ShowMessage("Nothing to Load");
            return Loaded::Finish;
        }
        if (o_.mSeriesExtinction && w_.drifterCount <= 0) {
            if (!branching()) {
                app_.ui.ShowMessage(currentFile +
                                    "\r\n\r\nAll animate life is extinct in this pool. There are no drifters to load.");
                return Loaded::Finish;
            }
            if (app_.ui.AskYesNo(currentFile +
                                 "\r\n\r\nAll animate life in is extinct this pool. There are no drifters "
                                 "to load. Continue the series anyway?") != Answer::Yes)
                return Loaded::Finish;
            suffix_ = getNextParent(suffix_, branching());
            return Loaded::NextPool;
        }
        if (!o_.mSeriesExtinction && w_.drifterCount <= 0) {
            if (o_.chkGetSuc) harvest();
            if (w_.drifterCount <= 0) {
                currentFile.clear();
                app_.ui.ShowMessage("Unable to Load Drifters.");
                return Loaded::Finish;
            }
        }
        if (w_.foodCount <= 0) {
            series::mergePoolFile(app_, false, true, seriesFile_);
            if (w_.foodCount <= 0) {
                currentFile.clear();
                app_.ui.ShowMessage("Error Loading Food.");
                return Loaded::Finish;
            }
        }
        return Loaded::Run;
    }

    void harvest() {
        WaitCursor wait(app_.ui);
        series::HarvestSuccessful(app_, series::folderOfPath(seriesFile_), 0, 200, true, false);
        series::prepareHarvest(app_, 2500.0);
    }

    // The steps between load and run that the options switch on.
    void prepare() {
        if (o_.mNoStill) {
            series::markStillborns(app_);
            series::ensureMinimumDrifters(app_, 1);
            series::deleteDeadDrifters(app_, false);
        }
        if (o_.mNoOld) {
            series::sortDrifters(app_, false);
            series::limitLiveDrifters(app_, 1000);
            series::deleteDeadDrifters(app_, false);
        }
        if (o_.mSeriesFeedHungry || o_.mSeriesFeedFed || o_.mSeriesAddFood)
            series::feedPool(app_, o_.mSeriesFeedHungry, o_.mSeriesFeedFed, o_.mSeriesAddFood, false, false);
        if (app_.feedColor >= 0 && app_.feedMode >= 0) series::feedByColor(app_, app_.feedColor, app_.feedMode);
        if (o_.mSeriesGroup || o_.mSeriesFeedAll || o_.mSeriesGatherFood)
            series::groupDriftersAtStart(app_, o_.mSeriesGroup, o_.mSeriesFeedAll, o_.mSeriesGatherFood,
                                         extinctionRetries_, app_.groupMode);
        if (o_.mRestoreYouth) series::restoreYouth(app_);
        if (o_.mNoFoodEaten || o_.mNoOffspring)
            series::resetCounters(app_, o_.mNoFoodEaten, o_.mNoOffspring, o_.mNoOffspring);
        if (o_.mDrainEdge) series::drainEdgeEnergy(app_);
    }

    // After a finished run: the evolved pool, its clean-up, and storing it.
    void readBack(std::string& currentFile) {
        currentFile = handOver_;
        loadPoolFile(app_, handOver_, false);
        lastDrifterCount_ = static_cast<std::int16_t>(w_.drifterCount);
        double ran = static_cast<double>(w_.clock) - clockAtStart_;
        if (series::countYoungerThan(app_, ran - 10) > 4 && o_.mSeriesDeleteStarters)
            series::deleteStarters(app_, ran - 9);
        if (o_.mSeriesNoMutantsBySegmentCount || o_.mSeriesNoMutantsByBranching || o_.mSeriesNoMutantsByColorOrder ||
            o_.mSeriesNoMutantsByColors) {
            series::sortDrifters(app_, true);
            series::poolMutants(app_, true, false, !o_.mNoStill, o_.mSeriesNoMutantsBySegmentCount,
                                o_.mSeriesNoMutantsByBranching, o_.mSeriesNoMutantsByColorOrder,
                                o_.mSeriesNoMutantsByColors, false);
            series::ensureMinimumDrifters(app_, 1);
            series::deleteDeadDrifters(app_, false);
        }
        if (o_.mCloneWhenExtinct || o_.chkGetSuc) {
            if (w_.drifterCount == 0) {
                c_.restartRequested = true;
                ++extinctionRetries_;
            } else {
                extinctionRetries_ = 0;
            }
        }
        const bool allow = o_.mSeriesExtinction, clone = o_.mCloneWhenExtinct;
        if ((allow && extinctionRetries_ > 2) || (w_.drifterCount > 0 && !c_.restartRequested) || (allow && !clone)) {
            saveoffspring(app_, seriesFile_, suffix_);
            suffix_ = getNextParent(suffix_, branching());
            extinctionRetries_ = 0;
        }
        currentFile = seriesFileName(seriesFile_, suffix_);
    }

    App& app_;
    SeriesControls& c_;
    const SeriesOptions& o_;
    Pool& w_;
    const std::string handOver_;
    std::string seriesFile_;
    std::string suffix_;
    std::int16_t extinctionRetries_ = 0;
    std::int16_t lastDrifterCount_ = -1;
    bool ranOnce_ = false;
    float clockAtStart_ = 0;
    std::uint32_t simulatorPid_ = 0;
};

}  // namespace

void EvolvePoolSeries(App& app, const std::string&, bool) {
    const bool busyAtStart = app.uiBusy;
    app.series.run.seriesRunning = true;
    SeriesRun(app).run();
    // Finish: whatever ended the series.
    closeSimulator(app, 0);
    closeStartedProcesses(app);
    setButtons(app, false);
    getSimulatorWindow(app, 0);
    app.uiBusy = busyAtStart;
    app.series.run.seriesRunning = false;
}

void cmdCreateSeriesNowClick(App& app) {
    // After Stop the series still unwinds (a run's waits, the close); a click meanwhile
    // would start a second series, and a second simulator, inside the first.
    if (app.series.run.seriesRunning) return;
    setButtons(app, true);
    EvolvePoolSeries(app, "", false);
    app.ui.YieldToUi();
}

void cmdCreateSeriesStopClick(App& app) { setButtons(app, false); }

void cmdCreateSeriesRestartClick(App& app) { app.series.controls.restartRequested = true; }

void cmdCreateSeriesNextClick(App& app) { app.series.controls.nextRequested = true; }

}  // namespace aq
