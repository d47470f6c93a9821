// aqfm generate and aqfm food.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>

#include "generator/Generator.h"
#include "generator/Random.h"
#include "format/PoolFile.h"
#include "support/PoolFixtures.h"
#include "support/TempDir.h"

namespace {

struct CliRun {
    int status;
    std::string out;
};

CliRun aqfm(const std::string& args) {
    std::string cmd = std::string(AQ_CLI) + " " + args + " 2>&1";
    CliRun r{-1, {}};
    FILE* p = popen(cmd.c_str(), "r");
    if (!p) return r;
    std::array<char, 4096> buf{};
    std::size_t n;
    while ((n = std::fread(buf.data(), 1, buf.size(), p)) > 0) r.out.append(buf.data(), n);
    int st = pclose(p);
    r.status = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
    return r;
}

std::string expected(const aq::StartupSettings& s, std::uint32_t state) {
    aq::setRandomState(state);
    aq::Pool out;
    aq::buildStartupPool(aqtest::defaultPool(), s, out);
    return aq::poolBytes(out);
}

TEST(CliGenerate, WritesTheSamePoolAsTheTab) {
    aqtest::TempDir dir;
    const std::string out = dir.file("new.aqp");
    const struct {
        std::string args;
        aq::StartupSettings s;
        std::uint32_t state;
    } cases[] = {
        {"", aq::StartupSettings{}, 0x50000},
        {"--seed 12345 --type 0 --food 0 --placement 0 --walls 2 --split --no-extra-food --extra-drifters",
         aq::StartupSettings{12345, 0, 0, 0, 2, true, false, true}, 0x50000},
        {"--seed=-7 --type 2 --food 3 --state ABCD12", aq::StartupSettings{-7, 2, 3, 1, 1, false, true, false},
         0xABCD12},
        {"--seed 2.5abc --extra-food --state 0x000001", aq::StartupSettings{2, 1, 2, 1, 1, false, true, false}, 1},
        {"--seed -2147483648 --food 1 --placement 0",
         aq::StartupSettings{-2147483647 - 1, 1, 1, 0, 1, false, true, false}, 0x50000},
    };
    for (const auto& c : cases) {
        CliRun r = aqfm("generate " + c.args + " -o " + out);
        ASSERT_EQ(r.status, 0) << c.args << "\n" << r.out;
        EXPECT_EQ(aqtest::readBytes(out), expected(c.s, c.state)) << c.args;
    }
}

TEST(CliGenerate, RejectsBadOptions) {
    aqtest::TempDir dir;
    const std::string out = dir.file("new.aqp");
    for (const char* args : {"--type 3", "--food 5", "--placement -1", "--walls x", "--state 1000000", "--state xyz",
                             "--extra-food --no-extra-food", "--seed", "extra-positional", ""}) {
        std::string tail = std::string(args).empty() ? "" : " -o " + out;
        CliRun r = aqfm(std::string("generate ") + args + tail);
        EXPECT_EQ(r.status, 2) << args << "\n" << r.out;
    }
    EXPECT_FALSE(std::filesystem::exists(out));
    CliRun r = aqfm("generate --type 3 -o " + out);
    EXPECT_NE(r.out.find("option --type must be 0 to 2, got 3"), std::string::npos) << r.out;
}

TEST(CliFood, PrintsOneLinePerFoodBitWithItsTrailingBlank) {
    aqtest::TempDir dir;
    const std::string path = dir.file("default.aqp");
    ASSERT_EQ(aqfm("default -o " + path).status, 0);
    CliRun r = aqfm("food " + path);
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out,
              "{0} Food bit @ 100X, 0Y. \n{1} Food bit @ 50X, 86.60254Y. \n{2} Food bit @ -50X, 86.60254Y. \n"
              "{3} Food bit @ -100X, 5.358979E-06Y. \n{4} Food bit @ -50.00001X, -86.60254Y. \n"
              "{5} Food bit @ 49.99999X, -86.60255Y. \n");
    EXPECT_EQ(aqfm("food " + dir.file("none.aqp")).status, 1);
    EXPECT_EQ(aqfm("food").status, 2);
}

}  // namespace
