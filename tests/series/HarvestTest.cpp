#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <random>

#include "SeriesFakes.h"
#include "base/NumberText.h"
#include "generator/Random.h"
#include "pooleditor/DrifterKey.h"
#include "series/Harvest.h"
#include "series/PrepareSteps.h"
#include "series/Success.h"
#include "support/RunCli.h"
#include "support/TempDir.h"

using namespace aqtest;

namespace {

// The top list exactly as an array of scores, keys and whole records, every entry moved
// one by one: the measure the fast list must match.
struct ReferenceList {
    struct Entry {
        float score = 0;
        std::string key;
        aq::DrifterRec record{};
    };
    int maxN, count = 0;
    std::vector<Entry> e;  // places 0 to maxN

    ReferenceList(const aq::Pool& start, int n) : maxN(n), e(std::size_t(n) + 1) {
        for (int k = 0; k <= n && k < start.drifterCount; ++k) e[k].record = start.drifters[k];
    }
    void consider(const aq::Pool& pool, int i, float norm) {
        const Entry in{aq::SuccessScore(pool, i) / norm, aq::DrifterKeyPair(pool, i), pool.drifters[i]};
        if (in.score <= 0) return;
        auto same = [&](int j) { return aq::SameMorph(e[j].key, in.key); };
        int pos = -1;
        for (int j = 0; j < count && pos < 0; ++j)
            if (same(j)) pos = j;
        if (pos < 0) {
            pos = std::min(count, maxN - 1);
            while (e[pos].score < in.score && pos > 0) --pos;
        }
        if (e[pos].score > in.score && !same(pos)) ++pos;
        pos = std::min({pos, count, maxN - 1});
        if (same(pos) || pos == count || pos + 1 == maxN) {
            if (e[pos].score >= in.score) return;
            if (pos >= count && !same(pos)) count = pos + 1;
            e[pos] = in;
            for (; pos > 0 && e[pos].score > e[pos - 1].score; --pos) std::swap(e[pos], e[pos - 1]);
            for (int j = pos + 1; j < count;) {
                if (!same(j)) {
                    ++j;
                    continue;
                }
                for (int m = j + 1; m < count; ++m) e[m - 1] = e[m];
                --count;
            }
        } else if (e[pos].score < in.score) {
            for (int m = count - 2; m >= pos; --m) e[m + 1] = e[m];
            e[pos] = in;
        }
    }
};

// A drifter of few possible shapes, so that keys meet on one line or both.
aq::DrifterRec randomDrifter(std::mt19937& rng, int id) {
    auto pick = [&](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
    // Now and then a body without segments, which turns the pool's norm to -1.
    aq::DrifterRec d = makeDrifter(id, pick(2000) == 0 ? 0 : 1 + pick(3), pick(2));
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
    std::vector<aq::DrifterRec> ds;
    for (int i = 0; i < n; ++i) ds.push_back(randomDrifter(rng, i));
    return poolOf(ds, 1);
}

TEST(Harvest, FastListMatchesTheArrayScanOnRandomFolders) {
    for (unsigned seed = 1; seed <= 300; ++seed) {
        std::mt19937 rng(seed);
        const int maxNs[] = {1, 2, 3, 5, 8, 40, 2000};
        const int maxN = maxNs[seed % 7];
        aq::Pool start = randomPool(rng, 5);
        aq::HarvestList fast(start, maxN);
        ReferenceList ref(start, maxN);
        if (seed % 2) {  // the harvest's first pool is the one the list starts from
            fast.considerPool(start);
            for (int i = 0; i < start.drifterCount; ++i) ref.consider(start, i, aq::SuccessNorm(start));
        }
        const int pools = 1 + static_cast<int>(rng() % 6);
        for (int k = 0; k < pools; ++k) {
            aq::Pool p = randomPool(rng, 1 + static_cast<int>(rng() % 120));
            const float norm = aq::SuccessNorm(p);
            fast.considerPool(p);
            for (int i = 0; i < p.drifterCount; ++i) ref.consider(p, i, norm);
            ASSERT_EQ(fast.count(), ref.count) << "seed " << seed << " pool " << k;
            for (int j = 0; j <= maxN; ++j) {
                ASSERT_EQ(fast.score(j), ref.e[j].score) << "seed " << seed << " place " << j;
                ASSERT_TRUE(j >= ref.count || !std::memcmp(&fast.record(j), &ref.e[j].record, sizeof(aq::DrifterRec)))
                    << "seed " << seed << " record " << j;
            }
        }
    }
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

TEST(Harvest, ScoresAndListCases) {
    aq::DrifterRec dead = makeDrifter(0, 16), newborn = makeDrifter(1, 3), grown = makeDrifter(2, 2);
    dead.segmentCount = 35;
    dead.alive = 0;
    newborn.mealsEaten = 5;
    grown.age = 256;
    grown.mealsEaten = 2;
    grown.maternalOffspring = 3;
    grown.paternalOffspring = 1;
    grown.velocityX = 0.00003f;
    aq::Pool p = poolOf({dead, newborn, grown});
    EXPECT_FLOAT_EQ(aq::SuccessScore(p, 0), 1.0f);
    EXPECT_FLOAT_EQ(aq::SuccessScore(p, 1), 0.0f);
    // (2/35 + 2 + 1 + 1) / 1.1 / 1.05 / 1.07, times the eighth root of 256 (2).
    EXPECT_NEAR(aq::SuccessScore(p, 2), (2.0 / 35 + 4) / 1.1 / 1.05 / 1.07 * 2, 1e-5);
    // Norm: the grown one gives ((2 + 1 + 0.6 + 0.5) / sqrt 2 + 1) / sqrt 2.
    EXPECT_NEAR(aq::SuccessNorm(p), (4.1 / std::sqrt(2.0) + 1) / std::sqrt(2.0), 1e-5);
    p.drifters[1].segmentCount = 0;
    EXPECT_FLOAT_EQ(aq::SuccessNorm(p), -1.0f);
    EXPECT_FLOAT_EQ(aq::SuccessNorm(poolOf({})), 1.0f);
    // The top list: what a pool of these candidates leaves in it.
    auto c = candidate;
    aq::DrifterRec fresh = c(1, 3, 9);
    fresh.age = 0;
    // A better new shape inside the list pushes the last entry out, even with room to spare.
    // In the shared-line cases 3 and 1 share the plain key line, not the detailed one: one
    // place for both; in the last, 3 takes the place of 1 (plain line) and removes 2
    // (detailed line) below it.
    const std::tuple<const char*, int, std::vector<aq::DrifterRec>, std::vector<int>> cases[] = {
        {"ties keep the first", 10, {c(1, 3, 4), c(2, 3, 4)}, {1}},
        {"the better of a shape replaces it", 10, {c(1, 3, 4), c(2, 3, 6)}, {2}},
        {"a better new shape", 10, {c(1, 3, 4), c(2, 4, 6), c(3, 5, 5)}, {2, 3}},
        {"worse shapes are appended", 10, {c(1, 5, 6), c(2, 4, 5), c(3, 3, 4)}, {1, 2, 3}},
        {"maxN 1: every better shape takes the place", 1, {c(1, 3, 4), c(2, 4, 6), c(3, 5, 5), c(4, 6, 9)}, {4}},
        {"shared key line, lower", 10, {c(1, 3, 5), c(2, 4, 2), tapered(c(3, 3, 3))}, {1, 2}},
        {"shared key line, higher", 10, {c(1, 3, 5), c(2, 4, 2), tapered(c(3, 3, 9))}, {3, 2}},
        {"every shape-mate goes", 10, {c(1, 3, 5), longer(tapered(c(2, 3, 3))), tapered(c(3, 3, 9))}, {3}},
        {"newborn", 10, {fresh}, {}},
    };
    for (const auto& [what, maxN, drifters, ids] : cases) {
        const aq::Pool start = poolOf({});  // outlives the list
        aq::HarvestList list(start, maxN);
        list.considerPool(poolOf(drifters), 1.0f);
        std::vector<int> listed;
        for (int j = 0; j < list.count(); ++j) listed.push_back(list.record(j).id);
        EXPECT_EQ(listed, ids) << what;
    }
}

// An open pool of three candidates (ids 100 to 102, best first) and four food bits; a folder to harvest.
struct Rig : UiRig {
    TempDir dir;
    const std::vector<int> untouched{100, 101, 102};

    Rig() {
        app.comboPoolPath = dir.path();
        app.openPool = poolOf({candidate(100, 3, 3), candidate(101, 4, 2), candidate(102, 5, 1)}, 4);
        app.poolLoaded = true;
        app.openPoolPath = "/somewhere/open.aqp";
    }
    void writePoolFile(const std::string& name, std::vector<aq::DrifterRec> ds) {
        ASSERT_EQ(aq::writePool(dir.file(name), poolOf(std::move(ds), 1)), "");
    }
    std::vector<int> ids() const { return idsOf(app.openPool); }
    bool harvest(const std::string& folder, int maxCount, bool manual, bool draw, int* skipped = nullptr) {
        bool listed = aq::HarvestSuccessful(app, folder, 0, maxCount, manual, draw, skipped);
        EXPECT_TRUE(ui.done()) << ui.report();
        return listed;
    }
};

TEST(Harvest, CommandAnswersAndTheRandomDraw) {
    // The answer to the maximum ("-": the warning declined); the harvest's ids, none when the
    // open pool stays.
    const std::pair<std::string, std::vector<int>> cases[] = {{"-", {}},
                                                              {"abc", {}},
                                                              {" 2000", {7, 100, 101}},
                                                              {"40000", {7, 100, 101}},
                                                              {"-40000", {7, 100, 101}},
                                                              {"-32768", {}},
                                                              {"1.6", {7, 100}},
                                                              {"1", {7}}};
    for (const auto& [answer, ids] : cases) {
        const aq::Answer go = answer == "-" ? aq::Answer::No : aq::Answer::Yes;
        Rig r;
        r.writePoolFile("b.AQP", {candidate(7, 9, 20)});
        r.ui.ask("yesno", aq::kHarvestWarning, aq::kAppTitle, go);
        if (go == aq::Answer::Yes)
            r.ui.text(
                "You can set the maximum number of drifters for the resulting pool anywhere from 1 to  2000.\r\nThe "
                "default is 2000.  What is the maximum would you like to set?",
                "Set Maximum", answer);
        aq::GetSuccessfulCommand(r.app);
        EXPECT_TRUE(r.ui.done()) << r.ui.report();
        const bool harvested = !ids.empty();
        EXPECT_EQ(r.ids(), harvested ? ids : r.untouched) << answer;
        EXPECT_EQ(r.app.openPoolPath, harvested ? "" : "/somewhere/open.aqp");
        if (!harvested) continue;
        EXPECT_TRUE(r.app.poolChanged);
        EXPECT_EQ(r.app.lstSpeciatePool.count(), static_cast<int>(ids.size()));
        EXPECT_EQ(r.app.lstPoolFood.count(), 4);  // the open pool's food
        EXPECT_TRUE(r.app.poolSpeciesPending);
    }
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
    EXPECT_GT(std::count(ids.begin(), ids.end(), 100), 0);

    Rig busy;  // in a series the lists stay as they are
    busy.app.uiBusy = true;
    busy.harvest(busy.dir.path(), 200, true, false);
    EXPECT_EQ(busy.app.openPool.drifterCount, 3);
    EXPECT_EQ(busy.app.lstSpeciatePool.count(), 0);
    EXPECT_EQ(busy.app.openPoolPath, "/somewhere/open.aqp");
}

TEST(Harvest, FoldersAndFailures) {
    Rig empty;  // an empty folder harvests the open pool alone
    EXPECT_TRUE(empty.harvest(empty.dir.path(), 2000, true, false));
    EXPECT_EQ(empty.ids(), empty.untouched);

    Rig gone;  // a folder that can't be listed
    const std::string missing = gone.dir.file("gone"), title = "Aquarium File Manager - Load Drifter Files";
    gone.ui.message("Error reading " + missing + ", error: No such file or directory", title);
    EXPECT_FALSE(gone.harvest(missing, 2000, true, false));
    EXPECT_EQ(gone.ids(), gone.untouched);
    EXPECT_EQ(gone.app.openPoolPath, "/somewhere/open.aqp");

    // Files that can't be read get a message each, in list order, and change nothing: the
    // harvest is that of the good files alone, where 3 pushes 2 out of the list (a second
    // look at a.aqp would bring it back) and c.txt is no pool file.
    Rig r;
    r.writePoolFile("a.aqp", {candidate(1, 6, 6), candidate(2, 7, 1), candidate(3, 8, 4)});
    r.writePoolFile("c.aqp", {candidate(7, 11, 30)});
    r.writePoolFile("c.txt", {candidate(4, 12, 90)});
    writeBytes(r.dir.file("B.aqp"), std::string(40, '\x07'));
    std::string negative = aq::poolBytes(makePool(0, 1));  // a count of -1 reads as no drifters
    negative.replace(12, 4, std::string(4, '\xFF'));
    writeBytes(r.dir.file("b2.aqp"), negative);
    r.ui.message("Not a Aquarium 4 or 5 data file");
    int expectSkipped = 1, skipped = 0;
#ifndef _WIN32  // a FIFO and links that lead nowhere
    ASSERT_EQ(::mkfifo(r.dir.file("b3.aqp").c_str(), 0644), 0);
    std::filesystem::create_symlink("nowhere.aqp", r.dir.file("b4.aqp"));
    std::filesystem::create_symlink("b5.aqp", r.dir.file("b5.aqp"));
    r.ui.message("Error opening b3.aqp, error: Not a regular file", title)
        .message("Error opening b4.aqp, error: No such file or directory", title)
        .message("Error opening b5.aqp, error: Too many levels of symbolic links", title);
    expectSkipped = 4;
#endif
    EXPECT_TRUE(r.harvest(r.dir.path(), 2000, true, false, &skipped));
    EXPECT_EQ(r.ids(), (std::vector<int>{7, 1, 3, 100}));
    EXPECT_EQ(skipped, expectSkipped);
    EXPECT_EQ(r.app.openPool.foodCount, 4);
}

// The command line gives the same scores and steps.
TEST(Harvest, CliScoresAndPrepare) {
    TempDir dir;
    std::filesystem::create_directories(dir.file("f"));
    const std::string pool = dir.file("f/default.aqp");
    const aq::Pool def = defaultPool();
    ASSERT_EQ(aq::writePool(pool, def), "");

    CliResult scores = runCli("scores '" + pool + "'");
    std::string expected = "norm: " + aq::NumberText(aq::SuccessNorm(def)) + "\n";
    for (int i = 0; i < def.drifterCount; ++i) expected += aq::NumberText(aq::SuccessScore(def, i)) + "\n";
    EXPECT_EQ(scores.status, 0);
    EXPECT_EQ(scores.out, expected);

    // The steps run in the order given, as the same calls on the pool do.
    const std::string steps = " halveAges deleteStarters:100 gravitateToCenter:150 -o '";
    ASSERT_EQ(runCli("prepare '" + pool + "'" + steps + dir.file("p.aqp") + "'").status, 0);
    aq::Pool prepared = def;
    aq::halveAges(prepared);
    aq::deleteStarters(prepared, 100);
    aq::gravitateToCenter(prepared, 150, true, true);
    EXPECT_EQ(readBytes(dir.file("p.aqp")), aq::poolBytes(prepared));
}

}  // namespace
