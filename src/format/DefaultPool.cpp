#include "format/DefaultPool.h"

#include <cstddef>

extern const std::uint8_t kDefaultPoolData[];
extern const std::size_t kDefaultPoolSize;

namespace aq {

std::span<const std::uint8_t> defaultPoolBytes() { return {kDefaultPoolData, kDefaultPoolSize}; }

}  // namespace aq
