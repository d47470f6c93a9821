#include "series/KeyLines.h"

#include <functional>

namespace aq {

KeyLines::KeyLines() : cells_(1024), starts_{0} {}

std::string_view KeyLines::line(std::int32_t id) const {
    const auto k = static_cast<std::size_t>(id);
    return std::string_view(text_).substr(starts_[k], starts_[k + 1] - starts_[k]);
}

std::int32_t KeyLines::number(std::string_view text) {
    const std::uint64_t h = std::hash<std::string_view>{}(text);
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
