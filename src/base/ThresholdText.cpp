#include "base/ThresholdText.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>

#include "base/NumberText.h"

namespace aq {

std::string thresholdText(int position) {
    double v = position / 10.0;
    return (v < 0 ? "" : " ") + NumberText(v);
}

double leadingNumber(const std::string& text) {
    // Sign, digits, one point, digits, and an exponent only when digits follow it.
    std::size_t i = 0, n = text.size();
    std::string num;
    if (i < n && (text[i] == '+' || text[i] == '-')) num += text[i++];
    bool digits = false;
    while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) num += text[i++], digits = true;
    if (i < n && text[i] == '.') {
        num += text[i++];
        while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) num += text[i++], digits = true;
    }
    if (!digits) return 0;
    if (i < n && (text[i] == 'e' || text[i] == 'E')) {
        std::size_t j = i + 1;
        if (j < n && (text[j] == '+' || text[j] == '-')) ++j;
        if (j < n && std::isdigit(static_cast<unsigned char>(text[j]))) {
            num += text.substr(i, j - i);
            while (j < n && std::isdigit(static_cast<unsigned char>(text[j]))) num += text[j++];
        }
    }
    double v = std::strtod(num.c_str(), nullptr);
    return std::isfinite(v) ? v : 0;
}

int thresholdPosition(const std::string& text, int min, int max) {
    std::size_t b = text.find_first_not_of(' ');
    std::string t = b == std::string::npos ? std::string() : text.substr(b, text.find_last_not_of(' ') - b + 1);
    if (!t.empty() && t.back() == '%') t.pop_back();
    float value = static_cast<float>(leadingNumber(t) * 10.0);
    if (!std::isfinite(value)) value = 0;
    if (value < 0) value = 1000 - value;
    value = std::clamp(value, static_cast<float>(min), static_cast<float>(max));
    return static_cast<int>(std::nearbyint(value));
}

}  // namespace aq
