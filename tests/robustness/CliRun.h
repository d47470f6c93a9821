#pragma once
// Runs the command-line tool through the shell and keeps its exit code and output.
#include <sys/wait.h>

#include <cstdio>
#include <string>

namespace aqtest {

struct CliRun {
    int code;
    std::string out;
};

inline std::string quote(const std::string& s) {
    std::string q = "'";
    for (char c : s) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

inline CliRun aqfm(const std::string& args) {
    // A command that blocks fails the test instead of holding it up.
    std::string cmd = "timeout 20 " + std::string(AQ_CLI) + " " + args + " 2>&1";
    CliRun r{0, {}};
    FILE* p = popen(cmd.c_str(), "r");
    char buf[4096];
    std::size_t n;
    while ((n = fread(buf, 1, sizeof buf, p)) > 0) r.out.append(buf, n);
    int status = pclose(p);
    r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return r;
}

}  // namespace aqtest
