// aqwinctl.exe: makes the seven Windows calls of the simulator's control for the file
// manager on Linux, which starts it under Wine and talks to it over its standard input
// and output (one request a line, see series/WineBroker.h). It ends when its input does.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "series/Win32Calls.h"
#include "series/WineBroker.h"

namespace {

std::vector<std::string> fields(const std::string& line) {
    std::vector<std::string> out;
    std::size_t b = 0;
    for (;;) {
        std::size_t e = line.find('\t', b);
        out.push_back(line.substr(b, e == std::string::npos ? std::string::npos : e - b));
        if (e == std::string::npos) return out;
        b = e + 1;
    }
}

std::uint32_t number(const std::string& s) { return static_cast<std::uint32_t>(std::strtoul(s.c_str(), nullptr, 10)); }

// A Linux path becomes the name Wine gives it (Z:\home\... in a default prefix).
std::string dosPath(const std::string& path) {
    if (path.empty() || path[0] != '/') return path;
    using ToDos = WCHAR*(CDECL*)(const char*);
    auto toDos = reinterpret_cast<ToDos>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32.dll"), "wine_get_dos_file_name")));
    if (toDos) {
        if (WCHAR* wide = toDos(path.c_str())) {
            char narrow[4 * MAX_PATH];
            int n = WideCharToMultiByte(CP_ACP, 0, wide, -1, narrow, sizeof narrow, nullptr, nullptr);
            HeapFree(GetProcessHeap(), 0, wide);
            if (n > 0) return narrow;
        }
    }
    std::string dos = "Z:" + path;
    for (char& c : dos)
        if (c == '/') c = '\\';
    return dos;
}

std::string answer(aq::Win32Api& api, const std::vector<std::string>& f) {
    const std::string& op = f[0];
    if (op == "create" && f.size() == 3) {
        std::uint32_t pid = 0;
        return api.CreateProcessA(dosPath(f[1]), dosPath(f[2]), pid) ? std::to_string(pid) : "0";
    }
    if (op == "find" && f.size() == 2) return std::to_string(api.FindWindowA(f[1]));
    if (op == "active") return std::to_string(api.GetActiveWindow());
    if (op == "next" && f.size() == 3) return std::to_string(api.GetWindow(number(f[1]), number(f[2])));
    if (op == "owner" && f.size() == 2) {
        std::uint32_t pid = 0;
        api.GetWindowThreadProcessId(number(f[1]), pid);
        return pid ? std::to_string(pid) : "-";
    }
    if (op == "send" && f.size() == 5) {
        api.SendMessageA(number(f[1]), number(f[2]), std::strtoull(f[3].c_str(), nullptr, 10),
                         std::strtoll(f[4].c_str(), nullptr, 10));
        return "done";
    }
    if (op == "end" && f.size() == 3) return api.TerminateProcess(number(f[1]), number(f[2])) ? "1" : "0";
    return "?";
}

}  // namespace

int main() {
    aq::Win32Api& api = aq::systemWin32Api();
    std::printf("%s\n", aq::kBrokerHello);
    std::fflush(stdout);
    std::string line;
    for (int c; (c = std::getchar()) != EOF;) {
        if (c != '\n') {
            if (line.size() < 65536) line += static_cast<char>(c);
            continue;
        }
        if (!line.empty() && line.back() == '\r') line.pop_back();
        std::printf("%s\n", answer(api, fields(line)).c_str());
        std::fflush(stdout);
        line.clear();
    }
    return 0;
}
