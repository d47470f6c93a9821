// The simulator's window lookup and close over the seven Windows calls, against a fake
// window list in Z order; and the Wine path without Wine: a shell script plays wine
// running the broker, so its requests, answers and a missing Wine are checked anywhere.
#include <gtest/gtest.h>
#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>

#include "series/WineSimulator.h"
#endif

#include <cstdlib>
#include <vector>

#include "SeriesFakes.h"
#include "series/Win32Simulator.h"
#include "support/TempDir.h"

using namespace aqtest;

namespace {

struct FakeWindow {
    std::uint32_t handle;
    std::uint32_t pid;
    int classIndex;  // which of the simulator's class names, -1 none
};

class FakeWin32 : public aq::Win32Api {
public:
    std::vector<FakeWindow> zOrder;  // top first
    std::uint32_t active = 0;
    int getWindowCalls = 0;
    std::vector<std::string> log;

    bool CreateProcessA(const std::string& commandLine, const std::string& dir, std::uint32_t& pid) override {
        log.push_back("create " + commandLine + " in " + dir);
        if (commandLine != "C:\\Sim\\Aquarium.exe") return false;
        pid = 77;
        return true;
    }
    std::uint32_t FindWindowA(const std::string& className) override {
        for (const FakeWindow& w : zOrder)
            if (w.classIndex >= 0 && aq::simulatorWindowClasses()[std::size_t(w.classIndex)] == className)
                return w.handle;
        return 0;
    }
    std::uint32_t GetActiveWindow() override { return active; }
    std::uint32_t GetWindow(std::uint32_t window, std::uint32_t command) override {
        ++getWindowCalls;
        EXPECT_EQ(command, aq::kGwHwndNext);
        for (std::size_t i = 0; i < zOrder.size(); ++i)
            if (zOrder[i].handle == window) return i + 1 < zOrder.size() ? zOrder[i + 1].handle : 0;
        return 0;
    }
    void GetWindowThreadProcessId(std::uint32_t window, std::uint32_t& pid) override {
        for (const FakeWindow& w : zOrder)
            if (w.handle == window) pid = w.pid;
    }
    void SendMessageA(std::uint32_t window, std::uint32_t message, std::uintptr_t wParam,
                      std::intptr_t lParam) override {
        log.push_back("send " + std::to_string(window) + " " + std::to_string(message) + " " + std::to_string(wParam) +
                      " " + std::to_string(lParam));
        if (message == aq::kWmClose) std::erase_if(zOrder, [&](const FakeWindow& w) { return w.handle == window; });
    }
    bool TerminateProcess(std::uint32_t pid, std::uint32_t graceMs) override {
        log.push_back("end " + std::to_string(pid) + " " + std::to_string(graceMs));
        return true;
    }
};

}  // namespace

TEST(Win32Simulator, FindsTheWindowStartsAndCloses) {
    // The windows top first, the active one; the window found and the steps down the Z order taken.
    const std::tuple<const char*, std::vector<FakeWindow>, std::uint32_t, std::uint32_t, int> rows[] = {
        {"class hit owned by the process", {{10, 5, -1}, {20, 77, 0}}, 10, 20, 0},
        {"the later of two class hits wins", {{20, 77, 3}, {30, 77, 1}}, 0, 20, 0},
        {"below the active window, no class", {{10, 5, -1}, {11, 6, -1}, {20, 77, -1}}, 10, 20, 2},
        {"above the active window is never reached", {{20, 77, -1}, {10, 5, -1}}, 10, 0, 101},
        {"a class hit of another process starts the walk", {{10, 5, -1}, {30, 8, 2}, {20, 77, -1}}, 10, 20, 1},
        {"nothing at all: 0 costs 11 misses a pass", {}, 0, 0, 10},
    };
    for (const auto& [what, zOrder, active, found, steps] : rows) {
        FakeWin32 api;
        api.zOrder = zOrder;
        api.active = active;
        aq::Win32Simulator sim(api);
        EXPECT_EQ(sim.findWindow(77), found) << what;
        EXPECT_EQ(api.getWindowCalls, steps) << what;
    }
    // Starting takes the path as the command line; closing sends WM_CLOSE. Ending a process
    // closes its window first, so the simulator saves, then terminates what remains.
    FakeWin32 calls;
    aq::Win32Simulator simulator(calls);
    EXPECT_EQ(simulator.start("C:\\Sim\\Aquarium5.exe", "C:\\Prog"), 0u);
    EXPECT_EQ(simulator.start("C:\\Sim\\Aquarium.exe", "C:\\Prog"), 77u);
    simulator.close(20);
    calls.zOrder = {{20, 77, 0}};
    simulator.closeProcess(77);
    EXPECT_EQ(calls.log, (std::vector<std::string>{"create C:\\Sim\\Aquarium5.exe in C:\\Prog",
                                                   "create C:\\Sim\\Aquarium.exe in C:\\Prog", "send 20 16 0 0",
                                                   "send 20 16 0 0", "end 77 2000"}));
}

#ifndef _WIN32
TEST(Win32Simulator, WindowsProgramWithoutWineSaysHowToGetIt) {
    TempDir dir;
    writeBytes(dir.file("Aquarium4.exe"), "MZ\x90");
    EnvVar wine("WINE", "/no/such/wine");
    UiRig r;
    r.app.comboAquariumPath = r.app.programFolder = dir.path();
    r.ui.message(dir.file("Aquarium4.exe") +
                 " is a Windows program, and Wine is needed to run it here, but Wine was not found.  Install it (on "
                 "Debian or Ubuntu: sudo apt install wine), or name it in the WINE environment variable.")
        .message("Unable to start Aquarium.  Please select the correct Aquarium path and try again. " +
                 dir.file("Aquarium.exe"));
    EXPECT_EQ(aq::startSimulator(r.app), 0u);
    EXPECT_TRUE(r.ui.done()) << r.ui.report();
}

TEST(WineBroker, RequestsAndAnswersAndAWineThatIsNoProgram) {
    TempDir dir;
    const std::string log = dir.file("requests");
    writeBytes(dir.file("wine"),
               "#!/bin/sh\necho 'aqwinctl ready'\n"
               "while IFS= read -r line; do\n  echo \"$line\" >> '" +
                   log +
                   "'\n"
                   "  case \"$line\" in create*) echo 4242;; find*) echo 77;; owner*) echo 4242;;"
                   " send*) echo done;; end*) echo 1;; *) echo 0;; esac\ndone\n");
    ::chmod(dir.file("wine").c_str(), 0755);
    EnvVar wine("WINE", dir.file("wine")), broker("AQFM_WINCTL", "/opt/aqwinctl.exe");
    {
        aq::WineSimulator sim;
        ASSERT_EQ(sim.start("/sim/Aquarium.exe", "/prog"), 4242u) << sim.startProblem();
        EXPECT_EQ(sim.findWindow(4242), 77u);
        sim.close(77);
        sim.closeProcess(9);  // no window of its own: ended straight away
    }
    const std::string requests = readBytes(log);
    EXPECT_EQ(requests.substr(0, requests.find('\n')), "create\t/sim/Aquarium.exe\t/prog");
    EXPECT_NE(requests.find("owner\t77\n"), std::string::npos);
    EXPECT_NE(requests.find("send\t77\t16\t0\t0\n"), std::string::npos);  // WM_CLOSE
    EXPECT_TRUE(requests.ends_with("\nend\t9\t2000\n")) << requests;
    // A "wine" that is no program counts as no Wine, and closes no descriptor of ours.
    TempDir noWine;
    writeBytes(noWine.file("wine"), "not a program");
    EnvVar fake("WINE", noWine.file("wine"));
    aq::WineSimulator none;
    EXPECT_EQ(none.start("/sim/Aquarium.exe", "/prog"), 0u);
    EXPECT_NE(none.startProblem().find("Wine was not found"), std::string::npos);
    EXPECT_EQ(none.findWindow(1), 0u);
    EXPECT_NE(::fcntl(STDOUT_FILENO, F_GETFD), -1);
    // Installed, the helper is in the libexec folder beside the program's bin folder.
    TempDir installed;
    std::filesystem::create_directories(installed.file("usr/bin"));
    std::filesystem::create_directories(installed.file("usr/libexec/aqfilemanager"));
    writeBytes(installed.file("usr/libexec/aqfilemanager/aqwinctl.exe"), "MZ");
    writeBytes(installed.file("wine"), "#!/bin/sh\necho \"$@\" > '" + installed.file("args") +
                                           "'\necho 'aqwinctl ready'\nwhile read -r line; do echo 4242; done\n");
    ::chmod(installed.file("wine").c_str(), 0755);
    EnvVar installedWine("WINE", installed.file("wine")), noBroker("AQFM_WINCTL", "");
    {
        aq::WineSimulator sim;
        EXPECT_EQ(sim.start("/sim/Aquarium.exe", installed.file("usr/bin")), 4242u) << sim.startProblem();
    }
    EXPECT_EQ(readBytes(installed.file("args")),
              installed.file("usr/bin") + "/../libexec/aqfilemanager/aqwinctl.exe\n");
}

#endif
