#pragma once
// The default pool the program carries inside itself (data/default.aqp, embedded at build time).
#include <cstdint>
#include <span>

namespace aq {

std::span<const std::uint8_t> defaultPoolBytes();

}  // namespace aq
