#pragma once
// Runs the aqfm tool and captures what it prints on stdout (and stderr when asked) and its
// exit status; a run that blocks is ended after 20 s, failing the test instead of holding it up.
#ifndef _WIN32
#include <sys/wait.h>
#endif

#include <cstdio>
#include <string>

namespace aqtest {

struct CliResult {
    int status = -1;
    std::string out;
};

// `args` go to a shell as they are: quote paths with blanks.
inline CliResult runCli(const std::string& args, bool withErrors = false) {
    CliResult r;
#ifdef _WIN32
    // cmd.exe runs it; _pclose gives the exit status itself.
    std::string command = std::string(AQ_CLI) + " " + args + (withErrors ? " 2>&1" : " 2>NUL");
    FILE* pipe = _popen(command.c_str(), "rb");
#else
    std::string command = "timeout 20 " + std::string(AQ_CLI) + " " + args + (withErrors ? " 2>&1" : " 2>/dev/null");
    FILE* pipe = popen(command.c_str(), "r");
#endif
    if (!pipe) return r;
    char buf[4096];
    std::size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, pipe)) > 0) r.out.append(buf, n);
#ifdef _WIN32
    r.status = _pclose(pipe);
#else
    int raw = pclose(pipe);
    r.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
#endif
    return r;
}

}  // namespace aqtest
