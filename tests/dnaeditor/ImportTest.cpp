// Import from a pool: the generated names, the skipping of present genomes, the questions.
#include <gtest/gtest.h>

#include <filesystem>

#include "dnaeditor/DnaFixture.h"
#include "format/PoolFile.h"
#include "support/PoolFixtures.h"

namespace {

using aq::Answer;

aq::DrifterRec drifter(int id, std::vector<int> colors, int gene0) {
    aq::DrifterRec d = aqtest::makeDrifter(id, static_cast<int>(colors.size()));
    for (std::size_t s = 0; s < colors.size(); ++s) d.segments[s].color = colors[s];
    d.genes[0] = static_cast<std::uint8_t>(gene0);
    return d;
}

aq::Pool poolOf(std::vector<aq::DrifterRec> drifters) {
    aq::Pool p;
    p.drifterCount = static_cast<int>(drifters.size());
    p.drifters = std::move(drifters);
    return p;
}

struct Importer : aqtest::DnaFixture {
    explicit Importer(const std::string& poolPath, std::vector<aq::DrifterRec> drifters) {
        app.comboDrifterPath = dir.path();
        app.openPoolPath = poolPath;
        app.workPool = poolOf(std::move(drifters));
    }
};

TEST(ImportDrifters, NamesFromStemColoursAndId) {
    Importer f("/pools/Sea.aqp", {drifter(12, {0, 1, 4}, 1), drifter(12, {0, 1, 4}, 2), drifter(3, {5, 9, 2}, 3),
                                  drifter(4, {}, 4), drifter(5, {3}, 3)});
    f.writeDna("Sea.rob12.dna", aqtest::genome(0, {77}));  // on disk, not loaded
    aq::importDriftersFromAquarium(f.app);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    ASSERT_EQ(f.app.dna.dnaCount, 5);  // same genome twice in one pool: both come in
    EXPECT_EQ(f.lines(), (std::vector<std::string>{"Sea.rob12_0.dna", "Sea.rob12_1.dna", "Sea.py3.dna", "Sea.4.dna",
                                                   "Sea.g5.dna"}));
    EXPECT_EQ(f.app.dna.dnaPaths[0], f.path("Sea.rob12_0.dna"));
    EXPECT_EQ(f.app.dna.dnaChanged, (std::vector<std::uint8_t>{1, 1, 1, 1, 1}));
    EXPECT_EQ(f.app.dna.dnaGenes[2][0], 3);
    EXPECT_TRUE(f.app.dnaLoaded && f.app.speciesPending);
    EXPECT_FALSE(std::filesystem::exists(f.path("Sea.py3.dna")));  // nothing is written yet
    // A second import adds nothing: every genome is there.
    aq::importDriftersFromAquarium(f.app);
    EXPECT_EQ(f.app.dna.dnaCount, 5);
    EXPECT_EQ(f.ui.waitDepth, 0);

    const std::pair<const char*, const char*> stems[] = {
        {"/p/My.Pool.aqp", "My.r1.dna"}, {"/p/plain", "plainr1.dna"}, {"", "r1.dna"}};
    for (auto [path, line] : stems) {
        Importer g(path, {drifter(1, {0}, 9)});
        aq::importDriftersFromAquarium(g.app);
        EXPECT_EQ(g.lines(), std::vector<std::string>{line});
        EXPECT_FALSE(g.app.speciesPending);  // one entry: nothing to compare
    }
}

TEST(ImportDrifters, QuickSpeciateLooksAtTheFirstHundredGenes) {
    aq::DrifterRec d = drifter(1, {0}, 9);
    Importer f("", {d});
    aq::Genome g;
    std::copy(std::begin(d.genes), std::end(d.genes), g.begin());
    g[500] ^= 1;
    f.app.dna.dnaGenes = {g};
    f.app.dna.dnaPaths = {f.path("x.dna")};
    f.app.dna.dnaChanged = {0};
    f.app.dna.dnaCount = 1;
    f.app.similarityDepth = 100;
    EXPECT_EQ(aq::GeneDifferences(f.app, g, d.genes), 0);
    aq::importDriftersFromAquarium(f.app);
    EXPECT_EQ(f.app.dna.dnaCount, 1);
    f.app.similarityDepth = 1000;
    EXPECT_EQ(aq::GeneDifferences(f.app, g, d.genes), 1);
    aq::importDriftersFromAquarium(f.app);
    EXPECT_EQ(f.lines(), (std::vector<std::string>{"x.dna", "r1.dna"}));
}

TEST(ImportDrifters, TheQuestionsChooseTheSource) {
    Importer f("", {});
    f.app.comboPoolPath = "/pools";
    const std::string openQuestion =
        "Would you like to import the drifters from the currently open pool file into the Drifter Files list?";
    const std::string fileQuestion =
        "Would you like to import the drifters from a pool file into the Drifter Files list?";

    f.ui.ask("yesno", fileQuestion, aq::kAppTitle, Answer::No);  // no pool open: the first question isn't asked
    aq::importDrifters(f.app);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();

    f.app.poolLoaded = true;
    f.app.openPool = poolOf({drifter(7, {2}, 1)});
    f.ui.ask("yesnocancel", openQuestion, aq::kAppTitle, Answer::No)
        .ask("yesno", fileQuestion, aq::kAppTitle, Answer::No);
    aq::importDrifters(f.app);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    EXPECT_EQ(f.app.dna.dnaCount, 0);

    std::string poolPath = f.path("other.aqp");
    aqtest::writeBytes(poolPath, aq::poolBytes(aqtest::makePool(3, 0)));
    f.ui.ask("yesnocancel", openQuestion, aq::kAppTitle, Answer::No)
        .ask("yesno", fileQuestion, aq::kAppTitle, Answer::Yes)
        .file("open", "Select Pool File", poolPath, "/pools||aqp|Aquarium Files");
    aq::importDrifters(f.app);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    EXPECT_EQ(f.app.dna.dnaCount, 3);
    EXPECT_FALSE(f.app.lstSpeciateDrifters.enabled());  // extended species wait for the pass

    f.ui.ask("yesnocancel", openQuestion, aq::kAppTitle, Answer::Yes);
    aq::importDrifters(f.app);
    EXPECT_EQ(f.lines().back(), "y7.dna");
    f.ui.ask("yesnocancel", openQuestion, aq::kAppTitle, Answer::Cancel);
    aq::importDrifters(f.app);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    EXPECT_EQ(f.app.dna.dnaCount, 4);
}

}  // namespace
