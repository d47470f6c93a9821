#include "series/AqRun.h"

#include <chrono>
#include <cmath>
#include <thread>

#include "series/SeriesLinks.h"
#include "series/Simulator.h"

namespace aq {

namespace {

const char* const kSimulatorNames[] = {"Aquarium5.1.exe", "Aquarium5.exe", "Aquarium4.1.exe", "Aquarium4.exe",
                                       "Aquarium.exe"};

std::uint32_t startAt(App& app, const std::string& name, std::string& problem) {
    std::string path = series::joinPath(app.comboAquariumPath, name);
    std::uint32_t pid = simulatorOf(app).start(path, app.programFolder);
    if (std::string p = simulatorOf(app).startProblem(); !p.empty()) problem = p;
    return pid;
}

bool windowShown(App& app, std::uint32_t pid) { return getSimulatorWindow(app, pid) != 0; }

double now(App& app) { return app.clock.secondsSinceMidnight(); }

// The watch goes on while the series is not stopped and no button asked to end the run.
bool watching(const SeriesControls& c) {
    return (c.stopEnabled || !c.frameVisible) && !c.restartRequested && !c.nextRequested;
}

void resetButtons(App& app) {
    SeriesControls& c = app.series.controls;
    c.nowEnabled = true;
    c.stopEnabled = c.restartEnabled = c.nextEnabled = false;
    c.focus = "cmdCreateSeriesNow";
    app.series.changed();
}

}  // namespace

Simulator& simulatorOf(App& app) { return app.series.simulator ? *app.series.simulator : systemSimulator(); }

std::uint32_t startSimulator(App& app) {
    std::string problem;  // a found simulator that could not be run, in the user's words
    for (const char* name : kSimulatorNames) {
        std::string exe = name;
        // Here a simulator needs no ".exe", so each name is tried without it too.
        std::uint32_t pid = startAt(app, exe, problem);
        if (pid == 0) pid = startAt(app, exe.substr(0, exe.size() - 4), problem);
        if (pid != 0) {
            app.series.run.simulatorProcessId = pid;
            return pid;
        }
    }
    if (!problem.empty()) app.ui.ShowMessage(problem);
    app.ui.ShowMessage("Unable to start Aquarium.  Please select the correct Aquarium path and try again. " +
                       series::joinPath(app.comboAquariumPath, "Aquarium.exe"));
    return 0;
}

std::uint32_t findSimulatorWindow(App& app, std::uint32_t processId) {
    if (processId == 0) return 0;
    return simulatorOf(app).findWindow(processId);
}

std::uint32_t getSimulatorWindow(App& app, std::uint32_t processId) {
    AqRunState& s = app.series.run;
    if (processId == 0) {
        s.lastSimulatorWindow = 0;
        return 0;
    }
    std::uint32_t found = findSimulatorWindow(app, processId);
    if (found != 0) s.lastSimulatorWindow = found;
    return s.lastSimulatorWindow;
}

void closeSimulator(App& app, std::uint32_t window) {
    if (window != 0)
        simulatorOf(app).close(window);
    else
        closeProcessWindows(app, app.series.run.simulatorProcessId);
}

void closeProcessWindows(App& app, std::uint32_t processId) {
    for (std::uint32_t w = findSimulatorWindow(app, processId); w != 0; w = findSimulatorWindow(app, processId))
        simulatorOf(app).close(w);
}

void waitSince(App& app, double start, double seconds, bool (*until)(App&, std::uint32_t), std::uint32_t arg) {
    while (elapsedSeconds(start, now(app)) <= seconds) {
        if (until && until(app, arg)) return;
        app.ui.YieldToUi();
        if (app.series.pauseMs > 0) std::this_thread::sleep_for(std::chrono::milliseconds(app.series.pauseMs));
    }
}

RunOutcome runPoolInSimulator(App& app, double& runStart, bool& ranOnce) {
    SeriesControls& c = app.series.controls;
    std::uint32_t pid = startSimulator(app);
    for (int pass = 0; pass < 5 && getSimulatorWindow(app, pid) == 0; ++pass) waitSince(app, now(app), 2.0);
    if (pid == 0) {
        app.ui.ShowMessage(
            "Aquarium could not be found at the specified location.  Please select the correct Aquarium program "
            "path in the field provided.");
        return RunOutcome::NoSimulator;
    }
    runStart = now(app);
    // A slow start gets up to 20 seconds before the watch begins; these waits run out
    // their time even when the window turns up.
    for (double limit : {7.0, 15.0, 20.0}) {
        if (getSimulatorWindow(app, pid) != 0) break;
        waitSince(app, runStart, limit);
    }
    auto inTime = [&] { return elapsedSeconds(runStart, now(app)) <= c.sliderTimeDelay; };
    while (watching(c) && inTime()) {
        double segmentStart = now(app);
        while (watching(c) && inTime() && elapsedSeconds(segmentStart, now(app)) <= c.sliderTimeDelay / 3.0) {
            double shown = std::nearbyint(elapsedSeconds(runStart, now(app)));
            if (shown > SeriesControls::kSliderMax) shown = SeriesControls::kSliderMax;
            shown -= SeriesControls::kSliderMin;
            if (shown < 0) shown = 0;
            c.selLength = static_cast<int>(shown);
            app.series.changed();
            waitSince(app, now(app), 1.0);
        }
        if (getSimulatorWindow(app, pid) == 0) {
            waitSince(app, now(app), 10.0, windowShown, pid);
            if (getSimulatorWindow(app, pid) == 0) resetButtons(app);  // the simulator is gone
        }
    }
    ranOnce = true;
    closeSimulator(app, getSimulatorWindow(app, pid));
    getSimulatorWindow(app, 0);
    bool finished = elapsedSeconds(runStart, now(app)) >= c.sliderTimeDelay || c.nextRequested || c.restartRequested;
    return finished ? RunOutcome::Finished : RunOutcome::NotFinished;
}

}  // namespace aq
