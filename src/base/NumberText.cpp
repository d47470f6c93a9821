#include "base/NumberText.h"

#include <cmath>
#include <cstdio>
#include <cstring>

namespace aq {

std::string NumberText(std::int64_t value) { return std::to_string(value); }

namespace {

std::string formatSignificant(double v, int digits) {
    if (std::isnan(v)) return "NaN";
    if (std::isinf(v)) return v < 0 ? "-Infinity" : "Infinity";
    if (v == 0) return "0";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*G", digits, v);
    std::string s = buf;
    // Exponent as "E-06" / "E+07", mantissa without a leading zero.
    std::string mantissa = s, exponent;
    if (auto e = s.find('E'); e != std::string::npos) {
        mantissa = s.substr(0, e);
        exponent = s.substr(e);
    }
    if (mantissa.rfind("0.", 0) == 0)
        mantissa.erase(0, 1);
    else if (mantissa.rfind("-0.", 0) == 0)
        mantissa.erase(1, 1);
    return mantissa + exponent;
}

}  // namespace

std::string NumberText(float value) { return formatSignificant(static_cast<double>(value), 7); }
std::string NumberText(double value) { return formatSignificant(value, 15); }

std::string RoundedText(float value) {
    float r = std::nearbyint(value);
    if (r >= -2147483648.0f && r < 2147483648.0f) return NumberText(static_cast<std::int64_t>(r));
    return NumberText(r);
}

}  // namespace aq
