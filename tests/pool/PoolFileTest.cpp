#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "pool/PoolFile.h"
#include "pool/PoolOps.h"
#include "shell/FileIo.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

using namespace aq;
using namespace aqtest;

namespace {

std::string bytesOf(const Pool& p) { return poolBytes(p); }

void putInt(std::string& bytes, std::size_t at, std::int32_t v) { std::memcpy(bytes.data() + at, &v, 4); }

}  // namespace

TEST(PoolFile, LoadAndSaveGiveTheSameBytes) {
    TempDir dir;
    struct Case {
        int drifters, food, version;
    } cases[] = {{0, 0, 4}, {3, 5, 4}, {3, 5, 5}, {2000, 2000, 4}, {0, 7, 5}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.drifters << " drifters, " << c.food << " food, version " << c.version);
        std::string original = bytesOf(makePool(c.drifters, c.food, c.version));
        ASSERT_EQ(original.size(), 20 + 4016u * c.drifters + 20u * c.food + 32280u);
        writeBytes(dir.file("in.aqp"), original);
        ScriptedUi ui;
        ManualClock clock;
        App app(ui, clock);
        loadPoolFile(app, dir.file("in.aqp"), true);
        EXPECT_TRUE(app.poolLoaded);
        EXPECT_EQ(app.openPool.drifterCount, c.drifters);
        ASSERT_TRUE(savePoolFile(app, dir.file("out.aqp"), true));
        EXPECT_EQ(readBytes(dir.file("out.aqp")), original);
        EXPECT_TRUE(ui.done()) << ui.report();
        EXPECT_EQ(ui.waitDepth, 0);
    }
}

TEST(PoolFile, FoodFamilyIsOneByteAndItsNeighboursStay) {
    Pool p = makePool(0, 1);
    p.food[0].family = 5;
    p.food[0].carried1[0] = 0xAB;
    Pool back;
    std::string bytes = poolBytes(p);
    ASSERT_EQ(parsePool({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, back).status,
              PoolReadStatus::Ok);
    EXPECT_EQ(back.food[0].family, 5);
    EXPECT_EQ(back.food[0].carried1[0], 0xAB);
}

TEST(PoolFile, BadFilesGetAMessageAndLeaveThePoolOnShow) {
    TempDir dir;
    std::string good = bytesOf(makePool(3, 2));
    auto truncated = [&](std::size_t n) { return good.substr(0, n); };
    std::string v3 = good, v6 = good, hugeCount = good, negativeFood = good, lyingFood = good;
    putInt(v3, 0, 3);
    putInt(v6, 0, 6);
    putInt(hugeCount, 12, 2147483647);
    putInt(lyingFood, 16 + 3 * 4016, 100000);
    struct Case {
        std::string name, bytes, title, text;
    } cases[] = {
        {"v3", v3, kAppTitle, "Not a Aquarium 4 or 5 data file"},
        {"v6", v6, kAppTitle, "Not a Aquarium 4 or 5 data file"},
        {"empty", "", "Aquarium File Manager - Load Pool File", "file is truncated: the header needs 12 bytes, 0 remain"},
        {"in-drifter", truncated(16 + 4016 + 100), "Aquarium File Manager - Load Pool File",
         "file is truncated: 3 drifters need 12048 bytes, 4116 remain"},
        {"huge", hugeCount, "Aquarium File Manager - Load Pool File",
         "file is truncated: 2147483647 drifters need 8624294326352 bytes, " + std::to_string(good.size() - 16) +
             " remain"},
        {"lying-food", lyingFood, "Aquarium File Manager - Load Pool File",
         "file is truncated: 100000 food bits need 2000000 bytes, 32320 remain"},
        {"trailer", truncated(good.size() - 1), "Aquarium File Manager - Load Pool File",
         "file is truncated: the world block needs 32280 bytes, 32279 remain"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::string path = dir.file(c.name + ".aqp");
        writeBytes(path, c.bytes);
        ScriptedUi ui;
        ManualClock clock;
        App app(ui, clock);
        app.openPool = makePool(1, 1);
        std::string before = poolBytes(app.openPool);
        std::string text = c.text;
        if (c.title != kAppTitle) text = "Error opening " + path + ", error: " + c.text;
        ui.message(text, c.title);
        EXPECT_FALSE(loadPoolFile(app, path, true));
        EXPECT_EQ(poolBytes(app.openPool), before);
        EXPECT_FALSE(app.poolLoaded);
        EXPECT_TRUE(ui.done()) << ui.report();
        EXPECT_EQ(ui.waitDepth, 0);
        EXPECT_EQ(readBytes(path), c.bytes) << "the file itself is never touched";
    }
}

TEST(PoolFile, MissingFileSaysNothingAndAFolderIsAnError) {
    TempDir dir;
    ScriptedUi ui;
    ManualClock clock;
    App app(ui, clock);
    EXPECT_FALSE(loadPoolFile(app, dir.file("nothing.aqp"), true));
    std::filesystem::create_directory(dir.file("folder.aqp"));
    ui.message("Error opening " + dir.file("folder.aqp") + ", error: Is a directory",
               "Aquarium File Manager - Load Pool File");
    EXPECT_FALSE(loadPoolFile(app, dir.file("folder.aqp"), true));
    EXPECT_TRUE(ui.done()) << ui.report();
}

TEST(PoolFile, SaveCreatesOneFolderLevelAndReplacesLongerFiles) {
    TempDir dir;
    ScriptedUi ui;
    ManualClock clock;
    App app(ui, clock);
    app.openPool = makePool(2, 2);
    std::string path = dir.file("new/pool.aqp");
    ASSERT_TRUE(savePoolFile(app, path, true));
    EXPECT_EQ(readBytes(path).size(), app.openPool.fileSize());
    writeBytes(path, std::string(500000, 'x'));
    ASSERT_TRUE(savePoolFile(app, path, true));
    EXPECT_EQ(readBytes(path), poolBytes(app.openPool));
    EXPECT_FALSE(savePoolFile(app, "", true));
    EXPECT_TRUE(ui.done()) << ui.report();
}

TEST(PoolFile, AFailedSaveKeepsTheOldFile) {
    TempDir dir;
    ScriptedUi ui;
    ManualClock clock;
    App app(ui, clock);
    std::string path = dir.file("keep.aqp");
    std::string old = poolBytes(makePool(1, 1));
    writeBytes(path, old);
    app.openPool = makePool(5, 5);
    setWriteFailureAfter(1000);
    ui.message("Error saving " + path + ", error: No space left on device", "Aquarium File Manager - Save Pool File");
    EXPECT_FALSE(savePoolFile(app, path, true));
    setWriteFailureAfter(-1);
    EXPECT_EQ(readBytes(path), old);
    EXPECT_EQ(std::filesystem::directory_iterator(dir.path())->path().filename(), "keep.aqp");
    if (::geteuid() != 0) {  // root writes anywhere
        std::filesystem::permissions(dir.path(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
        ui.message("Error saving " + path + ", error: Permission denied", "Aquarium File Manager - Save Pool File");
        EXPECT_FALSE(savePoolFile(app, path, true));
        std::filesystem::permissions(dir.path(), std::filesystem::perms::owner_all);
        EXPECT_EQ(readBytes(path), old);
    }
    EXPECT_TRUE(ui.done()) << ui.report();
}

TEST(DefaultPool, HasItsFrame) {
    auto bytes = defaultPoolBytes();
    ASSERT_EQ(bytes.size(), 229204u);
    ScriptedUi ui;
    ManualClock clock;
    App app(ui, clock);
    loadDefaultPool(app);
    ASSERT_TRUE(app.defaultPoolUsable);
    const Pool& p = app.defaultPool;
    EXPECT_EQ(p.version, 4);
    EXPECT_EQ(p.clock, 51);
    EXPECT_EQ(p.headerWord, 1);
    ASSERT_EQ(p.drifterCount, 49);
    const int counts[49] = {1, 5, 9, 5, 7, 10, 8, 8, 7, 10, 8, 7, 7, 9, 3, 11, 5, 12, 3, 9, 7, 8, 9, 9, 10, 5, 4, 9, 9, 3,
                            4, 5, 11, 3, 7, 11, 3, 11, 12, 12, 15, 15, 15, 15, 15, 4, 5, 5, 6};
    for (int i = 0; i < 49; ++i) {
        const DrifterRec& d = p.drifters[static_cast<std::size_t>(i)];
        EXPECT_EQ(d.id, i);
        EXPECT_EQ(d.segmentCount, counts[i]);
        EXPECT_EQ(d.alive, 1);
        EXPECT_EQ(d.segments[0].branchCount, d.segmentCount - 1);
        float length = 0, mass = 0;
        for (int s = 0; s < d.segmentCount; ++s) {
            EXPECT_FLOAT_EQ(d.segments[s].mass, d.segments[s].length * d.segments[s].width);
            length += d.segments[s].length;
            mass += d.segments[s].mass;
        }
        EXPECT_FLOAT_EQ(d.totalLength, length);
        EXPECT_FLOAT_EQ(d.mass, mass);
    }
    for (int g = 0; g < kGeneCount; ++g) EXPECT_EQ(p.drifters[0].genes[g], 0);
    ASSERT_EQ(p.foodCount, 6);
    for (int k = 0; k < 6; ++k) EXPECT_EQ(p.food[static_cast<std::size_t>(k)].family, k);
    EXPECT_FLOAT_EQ(p.food[1].x, 50.0f);
    EXPECT_FLOAT_EQ(p.food[1].y, 86.60254f);
    EXPECT_EQ(p.worldValueA, 8000.0f);
    EXPECT_EQ(p.worldValueB, 4.891f);
    EXPECT_EQ(p.minX, -4000.0f);
    EXPECT_EQ(p.maxY, 4000.0f);
    EXPECT_EQ(p.walls[0].orientation, 1);
    EXPECT_EQ(p.walls[0].left, -2430);
    EXPECT_EQ(p.walls[0].top, -2250);
    EXPECT_EQ(p.walls[1].orientation, 0);
    EXPECT_EQ(p.walls[1].bottom, -3230);
    EXPECT_EQ(p.walls[0].wallLength, 700);
    EXPECT_EQ(p.walls[1].wallLength, 1000);
    EXPECT_EQ(p.walls[1].wallFlag, -1);
    EXPECT_EQ(p.lastWord, 2);
}

TEST(DefaultPool, BuilderReproducesTheCommittedFile) {
    TempDir dir;
    std::string out = dir.file("default.aqp");
    ASSERT_EQ(std::system((std::string(AQ_BUILD_DEFAULT_POOL) + " " + out).c_str()), 0);
    EXPECT_EQ(readBytes(out), readBytes(std::string(AQ_SOURCE_DIR) + "/data/default.aqp"));
}
