#pragma once
// A Windows simulator run here through Wine. The seven Windows calls are made inside Wine
// by a small broker, aqwinctl.exe, which answers one request per line on its standard
// input and output; the lookup and close logic on top of them is Win32Simulator's.
#include <string>

#include "series/Simulator.h"

namespace aq {

// Whether `path` is a Windows program (an "MZ" header).
bool isWindowsProgram(const std::string& path);

class WineSimulator : public Simulator {
public:
    WineSimulator();
    ~WineSimulator() override;
    std::uint32_t start(const std::string& executable, const std::string& folder) override;
    std::uint32_t findWindow(std::uint32_t processId) override;
    void close(std::uint32_t window) override;
    void closeProcess(std::uint32_t processId) override;
    std::string startProblem() const override;

private:
    struct Impl;
    Impl* impl_;
};

}  // namespace aq
