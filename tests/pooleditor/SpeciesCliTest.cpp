// aqfm species, range and drifters --species over a pool written in the test.
#include <gtest/gtest.h>

#include "pool/PoolFile.h"
#include "support/PoolFixtures.h"
#include "support/RunCli.h"
#include "support/TempDir.h"

using namespace aqtest;

namespace {

// Drifters that share the first `shared` genes with drifter 0, the rest their own.
std::string writeKinPool(const TempDir& dir, std::initializer_list<int> shared) {
    aq::Pool p = makePool(static_cast<int>(shared.size()), 0);
    int i = 0;
    for (int s : shared) {
        auto& g = p.drifters[static_cast<std::size_t>(i++)].genes;
        for (int k = 0; k < 1000; ++k) g[k] = static_cast<std::uint8_t>(k < s ? k : 200 + i);
    }
    std::string path = dir.file("kin.aqp");
    EXPECT_EQ(aq::writePool(path, p), "");
    return path;
}

}  // namespace

TEST(SpeciesCli, TagsRangesAndPrefixedLines) {
    TempDir dir;
    std::string pool = writeKinPool(dir, {100, 50, 44, 43, 100, 10});
    struct Case {
        std::string args;
        int status;
        std::string out;
    } cases[] = {
        {"species " + pool, 0, "0\n0\n0\n1\n0\n2\n"},
        {"species " + pool + " --threshold 50", 0, "0\n0\n1\n2\n0\n3\n"},
        {"species " + pool + " --threshold 0", 0, "0\n0\n0\n0\n0\n0\n"},
        {"species " + pool + " --threshold 96.5", 0, "0\n1\n2\n3\n0\n4\n"},
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
    CliResult plain = runCli("drifters " + pool);
    EXPECT_EQ(plain.out.find('{'), std::string::npos);
}

TEST(KeysCli, KeysPairsAndMinorities) {
    TempDir dir;
    std::string pool = dir.file("default.aqp");
    ASSERT_EQ(runCli("default -o " + pool).status, 0);
    CliResult shortKeys = runCli("keys " + pool + " --short");
    ASSERT_EQ(shortKeys.status, 0);
    EXPECT_EQ(shortKeys.out.substr(0, 5), "10{}\n");  // the Dot
    CliResult pairs = runCli("keys " + pool + " --pair");
    ASSERT_EQ(pairs.status, 0);
    std::string first = pairs.out.substr(0, pairs.out.find('\n'));
    CliResult compressed = runCli("keys " + pool + " --compressed");
    CliResult detailed = runCli("keys " + pool + " --compressed --detailed");
    EXPECT_EQ(first, compressed.out.substr(0, compressed.out.find('\n')) + "\t" +
                         detailed.out.substr(0, detailed.out.find('\n')));
    // Two drifters stand alone in their segment counts: those of 1 and 6 segments.
    CliResult m = runCli("minorities " + pool + " --by segments --count-still");
    ASSERT_EQ(m.status, 0);
    EXPECT_EQ(m.out, "0\n48\n");
    EXPECT_EQ(runCli("minorities " + pool + " --by branching,colororder,colors --count-still").out, "");
    EXPECT_EQ(runCli("minorities " + pool + " --by legs").status, 2);
    EXPECT_EQ(runCli("minorities " + pool).status, 2);
    EXPECT_EQ(runCli("keys " + pool + " --pair --short").status, 2);
}
