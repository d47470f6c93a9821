// The selection sentence: criteria, operators, enabling, and the tick that spreads.
#include <gtest/gtest.h>

#include <cstring>

#include "pooleditor/GroupSelection.h"
#include "pooleditor/PoolEditorFixture.h"

using namespace aq;
using namespace aqtest;

namespace {

DrifterRec colored(std::vector<int> colors) {
    DrifterRec d = makeDrifter(0, static_cast<int>(colors.size()));
    for (std::size_t s = 0; s < colors.size(); ++s) d.segments[s].color = colors[s];
    return d;
}

DrifterRec aged(int age) {
    DrifterRec d = makeDrifter(0);
    d.age = age;
    return d;
}

// Whether criterion `index` of `slot` relates drifter c to drifter k.
bool holds(const DrifterRec& k, const DrifterRec& c, float threshold, int slot, int index) {
    PoolEditor e(poolOf({k, c}));
    e.app.poolThreshold = threshold;
    return CriterionHolds(groupContext(e.app), slot, index, 0, 1);
}

}  // namespace

TEST(GroupCriteria, TheDocumentedExamples) {
    struct Case {
        const char* name;
        DrifterRec k, c;
        float threshold;
        int index;  // Group0 index
        bool holds;
    } cases[] = {
        {"similar age reaches up from 100", aged(100), aged(131), 70, 3, true},
        {"similar age doesn't reach down from 131", aged(131), aged(100), 70, 3, false},
        {"age 0 only matches age 0", aged(5), aged(0), 0, 3, false},
        {"threshold 100: the same age", aged(100), aged(101), 100, 3, false},
        {"threshold 0: up to twice", aged(100), aged(50), 0, 3, true},
        {"threshold 0: not below half", aged(100), aged(49), 0, 3, false},
        {"colour order: prefix", colored({0, 4, 3}), colored({0, 4}), 44.4f, 8, true},
        {"colour order: swapped", colored({0, 4}), colored({4, 0}), 44.4f, 8, false},
        {"colour sequence: last colour repeated", colored({0, 0, 4}), colored({0, 0, 4, 4, 4}), 44.4f, 10, true},
        {"colour sequence: other way round", colored({0, 0, 4, 4, 4}), colored({0, 0, 4}), 44.4f, 10, true},
        {"colour sequence: no", colored({0, 4, 0}), colored({0, 4}), 44.4f, 10, false},
        {"same colours in any order", colored({0, 4}), colored({4, 0}), 44.4f, 6, true},
        {"same colours needs the same number", colored({0, 4}), colored({0, 4, 3}), 44.4f, 6, false},
        {"same base colour", colored({2, 4}), colored({2}), 44.4f, 7, true},
        {"same number of colours", colored({2, 4}), colored({1, 1, 3}), 44.4f, 9, true},
        {"individual never", aged(1), aged(1), 44.4f, 0, false},
        {"same age or older", aged(10), aged(10), 44.4f, 11, true},
        {"same age or younger", aged(10), aged(11), 44.4f, 12, false},
        {"same number of segments", colored({1, 2}), colored({3, 3}), 44.4f, 27, true},
    };
    for (const Case& c : cases) EXPECT_EQ(holds(c.k, c.c, c.threshold, 0, c.index), c.holds) << c.name;
}

TEST(GroupCriteria, MeasuresOfBothDrifters) {
    DrifterRec k = makeDrifter(0), c = makeDrifter(1);
    k.totalLength = 100, c.totalLength = 96.6f;  // 96.6 * 1.035 = 99.98 < 100
    k.mass = 10, c.mass = 10.36f;                // 10.36 * 0.965 = 9.9974 <= 10
    k.energy = 5, c.energy = 6;
    k.energyEfficiency = 2, c.energyEfficiency = 1;
    k.maternalOffspring = 1, c.maternalOffspring = 1;
    k.paternalOffspring = 3, c.paternalOffspring = 2;
    k.mealsEaten = 4, c.mealsEaten = 9;
    // Group0 indices 13 to 26, then 1 (identical, zero genes) and 4, 5.
    const std::vector<bool> expected{false, true,  true, false, true,  false, false, true, true,
                                     true,  false, true, true,  false, true,  false, true};
    const int indices[] = {13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 1, 4, 5};
    std::vector<bool> got;
    for (int index : indices) got.push_back(holds(k, c, 96.5f, 0, index));
    EXPECT_EQ(got, expected);
    // The other slots' items map to the same tests; their index 0 never holds.
    const std::pair<int, int> slots[] = {{1, 3},  {2, 4},  {3, 5},   {4, 6},   {5, 7},   {6, 8},  {7, 9},
                                         {8, 10}, {9, 11}, {10, 12}, {11, 15}, {12, 16}, {13, 27}};
    for (auto [index, group0] : slots) EXPECT_EQ(holds(k, c, 96.5f, 2, index), holds(k, c, 96.5f, 0, group0)) << index;
    EXPECT_FALSE(holds(k, c, 96.5f, 1, 0));
    EXPECT_EQ(poolGroup0Items().size(), 28u);
    EXPECT_EQ(poolGroup0Items()[13], "same total segemt lenth or higher.");
    EXPECT_EQ(poolGroupSlotItems().size(), 14u);
    EXPECT_EQ(poolGroupSlotItems()[1], "similar age.");
    EXPECT_EQ(poolGroupSlotItems()[13], "same segment count.");
}

namespace {

// Six drifters: 0, 1, 2 share their genes, 3, 4, 5 share theirs; base colours alternate.
struct Sentence : PoolEditor {
    static Pool six() {
        Pool p = makePool(6, 0);
        for (int i = 0; i < 6; ++i) {
            DrifterRec& d = p.drifters[static_cast<std::size_t>(i)];
            std::memset(d.genes, i < 3 ? 1 : 2, sizeof d.genes);
            d.segmentCount = 1;
            d.segments[0].color = i % 2;
        }
        return p;
    }
    Sentence() : PoolEditor(six()) {
        app.lstSpeciatePool.onUserCheck = [this](int row, bool) { poolTickedByUser(app, row); };
        UpdatePoolGroupControls(app, true);
    }
    void set(int k, int index) {
        setPoolSentenceIndex(app, k, index);
        UpdatePoolGroupControls(app, k == 0);
    }
    std::vector<bool> enabled() const {
        return std::vector<bool>(app.poolSentenceEnabled, app.poolSentenceEnabled + 7);
    }
};

}  // namespace

TEST(GroupSelection, LocalAndExtendedSpeciesTickAndUntickTheirSets) {
    Sentence s;
    s.app.lstSpeciatePool.userCheck(4, true);
    EXPECT_EQ(s.ticked(), (std::vector<int>{3, 4, 5}));
    s.app.lstSpeciatePool.userCheck(0, true);
    s.app.lstSpeciatePool.userCheck(1, false);
    EXPECT_EQ(s.ticked(), (std::vector<int>{3, 4, 5}));  // earlier ticks of other groups stay
    EXPECT_EQ(s.app.lstSpeciatePool.currentIndex(), 1);
    EXPECT_FALSE(s.app.uiBusy);

    Sentence x;  // "extended species." follows the tags, not the genes
    x.set(0, 2);
    for (int i = 0; i < 6; ++i) x.app.lstSpeciatePool.setTag(i, i == 5 ? 0 : 1);
    x.app.lstSpeciatePool.userCheck(5, true);
    EXPECT_EQ(x.ticked(), (std::vector<int>{5}));
    x.app.lstSpeciatePool.userCheck(0, true);
    EXPECT_EQ(x.ticked(), (std::vector<int>{0, 1, 2, 3, 4, 5}));
}

TEST(GroupSelection, OperatorsLeftToRight) {
    struct Case {
        const char* name;
        std::vector<int> sentence;  // indices of controls 1, 2, ...
        std::vector<int> ticked;
    } cases[] = {
        {"And: same genes and same base colour", {1, 5}, {0, 2}},
        {"Or", {2, 5}, {0, 1, 2, 4}},
        {"Xor: exactly one (the clicked row keeps its own tick)", {3, 5}, {0, 1, 4}},
        {"Eqv: both or neither", {4, 5}, {0, 2, 3, 5}},
        {"(a And b) Or c: same segment count reaches everyone", {1, 5, 2, 13}, {0, 1, 2, 3, 4, 5}},
    };
    for (const Case& c : cases) {
        Sentence s;
        for (std::size_t k = 0; k < c.sentence.size(); ++k) s.set(static_cast<int>(k) + 1, c.sentence[k]);
        s.app.lstSpeciatePool.userCheck(0, true);
        EXPECT_EQ(s.ticked(), c.ticked) << c.name;
    }
}

TEST(GroupSelection, TheSentenceEnablesLeftToRight) {
    Sentence s;
    EXPECT_EQ(s.enabled(), (std::vector<bool>{true, true, false, false, false, false, false}));
    s.set(1, 1);
    EXPECT_EQ(s.enabled(), (std::vector<bool>{true, true, true, true, false, false, false}));
    s.set(3, 2);
    s.set(5, 3);
    EXPECT_EQ(s.enabled(), (std::vector<bool>(7, true)));
    s.set(0, 0);  // individual drifters: the rest goes dark but keeps its selections
    EXPECT_EQ(s.enabled(), (std::vector<bool>{true, false, false, false, false, false, false}));
    EXPECT_EQ(poolSentenceIndex(s.app, 1), 1);
    s.app.lstSpeciatePool.userCheck(3, true);
    EXPECT_EQ(s.ticked(), (std::vector<int>{3}));
    // "extended species." keeps the list closed while the species numbers are pending.
    s.app.poolSpeciesPending = true;
    s.set(0, 2);
    EXPECT_FALSE(s.app.lstSpeciatePool.enabled());
    s.set(0, 1);
    EXPECT_TRUE(s.app.lstSpeciatePool.enabled());
}
