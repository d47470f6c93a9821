// Minorities by body features, and the morphology keys.
#include <gtest/gtest.h>

#include "pooleditor/DrifterKey.h"
#include "pooleditor/Minorities.h"
#include "pooleditor/PoolEditorFixture.h"

using namespace aq;
using namespace aqtest;

namespace {

Pool segmentPool(std::vector<int> counts) {
    std::vector<DrifterRec> ds;
    for (int n : counts) ds.push_back(makeDrifter(static_cast<int>(ds.size()), n));
    return poolOf(ds);
}

DrifterRec body(std::vector<int> colors, std::vector<int> branches = {}) {
    DrifterRec d = makeDrifter(0, static_cast<int>(colors.size()));
    for (std::size_t s = 0; s < colors.size(); ++s) {
        d.segments[s].color = colors[s];
        d.segments[s].branchCount = s < branches.size() ? branches[s] : 0;
        d.segments[s].length = 10;
        d.segments[s].width = 4;
    }
    d.totalLength = 10.0f * static_cast<float>(colors.size());
    d.mass = 5.0f * static_cast<float>(colors.size());
    return d;
}

}  // namespace

TEST(Minorities, TheDefaultPoolBySegmentCount) {
    PoolEditor e(defaultPool());
    mSelectMutantsBySegmentCount(e.app);
    EXPECT_EQ(e.ticked(), (std::vector<int>{0, 48}));
    EXPECT_EQ(e.d(0).segmentCount * 10 + e.d(48).segmentCount, 16);  // the lone 1 and the lone 6
    // The other stages mark nobody in the default pool.
    PoolEditor f(defaultPool());
    mSelectMutantsByBranching(f.app);
    mSelectMutantsByColorOrder(f.app);
    mSelectMutantsByColors(f.app);
    EXPECT_TRUE(f.ticked().empty());
    // Deselect takes back what the segment stage ticked, and only that.
    e.app.lstSpeciatePool.setChecked(3, true);
    mDeSelectMutants(e.app);
    EXPECT_EQ(e.ticked(), (std::vector<int>{3}));
}

TEST(Minorities, BarAndCounts) {
    struct Case {
        const char* name;
        std::vector<int> counts;
        int dead;
        std::vector<int> marked;
    } cases[] = {
        {"everyone shares the key", {3, 3, 3, 3}, -1, {}},
        // 10 living, keys {1, 2}: bar 10 / 3 = 3.33 > 1 + 1 for the lone 2.
        {"a lone key", {1, 1, 1, 1, 1, 1, 1, 1, 1, 2}, -1, {9}},
        // 6 living, keys {1, 2}: bar 2 = 1 + 1 is not above: strict.
        {"strict at the bar", {1, 1, 1, 1, 1, 2}, -1, {}},
        {"a dead lone drifter neither counts nor is marked", {1, 1, 1, 1, 1, 1, 1, 1, 1, 2}, 9, {}},
    };
    for (const Case& c : cases) {
        Pool p = segmentPool(c.counts);
        if (c.dead >= 0) p.drifters[static_cast<std::size_t>(c.dead)].alive = 0;
        PoolEditor e(p);
        mSelectMutantsBySegmentCount(e.app);
        EXPECT_EQ(e.ticked(), c.marked) << c.name;
    }
}

TEST(Minorities, KillingOnTheWorkPoolAndStillDrifters) {
    PoolEditor e(segmentPool({1, 1, 1, 1, 1, 1, 1, 1, 1, 2}));
    e.app.workPool = e.app.openPool;
    // Without counting still drifters the population is 0: nobody is a minority.
    poolMutants(e.app, true, false, false, {true, false, false, false}, false);
    EXPECT_EQ(e.app.workPool.drifters[9].alive, 1);
    for (auto& d : e.app.workPool.drifters) d.velocityX = 0.001f;
    poolMutants(e.app, true, false, false, {true, false, false, false}, false);
    EXPECT_EQ(e.app.workPool.drifters[9].alive, 0);
    EXPECT_EQ(e.app.openPool.drifters[9].alive, 1);
    EXPECT_TRUE(e.ticked().empty());
}

TEST(Minorities, StageKeys) {
    // Colour order 0,2,1 (runs written once) is shared by the first two; colour set {0,1,2} by three.
    std::vector<DrifterRec> ds = {body({0, 2, 2, 1, 1}), body({0, 2, 1}), body({1, 2, 0})};
    ds.resize(12, body({3}));
    PoolEditor e(poolOf(ds));
    mSelectMutantsByColorOrder(e.app);  // 12 living, 3 keys: bar 3; 2 + 1 = 3 is not above, 1 + 1 is
    EXPECT_EQ(e.ticked(), (std::vector<int>{2}));
    PoolEditor f(poolOf(ds));
    mSelectMutantsByColors(f.app);  // 2 keys: bar 4; {0,1,2} counts 3 -> 4, not above
    EXPECT_TRUE(f.ticked().empty());
}

TEST(DrifterKeys, FieldsAndCompression) {
    EXPECT_EQ(CompressKey("11{0020}3"), "1{02}3");
    EXPECT_EQ(CompressKey("5\u00BB\u00BB<"), "5\u00BB<");
    Pool p = poolOf({body({0, 0, 1, 1}), body({0, 1, 0, 1}, {3, 0, 0, 0}), body({0}), body({2, 2, 2}, {2, 0, 0})});
    // Colour fields: "0011" and "0101" both give "01".
    EXPECT_EQ(DrifterKey(p, 0, true, false, false), "401{000}");
    EXPECT_EQ(DrifterKey(p, 1, true, false, false), "401{000}");
    EXPECT_EQ(DrifterKey(p, 1, true, true, false), "401{000}");  // a short key is never compressed
    EXPECT_EQ(DrifterKey(p, 2, true, false, false), "10{}");     // the Dot
    // Length 10 per segment: 10 / 10 + sqrt(10) / 3 = 2.05 -> 2; mass 5: 5 / 37 + sqrt(5) / 5 = 0.58 -> 0.
    EXPECT_EQ(DrifterKey(p, 2, false, false, false), "10{}20");
    // Detailed: base colour and colour count, 10/27 + 0.5 + sqrt(10)/5 = 1.5 -> 1, 5/50 + 0.5 + sqrt(5)/13 = 0.77 -> 0,
    // and equal segments give one "=".
    EXPECT_EQ(DrifterKey(p, 3, false, false, true), "321{00}10=");
    EXPECT_EQ(DrifterKeyPair(p, 3), DrifterKey(p, 3, false, true, false) + "\r\n321{}10=");
    EXPECT_EQ(DrifterKey(p, 4, false, false, false) + DrifterKey(p, -1, false, false, false), "");
}

TEST(DrifterKeys, TaperSymbols) {
    struct Case {
        float w0, l0, w1, l1;
        const char* field;  // two segments: 0 against 1, then 1 against 0
    } cases[] = {
        {4, 10, 4, 10, "="},  {5, 10, 4, 10, "><"},          {5, 12, 4, 10, "\u00BB\u00AB"},
        {3, 12, 4, 10, "*."}, {4, 10, 4.002f, 10.001f, "="},  // within a thousandth
    };
    for (const Case& c : cases) {
        DrifterRec d = body({0, 0});
        d.segments[0].width = c.w0, d.segments[0].length = c.l0;
        d.segments[1].width = c.w1, d.segments[1].length = c.l1;
        std::string key = DrifterKey(poolOf({d}), 0, false, false, true);
        EXPECT_EQ(key.substr(key.find('}') + 3), c.field) << key;
    }
}
