// aqfm merge over pools written in the test.
#include <gtest/gtest.h>

#include "format/PoolFile.h"
#include "support/PoolFixtures.h"
#include "support/RunCli.h"
#include "support/TempDir.h"

using namespace aqtest;

TEST(MergeCli, KindsLimitsAndErrors) {
    TempDir dir;
    std::string base = dir.file("base.aqp"), other = dir.file("other.aqp"), out = dir.file("out.aqp");
    ASSERT_EQ(aq::writePool(base, makePool(1990, 5)), "");
    ASSERT_EQ(aq::writePool(other, makePool(50, 7)), "");
    struct Case {
        std::string flags;
        int drifters, food;
    } cases[] = {{"", 2000, 12}, {"--drifters", 2000, 5}, {"--food", 1990, 12}, {"--drifters --food", 2000, 12}};
    for (const Case& c : cases) {
        CliResult r = runCli("merge " + base + " " + other + " " + c.flags + " -o " + out);
        ASSERT_EQ(r.status, 0) << c.flags;
        aq::Pool p;
        ASSERT_EQ(aq::readPool(out, p).status, aq::PoolReadStatus::Ok);
        EXPECT_EQ(p.drifterCount, c.drifters) << c.flags;
        EXPECT_EQ(p.foodCount, c.food) << c.flags;
        EXPECT_EQ(p.drifters[1999 < p.drifterCount ? 1999 : 0].id, 1999 < p.drifterCount ? 1999 : 0);
    }
    EXPECT_EQ(runCli("merge " + base + " " + dir.file("missing.aqp") + " -o " + out).status, 1);
    EXPECT_EQ(runCli("merge " + base + " -o " + out).status, 2);
    EXPECT_EQ(runCli("merge " + base + " " + other).status, 2);
}
