#pragma once
// The seven window and process calls of Windows that running the simulator needs, as
// plain functions on 32-bit handles, so the lookup and close logic runs unchanged on
// Windows, inside Wine through a broker, and against a fake in tests.
#include <cstdint>
#include <string>

namespace aq {

class Win32Api {
public:
    virtual ~Win32Api() = default;
    // lpApplicationName NULL, `commandLine` as given, handles inherited, normal
    // priority, inherited environment, `currentDirectory`, an empty STARTUPINFO.
    // Fills `processId` and returns true when the process was created.
    virtual bool CreateProcessA(const std::string& commandLine, const std::string& currentDirectory,
                                std::uint32_t& processId) = 0;
    // `className` goes in as the class name, the caption as NULL.
    virtual std::uint32_t FindWindowA(const std::string& className) = 0;
    virtual std::uint32_t GetActiveWindow() = 0;
    virtual std::uint32_t GetWindow(std::uint32_t window, std::uint32_t command) = 0;
    // The owner's process id; `processId` is left as it was when the window is unknown.
    virtual void GetWindowThreadProcessId(std::uint32_t window, std::uint32_t& processId) = 0;
    virtual void SendMessageA(std::uint32_t window, std::uint32_t message, std::uintptr_t wParam,
                              std::intptr_t lParam) = 0;
    // Gives process `processId` up to `graceMs` to end by itself, then ends it with
    // TerminateProcess and returns once it has gone. Only a process this object created is
    // ended, so a reused id never reaches a stranger; false when there was none to end.
    virtual bool TerminateProcess(std::uint32_t processId, std::uint32_t graceMs) = 0;
};

inline constexpr std::uint32_t kGwHwndNext = 2;
inline constexpr std::uint32_t kWmClose = 16;

}  // namespace aq
