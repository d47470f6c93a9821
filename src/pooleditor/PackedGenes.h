#pragma once
// The leading genes of many genomes side by side in one array. Pair passes read
// genomes from here rather than from the 4016-byte records, so a sweep over a big
// pool stays in the processor's caches.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "format/DnaFile.h"
#include "format/Records.h"

namespace aq {

class PackedGenes {
public:
    // The first `depth` (0..1000) genes of the pool's first `count` drifters.
    PackedGenes(const Pool& pool, int count, int depth);
    // The first `depth` genes of the first `count` genomes.
    PackedGenes(const std::vector<Genome>& genomes, int count, int depth);

    int count() const { return count_; }
    int depth() const { return depth_; }
    const std::uint8_t* operator[](int i) const { return bytes_.data() + static_cast<std::size_t>(i) * stride_; }

private:
    void reserve(int count, int depth);
    int count_ = 0, depth_ = 0;
    std::size_t stride_ = 0;
    std::vector<std::uint8_t> bytes_;
};

}  // namespace aq
