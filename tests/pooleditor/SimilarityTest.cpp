// Kinship of two genomes: the rounding of `need`, the depth and the early stop.
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "pooleditor/Similarity.h"

namespace {

using Genes = std::array<std::uint8_t, 1000>;

TEST(Similarity, NeedRoundsHalfToEvenAndCountsBackWhenNegative) {
    struct Case {
        int n;
        float threshold;
        int need;
    } cases[] = {
        {100, 96.5f, 96}, {1000, 96.5f, 965}, {1000, 44.4f, 444},  {100, 0.5f, 0},
        {100, 1.5f, 2},   {100, -3.5f, 96},   {1000, -55.6f, 444}, {100, -250.0f, -150},
    };
    for (const Case& c : cases) EXPECT_EQ(aq::similarityNeed(c.n, c.threshold), c.need) << c.n << " " << c.threshold;
}

TEST(Similarity, ThresholdsAtBothDepths) {
    struct Case {
        int same;  // equal genes in every hundred, so depth 1000 sees ten times as many
        float threshold;
        int depth;
        bool similar;
    } cases[] = {
        {96, 96.5f, 100, true},   {95, 96.5f, 100, false},   {44, 44.4f, 100, true},    {43, 44.4f, 100, false},
        {0, 0.0f, 100, true},     {99, 100.0f, 100, false},  {100, 100.0f, 100, true},  {96, -3.5f, 100, true},
        {95, -3.5f, 100, false},  {97, 96.5f, 1000, true},   {96, 96.5f, 1000, false},  {45, 44.4f, 1000, true},
        {44, 44.4f, 1000, false}, {100, 100.0f, 1000, true}, {99, 100.0f, 1000, false}, {0, 0.0f, 1000, true},
        {45, -55.6f, 1000, true}, {44, -55.6f, 1000, false}, {97, 96.5f, 0, true},      {96, 96.5f, 0, false},
    };
    for (const Case& c : cases) {
        Genes a, b;
        for (int i = 0; i < 1000; ++i) {
            a[i] = static_cast<std::uint8_t>(i * 7);
            b[i] = i % 100 < c.same ? a[i] : static_cast<std::uint8_t>(a[i] + 1);
        }
        EXPECT_EQ(aq::GenomesSimilar(a.data(), b.data(), c.threshold, c.depth), c.similar)
            << "same " << c.same << " threshold " << c.threshold << " depth " << c.depth;
        EXPECT_EQ(aq::GenomesSimilar(b.data(), a.data(), c.threshold, c.depth), c.similar) << "symmetry";
    }
    // Zero genes match like any other value.
    Genes zeros{}, ones;
    ones.fill(1);
    EXPECT_TRUE(aq::GenomesSimilar(zeros.data(), zeros.data(), 100.0f, 1000));
    EXPECT_TRUE(aq::GenomesSimilar(zeros.data(), ones.data(), 0.04f, 1000));  // need 0
    EXPECT_FALSE(aq::GenomesSimilar(zeros.data(), ones.data(), 0.1f, 1000));
}

// The fast scan against a byte-by-byte count over random genomes with planted matches.
TEST(Similarity, AgreesWithAPlainByteCount) {
    const unsigned seed = 20261123;
    std::mt19937 rng(seed);
    std::uniform_int_distribution<int> byte(0, 255), share(0, 1000);
    const float thresholds[] = {0.0f, 10.0f, 44.4f, 50.0f, 89.9f, 90.0f, 96.5f, 100.0f, -3.5f, 150.0f, -150.0f};
    for (int round = 0; round < 400; ++round) {
        Genes a, b;
        for (auto& g : a) g = static_cast<std::uint8_t>(byte(rng));
        int keep = share(rng);
        for (int i = 0; i < 1000; ++i) b[i] = (share(rng) < keep) ? a[i] : static_cast<std::uint8_t>(byte(rng));
        for (int n : {100, 1000, 37, 999}) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << " round " << round << " depth " << n);
            int equal = 0;
            for (int i = 0; i < n; ++i) equal += a[i] == b[i];
            ASSERT_EQ(aq::equalGeneCount(a.data(), b.data(), n), equal);
            for (float t : thresholds)
                ASSERT_EQ(aq::GenomesSimilar(a.data(), b.data(), t, n), equal >= aq::similarityNeed(n, t)) << t;
            // Stopping early is allowed only when the pair can change neither end of the range.
            int low = share(rng) % (n + 1), high = share(rng) % (n + 1);
            int m = aq::equalGeneCountOutside(a.data(), b.data(), n, low, high);
            if (m != equal) {
                ASSERT_LE(low, high);
                ASSERT_TRUE(m >= low && equal <= high && equal >= low);
            }
        }
    }
}

}  // namespace
