#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <random>

#include "generator/Random.h"
#include "pool/PoolFile.h"
#include "pooleditor/DrifterKey.h"
#include "series/Harvest.h"
#include "series/Success.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

using namespace aqtest;

namespace {

// The top list exactly as arrays of scores, keys and whole records, every entry moved
// one by one: the measure the fast list must match.
struct ReferenceList {
    int maxN, count = 0;
    std::vector<float> scores;
    std::vector<std::string> keys;
    std::vector<aq::DrifterRec> records;

    ReferenceList(const aq::Pool& start, int n) : maxN(n), scores(2001, 0), keys(2001), records(std::size_t(n) + 1) {
        for (int k = 0; k <= n && k < start.drifterCount; ++k) records[std::size_t(k)] = start.drifters[std::size_t(k)];
    }
    void moveEntry(int from, int to) {
        scores[std::size_t(to)] = scores[std::size_t(from)];
        keys[std::size_t(to)] = keys[std::size_t(from)];
        records[std::size_t(to)] = records[std::size_t(from)];
    }
    void consider(const aq::Pool& pool, int i, float norm) {
        float score = aq::SuccessScore(pool, i) / norm;
        if (score <= 0) return;
        std::string key = aq::DrifterKeyPair(pool, i);
        int pos = -1;
        for (int j = 0; j < count; ++j)
            if (aq::SameMorph(keys[std::size_t(j)], key)) {
                pos = j;
                break;
            }
        if (pos < 0) {
            pos = std::min(count, maxN - 1);
            while (scores[std::size_t(pos)] < score && pos > 0) --pos;
        }
        if (scores[std::size_t(pos)] > score && !aq::SameMorph(keys[std::size_t(pos)], key)) ++pos;
        pos = std::min(pos, count);
        pos = std::min(pos, maxN - 1);
        std::size_t p = std::size_t(pos);
        if (aq::SameMorph(keys[p], key) || pos == count || pos + 1 == maxN) {
            if (scores[p] >= score) return;
            records[p] = pool.drifters[std::size_t(i)];
            scores[p] = score;
            if (pos >= count && !aq::SameMorph(keys[p], key)) count = pos + 1;
            keys[p] = key;
            while (pos > 0 && scores[std::size_t(pos)] > scores[std::size_t(pos - 1)]) {
                std::swap(scores[std::size_t(pos)], scores[std::size_t(pos - 1)]);
                std::swap(keys[std::size_t(pos)], keys[std::size_t(pos - 1)]);
                std::swap(records[std::size_t(pos)], records[std::size_t(pos - 1)]);
                --pos;
            }
            for (int j = pos + 1; j < count;) {
                if (aq::SameMorph(keys[std::size_t(j)], key)) {
                    for (int m = j + 1; m < count; ++m) moveEntry(m, m - 1);
                    --count;
                } else {
                    ++j;
                }
            }
            return;
        }
        if (scores[p] < score) {
            for (int m = count - 2; m >= pos; --m) moveEntry(m, m + 1);
            records[p] = pool.drifters[std::size_t(i)];
            scores[p] = score;
            keys[p] = key;
        }
    }
};

// A drifter of few possible shapes, so that keys meet on one line or both.
aq::DrifterRec randomDrifter(std::mt19937& rng, int id) {
    auto pick = [&](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
    aq::DrifterRec d = makeDrifter(id, 1 + pick(3), pick(2));
    for (int s = 0; s < d.segmentCount; ++s) {
        d.segments[s].color = pick(3) == 0 ? 1 : 0;
        d.segments[s].width = static_cast<float>(1 + pick(2));
        d.segments[s].length = 10;
    }
    d.totalLength = static_cast<float>(10 * d.segmentCount);
    d.mass = static_cast<float>(20 + 40 * pick(2)) * static_cast<float>(d.segmentCount);
    d.alive = pick(4) == 0 ? 0 : 1;
    d.age = pick(5) == 0 ? 0 : pick(3000);
    d.mealsEaten = pick(4);
    d.maternalOffspring = pick(3);
    d.paternalOffspring = pick(2);
    d.velocityX = pick(2) ? 0.001f : 0;
    return d;
}

aq::Pool randomPool(std::mt19937& rng, int n) {
    aq::Pool p = makePool(0, 1);
    for (int i = 0; i < n; ++i) p.drifters.push_back(randomDrifter(rng, i));
    p.drifterCount = n;
    return p;
}

TEST(Harvest, FastListMatchesTheArrayScanOnRandomFolders) {
    for (unsigned seed = 1; seed <= 300; ++seed) {
        std::mt19937 rng(seed);
        const int maxNs[] = {1, 2, 3, 5, 8, 40, 2000};
        const int maxN = maxNs[seed % 7];
        aq::Pool start = randomPool(rng, 5);
        aq::HarvestList fast(start, maxN);
        ReferenceList ref(start, maxN);
        const int pools = 1 + static_cast<int>(rng() % 6);
        for (int k = 0; k < pools; ++k) {
            aq::Pool p = randomPool(rng, 1 + static_cast<int>(rng() % 120));
            const float norm = aq::SuccessNorm(p);
            fast.considerPool(p, norm);
            for (int i = 0; i < p.drifterCount; ++i) ref.consider(p, i, norm);
            ASSERT_EQ(fast.count(), ref.count) << "seed " << seed << " pool " << k;
            for (int j = 0; j <= maxN; ++j) {
                ASSERT_EQ(fast.score(j), ref.scores[std::size_t(j)]) << "seed " << seed << " place " << j;
                if (j < ref.count) {
                    ASSERT_EQ(0, std::memcmp(&fast.record(j), &ref.records[std::size_t(j)], sizeof(aq::DrifterRec)))
                        << "seed " << seed << " place " << j;
                }
            }
        }
    }
}

TEST(Harvest, Scores) {
    aq::Pool p = makePool(0, 0);
    aq::DrifterRec dead = makeDrifter(0, 16);
    dead.segmentCount = 35;
    dead.alive = 0;
    aq::DrifterRec newborn = makeDrifter(1, 3);
    newborn.mealsEaten = 5;
    aq::DrifterRec grown = makeDrifter(2, 2);
    grown.age = 256;
    grown.mealsEaten = 2;
    grown.maternalOffspring = 3;
    grown.paternalOffspring = 1;
    grown.velocityX = 0.00003f;
    p.drifters = {dead, newborn, grown};
    p.drifterCount = 3;
    EXPECT_FLOAT_EQ(aq::SuccessScore(p, 0), 1.0f);
    EXPECT_FLOAT_EQ(aq::SuccessScore(p, 1), 0.0f);
    // (2/35 + 2 + 1 + 1) / 1.1 / 1.05 / 1.07, times the eighth root of 256 (2).
    EXPECT_NEAR(aq::SuccessScore(p, 2), (2.0 / 35 + 4) / 1.1 / 1.05 / 1.07 * 2, 1e-5);
    // Norm: the grown one gives ((2 + 1 + 0.6 + 0.5) / sqrt 2 + 1) / sqrt 2.
    EXPECT_NEAR(aq::SuccessNorm(p), (4.1 / std::sqrt(2.0) + 1) / std::sqrt(2.0), 1e-5);
    p.drifters[1].segmentCount = 0;
    EXPECT_FLOAT_EQ(aq::SuccessNorm(p), -1.0f);
    EXPECT_FLOAT_EQ(aq::SuccessNorm(makePool(0, 0)), 1.0f);
}

TEST(Harvest, SameMorphLineByLine) {
    struct Case {
        std::string a, b;
        bool same;
    } cases[] = {
        {"1A\r\n1B", "1A\r\n2B", true},  {"1A\r\n1B", "2A\r\n1B", true},
        {"1A\r\n1B", "1B\r\n1A", false}, {"", "", false},
        {"1A", "1A\r\n2B", true},        {"\r\n", "\r\n", true},
    };
    for (const Case& c : cases) EXPECT_EQ(aq::SameMorph(c.a, c.b), c.same) << c.a << " / " << c.b;
}

// A live drifter whose score is `meals` + its length share; shapes by segment count and colour.
aq::DrifterRec candidate(int id, int segments, int color, int meals) {
    aq::DrifterRec d = makeDrifter(id, segments, color);
    d.age = 1;
    d.velocityX = 1;
    d.mealsEaten = meals;
    d.totalLength = 10.0f * static_cast<float>(segments);
    return d;
}

// The same plain key, another detailed one.
aq::DrifterRec tapered(aq::DrifterRec d) {
    for (int s = 0; s < d.segmentCount; ++s) {
        d.segments[s].width = static_cast<float>(8 >> s);
        d.segments[s].length = 10;
    }
    return d;
}

// Another plain key (length class 3), the same detailed one.
aq::DrifterRec longer(aq::DrifterRec d) {
    d.totalLength = 17.0f * static_cast<float>(d.segmentCount);
    return d;
}

std::vector<int> idsOf(const aq::HarvestList& list) {
    std::vector<int> ids;
    for (int j = 0; j < list.count(); ++j) ids.push_back(list.record(j).id);
    return ids;
}

TEST(Harvest, ListCases) {
    struct Case {
        const char* what;
        int maxN;
        std::vector<aq::DrifterRec> drifters;
        std::vector<int> ids;
    } cases[] = {
        {"ties keep the first", 10, {candidate(1, 3, 0, 4), candidate(2, 3, 0, 4)}, {1}},
        {"the better of a shape replaces it", 10, {candidate(1, 3, 0, 4), candidate(2, 3, 0, 6)}, {2}},
        // A better new shape inside the list pushes the last entry out, even with room to spare.
        {"a better new shape", 10, {candidate(1, 3, 0, 4), candidate(2, 4, 0, 6), candidate(3, 5, 0, 5)}, {2, 3}},
        {"worse shapes are appended",
         10,
         {candidate(1, 5, 0, 6), candidate(2, 4, 0, 5), candidate(3, 3, 0, 4)},
         {1, 2, 3}},
        {"maxN 1: every better shape takes the place",
         1,
         {candidate(1, 3, 0, 4), candidate(2, 4, 0, 6), candidate(3, 5, 0, 5), candidate(4, 6, 0, 9)},
         {4}},
        // 3 and 1 share the plain key line, not the detailed one: one place for both.
        {"shared key line, lower",
         10,
         {candidate(1, 3, 0, 5), candidate(2, 4, 0, 2), tapered(candidate(3, 3, 0, 3))},
         {1, 2}},
        {"shared key line, higher",
         10,
         {candidate(1, 3, 0, 5), candidate(2, 4, 0, 2), tapered(candidate(3, 3, 0, 9))},
         {3, 2}},
        // 3 takes the place of 1 (plain line) and removes 2 (detailed line) below it.
        {"every shape-mate goes",
         10,
         {candidate(1, 3, 0, 5), longer(tapered(candidate(2, 3, 0, 3))), tapered(candidate(3, 3, 0, 9))},
         {3}},
        {"dead and newborn",
         10,
         {[] {
             auto d = candidate(1, 3, 0, 9);
             d.age = 0;
             return d;
         }()},
         {}},
    };
    for (const Case& c : cases) {
        aq::Pool p = makePool(0, 0);
        p.drifters = c.drifters;
        p.drifterCount = static_cast<int>(c.drifters.size());
        const aq::Pool start = makePool(0, 0);
        aq::HarvestList list(start, c.maxN);
        list.considerPool(p, 1.0f);
        EXPECT_EQ(idsOf(list), c.ids) << c.what;
    }
}

struct Rig {
    ManualClock clock;
    ScriptedUi ui;
    aq::App app{ui, clock};
    TempDir dir;

    Rig() {
        app.comboPoolPath = dir.path();
        app.openPool = makePool(0, 4);
        for (int i = 0; i < 3; ++i) app.openPool.drifters.push_back(candidate(100 + i, 3 + i, 0, 3 - i));
        app.openPool.drifterCount = 3;
        app.poolLoaded = true;
        app.openPoolPath = "/somewhere/open.aqp";
    }
    void writePoolFile(const std::string& name, std::vector<aq::DrifterRec> ds) {
        aq::Pool p = makePool(0, 1);
        p.drifters = std::move(ds);
        p.drifterCount = static_cast<int>(p.drifters.size());
        ASSERT_EQ(aq::writePool(dir.file(name), p), "");
    }
    std::vector<int> ids() const {
        std::vector<int> r;
        for (int i = 0; i < app.openPool.drifterCount; ++i) r.push_back(app.openPool.drifters[std::size_t(i)].id);
        return r;
    }
};

TEST(Harvest, CommandAnswers) {
    struct Case {
        aq::Answer go;
        std::string answer;
        std::vector<int> ids;  // empty: the open pool stays as it was
    } cases[] = {
        {aq::Answer::No, "", {}},
        {aq::Answer::Yes, "0", {}},
        {aq::Answer::Yes, "abc", {}},
        {aq::Answer::Yes, "", {}},
        {aq::Answer::Yes, " 2000", {7, 100, 101}},
        {aq::Answer::Yes, "5000", {7, 100, 101}},
        {aq::Answer::Yes, "40000", {7, 100, 101}},
        {aq::Answer::Yes, "1.6", {7, 100}},
        {aq::Answer::Yes, "1", {7}},
    };
    for (const Case& c : cases) {
        Rig r;
        r.writePoolFile("b.AQP", {candidate(7, 9, 0, 20)});
        r.ui.ask("yesno", aq::kHarvestWarning, aq::kAppTitle, c.go);
        if (c.go == aq::Answer::Yes) r.ui.text(aq::kHarvestMaximumPrompt, "Set Maximum", c.answer);
        aq::GetSuccessfulCommand(r.app);
        EXPECT_TRUE(r.ui.done()) << r.ui.report();
        if (c.ids.empty()) {
            EXPECT_EQ(r.ids(), (std::vector<int>{100, 101, 102})) << c.answer;
            EXPECT_EQ(r.app.openPoolPath, "/somewhere/open.aqp");
            continue;
        }
        EXPECT_EQ(r.ids(), c.ids) << c.answer;
        EXPECT_EQ(r.app.openPoolPath, "");
        EXPECT_TRUE(r.app.poolChanged);
        EXPECT_EQ(r.app.lstSpeciatePool.count(), static_cast<int>(c.ids.size()));
        EXPECT_EQ(r.app.lstPoolFood.count(), 4);  // the open pool's food
        EXPECT_TRUE(r.app.poolSpeciesPending);
    }
    EXPECT_EQ(std::string(aq::kHarvestMaximumPrompt),
              "You can set the maximum number of drifters for the resulting pool anywhere from 1 to  2000.\r\nThe "
              "default is 2000.  What is the maximum would you like to set?");
}

TEST(Harvest, FoldersAndFailures) {
    // An empty folder harvests the open pool alone.
    {
        Rig r;
        aq::HarvestSuccessful(r.app, r.dir.path(), 0, 2000, true, false);
        EXPECT_EQ(r.ids(), (std::vector<int>{100, 101, 102}));
        EXPECT_TRUE(r.ui.done()) << r.ui.report();
    }
    // A folder that can't be listed.
    {
        Rig r;
        std::string missing = r.dir.file("gone");
        r.ui.message("Error reading " + missing + ", error: No such file or directory",
                     "Aquarium File Manager - Load Drifter Files");
        aq::HarvestSuccessful(r.app, missing, 0, 2000, true, false);
        EXPECT_TRUE(r.ui.done()) << r.ui.report();
        EXPECT_EQ(r.ids(), (std::vector<int>{100, 101, 102}));
        EXPECT_EQ(r.app.openPoolPath, "/somewhere/open.aqp");
    }
    // A file of another kind: the reader's message, and the harvest goes on; names in list order.
    {
        Rig r;
        r.writePoolFile("a.aqp", {candidate(1, 10, 0, 3)});
        writeBytes(r.dir.file("B.aqp"), std::string(40, '\x07'));
        r.writePoolFile("c.aqp", {candidate(3, 11, 0, 30)});
        r.writePoolFile("c.txt", {candidate(4, 12, 0, 90)});
        r.ui.message("Not a Aquarium 4 or 5 data file");
        aq::HarvestSuccessful(r.app, r.dir.path(), 0, 2000, true, false);
        EXPECT_TRUE(r.ui.done()) << r.ui.report();
        EXPECT_EQ(r.ids(), (std::vector<int>{3, 1, 100}));
        EXPECT_EQ(r.app.openPool.foodCount, 4);
    }
}

TEST(Harvest, RandomDraw) {
    // An empty list gives a pool without drifters.
    {
        Rig r;
        for (auto& d : r.app.openPool.drifters) d.age = 0;
        aq::HarvestSuccessful(r.app, r.dir.path(), 0, 200, false, true);
        EXPECT_EQ(r.app.openPool.drifterCount, 0);
        EXPECT_EQ(r.app.workPool.drifterCount, 0);
    }
    // With entries the count is exactly maxCount, drawn towards the lower end.
    {
        Rig r;
        aq::setRandomState(0x2468AC);
        aq::HarvestSuccessful(r.app, r.dir.path(), 0, 200, false, true);
        ASSERT_EQ(r.app.openPool.drifterCount, 200);
        int worst = 0;
        for (int id : r.ids()) worst += id == 102;
        EXPECT_GT(worst, 100);
    }
    // In a series the lists stay as they are.
    {
        Rig r;
        r.app.uiBusy = true;
        aq::HarvestSuccessful(r.app, r.dir.path(), 0, 200, true, false);
        EXPECT_EQ(r.app.openPool.drifterCount, 3);
        EXPECT_EQ(r.app.lstSpeciatePool.count(), 0);
        EXPECT_EQ(r.app.openPoolPath, "/somewhere/open.aqp");
    }
}

}  // namespace
