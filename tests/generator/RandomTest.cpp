// The shared random stream and the "Randomize Settings" draws.
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
    const struct {
        std::uint32_t state;
        double value;  // as printed to seven digits
    } draws[] = {{0xC3CEC3, 0.7648737}, {0x1AFE7A, 0.1054455}, {0x9D0B55, 0.6134542}, {0xF010C4, 0.9377558}};
    for (const auto& d : draws) {
        float v = aq::RandomNext();
        EXPECT_EQ(aq::randomState(), d.state);
        EXPECT_EQ(v, static_cast<float>(d.state) / 16777216.0f);
        EXPECT_NEAR(v, d.value, 5e-8);
    }
}

TEST(RandomStream, ReseedKeepsOnlyTheLowByte) {
    // The new state's upper 16 bits are the two halves of the double's high word, xored.
    const struct {
        std::uint32_t before;
        double value;
        std::uint32_t after;
    } cases[] = {
        {0xABCDEF, 1.0, 0x3FF0EF},
        {0xFFFFFF, 0.0, 0x0000FF},
        {0x000000, -1.0, 0xBFF000},
        {0x000001, 12345.0, 0x5C4801},  // 0x40C81C80: 0x1C80 ^ 0x40C8
    };
    for (const auto& c : cases) {
        aq::setRandomState(c.before);
        aq::RandomReseed(c.value);
        EXPECT_EQ(aq::randomState(), c.after) << c.value;
    }
}

TEST(RandomizeSettings, DrawsFifteenValuesInTheTabsOrder) {
    const struct {
        double seconds;
        int poolType, food, walls, drifters, seed;
        bool extraFood, extraDrifters, split;
        std::uint32_t stateAfter;
    } cases[] = {
        {45296.0, 0, 4, 1, 2, 37296, false, true, false, 0x887E11},
        {86399.5, 1, 4, 2, 2, 19596, true, true, false, 0x363111},
        {3.0, 2, 4, 2, 1, 34435, true, false, false, 0x034811},
    };
    for (const auto& c : cases) {
        aq::setRandomState(aq::kRandomStartState);
        aq::StartupSettings s = aq::randomizeStartupSettings(c.seconds, 49);
        SCOPED_TRACE(c.seconds);
        EXPECT_EQ(std::vector<int>({s.poolType, s.foodPlacement, s.wallPlacement, s.drifterPlacement, s.seed}),
                  std::vector<int>({c.poolType, c.food, c.walls, c.drifters, c.seed}));
        EXPECT_EQ(std::vector<bool>({s.extraFood, s.extraDrifters, s.splitPool}),
                  std::vector<bool>({c.extraFood, c.extraDrifters, c.split}));
        EXPECT_EQ(aq::randomState(), c.stateAfter);
    }
}

}  // namespace
