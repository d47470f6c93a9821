#include "generator/StartupSettings.h"

#include <charconv>
#include <cmath>

#include "generator/Random.h"
#include "base/NumberText.h"

namespace aq {

double SeedValue(std::string_view text) {
    // Collect the characters of the leading number, blanks left out, then convert
    // without the locale (Qt may have switched the C locale's decimal point).
    std::string number;
    std::size_t i = 0;
    auto skipBlanks = [&] {
        while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    };
    auto isDigit = [&](std::size_t k) { return k < text.size() && text[k] >= '0' && text[k] <= '9'; };
    skipBlanks();
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        if (text[i] == '-') number += '-';
        ++i;
        skipBlanks();
    }
    bool digits = false;
    for (; skipBlanks(), isDigit(i); ++i) number += text[i], digits = true;
    if (i < text.size() && text[i] == '.') {
        number += '.';
        ++i;
        for (; skipBlanks(), isDigit(i); ++i) number += text[i], digits = true;
    }
    if (!digits) return 0.0;
    if (i < text.size() && (text[i] == 'E' || text[i] == 'e')) {
        std::size_t k = i + 1;
        std::string exponent = "e";
        if (k < text.size() && (text[k] == '+' || text[k] == '-')) exponent += text[k++];
        if (isDigit(k)) {
            while (isDigit(k)) exponent += text[k++];
            number += exponent;
        }
    }
    if (number.front() == '-' && number.size() > 1 && number[1] == '.') number.insert(1, "0");
    if (number.front() == '.') number.insert(0, "0");
    double value = 0.0;
    auto [end, ec] = std::from_chars(number.data(), number.data() + number.size(), value);
    (void)end;
    if (ec == std::errc::result_out_of_range) {
        // Too large gives an infinity, too small a zero.
        bool huge = number.find("e-") == std::string::npos;
        bool negative = number.front() == '-';
        return huge ? (negative ? -HUGE_VAL : HUGE_VAL) : 0.0;
    }
    return ec == std::errc() ? value : 0.0;
}

std::int32_t seedFromText(std::string_view text) {
    double v = std::nearbyint(SeedValue(text));
    if (!(v >= -2147483648.0 && v <= 2147483647.0)) return 0;
    return static_cast<std::int32_t>(v);
}

std::optional<std::string> steppedSeedText(std::string_view text, double delta) {
    double v = SeedValue(text) + delta;
    if (!std::isfinite(v)) return std::nullopt;
    if (v == std::floor(v) && std::fabs(v) < 1e15) return NumberText(static_cast<std::int64_t>(v));
    return NumberText(v);
}

std::string ZeroSeedToggle::click(const std::string& text) {
    if (!remembered_.empty() && text == "0") return remembered_;
    remembered_ = text;
    return "0";
}

StartupSettings randomizeStartupSettings(double secondsSinceMidnight, int defaultDrifterCount) {
    RandomReseed(static_cast<float>(secondsSinceMidnight));
    auto floorInt = [](float v) { return static_cast<std::int32_t>(std::floor(v)); };
    StartupSettings s;

    float r1 = RandomNext(), r2 = RandomNext(), r3 = RandomNext();
    s.poolType = static_cast<std::int16_t>(r1 > 0.5f ? floorInt(r2 * 3) : (r3 > 0.7f ? 2 : 1));

    r1 = RandomNext(), r2 = RandomNext(), r3 = RandomNext();
    float r4 = RandomNext();
    if (r1 > 0.2f)
        s.foodPlacement = static_cast<std::int16_t>(floorInt(r2 * 5));
    else
        s.foodPlacement = static_cast<std::int16_t>(r3 > 0.3f ? floorInt(r4 * 3) + 1 : 2);

    s.wallPlacement = static_cast<std::int16_t>(floorInt(RandomNext() * 3));

    r1 = RandomNext(), r2 = RandomNext();
    s.drifterPlacement = static_cast<std::int16_t>(r1 > 0.5f ? floorInt(r2 * 3) : 1);

    r1 = RandomNext(), r2 = RandomNext();
    const auto n = static_cast<float>(defaultDrifterCount);
    s.seed = floorInt(r2 * r1 * n * n * n - n * n);

    s.extraFood = !(RandomNext() > 0.75f);
    s.extraDrifters = RandomNext() > 0.75f;
    s.splitPool = RandomNext() > 0.85f;
    return s;
}

}  // namespace aq
