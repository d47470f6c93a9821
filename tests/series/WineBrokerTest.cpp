// The Wine path without Wine: a shell script plays wine running the broker, so the
// requests, their answers and a missing Wine are checked on any machine.
#ifndef _WIN32
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

#include "series/WineSimulator.h"
#include "support/TempDir.h"

namespace {

struct EnvVar {
    std::string name;
    EnvVar(const char* n, const std::string& value) : name(n) { ::setenv(n, value.c_str(), 1); }
    ~EnvVar() { ::unsetenv(name.c_str()); }
};

TEST(WineBroker, RequestsGoThroughTheBrokerAndItsAnswersComeBack) {
    aqtest::TempDir dir;
    const std::string log = dir.file("requests");
    aqtest::writeBytes(dir.file("wine"),
                       "#!/bin/sh\necho 'aqwinctl ready'\n"
                       "while IFS= read -r line; do\n  echo \"$line\" >> '" +
                           log +
                           "'\n"
                           "  case \"$line\" in create*) echo 4242;; find*) echo 77;; owner*) echo 4242;;"
                           " send*) echo done;; *) echo 0;; esac\ndone\n");
    ::chmod(dir.file("wine").c_str(), 0755);
    EnvVar wine("WINE", dir.file("wine")), broker("AQFM_WINCTL", "/opt/aqwinctl.exe");
    {
        aq::WineSimulator sim;
        ASSERT_EQ(sim.start("/sim/Aquarium.exe", "/prog"), 4242u) << sim.startProblem();
        EXPECT_EQ(sim.findWindow(4242), 77u);
        sim.close(77);
    }
    const std::string requests = aqtest::readBytes(log);
    EXPECT_EQ(requests.substr(0, requests.find('\n')), "create\t/sim/Aquarium.exe\t/prog");
    EXPECT_NE(requests.find("owner\t77\n"), std::string::npos);
    EXPECT_TRUE(requests.ends_with("send\t77\t16\t0\t0\n")) << requests;  // WM_CLOSE
}

TEST(WineBroker, MissingWineIsSaidAndNothingElseIsTouched) {
    aqtest::TempDir dir;
    aqtest::writeBytes(dir.file("wine"), "not a program");
    for (const std::string& path : {std::string("/no/such/wine"), dir.file("wine")}) {
        EnvVar wine("WINE", path);
        aq::WineSimulator sim;
        EXPECT_EQ(sim.start("/sim/Aquarium.exe", "/prog"), 0u);
        EXPECT_NE(sim.startProblem().find("Wine was not found"), std::string::npos);
        EXPECT_EQ(sim.findWindow(1), 0u);
    }
    EXPECT_NE(::fcntl(STDOUT_FILENO, F_GETFD), -1);  // a broker never started closes no descriptor
}

}  // namespace
#endif
