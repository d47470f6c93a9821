#include "series/Success.h"

#include <cmath>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace aq {

namespace {

std::vector<std::string_view> lines(std::string_view key) {
    std::vector<std::string_view> out;
    if (key.empty()) return out;
    for (std::size_t start = 0;;) {
        std::size_t cut = key.find("\r\n", start);
        out.push_back(key.substr(start, cut == std::string_view::npos ? std::string_view::npos : cut - start));
        if (cut == std::string_view::npos) return out;
        start = cut + 2;
    }
}

}  // namespace

// Each step is worked out in double and kept as a float, as the score is stored.
float SuccessScore(const Pool& pool, int index) { return SuccessScore(pool.drifters[static_cast<std::size_t>(index)]); }

float SuccessScore(const DrifterRec& d) {
    float s = static_cast<float>(d.segmentCount / 35.0);
    if (d.alive > 0) {
        s = static_cast<float>(static_cast<double>(s) + d.mealsEaten + d.maternalOffspring / 3.0 + d.paternalOffspring);
        if (d.segmentCount < 3) s = static_cast<float>(s / 1.1);
        if (d.segmentCount < 2) s = static_cast<float>(s / 1.2);
        if (d.velocityX < 0.0001f) s = static_cast<float>(s / 1.05);
        if (d.velocityX < 0.00005f) s = static_cast<float>(s / 1.07);
        if (d.velocityX < 0.00002f) s = static_cast<float>(s / 1.09);
        s = static_cast<float>(s * std::sqrt(std::sqrt(std::sqrt(std::fabs(static_cast<double>(d.age))))));
    }
    return s;
}

float SuccessNorm(const Pool& pool) {
    float best = 1.0f;
    for (int i = 0; i < pool.drifterCount; ++i) {
        const DrifterRec& d = pool.drifters[static_cast<std::size_t>(i)];
        if (d.segmentCount < 1) return -1.0f;
        const float t = SuccessNormFigure(d);
        if (t > best) best = t;
    }
    return best;
}

float SuccessNormFigure(const DrifterRec& d) {
    float t = 1.0f;
    if (d.alive > 0) t = static_cast<float>(d.mealsEaten + 1.0 + d.maternalOffspring / 5.0 + d.paternalOffspring / 2.0);
    const float x = static_cast<float>(d.segmentCount);
    if (x > 1) t = static_cast<float>(t / std::sqrt(static_cast<double>(x)));
    return static_cast<float>((t + 1.0) / std::sqrt(static_cast<double>(x)));
}

bool SameMorph(const std::string& keyA, const std::string& keyB) {
    auto a = lines(keyA), b = lines(keyB);
    for (std::size_t i = 0; i < a.size() && i < b.size(); ++i)
        if (a[i] == b[i]) return true;
    return false;
}

}  // namespace aq
