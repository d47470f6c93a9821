#pragma once
// The simulator as a Windows program: started with CreateProcessA, its window looked
// up by the simulator's class names and a walk down the Z order, closed with WM_CLOSE;
// a process that outlives its windows, or never had one, is terminated.
#include <array>

#include "format/WindowClasses.h"
#include "series/Simulator.h"
#include "series/Win32Api.h"

namespace aq {

class Win32Simulator : public Simulator {
public:
    explicit Win32Simulator(Win32Api& api) : api_(api) {}
    std::uint32_t start(const std::string& executable, const std::string& folder) override;
    std::uint32_t findWindow(std::uint32_t processId) override;
    void close(std::uint32_t window) override;
    void closeProcess(std::uint32_t processId) override;

private:
    Win32Api& api_;
};

}  // namespace aq
