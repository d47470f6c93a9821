#include "generator/Random.h"

#include <bit>

namespace aq {

namespace {
std::uint32_t state = kRandomStartState;
constexpr std::uint32_t kMask = 0xFFFFFF;
}  // namespace

float RandomNext() {
    state = (state * 0x43FD43FDu + 0xC39EC3u) & kMask;
    return static_cast<float>(state) / 16777216.0f;
}

void RandomReseed(double value) {
    auto h = static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(value) >> 32);
    std::uint32_t m = (h & 0xFFFF) ^ (h >> 16);
    state = (state & 0xFF) | (m << 8);
}

std::uint32_t randomState() { return state; }
void setRandomState(std::uint32_t s) { state = s & kMask; }

}  // namespace aq
