#include "series/AqRun.h"

#include <chrono>
#include <cmath>
#include <filesystem>
#include <thread>

#include "series/SeriesLinks.h"
#include "series/Simulator.h"

namespace aq {

namespace {

const char* const kSimulatorNames[] = {"Aquarium5.1.exe", "Aquarium5.exe", "Aquarium4.1.exe", "Aquarium4.exe",
                                       "Aquarium.exe"};

std::uint32_t startAt(App& app, const std::string& folder, const std::string& name, std::string& problem) {
    // The Wine helper is installed with the program's binaries, not in its data folder.
    const std::string& binaries = app.homeFolder.empty() ? app.programFolder : app.homeFolder;
    std::uint32_t pid = simulatorOf(app).start(series::joinPath(folder, name), binaries);
    if (std::string p = simulatorOf(app).startProblem(); !p.empty()) problem = p;
    return pid;
}

// The folder of the box, taken from the program's current folder when it is relative:
// the simulator starts in another folder, where a relative path would name another file.
std::string simulatorFolder(const std::string& box) {
    // Windows paths (a backslash or a drive) are left to the simulator that knows them.
    if (box.empty() || box.front() == '/' || box.find_first_of("\\:") != std::string::npos) return box;
    std::error_code ec;
    std::filesystem::path absolute = std::filesystem::absolute(box, ec);
    return ec ? box : absolute.lexically_normal().string();
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
    const std::string folder = simulatorFolder(app.comboAquariumPath);
    std::string problem;  // a found simulator that could not be run, in the user's words
    for (const char* name : kSimulatorNames) {
        std::string exe = name;
        // Here a simulator needs no ".exe", so each name is tried without it too.
        std::uint32_t pid = startAt(app, folder, exe, problem);
        if (pid == 0) pid = startAt(app, folder, exe.substr(0, exe.size() - 4), problem);
        if (pid != 0) {
            app.series.run.simulatorProcessId = pid;
            app.series.run.startedProcesses.push_back(pid);
            return pid;
        }
    }
    if (!problem.empty()) app.ui.ShowMessage(problem);
    app.ui.ShowMessage("Unable to start Aquarium.  Please select the correct Aquarium path and try again. " +
                       series::joinPath(folder, "Aquarium.exe"));
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

void closeStartedProcesses(App& app) {
    std::vector<std::uint32_t> started = std::move(app.series.run.startedProcesses);
    app.series.run.startedProcesses.clear();
    for (std::uint32_t pid : started) simulatorOf(app).closeProcess(pid);
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
    bool lost = false, checked = false;
    auto checkWindow = [&] {
        checked = true;
        if (getSimulatorWindow(app, pid) != 0) return;
        waitSince(app, now(app), 10.0, windowShown, pid);
        if (getSimulatorWindow(app, pid) == 0) {  // the simulator is gone
            resetButtons(app);
            lost = true;
        }
    };
    while (watching(c) && inTime()) {
        double segmentStart = now(app);
        while (watching(c) && inTime() && elapsedSeconds(segmentStart, now(app)) <= c.sliderTimeDelay / 3.0) {
            double shown = std::nearbyint(elapsedSeconds(runStart, now(app)));
            if (shown > SeriesControls::kSliderMax) shown = SeriesControls::kSliderMax;
            c.runSeconds = static_cast<int>(shown);
            shown -= SeriesControls::kSliderMin;
            if (shown < 0) shown = 0;
            c.selLength = static_cast<int>(shown);
            app.series.changed();
            waitSince(app, now(app), 1.0);
        }
        checkWindow();
    }
    // A run shorter than the start's grace has not looked for the window yet: a simulator
    // that never showed is noticed all the same, and its run did not happen.
    const bool lateCheck = !checked && watching(c);
    if (lateCheck) checkWindow();
    ranOnce = true;
    const std::uint32_t window = getSimulatorWindow(app, pid);
    closeSimulator(app, window);
    // Without a window the close reaches no one: the process itself is ended, so the
    // next run never overlaps it.
    if (window == 0) simulatorOf(app).closeProcess(pid);
    getSimulatorWindow(app, 0);
    if (lateCheck && lost) return RunOutcome::NotFinished;
    bool finished = elapsedSeconds(runStart, now(app)) >= c.sliderTimeDelay || c.nextRequested || c.restartRequested;
    return finished ? RunOutcome::Finished : RunOutcome::NotFinished;
}

}  // namespace aq
