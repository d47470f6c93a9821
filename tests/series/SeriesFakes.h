#pragma once
// An in-process simulator and a Ui whose yields move a manual clock, so whole series
// run in virtual time; small pools of given drifters.
#include <cstdlib>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "format/PoolFile.h"
#include "series/AqRun.h"
#include "series/SeriesLinks.h"
#include "series/Simulator.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"

namespace aqtest {

class FakeSimulator : public aq::Simulator {
public:
    std::set<std::string> executables;  // paths that start
    std::vector<std::string> tried;     // every path start was asked for
    std::vector<std::string> closes;    // "close <window>" in order
    std::string folderSeen;
    ManualClock* clock = nullptr;
    double windowAfter = 1.0;  // seconds from start until the window is up
    double diesAfter = -1;     // seconds from start until the process dies; < 0 never
    std::function<void(aq::Pool&)> evolve = [](aq::Pool& p) {
        p.clock += 100;
        for (int i = 0; i < p.drifterCount; ++i) p.drifters[i].age += 100;
    };
    int starts = 0;
    bool overlap = false;  // a start came while the last one still ran

    std::uint32_t start(const std::string& exe, const std::string& folder) override {
        tried.push_back(exe);
        if (!executables.count(exe)) return 0;
        if (running) overlap = true;
        folderSeen = folder;
        ++starts;
        pid = 1000 + static_cast<std::uint32_t>(starts);
        startedAt = clock->seconds;
        running = true;
        return pid;
    }
    std::uint32_t findWindow(std::uint32_t processId) override {
        if (!running || processId != pid) return 0;
        double age = clock->seconds - startedAt;
        if (diesAfter >= 0 && age >= diesAfter) {
            running = false;
            return 0;
        }
        return age >= windowAfter ? pid + 5000 : 0;
    }
    void close(std::uint32_t window) override {
        closes.push_back("close " + std::to_string(window));
        if (!running || window != pid + 5000) return;
        std::string path = folderSeen + "/" + aq::kHandOverFileName;
        aq::Pool p;
        if (aq::readPool(path, p).status == aq::PoolReadStatus::Ok) {
            evolve(p);
            aq::writePool(path, p);
        }
        running = false;
    }
    void closeProcess(std::uint32_t processId) override {
        closes.push_back("end " + std::to_string(processId));
        if (processId == pid) running = false;
    }
    bool isRunning() const { return running; }

private:
    std::uint32_t pid = 0;
    double startedAt = 0;
    bool running = false;
};

// The two messages of a simulator that can't be started from `folder`.
inline ScriptedUi& expectNoSimulator(ScriptedUi& ui, const std::string& folder) {
    return ui
        .message("Unable to start Aquarium.  Please select the correct Aquarium path and try again. " +
                 aq::series::joinPath(folder, "Aquarium.exe"))
        .message(
            "Aquarium could not be found at the specified location.  Please select the correct Aquarium program "
            "path in the field provided.");
}

// Each yield moves the clock on and gives the test a chance to press a button.
class TickingUi : public ScriptedUi {
public:
    ManualClock& clock;
    double step = 0.5;
    std::function<void()> onYield;
    explicit TickingUi(ManualClock& c) : clock(c) {}
    void YieldToUi() override {
        ScriptedUi::YieldToUi();
        clock.advance(step);
        if (onYield) onYield();
    }
};

// An App on a manual clock whose Ui plays a script.
struct UiRig {
    ManualClock clock;
    ScriptedUi ui;
    aq::App app{ui, clock};
};

// The clock, the ticking Ui and the fake simulator wired into one App.
struct SimRig {
    ManualClock clock;
    TickingUi ui{clock};
    aq::App app{ui, clock};
    FakeSimulator sim;
    SimRig() {
        sim.clock = &clock;
        app.series.simulator = &sim;
        app.series.pauseMs = 0;
    }
};

#ifndef _WIN32
// An environment variable for the length of a test, inherited by the processes it starts.
struct EnvVar {
    std::string name;
    EnvVar(const char* n, const std::string& value) : name(n) { ::setenv(n, value.c_str(), 1); }
    ~EnvVar() { ::unsetenv(name.c_str()); }
};
#endif

inline std::vector<int> idsOf(const aq::Pool& p) {
    std::vector<int> ids;
    for (int i = 0; i < p.drifterCount; ++i) ids.push_back(p.drifters[i].id);
    return ids;
}

}  // namespace aqtest
