#pragma once
// A small deterministic generator (xorshift), so the default pool never depends on
// a library's random engine.
#include <cstdint>

struct Rng {
    std::uint64_t s;
    std::uint32_t next() {
        s ^= s << 13;
        s ^= s >> 7;
        s ^= s << 17;
        return static_cast<std::uint32_t>(s >> 11);
    }
    double uniform() { return next() / 4294967296.0; }
    int below(int n) { return static_cast<int>(uniform() * n); }
};
