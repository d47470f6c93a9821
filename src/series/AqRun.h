#pragma once
// Starting, finding and closing the simulator, and the timed run of one pool.
#include <cstdint>

#include "state/App.h"

namespace aq {

inline constexpr const char* kHandOverFileName = "recent_pool_version_4.aqp";

// The simulator the series uses: the one set in app.series, else the system's.
Simulator& simulatorOf(App& app);

// Tries the simulator's names in the folder of comboAquariumPath; the process id, or 0
// after telling the user.
std::uint32_t startSimulator(App& app);
std::uint32_t findSimulatorWindow(App& app, std::uint32_t processId);
// findSimulatorWindow that remembers its last hit; processId 0 forgets it.
std::uint32_t getSimulatorWindow(App& app, std::uint32_t processId);
void closeSimulator(App& app, std::uint32_t window);
void closeProcessWindows(App& app, std::uint32_t processId);
// Ends every process the series has started, by its id.
void closeStartedProcesses(App& app);

// Waits, letting the window work, until more than `seconds` have passed since `start`
// or `until` (when given) holds.
void waitSince(App& app, double start, double seconds, bool (*until)(App&, std::uint32_t) = nullptr,
               std::uint32_t arg = 0);

enum class RunOutcome { Finished, NotFinished, NoSimulator };

// The timed run of the pool already written to the hand-over file: start, watch,
// close. `runStart` receives the moment the run began.
RunOutcome runPoolInSimulator(App& app, double& runStart, bool& ranOnce);

}  // namespace aq
