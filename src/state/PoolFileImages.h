#pragma once
// What the pool files this run read or wrote hold, as far as the run knows: the undo
// history asks it whether the pool on show is the one its file holds.
#include <deque>
#include <string>

#include "format/Records.h"

namespace aq {

class PoolFileImages {
public:
    // `path` now holds `pool`: the pool on show was read from it or written to it.
    void note(const std::string& path, const Pool& pool);
    // Another pool was written to `path`: a file already known now holds that one.
    void update(const std::string& path, const Pool& pool);
    // Whether `path` is known to hold `pool`. An unknown file holds nothing, so a pool
    // whose file was never seen counts as changed.
    bool holds(const std::string& path, const Pool& pool);
    void clear() { images_.clear(); }

private:
    struct Image {
        std::string path;
        Pool pool;
    };
    // Newest first; a few files at most, each as large as a pool.
    static constexpr std::size_t kMaxImages = 4;
    std::deque<Image> images_;
};

}  // namespace aq
