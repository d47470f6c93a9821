#include <gtest/gtest.h>

#include "base/NumberText.h"
#include "format/PoolFile.h"
#include "series/PrepareSteps.h"
#include "series/Success.h"
#include "support/PoolFixtures.h"
#include "support/RunCli.h"
#include "support/TempDir.h"

using namespace aqtest;

namespace {

TEST(HarvestCli, ScoresHarvestAndPrepare) {
    TempDir dir;
    std::filesystem::create_directories(dir.file("f"));
    const std::string pool = dir.file("f/default.aqp");
    const aq::Pool def = defaultPool();
    ASSERT_EQ(aq::writePool(pool, def), "");

    CliResult scores = runCli("scores '" + pool + "'");
    ASSERT_EQ(scores.status, 0);
    std::string expected = "norm: " + aq::NumberText(aq::SuccessNorm(def)) + "\n";
    for (int i = 0; i < def.drifterCount; ++i) expected += aq::NumberText(aq::SuccessScore(def, i)) + "\n";
    EXPECT_EQ(scores.out, expected);

    ASSERT_EQ(
        runCli("harvest '" + dir.file("f") + "' --open '" + pool + "' --max 3 -o '" + dir.file("h.aqp") + "'").status,
        0);
    aq::Pool harvested;
    ASSERT_EQ(aq::readPool(dir.file("h.aqp"), harvested).status, aq::PoolReadStatus::Ok);
    EXPECT_EQ(harvested.drifterCount, 3);
    EXPECT_EQ(harvested.foodCount, def.foodCount);

    // The steps run in the order given, as the same calls on the pool do.
    ASSERT_EQ(runCli("prepare '" + pool + "' halveAges deleteStarters:100 gravitateToCenter:150 -o '" +
                     dir.file("p.aqp") + "'")
                  .status,
              0);
    aq::Pool expectedPool = def;
    aq::halveAges(expectedPool);
    aq::deleteStarters(expectedPool, 100);
    aq::gravitateToCenter(expectedPool, 150, true, true);
    EXPECT_EQ(readBytes(dir.file("p.aqp")), aq::poolBytes(expectedPool));
}

TEST(HarvestCli, BadArguments) {
    TempDir dir;
    const std::string pool = dir.file("d.aqp");
    ASSERT_EQ(aq::writePool(pool, defaultPool()), "");
    const std::string out = " -o '" + dir.file("x.aqp") + "'";
    struct Case {
        std::string args;
        int status;
    } cases[] = {
        {"prepare '" + pool + "' bogus" + out, 2},
        {"prepare '" + pool + "' resetCounters:meals,kids" + out, 2},
        {"prepare '" + pool + "' ensureMinimumDrifters" + out, 2},
        {"prepare '" + pool + "' feedByColor:9:0" + out, 2},
        {"prepare '" + pool + "' group:2:fast" + out, 2},
        {"prepare '" + pool + "'" + out, 2},
        {"harvest '" + dir.path() + "' --max 0" + out, 2},
        {"harvest '" + dir.file("missing") + "'" + out, 1},
        {"scores '" + dir.file("missing.aqp") + "'", 1},
    };
    for (const Case& c : cases) EXPECT_EQ(runCli(c.args).status, c.status) << c.args;
    EXPECT_FALSE(std::filesystem::exists(dir.file("x.aqp")));
}

}  // namespace
