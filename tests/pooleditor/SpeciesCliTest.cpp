// aqfm species, range, drifters --species, keys and minorities over pools written in the test.
#include <gtest/gtest.h>

#include "pooleditor/PoolEditorFixture.h"
#include "support/RunCli.h"
#include "support/TempDir.h"

using namespace aqtest;

TEST(SpeciesCli, TagsRangesAndPrefixedLines) {
    TempDir dir;
    std::string pool = dir.file("kin.aqp");
    ASSERT_EQ(aq::writePool(pool, kinPool({100, 50, 44, 43, 100, 10})), "");
    struct Case {
        std::string args;
        int status;
        std::string out;
    } cases[] = {
        {"species " + pool, 0, "0\n0\n0\n1\n0\n2\n"},
        {"species " + pool + " --threshold 50", 0, "0\n0\n1\n2\n0\n3\n"},
        {"species " + pool + " --threshold 96.5 --depth 1000", 0, "0\n1\n2\n3\n4\n5\n"},
        {"range " + pool, 0,
         "Range found.  Listed drifters all match from 10% to  100% of each other's genetic sequences.\n"},
        {"range " + pool + " --depth 1000", 0,
         "Range found.  Listed drifters all match from 1% to  10% of each other's genetic sequences.\n"},
        {"species " + pool + " --depth 0", 2, ""},
        {"species " + pool + " --threshold x", 2, ""},
        {"drifters " + pool + " --depth 100", 2, ""},
        {"species " + dir.file("missing.aqp"), 1, ""},
    };
    for (const Case& c : cases) {
        CliResult r = runCli(c.args);
        EXPECT_EQ(r.status, c.status) << c.args;
        EXPECT_EQ(r.out, c.out) << c.args;
    }
    CliResult lines = runCli("drifters " + pool + " --species 44.4");
    ASSERT_EQ(lines.status, 0);
    EXPECT_EQ(lines.out.substr(0, 4), "{0} ");
    EXPECT_NE(lines.out.find("\n{2} "), std::string::npos);
    EXPECT_EQ(runCli("drifters " + pool).out.find('{'), std::string::npos);
}

TEST(KeysCli, KeysPairsAndMinorities) {
    TempDir dir;
    std::string pool = dir.file("default.aqp");
    ASSERT_EQ(runCli("default -o " + pool).status, 0);
    CliResult shortKeys = runCli("keys " + pool + " --short");
    ASSERT_EQ(shortKeys.status, 0);
    EXPECT_EQ(shortKeys.out.substr(0, 5), "10{}\n");  // the Dot
    auto firstLine = [&](const std::string& args) {
        std::string out = runCli("keys " + pool + args).out;
        return out.substr(0, out.find('\n'));
    };
    EXPECT_EQ(firstLine(" --pair"), firstLine(" --compressed") + "\t" + firstLine(" --compressed --detailed"));
    // Two drifters stand alone in their segment counts: those of 1 and 6 segments.
    CliResult m = runCli("minorities " + pool + " --by segments --count-still");
    ASSERT_EQ(m.status, 0);
    EXPECT_EQ(m.out, "0\n48\n");
    EXPECT_EQ(runCli("minorities " + pool + " --by branching,colororder,colors --count-still").out, "");
    EXPECT_EQ(runCli("minorities " + pool + " --by legs").status, 2);
    EXPECT_EQ(runCli("minorities " + pool).status, 2);
    EXPECT_EQ(runCli("keys " + pool + " --pair --short").status, 2);
}
