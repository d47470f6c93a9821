#include "series/Win32Calls.h"

#include <windows.h>

#include <map>
#include <utility>
#include <vector>

#include "series/Win32Simulator.h"

namespace aq {

namespace {

HWND toHandle(std::uint32_t w) { return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(w)); }
// Window handles keep their meaning in 32 bits, also in 64-bit processes.
std::uint32_t fromHandle(HWND h) { return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(h)); }

class SystemWin32Api : public Win32Api {
public:
    bool CreateProcessA(const std::string& commandLine, const std::string& currentDirectory,
                        std::uint32_t& processId) override {
        STARTUPINFOA si{};
        si.cb = sizeof si;
        PROCESS_INFORMATION pi{};
        // CreateProcessA may write into the command line, so it gets a copy.
        std::vector<char> line(commandLine.begin(), commandLine.end());
        line.push_back('\0');
        if (!::CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, NORMAL_PRIORITY_CLASS, nullptr,
                              currentDirectory.empty() ? nullptr : currentDirectory.c_str(), &si, &pi))
            return false;
        // The process handle is kept, so the process can be ended even if it never shows a
        // window, and its id cannot meanwhile pass to another process.
        ::CloseHandle(pi.hThread);
        if (HANDLE old = std::exchange(processes_[pi.dwProcessId], pi.hProcess)) ::CloseHandle(old);
        processId = pi.dwProcessId;
        return true;
    }
    std::uint32_t FindWindowA(const std::string& className) override {
        return fromHandle(::FindWindowA(className.c_str(), nullptr));
    }
    std::uint32_t GetActiveWindow() override { return fromHandle(::GetActiveWindow()); }
    std::uint32_t GetWindow(std::uint32_t window, std::uint32_t command) override {
        return fromHandle(::GetWindow(toHandle(window), command));
    }
    void GetWindowThreadProcessId(std::uint32_t window, std::uint32_t& processId) override {
        DWORD pid = 0;
        if (::GetWindowThreadProcessId(toHandle(window), &pid) != 0) processId = pid;
    }
    void SendMessageA(std::uint32_t window, std::uint32_t message, std::uintptr_t wParam,
                      std::intptr_t lParam) override {
        ::SendMessageA(toHandle(window), message, wParam, lParam);
    }
    bool TerminateProcess(std::uint32_t processId, std::uint32_t graceMs) override {
        auto it = processes_.find(processId);
        if (it == processes_.end()) return false;
        HANDLE process = it->second;
        processes_.erase(it);
        if (::WaitForSingleObject(process, graceMs) != WAIT_OBJECT_0) {
            ::TerminateProcess(process, 1);
            ::WaitForSingleObject(process, 10000);
        }
        ::CloseHandle(process);
        return true;
    }

private:
    std::map<std::uint32_t, HANDLE> processes_;
};

}  // namespace

Win32Api& systemWin32Api() {
    static SystemWin32Api api;
    return api;
}

Simulator& systemSimulator() {
    static Win32Simulator simulator(systemWin32Api());
    return simulator;
}

}  // namespace aq
