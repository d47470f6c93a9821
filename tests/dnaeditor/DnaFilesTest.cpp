// DNA files on disk: writing, loading a folder, the CLI's genome export.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "dnaeditor/DnaFixture.h"
#include "format/PoolFile.h"
#include "support/PoolFixtures.h"

namespace {

using aqtest::DnaFixture;
const char* const kLoadTitle = "Aquarium File Manager - Load Drifter Files";

TEST(DnaFile, RoundTripsEveryByteValue) {
    DnaFixture f;
    aq::Genome all;
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<std::uint8_t>((i * 7 + 3) % 256);
    all[0] = 0, all[1] = 255, all[2] = '\r', all[3] = '\n', all[4] = 0x1A;
    f.app.dna.dnaGenes = {all};
    f.app.dna.dnaCount = 1;
    // A 2000-byte file written over ends with exactly the 1000 new bytes.
    aqtest::writeBytes(f.path("a.dna"), std::string(2000, 'x'));
    ASSERT_TRUE(aq::saveDrifterFile(f.app, f.path("a.dna"), 0));
    EXPECT_EQ(aqtest::readBytes(f.path("a.dna")), f.bytesOf(all));
    aq::Genome back;
    EXPECT_EQ(aq::readGenomeFile(f.path("a.dna"), back), "");
    EXPECT_EQ(back, all);

    EXPECT_FALSE(aq::saveDrifterFile(f.app, "", 0));  // no path: no file, no message
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    EXPECT_EQ(f.ui.waitDepth, 0);
}

TEST(LoadDrifterFiles, TakesDnaFilesOfAnyCaseInNameOrder) {
    DnaFixture f;
    f.writeDna("b.DNA", aqtest::genome(2));
    f.writeDna("a.dna", aqtest::genome(1));
    f.writeDna("C.Dna", aqtest::genome(3));
    aqtest::writeBytes(f.path("notes.txt"), "x");
    aqtest::writeBytes(f.path("dna"), "x");
    std::filesystem::create_directories(f.path("folder.dna"));
    f.load();
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    ASSERT_EQ(f.app.dna.dnaCount, 3);
    EXPECT_EQ(f.lines(), (std::vector<std::string>{"a.dna", "b.DNA", "C.Dna"}));
    EXPECT_EQ(f.app.dna.dnaPaths[2], f.path("C.Dna"));
    EXPECT_EQ(f.app.dna.dnaGenes[1], aqtest::genome(2));
    EXPECT_EQ(f.app.dna.dnaChanged, (std::vector<std::uint8_t>{0, 0, 0}));
    EXPECT_TRUE(f.app.dnaLoaded && f.app.speciesPending);
    EXPECT_FALSE(f.app.lstSpeciateDrifters.enabled());  // extended species mode waits for the pass
    EXPECT_EQ(f.app.dna.dnaFolder, f.dir.path());
    EXPECT_EQ(f.app.dna.thresholdItems.front(), "0%");
    EXPECT_EQ(f.app.dna.thresholdItems.size(), 11u);
    EXPECT_EQ(f.ui.waitDepth, 0);

    DnaFixture one;  // one file: nothing to compare
    one.writeDna("only.dna", aqtest::genome(5));
    one.load();
    EXPECT_FALSE(one.app.speciesPending);
    EXPECT_TRUE(one.app.lstSpeciateDrifters.enabled());
}

TEST(LoadDrifterFiles, AMissingFolder) {
    DnaFixture f;
    f.app.comboDrifterPath = f.path("missing");
    f.ui.message("Error reading " + f.path("missing") + ", error: No such file or directory", kLoadTitle)
        .message("Nothing to load.  Try a different Drifter Archive path.");
    aq::initiateLoadDrifterArchive(f.app);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    EXPECT_FALSE(f.app.dnaLoaded);
}

TEST(LoadDrifterFiles, AFileThatCantBeReadIsLeftOut) {
    if (geteuid() == 0) GTEST_SKIP() << "root reads any file";
    DnaFixture f;
    f.writeDna("a.dna", aqtest::genome(1));
    f.writeDna("b.dna", aqtest::genome(2));
    std::filesystem::permissions(f.path("a.dna"), std::filesystem::perms::none);
    f.ui.message("Error opening a.dna, error: Permission denied", kLoadTitle);
    f.load();
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    EXPECT_EQ(f.lines(), (std::vector<std::string>{"b.dna"}));
    EXPECT_EQ(f.app.dna.dnaGenes.size(), 1u);
}

TEST(CliDna, WritesTheDriftersGenesByteForByte) {
    aqtest::TempDir dir;
    aq::Pool pool = aqtest::makePool(3, 1);
    std::string poolPath = dir.file("p.aqp"), out = dir.file("g.dna");
    aqtest::writeBytes(poolPath, aq::poolBytes(pool));
    auto run = [&](const std::string& index) {
        std::string cmd = std::string(AQ_CLI) + " dna " + poolPath + " " + index + " -o " + out + " 2>/dev/null";
        return WEXITSTATUS(std::system(cmd.c_str()));
    };
    ASSERT_EQ(run("2"), 0);
    EXPECT_EQ(aqtest::readBytes(out),
              std::string(reinterpret_cast<const char*>(pool.drifters[2].genes), sizeof pool.drifters[2].genes));
    EXPECT_EQ(run("3"), 1);
    EXPECT_EQ(run("two"), 2);
}

}  // namespace
