// Pool files byte for byte, saving over and beside old files, the default pool, and
// what lies under a point of a pool.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "base/FileIo.h"
#include "files/PoolOps.h"
#include "format/PoolFile.h"
#include "format/PoolGeometry.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedSession.h"

using namespace aq;
using namespace aqtest;

TEST(PoolFile, LoadAndSaveGiveTheSameBytes) {
    TempDir dir;
    struct Case {
        int drifters, food, version;
    } cases[] = {{0, 0, 4}, {3, 5, 4}, {3, 5, 5}, {2000, 2000, 4}, {0, 7, 5}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.drifters << " drifters, " << c.food << " food, version " << c.version);
        std::string original = poolBytes(makePool(c.drifters, c.food, c.version));
        ASSERT_EQ(original.size(), 20 + 4016u * c.drifters + 20u * c.food + 32280u);
        writeBytes(dir.file("in.aqp"), original);
        Session s;
        loadPoolFile(s.app, dir.file("in.aqp"), true);
        EXPECT_TRUE(s.app.poolLoaded);
        EXPECT_EQ(s.app.openPool.drifterCount, c.drifters);
        ASSERT_TRUE(savePoolFile(s.app, dir.file("out.aqp"), true));
        EXPECT_EQ(readBytes(dir.file("out.aqp")), original);
        EXPECT_SCRIPT_DONE(s.ui);
        EXPECT_EQ(s.ui.waitDepth, 0);
    }
}

TEST(PoolFile, SaveCreatesOneFolderLevelAndReplacesLongerFiles) {
    Session s;
    s.app.openPool = makePool(2, 2);
    std::string path = s.dir.file("new/pool.aqp");
    ASSERT_TRUE(savePoolFile(s.app, path, true));
    EXPECT_EQ(readBytes(path).size(), s.app.openPool.fileSize());
    writeBytes(path, std::string(500000, 'x'));
    ASSERT_TRUE(savePoolFile(s.app, path, true));
    EXPECT_EQ(readBytes(path), poolBytes(s.app.openPool));
    EXPECT_FALSE(savePoolFile(s.app, "", true));
    EXPECT_SCRIPT_DONE(s.ui);
}

TEST(DefaultPool, HasItsFrame) {
    auto bytes = defaultPoolBytes();
    ASSERT_EQ(bytes.size(), 229204u);
    Session s;
    loadDefaultPool(s.app);
    ASSERT_TRUE(s.app.defaultPoolUsable);
    const Pool& p = s.app.defaultPool;
    EXPECT_EQ(std::vector<int>({p.version, p.clock, p.headerWord, p.lastWord}), std::vector<int>({4, 51, 1, 2}));
    ASSERT_EQ(p.drifterCount, 49);
    const int counts[49] = {1, 5, 9, 5, 7, 10, 8, 8,  7, 10, 8,  7, 7,  9,  3,  11, 5,  12, 3,  9,  7, 8, 9, 9, 10,
                            5, 4, 9, 9, 3, 4,  5, 11, 3, 7,  11, 3, 11, 12, 12, 15, 15, 15, 15, 15, 4, 5, 5, 6};
    for (int i = 0; i < 49; ++i) {
        const DrifterRec& d = p.drifters[static_cast<std::size_t>(i)];
        EXPECT_EQ(std::vector<int>({d.id, d.segmentCount, d.alive, d.segments[0].branchCount}),
                  std::vector<int>({i, counts[i], 1, counts[i] - 1}));
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
    EXPECT_EQ(std::vector<float>({p.worldValueA, p.worldValueB, p.minX, p.maxY}),
              std::vector<float>({8000.0f, 4.891f, -4000.0f, 4000.0f}));
    const GreatWall &v = p.walls[0], &h = p.walls[1];
    EXPECT_EQ(std::vector<double>({double(v.orientation), v.left, v.top, v.wallLength}),
              std::vector<double>({1, -2430, -2250, 700}));
    EXPECT_EQ(std::vector<double>({double(h.orientation), h.bottom, h.wallLength, double(h.wallFlag)}),
              std::vector<double>({0, -3230, 1000, -1}));
}

TEST(DefaultPool, BuilderReproducesTheCommittedFile) {
    TempDir dir;
    std::string out = dir.file("default.aqp");
    ASSERT_EQ(std::system((std::string(AQ_BUILD_DEFAULT_POOL) + " " + out).c_str()), 0);
    EXPECT_EQ(readBytes(out), readBytes(std::string(AQ_SOURCE_DIR) + "/data/default.aqp"));
}

TEST(PoolGeometry, FindsBodiesAndFoodUnderAPoint) {
    Pool pool = makePool(0, 0);
    DrifterRec a = makeDrifter(0, 1, 0, 100, 100);
    Segment& s = a.segments[0];
    s.point1X = 90, s.point1Y = 95, s.point2X = 110, s.point2Y = 95, s.point3X = 110, s.point3Y = 105;
    s.point4X = 90, s.point4Y = 105;
    DrifterRec b = a;  // drawn on top of a
    b.id = 1;
    pool.drifters = {a, b, makeDrifter(2, 0, 0, 500, 500)};
    pool.drifterCount = 3;
    EXPECT_EQ(drifterAt(pool, 100, 100, 0), 1);
    EXPECT_EQ(drifterAt(pool, 109, 96, 0), 1);
    EXPECT_EQ(drifterAt(pool, 111, 96, 0), -1);
    EXPECT_EQ(drifterAt(pool, 503, 500, 5), 2);
    pool.drifterCount = 1;  // the count rules, not the array
    EXPECT_EQ(drifterAt(pool, 100, 100, 0), 0);
    EXPECT_EQ(drifterAt(pool, 503, 500, 5), -1);
    WorldRect r = drifterBounds(a);
    EXPECT_EQ(r.left, 90);
    EXPECT_EQ(r.top, 105);

    pool.food.resize(2);
    pool.food[0].x = 0, pool.food[0].y = 0;
    pool.food[1].x = 10, pool.food[1].y = 0;
    pool.foodCount = 2;
    EXPECT_EQ(foodAt(pool, 6, 0, 5), 1);
    EXPECT_EQ(foodAt(pool, 4, 0, 5), 0);
    EXPECT_EQ(foodAt(pool, 50, 0, 5), -1);
}
