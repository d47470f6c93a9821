// The seed box, its buttons and the help line's texts.
#include <gtest/gtest.h>

#include "generator/StartupSettings.h"

namespace {

TEST(SeedValue, ReadsTheLeadingNumber) {
    const struct {
        const char* text;
        double value;
        std::int32_t seed;
    } cases[] = {
        {"12abc", 12, 12},
        {"  7", 7, 7},
        {"abc", 0, 0},
        {"2.5", 2.5, 2},
        {"3.5", 3.5, 4},
        {"-.75", -0.75, -1},
        {"1 2", 12, 12},
        {"4E+2x", 400, 400},
        {"5,5", 5, 5},
        {"-2147483648", -2147483648.0, -2147483647 - 1},
        {"2147483647.6", 2147483647.6, 0},
    };
    for (const auto& c : cases) {
        EXPECT_DOUBLE_EQ(aq::SeedValue(c.text), c.value) << '"' << c.text << '"';
        EXPECT_EQ(aq::seedFromText(c.text), c.seed) << '"' << c.text << '"';
    }
    EXPECT_EQ(aq::seedFromText("1e999"), 0);
    EXPECT_EQ(aq::SeedValue("1e-999"), 0.0);
    EXPECT_EQ(aq::seedFromText(std::string(5000, '9')), 0);
}

TEST(SeedButtons, StepTheValueAndWritePlainText) {
    const struct {
        const char* text;
        double delta;
        const char* result;
    } cases[] = {
        {"0", -1, "-1"},    {"1", 49, "50"},   {"50", -49, "1"}, {"abc", 1, "1"},
        {"2.5", -1, "1.5"}, {" 12x", 1, "13"}, {"-1", 1, "0"},   {"2147483647", 1, "2147483648"},
    };
    for (const auto& c : cases) EXPECT_EQ(aq::steppedSeedText(c.text, c.delta), c.result) << c.text;
    EXPECT_FALSE(aq::steppedSeedText("1e999", 1).has_value());
}

TEST(SeedButtons, ZeroTogglesWithOneRememberedText) {
    aq::ZeroSeedToggle zero;
    EXPECT_EQ(zero.click("17"), "0");
    EXPECT_EQ(zero.click("0"), "17");
    EXPECT_EQ(zero.click("5"), "0");  // remembers "5" now
    EXPECT_EQ(zero.click("0"), "5");

    aq::ZeroSeedToggle fresh;
    EXPECT_EQ(fresh.click("0"), "0");  // nothing remembered: stays "0", remembers "0"
    EXPECT_EQ(fresh.click("0"), "0");
}

TEST(StartupHelp, EachControlHasItsText) {
    EXPECT_EQ(std::string(aq::kStartupHelpStart),
              "Select a Seed Number and click the Generate Pool button.  Then save your new Startup Pool file.");
    EXPECT_EQ(aq::startupHelpText("cmdRewSeed"), aq::startupHelpText("cmdFfSeed"));
    EXPECT_EQ(aq::startupHelpText("cmdFfSeed"),
              "The seed number can by typed in directly or adjusted using the buttons provided just below the "
              "text-box.");
    EXPECT_EQ(aq::startupHelpText("cmdNewStartupPool"),
              "Select a Seed Number and click the [Generate Pool Now] button to generate a pool corresponding to that "
              "seed number. The generated pool can then be edited and saved as if it had been loaded from a file."
              "\r\n\r\nCaution: Depending on the settings used, it may take a while to generate the new pool.");
    EXPECT_EQ(aq::startupHelpText("optPoolType(0)"), aq::startupHelpText("optPoolType(2)"));
    EXPECT_EQ(aq::startupHelpText("optPoolType(1)"),
              "Select the Test Startup Pool if you would like a simple pool with a small sampling of drifters.\r\n"
              "Select the Ordered Startup Pool if you would like to begin with many identical drifters and little or "
              "no variety.\r\nSelect the Chaotic Startup Pool for a larger variety of drifter types.\r\n"
              "The drifters are selected from a small set, and were pre-evolved.  The exception is drifter #0, also "
              "known as \"The Dot\" which is a single celled drifter with the simplest genetic code possible in "
              "Aquarium.");
    EXPECT_EQ(aq::startupHelpText("optWallPlace(1)"),
              "If you select Double Vertical wall placement, the generated startup pool will have two vertical walls."
              "\r\nIf you select Default wall placement, the generated startup pool will have one vertical wall  and "
              "one horizontal wall.\r\nIf you select Double Horizontal wall placement, the generated startup pool "
              "will have two horizontal walls.");
    EXPECT_EQ(aq::startupHelpText("cmdDecSeed"), "");
    EXPECT_EQ(aq::startupHelpText("optPool"), "");
}

}  // namespace
