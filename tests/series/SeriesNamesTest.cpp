#include <gtest/gtest.h>

#include <random>

#include "SeriesFakes.h"
#include "series/SeriesNames.h"
#include "series/SplitSeeds.h"
#include "support/TempDir.h"

using namespace aqtest;

TEST(SeriesNames, NextParentOffspringPathsAndMissingOnes) {
    const std::tuple<std::string, bool, std::string> cases[] = {
        {"", true, "0"},       {"", false, "1"},      {"9", true, "00"},  {"9", false, "10"},
        {"099", true, "100"},  {"999", true, "0000"}, {"23", true, "24"}, {"09", true, "10"},
        {"099", false, "100"}, {"00", true, "01"},    {"0", true, "1"},   {"19", false, "20"},
    };
    for (const auto& [suffix, branching, next] : cases)
        EXPECT_EQ(aq::getNextParent(suffix, branching), next) << suffix << (branching ? " branching" : "");
    // Branching: child 0 appends a 0, child 1 is the next number of the same length, if any.
    const std::tuple<std::string, std::string, int, bool, std::string> paths[] = {
        {"/d/pool.aqp", "23", 1, true, "/d/pool24.aqp"},
        {"/d/pool.aqp", "23", 0, true, "/d/pool230.aqp"},
        {"/d/pool.aqp", "23", 0, false, "/d/pool24.aqp"},
        {"/d/pool.aqp", "23", 1, false, ""},
        {"/d/pool.aqp", "", 0, true, "/d/pool0.aqp"},
        {"/d/pool.aqp", "", 1, true, ""},
        {"/d/pool.aqp", "99", 0, true, "/d/pool990.aqp"},
        {"/d/pool.aqp", "99", 1, true, ""},
        {"/d/pool.aqp", "9", 1, true, ""},
        {"/d/pool.aqp", "0", 1, true, "/d/pool1.aqp"},
        {"/d/pool", "", 0, true, "/d/pool0.aqp"},
        {"/d/a.b.AQP", "5", 1, true, "/d/a.b6.AQP"},
    };
    for (const auto& [file, suffix, child, branching, path] : paths)
        EXPECT_EQ(aq::getOffspringSpec(file, suffix, child, branching), path) << file << " " << suffix << " " << child;
    EXPECT_EQ(aq::seriesFileName("/d/pool", ""), "/d/pool.aqp");
    EXPECT_EQ(aq::seriesFileName("/d/pool.aqp", "099"), "/d/pool099.aqp");
    TempDir dir;
    std::string file = dir.file("pool.aqp");
    EXPECT_FALSE(aq::isOffspringMissing(file, "99", 1, true));
    EXPECT_FALSE(aq::isOffspringMissing(file, "", 1, true));
    EXPECT_FALSE(aq::isOffspringMissing(file, "3", 1, false));  // a plain series has no child 1
    EXPECT_TRUE(aq::isOffspringMissing(file, "99", 0, true));
    writeBytes(dir.file("pool990.aqp"), "x");
    EXPECT_FALSE(aq::isOffspringMissing(file, "99", 0, true));
    EXPECT_TRUE(aq::isOffspringMissing(file, "23", 1, true));
    writeBytes(dir.file("pool24.aqp"), "x");
    EXPECT_FALSE(aq::isOffspringMissing(file, "23", 1, true));
    EXPECT_TRUE(aq::isOffspringMissing(file, "23", 0, true));
}

namespace {

// A pool whose drifter i has every gene equal to genes[i] and the id 100 + i.
aq::Pool genePool(std::vector<int> genes) {
    aq::Pool p = makePool(static_cast<int>(genes.size()), 3);
    for (std::size_t i = 0; i < genes.size(); ++i) {
        std::memset(p.drifters[i].genes, genes[i], aq::kGeneCount);
        p.drifters[i].id = 100 + static_cast<int>(i);
    }
    return p;
}

}  // namespace

TEST(SeriesSplit, HalvesByDistanceToTheTwoSeeds) {
    // All equal: the first pair (1, 0) seeds, ties alternate beginning with half 0. Two
    // drifters: each to its seed's half, filled up to two with a copy of the seed. The seed
    // with the larger gene sum leads half 0.
    const std::tuple<std::vector<int>, std::vector<int>, std::vector<int>> cases[] = {
        {{7, 7, 7, 7, 7}, {100, 102, 104}, {101, 103}},
        {{1, 2}, {101, 101}, {100, 100}},
        {{5, 9, 5, 9, 1}, {101, 103, 104}, {100, 102}}};
    for (const auto& [genes, half0, half1] : cases) {
        aq::Pool h0, h1;
        aq::splitPopulation(genePool(genes), 100, h0, h1);
        EXPECT_EQ(idsOf(h0), half0);
        EXPECT_EQ(idsOf(h1), half1);
    }
}

TEST(SeriesSplit, SeedsAreThoseOfComparingEveryPair) {
    // Unrelated genomes from alphabets of 2 to 256 letters, and trees of mutated copies
    // with duplicates among them; every depth the bounds could get wrong.
    std::mt19937 rng(33);
    for (int round = 0; round < 60; ++round) {
        const int n = 2 + static_cast<int>(rng() % 90), letters = 2 << (rng() % 8);
        aq::Pool pool = makePool(n, 0);
        for (int i = 0; i < n; ++i) {
            aq::DrifterRec& d = pool.drifters[static_cast<std::size_t>(i)];
            if (round % 2 && i > 0) d = pool.drifters[rng() % static_cast<unsigned>(i)];
            for (auto& g : d.genes)
                if (round % 2 == 0 || i == 0 || rng() % 100 < 3) g = static_cast<std::uint8_t>(rng() % letters);
        }
        for (int depth : {0, 1, 63, 100, 1000}) {
            aq::SeedPair brute;
            int most = -1;
            for (int a = 1; a < n; ++a)
                for (int b = 0; b < a; ++b) {
                    int d = 0;
                    for (int k = 0; k < depth; ++k)
                        d += pool.drifters[std::size_t(a)].genes[k] != pool.drifters[std::size_t(b)].genes[k];
                    if (d > most) most = d, brute = {a, b};
                }
            aq::SeedPair fast = aq::mostDifferentPair(pool, n, depth);
            EXPECT_EQ(std::pair(fast.a, fast.b), std::pair(brute.a, brute.b))
                << "round " << round << " depth " << depth;
        }
    }
}

namespace {

// A split of four drifters (101 and 103 the first half) into pool.aqp's series, the open
// pool one drifter (100).
struct SaveRig : UiRig {
    TempDir dir;
    SaveRig(aq::SeriesOptions::IfExists ifExists, std::initializer_list<const char*> oldFiles) {
        app.workPool = genePool({1, 2, 1, 2});
        app.openPool = genePool({3});
        app.series.options.ifExists = ifExists;
        for (const char* name : oldFiles) writeBytes(dir.file(name), "old");
    }
    SaveRig& askOver(const std::string& name, aq::Answer answer) {
        ui.ask("yesnocancel", "Would you like to save over " + dir.file(name), "Save Split Pool - Part #", answer);
        return *this;
    }
    void save(const std::string& suffix) {
        aq::saveoffspring(app, dir.file("pool.aqp"), suffix);
        EXPECT_TRUE(ui.done()) << ui.report();
    }
    std::vector<int> idsIn(const std::string& name) {
        aq::Pool p;
        return aq::readPool(dir.file(name), p).status == aq::PoolReadStatus::Ok ? idsOf(p) : std::vector<int>{-1};
    }
};

constexpr auto kPrompt = aq::SeriesOptions::IfExists::Prompt;

}  // namespace

TEST(SeriesSave, BranchingWritesBothHalvesAndAsksBeforeReplacing) {
    SaveRig r(kPrompt, {"pool24.aqp"});
    r.askOver("pool24.aqp", aq::Answer::Yes).save("23");
    EXPECT_EQ(r.idsIn("pool230.aqp"), (std::vector<int>{101, 103}));
    EXPECT_EQ(r.idsIn("pool24.aqp"), (std::vector<int>{100, 102}));
    EXPECT_EQ(idsOf(r.app.workPool), std::vector<int>{100});  // back to the open pool
    r.app.workPool = genePool({1, 2});  // two drifters are split too, each half filled up with its seed
    r.save("5");
    EXPECT_EQ(r.idsIn("pool50.aqp"), (std::vector<int>{101, 101}));
    // Continue with one child present: the whole pool goes over it.
    SaveRig c(aq::SeriesOptions().ifExists, {"pool230.aqp"});
    c.askOver("pool230.aqp", aq::Answer::Yes).save("23");
    EXPECT_EQ(c.idsIn("pool230.aqp"), (std::vector<int>{100, 101, 102, 103}));
    EXPECT_FALSE(std::filesystem::exists(c.dir.file("pool24.aqp")));
}

TEST(SeriesSave, NoAsksForANameCancelStopsAndAPlainSeriesWritesHalves) {
    SaveRig r(kPrompt, {"pool230.aqp", "pool24.aqp"});
    r.askOver("pool230.aqp", aq::Answer::No)
        .ui.file("save", "Save Split Pool () As", r.dir.file("other.aqp"),
                 r.dir.path() + "|pool230.aqp|aqp|Pool Files");
    r.askOver("pool24.aqp", aq::Answer::Cancel).save("23");
    EXPECT_EQ(r.idsIn("other.aqp"), (std::vector<int>{101, 103}));
    EXPECT_EQ(readBytes(r.dir.file("pool24.aqp")), "old");
    EXPECT_EQ(idsOf(r.app.workPool), (std::vector<int>{100, 102}));  // cancelled before the pool was put back
    // A plain series writes the first half only, and whole pools after a 9.
    SaveRig plain(aq::SeriesOptions::IfExists::Overwrite, {"pool24.aqp"});
    plain.app.series.options.chkBranchingSeries = false;
    plain.save("23");
    EXPECT_EQ(plain.idsIn("pool24.aqp"), (std::vector<int>{101, 103}));
    plain.app.workPool = genePool({1, 2, 1, 2});
    plain.save("19");
    EXPECT_EQ(plain.idsIn("pool20.aqp"), (std::vector<int>{100, 101, 102, 103}));
}
