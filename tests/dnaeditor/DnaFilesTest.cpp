// DNA files on disk: writing, loading a folder, the CLI's genome export, and importing
// the drifters of a pool.
#include <gtest/gtest.h>

#include <filesystem>

#include "dnaeditor/DnaFixture.h"
#include "format/PoolFile.h"
#include "support/PoolFixtures.h"
#include "support/RunCli.h"

using namespace aqtest;
using aq::Answer;

namespace {

const char* const kLoadTitle = "Aquarium File Manager - Load Drifter Files";

aq::DrifterRec drifter(int id, std::vector<int> colors, int gene0) {
    aq::DrifterRec d = makeDrifter(id, static_cast<int>(colors.size()));
    for (std::size_t s = 0; s < colors.size(); ++s) d.segments[s].color = colors[s];
    d.genes[0] = static_cast<std::uint8_t>(gene0);
    return d;
}

// The DNA folder, and a pool of these drifters to import from.
struct Importer : DnaFixture {
    explicit Importer(const std::string& poolPath, std::vector<aq::DrifterRec> drifters) {
        app.comboDrifterPath = dir.path();
        app.openPoolPath = poolPath;
        app.workPool.drifterCount = static_cast<int>(drifters.size());
        app.workPool.drifters = std::move(drifters);
    }
};

}  // namespace

TEST(DnaFile, RoundTripsEveryByteValueAlsoFromTheCli) {
    DnaFixture f;
    aq::Genome all;
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<std::uint8_t>((i * 7 + 3) % 256);
    all[0] = 0, all[1] = 255, all[2] = '\r', all[3] = '\n', all[4] = 0x1A;
    f.app.dna.dnaGenes = {all};
    f.app.dna.dnaCount = 1;
    // A 2000-byte file written over ends with exactly the 1000 new bytes.
    writeBytes(f.path("a.dna"), std::string(2000, 'x'));
    ASSERT_TRUE(aq::saveDrifterFile(f.app, f.path("a.dna"), 0));
    EXPECT_EQ(readBytes(f.path("a.dna")), std::string(all.begin(), all.end()));
    EXPECT_FALSE(aq::saveDrifterFile(f.app, "", 0));  // no path: no file, no message
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    // aqfm dna writes a drifter's genes byte for byte.
    TempDir dir;
    aq::Pool pool = makePool(3, 1);
    std::string poolPath = dir.file("p.aqp"), out = dir.file("g.dna");
    writeBytes(poolPath, aq::poolBytes(pool));
    auto run = [&](const std::string& index) { return runCli("dna " + poolPath + " " + index + " -o " + out).status; };
    ASSERT_EQ(run("2"), 0);
    EXPECT_EQ(readBytes(out), std::string(reinterpret_cast<const char*>(pool.drifters[2].genes), 1000));
    EXPECT_EQ(run("3"), 1);
    EXPECT_EQ(run("two"), 2);
}

TEST(LoadDrifterFiles, AnyCaseInNameOrderAndWhatCannotBeRead) {
    DnaFixture f, one;
    f.writeDna("b.DNA", genome(2));
    f.writeDna("a.dna", genome(1));
    f.writeDna("C.Dna", genome(3));
    writeBytes(f.path("notes.txt"), "x");
    writeBytes(f.path("dna"), "x");
    std::filesystem::create_directories(f.path("folder.dna"));
    f.load();
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    ASSERT_EQ(f.lines(), (std::vector<std::string>{"a.dna", "b.DNA", "C.Dna"}));
    EXPECT_EQ(f.app.dna.dnaGenes[1], genome(2));
    EXPECT_EQ(f.app.dna.thresholdItems.size(), 11u);  // 0% to 100%
    // One file: nothing to compare.
    one.writeDna("only.dna", genome(5));
    one.load();
    EXPECT_TRUE(!one.app.speciesPending && one.app.lstSpeciateDrifters.enabled());
    DnaFixture bad;
    bad.app.comboDrifterPath = bad.path("missing");
    bad.ui.message("Error reading " + bad.path("missing") + ", error: No such file or directory", kLoadTitle)
        .message("Nothing to load.  Try a different Drifter Archive path.");
    bad.run(aq::initiateLoadDrifterArchive);
    EXPECT_FALSE(bad.app.dnaLoaded);
#ifndef _WIN32  // POSIX permissions
    // A file that can't be read is left out (root reads any file).
    if (geteuid() != 0) {
        bad.writeDna("a.dna", genome(1));
        bad.writeDna("b.dna", genome(2));
        std::filesystem::permissions(bad.path("a.dna"), std::filesystem::perms::none);
        bad.ui.message("Error opening a.dna, error: Permission denied", kLoadTitle);
        bad.load();
        EXPECT_TRUE(bad.ui.done()) << bad.ui.report();
        EXPECT_EQ(bad.lines(), (std::vector<std::string>{"b.dna"}));
        EXPECT_EQ(bad.app.dna.dnaGenes.size(), 1u);
    }
#endif
}

TEST(ImportDrifters, NamesAndQuickSpeciate) {
    Importer f("/pools/Sea.aqp", {drifter(12, {0, 1, 4}, 1), drifter(12, {0, 1, 4}, 2), drifter(3, {5, 9, 2}, 3),
                                  drifter(4, {}, 4), drifter(5, {3}, 3)});
    f.writeDna("Sea.rob12.dna", genome(0, {77}));  // on disk, not loaded
    f.run(aq::importDriftersFromAquarium);
    // The same genome twice in one pool: both come in, as changed entries not yet written.
    EXPECT_EQ(f.lines(), (std::vector<std::string>{"Sea.rob12_0.dna", "Sea.rob12_1.dna", "Sea.py3.dna", "Sea.4.dna",
                                                   "Sea.g5.dna"}));
    EXPECT_EQ(f.app.dna.dnaChanged, (std::vector<std::uint8_t>{1, 1, 1, 1, 1}));
    EXPECT_TRUE(f.app.dnaLoaded && f.app.speciesPending);
    // The stem is the pool's name up to its first dot.
    for (auto [path, line] : {std::pair{"/p/My.Pool.aqp", "My.r1.dna"}, {"/p/plain", "plainr1.dna"}, {"", "r1.dna"}}) {
        Importer g(path, {drifter(1, {0}, 9)});
        aq::importDriftersFromAquarium(g.app);
        EXPECT_EQ(g.lines(), std::vector<std::string>{line});
    }
    // Quick Speciate looks at the first hundred genes only.
    aq::DrifterRec dq = drifter(1, {0}, 9);
    Importer q("", {dq});
    aq::Genome gq;
    std::copy(std::begin(dq.genes), std::end(dq.genes), gq.begin());
    gq[500] ^= 1;
    q.writeDna("x.dna", gq);
    q.load();
    q.app.similarityDepth = 100;
    aq::importDriftersFromAquarium(q.app);
    EXPECT_EQ(q.app.dna.dnaCount, 1);
    q.app.similarityDepth = 1000;
    EXPECT_EQ(aq::GeneDifferences(q.app, gq, dq.genes), 1);
    aq::importDriftersFromAquarium(q.app);
    EXPECT_EQ(q.lines(), (std::vector<std::string>{"x.dna", "r1.dna"}));
}

TEST(ImportDrifters, TheQuestionsChooseTheSource) {
    Importer f("", {});
    f.app.comboPoolPath = "/pools";
    const std::string openQuestion =
        "Would you like to import the drifters from the currently open pool file into the Drifter Files list?";
    const std::string fileQuestion =
        "Would you like to import the drifters from a pool file into the Drifter Files list?";

    f.ui.ask("yesno", fileQuestion, aq::kAppTitle, Answer::No);  // no pool open: the first question isn't asked
    f.run(aq::importDrifters);

    f.app.poolLoaded = true;
    f.app.openPool.drifters = {drifter(7, {2}, 1)};
    f.app.openPool.drifterCount = 1;
    f.ui.ask("yesnocancel", openQuestion, aq::kAppTitle, Answer::No)
        .ask("yesno", fileQuestion, aq::kAppTitle, Answer::No);
    f.run(aq::importDrifters);

    std::string poolPath = f.path("other.aqp");
    writeBytes(poolPath, aq::poolBytes(makePool(3, 0)));
    f.ui.ask("yesnocancel", openQuestion, aq::kAppTitle, Answer::No)
        .ask("yesno", fileQuestion, aq::kAppTitle, Answer::Yes)
        .file("open", "Select Pool File", poolPath, "/pools||aqp|Aquarium Files");
    f.run(aq::importDrifters);
    EXPECT_FALSE(f.app.lstSpeciateDrifters.enabled());  // extended species wait for the pass

    f.ui.ask("yesnocancel", openQuestion, aq::kAppTitle, Answer::Yes);
    aq::importDrifters(f.app);
    EXPECT_EQ(f.lines().back(), "y7.dna");
    f.ui.ask("yesnocancel", openQuestion, aq::kAppTitle, Answer::Cancel);
    f.run(aq::importDrifters);
    EXPECT_EQ(f.lines().size(), 4u);
}
