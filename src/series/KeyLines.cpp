#include "series/KeyLines.h"

#include <algorithm>
#include <cstring>

namespace aq {

namespace {

// Lines are short: eight bytes at a time, inline, rather than the library's byte hash.
// The last step folds the high bits into the low ones the table goes by.
std::uint32_t hashOf(std::string_view text) {
    constexpr std::uint64_t kMix = 0xFF51AFD7ED558CCDull;
    std::uint64_t h = 0x9E3779B97F4A7C15ull ^ text.size();
    for (std::size_t i = 0; i < text.size(); i += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + i, std::min<std::size_t>(8, text.size() - i));
        h = (h ^ word) * kMix;
        h ^= h >> 32;
    }
    return static_cast<std::uint32_t>(h);
}

}  // namespace

// A harvest of a few pools already numbers thousands of lines.
KeyLines::KeyLines() : cells_(std::size_t{1} << 14), starts_{0} {}

std::string_view KeyLines::line(std::int32_t id) const {
    const auto k = static_cast<std::size_t>(id);
    return std::string_view(text_).substr(starts_[k], starts_[k + 1] - starts_[k]);
}

std::uint32_t KeyLines::expect(std::string_view text) const {
    const std::uint32_t h = hashOf(text);
    __builtin_prefetch(&cells_[h & (cells_.size() - 1)]);
    return h;
}

std::int32_t KeyLines::number(std::string_view text, std::uint32_t h) {
    const std::size_t mask = cells_.size() - 1;
    for (std::size_t i = h & mask;; i = (i + 1) & mask) {
        Cell& c = cells_[i];
        if (c.id < 0) {
            c.hash = h;
            c.id = static_cast<std::int32_t>(size());
            text_.append(text);
            starts_.push_back(text_.size());
            // Kept at most half full, so probes stay short.
            if (2 * size() > cells_.size()) grow();
            return static_cast<std::int32_t>(size() - 1);
        }
        if (c.hash == h && line(c.id) == text) return c.id;
    }
}

void KeyLines::grow() {
    std::vector<Cell> old(cells_.size() * 2);
    old.swap(cells_);
    const std::size_t mask = cells_.size() - 1;
    for (const Cell& c : old) {
        if (c.id < 0) continue;
        std::size_t i = c.hash & mask;
        while (cells_[i].id >= 0) i = (i + 1) & mask;
        cells_[i] = c;
    }
}

}  // namespace aq
