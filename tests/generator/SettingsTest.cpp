// The shared random stream, "Randomize Settings", the seed box with its buttons, and the help line.
#include <gtest/gtest.h>

#include <vector>

#include "generator/Random.h"
#include "generator/StartupSettings.h"

namespace {

TEST(RandomStream, ReplaysFromTheStartStateBitForBit) {
    aq::setRandomState(aq::kRandomStartState);
    EXPECT_EQ(aq::randomState(), 0x50000u);
    aq::RandomReseed(1.0);
    EXPECT_EQ(aq::randomState(), 0x3FF000u);
    // The state after each draw, and the value as printed to seven digits.
    for (auto [state, value] :
         {std::pair{0xC3CEC3u, 0.7648737}, {0x1AFE7Au, 0.1054455}, {0x9D0B55u, 0.6134542}, {0xF010C4u, 0.9377558}}) {
        float v = aq::RandomNext();
        EXPECT_EQ(aq::randomState(), state);
        EXPECT_EQ(v, static_cast<float>(state) / 16777216.0f);
        EXPECT_NEAR(v, value, 5e-8);
    }
}

TEST(RandomStream, ReseedKeepsOnlyTheLowByte) {
    // The new state's upper 16 bits are the two halves of the double's high word, xored:
    // 12345.0 is 0x40C81C80, 0x1C80 ^ 0x40C8.
    const std::tuple<std::uint32_t, double, std::uint32_t> cases[] = {{0xABCDEF, 1.0, 0x3FF0EF},
                                                                      {0xFFFFFF, 0.0, 0x0000FF},
                                                                      {0x000000, -1.0, 0xBFF000},
                                                                      {0x000001, 12345.0, 0x5C4801}};
    for (auto [before, value, after] : cases) {
        aq::setRandomState(before);
        aq::RandomReseed(value);
        EXPECT_EQ(aq::randomState(), after) << value;
    }
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
    EXPECT_EQ(aq::seedFromText("1e999"), 0);
    EXPECT_EQ(aq::SeedValue("1e-999"), 0.0);
    EXPECT_EQ(aq::seedFromText(std::string(5000, '9')), 0);
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
