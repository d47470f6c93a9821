// The files users actually meet, fed to every reader: each gets the program's
// message, nothing crashes, and no file changes that the program did not mean to write.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "pool/PoolFile.h"
#include "pool/PoolOps.h"
#include "pooleditor/DrifterList.h"
#include "shell/FileIo.h"
#include "shell/Settings.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
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

void putInt(std::string& bytes, std::size_t at, std::int32_t v) { std::memcpy(bytes.data() + at, &v, 4); }

}  // namespace

TEST(BadInput, PoolsTruncatedAtEveryBoundaryAndInsideRecords) {
    TempDir dir;
    const std::string good = poolBytes(makePool(3, 4));
    std::vector<std::size_t> cuts;
    for (std::size_t c = 0; c <= 20; ++c) cuts.push_back(c);
    for (int k = 1; k <= 3; ++k)
        for (long d : {-1L, 0L, 1L, -2000L}) cuts.push_back(static_cast<std::size_t>(16 + 4016L * k + d));
    std::size_t food = 20 + 3 * 4016;
    for (int k = 1; k <= 4; ++k)
        for (long d : {-1L, 0L, 1L, -10L}) cuts.push_back(static_cast<std::size_t>(static_cast<long>(food) + 20L * k + d));
    for (std::size_t back : {32280u, 32279u, 32276u, 32000u, 100u, 4u, 1u}) cuts.push_back(good.size() - back);
    std::string path = dir.file("cut.aqp");
    for (std::size_t cut : cuts) {
        SCOPED_TRACE(cut);
        ASSERT_LT(cut, good.size());
        writeBytes(path, good.substr(0, cut));
        Fixture f;
        f.app.openPool = makePool(1, 1);
        f.app.poolLoaded = true;
        std::string before = poolBytes(f.app.openPool);
        EXPECT_FALSE(loadPoolFile(f.app, path, true));
        ASSERT_EQ(f.ui.seen.size(), 1u);
        EXPECT_EQ(f.ui.seen[0].title, "Aquarium File Manager - Load Pool File");
        EXPECT_EQ(f.ui.seen[0].text.rfind("Error opening " + path + ", error: file is truncated: ", 0), 0u)
            << f.ui.seen[0].text;
        EXPECT_EQ(poolBytes(f.app.openPool), before);
        EXPECT_EQ(f.ui.waitDepth, 0);
        EXPECT_EQ(readBytes(path), good.substr(0, cut));
    }
}

TEST(BadInput, VersionsAndCountsThatLie) {
    TempDir dir;
    const std::string good = poolBytes(makePool(2, 2));
    for (std::int32_t version : {0, 3, 6, 0x04000000, -4}) {
        SCOPED_TRACE(version);
        std::string bytes = good;
        putInt(bytes, 0, version);
        writeBytes(dir.file("v.aqp"), bytes);
        Fixture f;
        f.ui.message("Not a Aquarium 4 or 5 data file");
        EXPECT_FALSE(loadPoolFile(f.app, dir.file("v.aqp"), true));
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
    }
    // Counts far beyond the file: an error, and no allocation of what they claim.
    for (std::int32_t count : {2147483647, 1 << 20, 3}) {
        for (std::size_t at : {12u, 16u + 2u * 4016u}) {
            SCOPED_TRACE(testing::Message() << count << " at " << at);
            std::string bytes = good;
            putInt(bytes, at, count);
            writeBytes(dir.file("c.aqp"), bytes);
            Fixture f;
            EXPECT_FALSE(loadPoolFile(f.app, dir.file("c.aqp"), true));
            ASSERT_EQ(f.ui.seen.size(), 1u);
            EXPECT_NE(f.ui.seen[0].text.find("file is truncated"), std::string::npos);
        }
    }
    // Negative counts: the load command says which, and the pool on show stays.
    struct Case {
        std::int32_t drifters, food;
        const char* message;
    } cases[] = {{-1, -1, "Nothing to Load"}, {-5, 0, "Error Loading Drifters."}, {0, -2147483647, "Error Loading Food."}};
    for (const Case& c : cases) {
        Pool p = makePool(0, 0);
        p.drifterCount = c.drifters;
        p.foodCount = c.food;
        writeBytes(dir.file("neg.aqp"), poolBytes(p));
        Fixture f;
        f.app.openPool = makePool(2, 1);
        f.app.poolLoaded = true;
        populateSpeciatePoolList(f.app);
        f.ui.file("open", "Select Pool File", dir.file("neg.aqp")).message(c.message);
        initiateLoadPoolFile(f.app);
        EXPECT_TRUE(f.ui.done()) << f.ui.report();
        EXPECT_EQ(f.app.openPool.drifterCount, 2);
        EXPECT_EQ(f.app.lstSpeciatePool.count(), 2);
    }
}

TEST(BadInput, EmptyFilesFoldersAndUnreadableFiles) {
    TempDir dir;
    writeBytes(dir.file("empty.aqp"), "");
    std::filesystem::create_directory(dir.file("folder.aqp"));
    writeBytes(dir.file("locked.aqp"), poolBytes(makePool(1, 1)));
    ::chmod(dir.file("locked.aqp").c_str(), 0);
    for (const char* name : {"empty.aqp", "folder.aqp", "locked.aqp"}) {
        SCOPED_TRACE(name);
        if (std::string(name) == "locked.aqp" && ::geteuid() == 0) continue;  // root reads anything
        Fixture f;
        EXPECT_FALSE(loadPoolFile(f.app, dir.file(name), true));
        ASSERT_EQ(f.ui.seen.size(), 1u);
        EXPECT_EQ(f.ui.seen[0].text.rfind("Error opening " + dir.file(name) + ", error: ", 0), 0u);
    }
}

TEST(BadInput, SettingsFilesWithJunkStillStartTheProgram) {
    TempDir dir;
    std::string junk;
    for (int i = 0; i < 4096; ++i) junk += static_cast<char>((i * 131 + 7) % 256);
    std::string longLine = "comboPoolPath.Text = " + std::string(200000, 'x') + "\r\n";
    std::string texts[] = {
        junk,
        longLine,
        "chkAutoName.Value = 1\r\nno equals here\r\n = 5\r\ncomboPoolPath.Text = /a=b=c\r\n" + junk,
        std::string("\0\0\0chkNowName.Value = 1\n", 24),
        std::string(100000, '\n'),
    };
    for (const std::string& text : texts) {
        Fixture f;
        f.app.programFolder = dir.path();
        writeBytes(dir.file("aqfm.ini"), text);
        ini(f.app, "Load");
        ini(f.app, "Use");
        EXPECT_TRUE(f.ui.failures.empty()) << f.ui.report();
        EXPECT_EQ(readBytes(dir.file("aqfm.ini")), text) << "reading never rewrites the file";
    }
    Fixture f;
    f.app.programFolder = dir.path();
    writeBytes(dir.file("aqfm.ini"), "chkAutoName.Value = 1\r\n\x01\x02 = \xff\r\ncomboPoolPath.Text = /a=b\r\n");
    ini(f.app, "Load");
    ini(f.app, "Use");
    EXPECT_EQ(f.app.comboPoolPath, "/a") << "a value ends at its second \"=\"";
}

TEST(BadInput, AFullDiskOrReadOnlyFolderKeepsTheOldPool) {
    TempDir dir;
    std::string path = dir.file("pool with spaces ü.aqp");
    std::string old = poolBytes(makePool(2, 2));
    writeBytes(path, old);
    Fixture f;
    f.app.openPool = makePool(4, 4);
    for (long long after : {0LL, 16LL, 5000LL, 30000LL}) {
        setWriteFailureAfter(after);
        EXPECT_FALSE(savePoolFile(f.app, path, true));
        setWriteFailureAfter(-1);
        EXPECT_EQ(readBytes(path), old);
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 1) << "no temporary file is left";
}
