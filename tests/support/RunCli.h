#pragma once
// Runs the aqfm tool and captures what it prints on stdout and its exit status.
#include <sys/wait.h>

#include <cstdio>
#include <string>

namespace aqtest {

struct CliResult {
    int status = -1;
    std::string out;
};

// `args` go to a shell as they are: quote paths with blanks.
inline CliResult runCli(const std::string& args) {
    CliResult r;
    std::string command = std::string(AQ_CLI) + " " + args + " 2>/dev/null";
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return r;
    char buf[4096];
    std::size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, pipe)) > 0) r.out.append(buf, n);
    int raw = pclose(pipe);
    r.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    return r;
}

}  // namespace aqtest
