#pragma once
// Numbers for the key lines of a harvest: each distinct line gets the next number,
// 0, 1, 2 ... A harvest asks for two lines per drifter of a whole folder, so lookups
// hash a view of the caller's buffer and allocate only for a line not seen before.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace aq {

class KeyLines {
public:
    KeyLines();
    // The hash of `line`, its place in the table on its way into the cache meanwhile;
    // then the number of `line`, given it now if it is new. Between the two calls
    // other work can be done while the table is read.
    std::uint32_t expect(std::string_view line) const;
    std::int32_t number(std::string_view line, std::uint32_t hash);
    std::size_t size() const { return starts_.size() - 1; }

private:
    struct Cell {  // eight bytes, so that more of the table stays in the cache
        std::uint32_t hash = 0;
        std::int32_t id = -1;  // -1: free
    };
    std::string_view line(std::int32_t id) const;
    void grow();

    std::vector<Cell> cells_;          // open addressing, a power of two in size
    std::string text_;                 // every line, one after another
    std::vector<std::size_t> starts_;  // where line k starts in text_; one more at the end
};

}  // namespace aq
