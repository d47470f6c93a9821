#include "pooleditor/PackedGenes.h"

#include <algorithm>
#include <cstring>

namespace aq {

void PackedGenes::reserve(int count, int depth) {
    count_ = std::max(count, 0);
    depth_ = std::clamp(depth, 0, kGeneCount);
    // Whole cache lines per genome, so no comparison block straddles two of them, and an
    // odd number of them, so the genomes' first lines spread over every cache set rather
    // than pile up in the few that a power-of-two stride would reach.
    stride_ = (static_cast<std::size_t>(depth_) + 63) / 64 * 64;
    if (stride_ % 128 == 0) stride_ += 64;
    bytes_.assign(static_cast<std::size_t>(count_) * stride_, 0);
}

PackedGenes::PackedGenes(const Pool& pool, int count, int depth) {
    reserve(std::min<int>(count, static_cast<int>(pool.drifters.size())), depth);
    for (int i = 0; i < count_; ++i)
        std::memcpy(bytes_.data() + static_cast<std::size_t>(i) * stride_,
                    pool.drifters[static_cast<std::size_t>(i)].genes, static_cast<std::size_t>(depth_));
}

PackedGenes::PackedGenes(const std::vector<Genome>& genomes, int count, int depth) {
    reserve(std::min<int>(count, static_cast<int>(genomes.size())), depth);
    for (int i = 0; i < count_; ++i)
        std::memcpy(bytes_.data() + static_cast<std::size_t>(i) * stride_, genomes[static_cast<std::size_t>(i)].data(),
                    static_cast<std::size_t>(depth_));
}

}  // namespace aq
