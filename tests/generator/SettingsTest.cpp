// The shared random stream, "Randomize Settings", the seed box with its buttons, and the help line.
#include <gtest/gtest.h>

#include <vector>

#include "generator/Random.h"
#include "generator/StartupSettings.h"

namespace {

TEST(RandomStream, ReplaysFromTheStartStateBitForBit) {
    aq::setRandomState(aq::kRandomStartState);
    aq::RandomReseed(1.0);  // keeps the low byte; the rest are the halves of 1.0's high word, xored
    EXPECT_EQ(aq::randomState(), 0x3FF000u);
    float first = aq::RandomNext(), second = aq::RandomNext();
    EXPECT_EQ(std::tuple(aq::randomState(), first, second),
              std::tuple(0x1AFE7Au, 0xC3CEC3 / 16777216.0f, 0x1AFE7A / 16777216.0f));
}

TEST(RandomizeSettings, DrawsFifteenValuesInTheTabsOrder) {
    // Seconds since midnight; pool type, food, walls, drifters, seed, extra food, extra drifters, split; the state
    // after.
    const std::tuple<double, std::vector<int>, std::uint32_t> cases[] = {
        {45296.0, {0, 4, 1, 2, 37296, 0, 1, 0}, 0x887E11},
        {86399.5, {1, 4, 2, 2, 19596, 1, 1, 0}, 0x363111},
        {3.0, {2, 4, 2, 1, 34435, 1, 0, 0}, 0x034811},
    };
    for (const auto& [seconds, expected, stateAfter] : cases) {
        aq::setRandomState(aq::kRandomStartState);
        aq::StartupSettings s = aq::randomizeStartupSettings(seconds, 49);
        EXPECT_EQ(std::vector<int>({s.poolType, s.foodPlacement, s.wallPlacement, s.drifterPlacement, s.seed,
                                    s.extraFood, s.extraDrifters, s.splitPool}),
                  expected)
            << seconds;
        EXPECT_EQ(aq::randomState(), stateAfter) << seconds;
    }
}

TEST(SeedValue, ReadsTheLeadingNumber) {
    std::vector<double> values;
    std::vector<std::int32_t> seeds;
    for (const char* text :
         {"12abc", "  7", "abc", "2.5", "3.5", "-.75", "1 2", "4E+2x", "5,5", "-2147483648", "2147483647.6"})
        values.push_back(aq::SeedValue(text)), seeds.push_back(aq::seedFromText(text));
    EXPECT_EQ(values, (std::vector<double>{12, 7, 0, 2.5, 3.5, -0.75, 12, 400, 5, -2147483648.0, 2147483647.6}));
    EXPECT_EQ(seeds, (std::vector<std::int32_t>{12, 7, 0, 2, 4, -1, 12, 400, 5, -2147483647 - 1, 0}));
    EXPECT_EQ(std::tuple(aq::seedFromText("1e999"), aq::SeedValue("1e-999"), aq::seedFromText(std::string(5000, '9'))),
              std::tuple(0, 0.0, 0));
}

TEST(SeedButtons, StepTheValueAndWritePlainTextAndZeroToggles) {
    const std::tuple<const char*, double, const char*> cases[] = {
        {"0", -1, "-1"},    {"1", 49, "50"},   {"50", -49, "1"}, {"abc", 1, "1"},
        {"2.5", -1, "1.5"}, {" 12x", 1, "13"}, {"-1", 1, "0"},   {"2147483647", 1, "2147483648"},
    };
    for (auto [text, delta, result] : cases) EXPECT_EQ(aq::steppedSeedText(text, delta), result) << text;
    EXPECT_FALSE(aq::steppedSeedText("1e999", 1).has_value());
    // The "0" button remembers one text; with nothing remembered it stays "0" and remembers "0".
    aq::ZeroSeedToggle zero, fresh;
    std::string clicks;
    for (const char* text : {"17", "0", "5", "0"}) clicks += zero.click(text) + " ";
    for (const char* text : {"0", "0"}) clicks += fresh.click(text) + " ";
    EXPECT_EQ(clicks, "0 17 0 5 0 0 ");
}

TEST(StartupHelp, EachControlHasItsText) {
    EXPECT_EQ(std::string(aq::kStartupHelpStart),
              "Select a Seed Number and click the Generate Pool button.  Then save your new Startup Pool file.");
    EXPECT_EQ(aq::startupHelpText("cmdRewSeed"), aq::startupHelpText("cmdFfSeed"));
    EXPECT_EQ(aq::startupHelpText("cmdFfSeed"),
              "The seed number can by typed in directly or adjusted using the buttons provided just below the "
              "text-box.");
    // An option counts as its group.
    EXPECT_EQ(aq::startupHelpText("optPoolType(0)"), aq::startupHelpText("optPoolType(2)"));
    EXPECT_EQ(aq::startupHelpText("optPoolType(1)").substr(0, 28), "Select the Test Startup Pool");
    EXPECT_EQ(aq::startupHelpText("optWallPlace(1)").substr(0, 29), "If you select Double Vertical");
    // Controls without help pass every other control's name by.
    EXPECT_EQ(aq::startupHelpText("cmdDecSeed") + aq::startupHelpText("optPool"), "");
}

}  // namespace
