// Pool files byte for byte, saving over and beside old files, the default pool, what lies
// under a point of a pool; merging a second pool file into the open pool or the work pool,
// also through aqfm merge, and saving from the menu.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "base/FileIo.h"
#include "files/PoolMerge.h"
#include "files/PoolOps.h"
#include "files/PoolSave.h"
#include "format/PoolFile.h"
#include "format/PoolGeometry.h"
#include "pooleditor/DrifterList.h"
#include "shell/UndoHistory.h"
#include "support/PoolFixtures.h"
#include "support/RunCli.h"
#include "support/ScriptedSession.h"

using namespace aq;
using namespace aqtest;

TEST(PoolFile, LoadAndSaveGiveTheSameBytesAndReplaceLongerFiles) {
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
    // A save creates one folder level and replaces a longer file whole.
    Session session;
    session.app.openPool = makePool(2, 2);
    std::string newPath = session.dir.file("new/pool.aqp");
    ASSERT_TRUE(savePoolFile(session.app, newPath, true));
    EXPECT_EQ(readBytes(newPath).size(), session.app.openPool.fileSize());
    writeBytes(newPath, std::string(500000, 'x'));
    ASSERT_TRUE(savePoolFile(session.app, newPath, true));
    EXPECT_EQ(readBytes(newPath), poolBytes(session.app.openPool));
    EXPECT_FALSE(savePoolFile(session.app, "", true));
    EXPECT_SCRIPT_DONE(session.ui);
}

TEST(DefaultPool, HasItsFrameAndItsBuilderReproducesIt) {
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

namespace {

// A pool whose records say where they came from: drifter ages and food families start at `mark`.
Pool markedPool(int drifters, int food, int mark) {
    Pool p = makePool(drifters, food);
    for (int i = 0; i < drifters; ++i) {
        p.drifters[static_cast<std::size_t>(i)].age = mark + i;
        p.drifters[static_cast<std::size_t>(i)].id = 7777;
    }
    for (int i = 0; i < food; ++i) p.food[static_cast<std::size_t>(i)].family = static_cast<std::uint8_t>(mark + i);
    return p;
}

// `open` loaded from open.aqp and also the work pool; file() writes the pool to merge.
struct Open : Session {
    explicit Open(const Pool& open) {
        app.openPool = open;
        app.workPool = open;
        app.poolLoaded = true;
        app.openPoolPath = dir.file("open.aqp");
        app.comboPoolPath = dir.path();
        populateSpeciatePoolList(app);
    }
    std::string file(const Pool& p, const std::string& name = "other.aqp") {
        std::string path = dir.file(name);
        EXPECT_EQ(writePool(path, p), "");
        return path;
    }
    // Runs a merge command with `p` chosen in its dialog ("" cancels it).
    void merge(const Pool* p, void (*command)(App&) = mMergePool) {
        ui.file("open", "Select Pool File", p ? file(*p) : "", dir.path() + "||aqp|Aquarium Files");
        command(app);
        EXPECT_SCRIPT_DONE(ui);
    }
};

void expectIdsAreIndices(const Pool& p) {
    for (int i = 0; i < p.drifterCount; ++i) EXPECT_EQ(p.drifters[static_cast<std::size_t>(i)].id, i);
}

}  // namespace

TEST(PoolMerge, DriftersOrFoodUpToTheLimit) {
    Open s(markedPool(1990, 3, 0));
    s.app.comboSpeciatePoolGroup0 = 2;  // extended species: no tick until the new pass is done
    s.app.openPool.walls[0].wallFlag = 5;
    Pool before = s.app.openPool;
    Pool work = s.app.workPool;
    const Pool other = markedPool(50, 4, 100000);
    s.merge(&other);
    const Pool& p = s.app.openPool;
    ASSERT_EQ(p.drifterCount, 2000);
    EXPECT_EQ(std::vector<int>({p.drifters[0].age, p.drifters[1989].age, p.drifters[1990].age, p.drifters[1999].age}),
              std::vector<int>({0, 1989, 100000, 100009}));
    expectIdsAreIndices(p);
    // The food and everything around the arrays stay those of the open pool.
    EXPECT_EQ(std::tuple(p.foodCount, p.walls[0].wallFlag, s.app.lstSpeciatePool.count(), s.app.openPoolPath),
              std::tuple(3, 5, 2000, s.dir.file("open.aqp")));
    EXPECT_EQ(std::memcmp(p.food.data(), before.food.data(), 3 * sizeof(FoodBit)), 0);
    EXPECT_EQ(p.historyBlock, before.historyBlock);
    EXPECT_TRUE(s.app.poolChanged && s.app.poolSpeciesPending && !s.app.lstSpeciatePool.enabled());
    EXPECT_EQ(poolBytes(s.app.workPool), poolBytes(work));
    Open f(markedPool(5, 1995, 0));
    Pool fBefore = f.app.openPool;
    const Pool fOther = markedPool(9, 10, 200);
    f.merge(&fOther, mMergeFood);
    const Pool& fp = f.app.openPool;
    EXPECT_EQ(std::tuple(fp.drifterCount, fp.foodCount, fp.food[1995].family, fp.food[1999].family),
              std::tuple(5, 2000, 200, 204));
    // The open pool's own drifters only get their ids set to their indices.
    for (int i = 0; i < 5; ++i) {
        DrifterRec d = fBefore.drifters[static_cast<std::size_t>(i)];
        d.id = i;
        EXPECT_EQ(std::memcmp(&fp.drifters[static_cast<std::size_t>(i)], &d, sizeof d), 0);
    }
}

// At the limit the message comes without a dialog; a cancelled dialog changes nothing, a
// file without drifters only renumbers, and damaged negative counts add up to no records.
TEST(PoolMerge, NothingToAddIntoTheWorkPoolOrAsANewPool) {
    for (bool food : {false, true}) {
        Open s(food ? markedPool(1, 2000, 0) : markedPool(2000, 0, 0));
        s.ui.message(
            std::string("Limit reached. No more ") + (food ? "food" : "drifters") + " can be added at this time.",
            food ? "Merge Food into Pool" : "Merge Drifters into Pool");
        food ? mMergeFood(s.app) : mMergePool(s.app);
        EXPECT_SCRIPT_DONE(s.ui);
        EXPECT_FALSE(s.app.poolChanged);
    }
    for (bool changed : {false, true}) {
        Open s(markedPool(3, 3, 0));
        s.app.poolChanged = changed;
        Pool before = s.app.openPool;
        s.merge(nullptr);
        EXPECT_EQ(std::tuple(s.app.poolChanged, poolBytes(s.app.openPool), s.app.poolSpeciesPending),
                  std::tuple(changed, poolBytes(before), false));
    }
    Open s(markedPool(5, 2, 0));
    const Pool other = markedPool(0, 0, 0);
    s.merge(&other);
    EXPECT_EQ(s.app.openPool.drifterCount, 5);
    expectIdsAreIndices(s.app.openPool);
    Pool negative = markedPool(0, 0, 0);
    negative.foodCount = negative.drifterCount = -1153580471;
    s.app.openPool = negative;
    mergePoolFile(s.app, true, true, s.file(negative), true);
    EXPECT_EQ(s.app.openPool.foodCount, INT32_MIN);
    Open into(markedPool(3, 3, 0));
    into.app.workPool = markedPool(2, 1, 50);
    Pool open = into.app.openPool;
    std::string more = into.file(markedPool(4, 4, 300));
    mergePoolFile(into.app, true, true, more, false);
    EXPECT_SCRIPT_DONE(into.ui);
    const Pool& w = into.app.workPool;
    EXPECT_EQ(std::tuple(w.drifterCount, w.drifters[2].age, w.foodCount, w.food[1].family),
              std::tuple(6, 300, 5, 44));  // family 300 + 0 in a byte
    expectIdsAreIndices(into.app.workPool);
    EXPECT_EQ(poolBytes(into.app.openPool), poolBytes(open));
    EXPECT_FALSE(into.app.poolChanged);
    Open n(markedPool(0, 0, 0));
    n.app.poolLoaded = false;
    n.app.openPoolPath.clear();
    Pool workBefore = n.app.workPool;
    const Pool file = markedPool(4, 4, 10);
    n.merge(&file);
    expectIdsAreIndices(n.app.openPool);
    EXPECT_EQ(std::tuple(n.app.openPool.drifterCount, n.app.openPool.foodCount, n.app.lstSpeciatePool.count(),
                         n.app.openPoolPath),
              std::tuple(4, 0, 4, ""));
    EXPECT_TRUE(n.app.poolLoaded && n.app.poolChanged);  // it has no file yet
    EXPECT_EQ(poolBytes(n.app.workPool), poolBytes(workBefore));
}

TEST(PoolSave, QuestionsOfTheMenuCommand) {
    const struct {
        const char* what;
        bool hasPath, changed;
        Answer overwrite;    // the answer to "Would you like to save over", if asked
        const char* saveAs;  // the file chosen in "Save Pool As", if shown
        const char* pathAfter;
        bool changedAfter;
    } cases[] = {
        {"No, then a cancelled dialog: still changed, still the same file", true, true, Answer::No, "", "open.aqp",
         true},
        {"Yes: written over the open file", true, true, Answer::Yes, nullptr, "open.aqp", false},
        {"no path yet: straight to the dialog; the new file becomes the open one", false, true, Answer::Ok, "new.aqp",
         "new.aqp", false},
        {"Cancel: nothing happens", true, false, Answer::Cancel, nullptr, "open.aqp", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Open s(markedPool(2, 2, 0));
        if (!c.hasPath) s.app.openPoolPath.clear();
        s.app.poolChanged = c.changed;
        if (c.hasPath)
            s.ui.ask("yesnocancel", "Would you like to save over " + s.app.openPoolPath, "Save Speciated Pool",
                     c.overwrite);
        if (c.saveAs)
            s.ui.file("save", "Save Pool As", *c.saveAs ? s.dir.file(c.saveAs) : "",
                      s.dir.path() + (c.hasPath ? "|open.aqp" : "|") + "|aqp|Pool Files");
        mSavePool(s.app);
        EXPECT_SCRIPT_DONE(s.ui);
        EXPECT_EQ(s.app.poolChanged, c.changedAfter);
        EXPECT_EQ(s.app.openPoolPath, s.dir.file(c.pathAfter));
        if (!c.changedAfter && c.changed) {
            EXPECT_EQ(readBytes(s.dir.file(c.pathAfter)), poolBytes(s.app.openPool));
        }
    }
    // Nothing loaded: neither Save nor Save As asks anything.
    Open s(markedPool(2, 2, 0));
    s.app.poolLoaded = false;
    mSavePool(s.app);
    mSavePoolAs(s.app);
    EXPECT_SCRIPT_DONE(s.ui);
}

TEST(PoolSave, SaveAsGivesThePoolItsNewFile) {
    // The pool was read from open.aqp and then edited; the history watches as the menu's step does.
    // Taken: new.aqp is another pool's file; the first question is answered No, the second
    // dialog cancelled. Replaced: the question is answered Yes.
    enum Case { Cancel, Saved, DiskFull, Taken, Replaced };
    for (Case c : {Cancel, Saved, DiskFull, Taken, Replaced}) {
        SCOPED_TRACE(c);
        Open s(markedPool(2, 2, 0));
        writePool(s.app.openPoolPath, s.app.openPool);
        ASSERT_TRUE(loadPoolFile(s.app, s.app.openPoolPath, true));
        PoolHistory history;
        history.reset(s.app);
        history.prepare(s.app);
        s.app.openPool.drifters[0].age += 1;
        history.commit(s.app, "Edit");
        ASSERT_TRUE(s.app.poolChanged);
        const std::string before = poolBytes(s.app.openPool), newPath = s.dir.file("new.aqp");

        history.prepare(s.app);
        s.ui.file("save", "Save Pool As", c == Cancel ? "" : newPath, s.dir.path() + "|open.aqp|aqp|Pool Files");
        const std::string other = "another pool's bytes";
        if (c == Taken || c == Replaced) {
            writeBytes(newPath, other);
            s.ui.ask("yesnocancel", newPath + " already exists.  Overwrite existing file?", "Filename Conflict",
                     c == Taken ? Answer::No : Answer::Yes);
        }
        if (c == Taken) s.ui.file("save", "Save Pool As", "", s.dir.path() + "|new.aqp|aqp|Pool Files");
        if (c == DiskFull) {
            s.ui.message("Error saving " + newPath + ", error: No space left on device",
                         "Aquarium File Manager - Save Pool File");
            setWriteFailureAfter(10);
        }
        mSavePoolAs(s.app);
        setWriteFailureAfter(-1);
        history.commit(s.app, "Save Pool File As...");
        EXPECT_SCRIPT_DONE(s.ui);
        EXPECT_EQ(poolBytes(s.app.openPool), before);
        const bool saved = c == Saved || c == Replaced;
        EXPECT_EQ(s.app.openPoolPath, s.dir.file(saved ? "new.aqp" : "open.aqp"));
        EXPECT_EQ(s.app.poolChanged, !saved);
        EXPECT_EQ(std::filesystem::exists(newPath), c != Cancel && c != DiskFull);
        if (std::filesystem::exists(newPath)) {
            EXPECT_EQ(readBytes(newPath), saved ? before : other);
        }
        // Undoing the edit brings back the pool open.aqp holds, and the mark follows the files.
        ASSERT_TRUE(history.undo(s.app));
        EXPECT_EQ(std::pair(s.app.openPoolPath, s.app.poolChanged), std::pair(s.dir.file("open.aqp"), false));
        ASSERT_TRUE(history.redo(s.app));
        EXPECT_EQ(s.app.poolChanged, !saved);
    }
}

TEST(MergeCli, KindsLimitsAndErrors) {
    TempDir dir;
    std::string base = dir.file("base.aqp"), other = dir.file("other.aqp"), out = dir.file("out.aqp");
    ASSERT_EQ(aq::writePool(base, makePool(1990, 5)), "");
    ASSERT_EQ(aq::writePool(other, makePool(50, 7)), "");
    struct Case {
        std::string flags;
        int drifters, food;
    } cases[] = {{"", 2000, 12}, {"--drifters", 2000, 5}, {"--food", 1990, 12}, {"--drifters --food", 2000, 12}};
    for (const Case& c : cases) {
        CliResult r = runCli("merge " + base + " " + other + " " + c.flags + " -o " + out);
        aq::Pool p;
        ASSERT_EQ(std::pair(r.status, aq::readPool(out, p).status), std::pair(0, aq::PoolReadStatus::Ok)) << c.flags;
        EXPECT_EQ(std::tuple(p.drifterCount, p.foodCount, p.drifters.back().id),
                  std::tuple(c.drifters, c.food, c.drifters - 1))
            << c.flags;
    }
    EXPECT_EQ(runCli("merge " + base + " -o " + out).status, 2);
}
