#pragma once
// Genetic kinship: two genomes are similar when enough genes hold the same byte at
// the same position. The one measure that the pool editor, the DNA folder and the
// series all use.
#include <cstdint>
#include <functional>

namespace aq {

// Of two numbers: `b` when `a` is 0, `a` when `b` is 0, else the smaller.
double MinNonZero(double a, double b);
double MaxOf(double a, double b);

// The leading genes that take part in a comparison: 100 under quick speciation, else 1000.
std::int16_t similarityDepthFor(bool quickSpeciate);

// How many of `n` genes must match at `threshold` percent; a negative threshold counts back from 100%.
int similarityNeed(int n, float threshold);

// How many leading genes a comparison at `depth` looks at: MinNonZero(1000, depth), 0..1000.
int similarityGenes(int depth);

// `a` and `b` point at 1000 gene bytes each. Compares the first MinNonZero(1000, depth)
// of them and stops as soon as the answer is certain.
bool GenomesSimilar(const std::uint8_t* a, const std::uint8_t* b, float threshold, int depth);

// GenomesSimilar at one threshold and depth, worked out once for many pairs.
class Kinship {
public:
    Kinship(float threshold, int depth);
    bool operator()(const std::uint8_t* a, const std::uint8_t* b) const;
    // The leading genes it compares.
    int genes() const { return genes_; }

private:
    int genes_, need_;
};

// The number of equal bytes among the first `n` (0..1000), every one counted.
int equalGeneCount(const std::uint8_t* a, const std::uint8_t* b, int n);

// Like equalGeneCount, but may stop once the count and the most it could still reach both
// lie within low..high; what it then returns lies in that range too.
int equalGeneCountOutside(const std::uint8_t* a, const std::uint8_t* b, int n, int low, int high);

// Like equalGeneCount, but may stop once the count reaches `enough`, and then returns
// a count of at least `enough`.
int equalGeneCountUpTo(const std::uint8_t* a, const std::uint8_t* b, int n, int enough);

class PackedGenes;

// The lowest and highest count of equal genes over all pairs of the genomes, each
// genome's whole packed depth compared; high < 0 when there are fewer than two genomes.
struct EqualGeneRange {
    int low = 1000, high = -1;
};
// `progress(i)` is told each genome in turn as its pairs with the earlier ones begin.
EqualGeneRange equalGeneRange(const PackedGenes& genes, const std::function<void(int)>& progress = {});

}  // namespace aq
