#include "Genomes.h"

#include <algorithm>
#include <array>
#include <vector>

using namespace aq;

namespace {

constexpr int kF = 100;  // the genes a quick comparison looks at

// What a drifter of the later generations is to its family.
enum class Role { Founder, Relative, Clone, FrontOnly };

struct Kin {
    int index;
    Role role;
    int founder;      // index of the founder it descends from
    int frontShare;   // genes shared with the founder among the first 100
    int restShare;    // genes shared among the other 900
};

// Drifters 20..48: fifteen founders, twelve relatives sharing most of the genome
// (three of them near-clones) and two relatives sharing only the front genes.
const Kin kKin[] = {
    {20, Role::Founder, 20, 0, 0},     {21, Role::Clone, 20, 95, 900},   {22, Role::Relative, 20, 72, 520},
    {23, Role::Founder, 23, 0, 0},     {24, Role::Relative, 23, 66, 610}, {25, Role::FrontOnly, 23, 61, 0},
    {26, Role::Founder, 26, 0, 0},     {27, Role::Clone, 26, 90, 880},   {28, Role::Relative, 26, 58, 470},
    {29, Role::Founder, 29, 0, 0},     {30, Role::Relative, 29, 80, 540}, {31, Role::Founder, 31, 0, 0},
    {32, Role::Relative, 31, 64, 455}, {33, Role::Clone, 31, 92, 880},   {34, Role::Founder, 34, 0, 0},
    {35, Role::Relative, 34, 70, 600}, {36, Role::Founder, 36, 0, 0},     {37, Role::Relative, 36, 75, 500},
    {38, Role::FrontOnly, 36, 55, 0},  {39, Role::Founder, 39, 0, 0},     {40, Role::Relative, 39, 68, 640},
    {41, Role::Founder, 41, 0, 0},     {42, Role::Relative, 41, 77, 480}, {43, Role::Founder, 43, 0, 0},
    {44, Role::Founder, 44, 0, 0},     {45, Role::Founder, 45, 0, 0},     {46, Role::Founder, 46, 0, 0},
    {47, Role::Founder, 47, 0, 0},     {48, Role::Founder, 48, 0, 0},
};

}  // namespace

void buildGenomes(Pool& pool, Rng& rng) {
    // Every position has its own shuffle of the byte values 1..255: drifter i's own
    // gene there is value i, a shared family gene value 49 + g. So two genes match
    // only where the tree says they do, and 0 is kept for the genes many share.
    std::vector<std::array<std::uint8_t, 255>> perm(kGeneCount);
    for (auto& p : perm) {
        for (int v = 0; v < 255; ++v) p[static_cast<std::size_t>(v)] = static_cast<std::uint8_t>(v + 1);
        for (int v = 254; v > 0; --v) std::swap(p[static_cast<std::size_t>(v)], p[static_cast<std::size_t>(rng.below(v + 1))]);
    }
    auto genes = [&](int i) { return pool.drifters[static_cast<std::size_t>(i)].genes; };
    for (int i = 0; i < 49; ++i)
        for (int g = 0; g < kGeneCount; ++g) genes(i)[g] = i == 0 ? 0 : perm[static_cast<std::size_t>(g)][static_cast<std::size_t>(i)];

    // The Dot's line: drifters 1..4 keep the Dot's zeros in half the front genes;
    // 1..3, and the family 6..12, also in a long stretch behind it.
    const int zeroRestFrom = 180, zeroRestTo = 680;
    for (int i = 1; i <= 4; ++i)
        for (int g = 0; g < 50; ++g) genes(i)[g] = 0;
    for (int i : {1, 2, 3, 6, 7, 8, 9, 10, 11, 12})
        for (int g = zeroRestFrom; g < zeroRestTo; ++g) genes(i)[g] = 0;
    // The family 6..12 shares the back half of the front genes.
    for (int i = 6; i <= 12; ++i)
        for (int g = 50; g < kF; ++g) genes(i)[g] = perm[static_cast<std::size_t>(g)][49];

    // Later generations copy long runs of their founder's genes.
    for (const Kin& k : kKin) {
        if (k.role == Role::Founder) continue;
        std::uint8_t* mine = genes(k.index);
        const std::uint8_t* theirs = genes(k.founder);
        if (k.role == Role::Clone) {
            // Everything but a few scattered front genes.
            std::vector<int> differ;
            while (static_cast<int>(differ.size()) < kF - k.frontShare) {
                int g = rng.below(kF);
                if (std::find(differ.begin(), differ.end(), g) == differ.end()) differ.push_back(g);
            }
            for (int g = 0; g < kF; ++g)
                if (std::find(differ.begin(), differ.end(), g) == differ.end()) mine[g] = theirs[g];
            int restFrom = kF + rng.below(kGeneCount - kF - k.restShare + 1);
            for (int g = restFrom; g < restFrom + k.restShare; ++g) mine[g] = theirs[g];
            continue;
        }
        int frontFrom = rng.below(kF - k.frontShare + 1);
        for (int g = frontFrom; g < frontFrom + k.frontShare; ++g) mine[g] = theirs[g];
        if (k.restShare > 0) {
            int restFrom = kF + rng.below(kGeneCount - kF - k.restShare + 1);
            for (int g = restFrom; g < restFrom + k.restShare; ++g) mine[g] = theirs[g];
        }
    }
}
