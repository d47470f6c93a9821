// DNA files of every size users meet, folders that only look like DNA files, and
// saves or archive copies that fail half way: the old file stays byte for byte.
#include <gtest/gtest.h>

#include <filesystem>

#include "archive/ArchiveTransfers.h"
#include "dnaeditor/DrifterFiles.h"
#include "format/DnaFile.h"
#include "base/FileIo.h"
#include "support/ManualClock.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

using namespace aq;
using namespace aqtest;

namespace {

struct Fixture {
    ScriptedUi ui;
    ManualClock clock;
    App app{ui, clock};
};

std::string pattern(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + 3);
    return bytes;
}

std::size_t filesIn(const std::string& folder) {
    namespace fs = std::filesystem;
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

}  // namespace

TEST(DnaFiles, EverySizeReadsAsOneGenomeAndStaysUntouched) {
    TempDir dir;
    const std::size_t sizes[] = {0, 10, 1000, 5000};
    for (std::size_t size : sizes) writeBytes(dir.file("s" + std::to_string(10000 + size) + ".dna"), pattern(size));
    std::filesystem::create_directory(dir.file("x.dna"));

    for (std::size_t size : sizes) {
        SCOPED_TRACE(size);
        Genome g;
        EXPECT_EQ(readGenomeFile(dir.file("s" + std::to_string(10000 + size) + ".dna"), g), "");
        // The file's first 1000 bytes, zeros after a short file's end; bytes past 1000 are not genes.
        std::string want = pattern(std::min<std::size_t>(size, kGeneCount));
        want.resize(kGeneCount, '\0');
        EXPECT_EQ(std::string(g.begin(), g.end()), want);
    }
    Genome g;
    g.fill(9);
    EXPECT_EQ(readGenomeFile(dir.file("x.dna"), g), "Is a directory");
    EXPECT_EQ(readGenomeFile(dir.file("none.dna"), g), "No such file or directory");

    // The folder load lists the four files in name order and passes over the folder x.dna.
    Fixture f;
    f.app.comboDrifterPath = dir.path();
    initiateLoadDrifterArchive(f.app);
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    ASSERT_EQ(f.app.dna.dnaCount, 4);
    ASSERT_EQ(f.app.lstSpeciateDrifters.count(), 4);
    EXPECT_EQ(f.app.lstSpeciateDrifters.text(0), "s10000.dna");
    EXPECT_EQ(f.app.lstSpeciateDrifters.text(3), "s15000.dna");
    EXPECT_EQ(f.app.dna.dnaGenes[3][999], static_cast<std::uint8_t>(999 * 7 + 3));
    for (std::size_t size : sizes)
        EXPECT_EQ(readBytes(dir.file("s" + std::to_string(10000 + size) + ".dna")), pattern(size));
    EXPECT_TRUE(std::filesystem::is_directory(dir.file("x.dna")));

    // A folder holding nothing but a folder named like a DNA file has nothing to load.
    TempDir only;
    std::filesystem::create_directory(only.file("x.dna"));
    Fixture e;
    e.app.comboDrifterPath = only.path();
    e.ui.message("Nothing to load.  Try a different Drifter Archive path.");
    initiateLoadDrifterArchive(e.app);
    EXPECT_TRUE(e.ui.done()) << e.ui.report();
    EXPECT_EQ(e.app.dna.dnaCount, 0);
}

TEST(DnaFiles, FailedSaveLeavesTheOldFileByteForByte) {
    TempDir dir;
    const std::string old = pattern(1000);
    const std::string path = dir.file("Drifter_1.DNA");
    for (long long failAfter : {0LL, 1LL, 500LL, 999LL}) {
        SCOPED_TRACE(failAfter);
        writeBytes(path, old);
        Fixture f;
        f.app.dna.dnaGenes.assign(1, Genome{});
        f.app.dna.dnaGenes[0].fill(42);
        f.ui.message("Error saving " + path + ", error: No space left on device",
                     "Aquarium File Manager - Save DNA File");
        setWriteFailureAfter(failAfter);
        EXPECT_FALSE(saveDrifterFile(f.app, path, 0));
        setWriteFailureAfter(-1);
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
        EXPECT_EQ(f.ui.waitDepth, 0);
        EXPECT_EQ(readBytes(path), old);
        EXPECT_EQ(filesIn(dir.path()), 1u);
    }
    // A folder that is gone: the message names the path, and nothing appears.
    Fixture f;
    f.app.dna.dnaGenes.assign(1, Genome{});
    const std::string lost = dir.file("gone/Drifter_2.DNA");
    f.ui.message("Error saving " + lost + ", error: No such file or directory",
                 "Aquarium File Manager - Save DNA File");
    EXPECT_FALSE(saveDrifterFile(f.app, lost, 0));
    EXPECT_TRUE(f.ui.done()) << f.ui.report();
    EXPECT_EQ(filesIn(dir.path()), 1u);
}

TEST(DnaFiles, FailedArchiveCopyLeavesNoHalfFile) {
    TempDir dir;
    const std::string live = dir.file("Pool_1.AQP");
    writeBytes(live, pattern(5000));
    std::filesystem::create_directory(dir.file("archive"));
    const std::string kept = dir.file("archive/Pool_1.AQP");
    writeBytes(kept, "old archive");
    // A folder in the archive's place, a missing archive folder, a missing source.
    std::filesystem::create_directory(dir.file("archive/busy.AQP"));
    std::filesystem::create_directory(dir.file("archive/busy.AQP/inside"));
    EXPECT_TRUE(copyFileSafely(live, dir.file("archive/busy.AQP")));
    EXPECT_TRUE(copyFileSafely(live, dir.file("nowhere/Pool_1.AQP")));
    EXPECT_TRUE(copyFileSafely(dir.file("Pool_9.AQP"), kept));
    EXPECT_EQ(readBytes(kept), "old archive");
    EXPECT_EQ(readBytes(live), pattern(5000));
    EXPECT_EQ(filesIn(dir.file("archive")), 2u);
    EXPECT_FALSE(std::filesystem::exists(dir.file("nowhere")));
    // And a copy that works replaces the old archive file whole.
    EXPECT_FALSE(copyFileSafely(live, kept));
    EXPECT_EQ(readBytes(kept), pattern(5000));
    EXPECT_EQ(filesIn(dir.file("archive")), 2u);
}
