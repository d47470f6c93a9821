#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <random>

#include "generator/Random.h"
#include "format/PoolFile.h"
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

// A live drifter whose score is `meals` + its length share; shapes by segment count.
aq::DrifterRec candidate(int id, int segments, int meals) {
    aq::DrifterRec d = makeDrifter(id, segments, 0);
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

aq::DrifterRec unborn(aq::DrifterRec d) {
    d.age = 0;
    return d;
}

TEST(Harvest, ListCases) {
    auto c = candidate;
    struct Case {
        const char* what;
        int maxN;
        std::vector<aq::DrifterRec> drifters;
        std::vector<int> ids;
    } cases[] = {
        {"ties keep the first", 10, {c(1, 3, 4), c(2, 3, 4)}, {1}},
        {"the better of a shape replaces it", 10, {c(1, 3, 4), c(2, 3, 6)}, {2}},
        // A better new shape inside the list pushes the last entry out, even with room to spare.
        {"a better new shape", 10, {c(1, 3, 4), c(2, 4, 6), c(3, 5, 5)}, {2, 3}},
        {"worse shapes are appended", 10, {c(1, 5, 6), c(2, 4, 5), c(3, 3, 4)}, {1, 2, 3}},
        {"maxN 1: every better shape takes the place", 1, {c(1, 3, 4), c(2, 4, 6), c(3, 5, 5), c(4, 6, 9)}, {4}},
        // 3 and 1 share the plain key line, not the detailed one: one place for both.
        {"shared key line, lower", 10, {c(1, 3, 5), c(2, 4, 2), tapered(c(3, 3, 3))}, {1, 2}},
        {"shared key line, higher", 10, {c(1, 3, 5), c(2, 4, 2), tapered(c(3, 3, 9))}, {3, 2}},
        // 3 takes the place of 1 (plain line) and removes 2 (detailed line) below it.
        {"every shape-mate goes", 10, {c(1, 3, 5), longer(tapered(c(2, 3, 3))), tapered(c(3, 3, 9))}, {3}},
        {"newborn", 10, {unborn(c(1, 3, 9))}, {}},
    };
    for (const Case& k : cases) {
        aq::Pool p = makePool(0, 0);
        p.drifters = k.drifters;
        p.drifterCount = static_cast<int>(k.drifters.size());
        aq::HarvestList list(makePool(0, 0), k.maxN);
        list.considerPool(p, 1.0f);
        std::vector<int> ids;
        for (int j = 0; j < list.count(); ++j) ids.push_back(list.record(j).id);
        EXPECT_EQ(ids, k.ids) << k.what;
    }
}

// An open pool of three candidates (ids 100 to 102, best first) and four food bits; a folder to harvest.
struct Rig {
    ManualClock clock;
    ScriptedUi ui;
    aq::App app{ui, clock};
    TempDir dir;
    const std::vector<int> untouched{100, 101, 102};

    Rig() {
        app.comboPoolPath = dir.path();
        app.openPool = makePool(0, 4);
        for (int i = 0; i < 3; ++i) app.openPool.drifters.push_back(candidate(100 + i, 3 + i, 3 - i));
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
    void harvest(const std::string& folder, int maxCount, bool manual, bool draw) {
        aq::HarvestSuccessful(app, folder, 0, maxCount, manual, draw);
        EXPECT_TRUE(ui.done()) << ui.report();
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
        {aq::Answer::Yes, "40000", {7, 100, 101}},
        {aq::Answer::Yes, "1.6", {7, 100}},
        {aq::Answer::Yes, "1", {7}},
    };
    for (const Case& c : cases) {
        Rig r;
        r.writePoolFile("b.AQP", {candidate(7, 9, 20)});
        r.ui.ask("yesno", aq::kHarvestWarning, aq::kAppTitle, c.go);
        if (c.go == aq::Answer::Yes)
            r.ui.text(
                "You can set the maximum number of drifters for the resulting pool anywhere from 1 to  2000.\r\nThe "
                "default is 2000.  What is the maximum would you like to set?",
                "Set Maximum", c.answer);
        aq::GetSuccessfulCommand(r.app);
        EXPECT_TRUE(r.ui.done()) << r.ui.report();
        if (c.ids.empty()) {
            EXPECT_EQ(r.ids(), r.untouched) << c.answer;
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
}

TEST(Harvest, FoldersAndFailures) {
    Rig empty;  // an empty folder harvests the open pool alone
    empty.harvest(empty.dir.path(), 2000, true, false);
    EXPECT_EQ(empty.ids(), empty.untouched);

    Rig gone;  // a folder that can't be listed
    const std::string missing = gone.dir.file("gone");
    gone.ui.message("Error reading " + missing + ", error: No such file or directory",
                    "Aquarium File Manager - Load Drifter Files");
    gone.harvest(missing, 2000, true, false);
    EXPECT_EQ(gone.ids(), gone.untouched);
    EXPECT_EQ(gone.app.openPoolPath, "/somewhere/open.aqp");

    // Files that can't be read get a message each, in list order, and change nothing:
    // the harvest equals that of the folder without them.
    Rig r, clean;
    for (Rig* g : {&r, &clean}) {
        // 3 pushes 2 out of the list; a second look at this pool would bring it back.
        g->writePoolFile("a.aqp", {candidate(1, 6, 6), candidate(2, 7, 1), candidate(3, 8, 4)});
        g->writePoolFile("c.aqp", {candidate(7, 11, 30)});
        g->writePoolFile("c.txt", {candidate(4, 12, 90)});
    }
    writeBytes(r.dir.file("B.aqp"), std::string(40, '\x07'));
    std::string negative = aq::poolBytes(makePool(0, 1));  // a count of -1 reads as no drifters
    negative.replace(12, 4, std::string(4, '\xFF'));
    writeBytes(r.dir.file("b2.aqp"), negative);
    r.ui.message("Not a Aquarium 4 or 5 data file");
    int expectSkipped = 1;
#ifndef _WIN32  // a FIFO and links that lead nowhere
    ASSERT_EQ(::mkfifo(r.dir.file("b3.aqp").c_str(), 0644), 0);
    std::filesystem::create_symlink("nowhere.aqp", r.dir.file("b4.aqp"));
    std::filesystem::create_symlink("b5.aqp", r.dir.file("b5.aqp"));
    const std::string title = "Aquarium File Manager - Load Drifter Files";
    r.ui.message("Error opening b3.aqp, error: Not a regular file", title)
        .message("Error opening b4.aqp, error: No such file or directory", title)
        .message("Error opening b5.aqp, error: Too many levels of symbolic links", title);
    expectSkipped = 4;
#endif
    int skipped = 0;
    aq::HarvestSuccessful(r.app, r.dir.path(), 0, 2000, true, false, &skipped);
    EXPECT_TRUE(r.ui.done()) << r.ui.report();
    clean.harvest(clean.dir.path(), 2000, true, false);
    EXPECT_EQ(r.ids(), clean.ids());
    EXPECT_EQ(r.ids(), (std::vector<int>{7, 1, 3, 100}));
    EXPECT_EQ(skipped, expectSkipped);
    EXPECT_EQ(r.app.openPool.foodCount, 4);
}

TEST(Harvest, RandomDraw) {
    Rig none;  // an empty list gives a pool without drifters
    for (auto& d : none.app.openPool.drifters) d.age = 0;
    none.harvest(none.dir.path(), 200, false, true);
    EXPECT_EQ(none.app.openPool.drifterCount, 0);
    EXPECT_EQ(none.app.workPool.drifterCount, 0);

    // Fewer candidates than asked for: exactly maxCount, drawn towards the lower end.
    Rig r;
    aq::setRandomState(0x2468AC);
    r.harvest(r.dir.path(), 200, false, true);
    ASSERT_EQ(r.app.openPool.drifterCount, 200);
    const std::vector<int> ids = r.ids();
    EXPECT_GT(std::count(ids.begin(), ids.end(), 102), 100);

    Rig busy;  // in a series the lists stay as they are
    busy.app.uiBusy = true;
    busy.harvest(busy.dir.path(), 200, true, false);
    EXPECT_EQ(busy.app.openPool.drifterCount, 3);
    EXPECT_EQ(busy.app.lstSpeciatePool.count(), 0);
    EXPECT_EQ(busy.app.openPoolPath, "/somewhere/open.aqp");
}

}  // namespace
