#pragma once
// The program's one random stream: a 24-bit state that every feature advances,
// so a seed replays only if these steps are followed to the bit.
#include <cstdint>

namespace aq {

inline constexpr std::uint32_t kRandomStartState = 0x50000;

// The next value, 0 <= value < 1, exact in a float.
float RandomNext();
// Mixes `value` into the state, keeping the state's low byte.
void RandomReseed(double value);

// The 24-bit state itself, for the command line and for tests.
std::uint32_t randomState();
void setRandomState(std::uint32_t state);

}  // namespace aq
