#include "series/Win32Simulator.h"

namespace aq {

std::uint32_t Win32Simulator::start(const std::string& executable, const std::string& folder) {
    std::uint32_t pid = 0;
    if (!api_.CreateProcessA(executable, folder, pid)) return 0;
    return pid;
}

std::uint32_t Win32Simulator::findWindow(std::uint32_t processId) {
    std::uint32_t start = api_.GetActiveWindow();
    // All four names every time: the last hit wins.
    for (const std::string& name : simulatorWindowClasses())
        if (std::uint32_t hit = api_.FindWindowA(name)) start = hit;
    std::uint32_t owner = 0;
    api_.GetWindowThreadProcessId(start, owner);
    if (owner == processId) return start;
    // Only downward from the start; running off the end of the Z order is not a stop but
    // a miss, and coming round to the start costs ten.
    std::uint32_t current = start;
    std::uint16_t misses = 0;
    for (;;) {
        api_.GetWindowThreadProcessId(current, owner);
        if (owner == processId) return current;
        current = api_.GetWindow(current, kGwHwndNext);
        if (current == 0) ++misses;
        if (current == start) misses += 10;
        if (misses > 100) return 0;
    }
}

void Win32Simulator::close(std::uint32_t window) { api_.SendMessageA(window, kWmClose, 0, 0); }

void Win32Simulator::closeProcess(std::uint32_t processId) {
    // Its windows first, so the simulator saves; a closed simulator leaves within the grace.
    Simulator::closeProcess(processId);
    api_.TerminateProcess(processId, 2000);
}

}  // namespace aq
