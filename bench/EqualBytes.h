#pragma once
// The floor that the genome passes are measured against: every pair of the first
// `count` drifters, every gene up to `depth`, counted in a plain loop.
#include <cstdint>

#include "format/Records.h"

inline long equalBytesEveryPair(const aq::Pool& pool, int count, int depth) {
    long total = 0;
    for (int i = 0; i < count; ++i) {
        const std::uint8_t* a = pool.drifters[static_cast<std::size_t>(i)].genes;
        for (int j = 0; j < i; ++j) {
            const std::uint8_t* b = pool.drifters[static_cast<std::size_t>(j)].genes;
            int m = 0;
            for (int k = 0; k < depth; ++k) m += a[k] == b[k];
            total += m;
        }
    }
    return total;
}
