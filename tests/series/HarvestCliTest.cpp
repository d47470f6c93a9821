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
    std::string expected = "norm: " + aq::NumberText(aq::SuccessNorm(def)) + "\n";
    for (int i = 0; i < def.drifterCount; ++i) expected += aq::NumberText(aq::SuccessScore(def, i)) + "\n";
    EXPECT_EQ(scores.status, 0);
    EXPECT_EQ(scores.out, expected);

    const std::string harvest = "harvest '" + dir.file("f") + "' --open '" + pool + "' --max 3 -o '";
    ASSERT_EQ(runCli(harvest + dir.file("h.aqp") + "'").status, 0);
    aq::Pool harvested;
    ASSERT_EQ(aq::readPool(dir.file("h.aqp"), harvested).status, aq::PoolReadStatus::Ok);
    EXPECT_EQ(harvested.drifterCount, 3);
    EXPECT_EQ(harvested.foodCount, def.foodCount);

    // The steps run in the order given, as the same calls on the pool do.
    const std::string steps = " halveAges deleteStarters:100 gravitateToCenter:150 -o '";
    ASSERT_EQ(runCli("prepare '" + pool + "'" + steps + dir.file("p.aqp") + "'").status, 0);
    aq::Pool prepared = def;
    aq::halveAges(prepared);
    aq::deleteStarters(prepared, 100);
    aq::gravitateToCenter(prepared, 150, true, true);
    EXPECT_EQ(readBytes(dir.file("p.aqp")), aq::poolBytes(prepared));
}

TEST(HarvestCli, BadArguments) {
    TempDir dir;
    const std::string prepare = "prepare '" + dir.file("d.aqp") + "'", out = " -o '" + dir.file("x.aqp") + "'";
    ASSERT_EQ(aq::writePool(dir.file("d.aqp"), defaultPool()), "");
    struct Case {
        std::string args;
        int status;
    } cases[] = {
        {prepare + " bogus" + out, 2},
        {prepare + " resetCounters:meals,kids" + out, 2},
        {prepare + " ensureMinimumDrifters" + out, 2},
        {prepare + " feedByColor:9:0" + out, 2},
        {prepare + " group:2:fast" + out, 2},
        {prepare + out, 2},
        {"harvest '" + dir.path() + "' --max 0" + out, 2},
        {"harvest '" + dir.file("missing") + "'" + out, 1},
        {"scores '" + dir.file("missing.aqp") + "'", 1},
    };
    for (const Case& c : cases) EXPECT_EQ(runCli(c.args).status, c.status) << c.args;
    EXPECT_FALSE(std::filesystem::exists(dir.file("x.aqp")));
}

}  // namespace
