#pragma once
// Genomes for the benchmarks: unrelated ones drawn at random, and lineages of copies of
// a few random ancestors with some of their genes mutated.
#include <array>
#include <cstdint>
#include <random>
#include <vector>

namespace {

using Ancestors = std::vector<std::array<std::uint8_t, 1000>>;

inline void randomGenes(std::uint8_t* genes, std::mt19937& rng) {
    for (int k = 0; k < 1000; ++k) genes[k] = static_cast<std::uint8_t>(rng());
}

inline Ancestors randomAncestors(std::mt19937& rng, int count) {
    Ancestors a(static_cast<std::size_t>(count));
    for (auto& genes : a) randomGenes(genes.data(), rng);
    return a;
}

// A copy of one of the ancestors, picked at random, with `percent` of its genes mutated.
inline void descendantGenes(std::uint8_t* genes, const Ancestors& ancestors, std::mt19937& rng, int percent = 4) {
    const auto& a = ancestors[rng() % ancestors.size()];
    for (int k = 0; k < 1000; ++k)
        genes[k] = (rng() % 100 < static_cast<unsigned>(percent)) ? static_cast<std::uint8_t>(rng()) : a[k];
}

}  // namespace
