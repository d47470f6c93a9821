#pragma once
// What the generator needs from the "Startup Pool" tab, and the tab's seed
// commands as plain functions of the seed text.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace aq {

struct StartupSettings {
    std::int32_t seed = 1;
    std::int16_t poolType = 1;       // 0 Test, 1 Ordered, 2 Chaotic
    std::int16_t foodPlacement = 2;  // 0 Gathered, 1 Centrally Scattered, 2 Spiral, 3 Evenly Distributed, 4 Peripheral
    std::int16_t drifterPlacement = 1;  // 0 Random, 1 Central Ring, 2 Peripheral
    std::int16_t wallPlacement = 1;     // 0 Double Vertical, 1 Default, 2 Double Horizontal
    bool splitPool = false;
    bool extraFood = true;
    bool extraDrifters = false;
};

// The number the text begins with: blanks skipped, reading stops at the first
// character that can't continue a number, no number is 0. "12abc" is 12.
double SeedValue(std::string_view text);

// The seed a text stands for: rounded half to even; beyond 32 bits it is 0.
std::int32_t seedFromText(std::string_view text);

// A seed button's step: the text's value plus `delta`, as plain decimal text.
// Nothing when the text's value can't be stepped (the text then stays).
std::optional<std::string> steppedSeedText(std::string_view text, double delta);

// The "0" button: swaps the seed text with "0" and back.
class ZeroSeedToggle {
public:
    std::string click(const std::string& text);

private:
    std::string remembered_;
};

// "Randomize Settings": reseeds the stream from the time of day and draws every
// setting, the seed among them, in the tab's fixed order.
StartupSettings randomizeStartupSettings(double secondsSinceMidnight, int defaultDrifterCount);

// The help line's text for a control name ("optFoodPlace(3)" counts as its group),
// and its text at start; "" for a control without help.
std::string startupHelpText(std::string_view control);
extern const char* const kStartupHelpStart;

}  // namespace aq
