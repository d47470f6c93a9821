#pragma once
// The platform's part in running the simulator: start it, find its window, close it.
// The program's logic around these three (names, retries, waits) is in AqRun.
#include <cstdint>
#include <string>

namespace aq {

class Simulator {
public:
    virtual ~Simulator() = default;
    // Starts `executable` with no arguments and `folder` as its current folder.
    // Returns the process id, or 0 when it could not be started.
    virtual std::uint32_t start(const std::string& executable, const std::string& folder) = 0;
    // The simulator window of process `processId`: 0 while it is not up, or after the
    // process has gone.
    virtual std::uint32_t findWindow(std::uint32_t processId) = 0;
    // Asks the window to close and returns once the simulator has dealt with it (saved
    // its pool and gone). A window that has gone is ignored.
    virtual void close(std::uint32_t window) = 0;
    // Ends process `processId` as close does, whether or not its window ever showed. A
    // simulator known only by its windows closes each window it still finds.
    virtual void closeProcess(std::uint32_t processId) {
        for (int i = 0; i < 16; ++i) {
            std::uint32_t window = findWindow(processId);
            if (window == 0) return;
            close(window);
        }
    }
    // Why the last start could not even try the simulator (a missing helper program),
    // in words for the user; "" when there is nothing to add.
    virtual std::string startProblem() const { return {}; }
};

// The simulators this system runs: on Windows through the Windows calls; elsewhere a
// Windows program through Wine and any other as a child process.
Simulator& systemSimulator();

// Child processes of a POSIX system. A started simulator counts as having a window once it
// has written the line "ready" to its standard output; closing it sends SIGTERM and waits
// for the process to end, and kills it when it outstays its grace.
Simulator& posixSimulator();

}  // namespace aq
