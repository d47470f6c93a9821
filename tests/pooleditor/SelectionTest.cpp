// Ways to tick drifters: the selection sentence, the record holders, all and invert, the
// minorities and the body keys they compare.
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "pooleditor/DrifterKey.h"
#include "pooleditor/GroupSelection.h"
#include "pooleditor/Minorities.h"
#include "pooleditor/PoolEditorFixture.h"
#include "pooleditor/SelectionCommands.h"
#include "support/CountingView.h"

using namespace aq;
using namespace aqtest;
using namespace std::string_literals;

namespace {

DrifterRec with(int age, int mat = 0, int pat = 0, int meals = 0, float mass = 0) {
    DrifterRec d = makeDrifter(0);
    d.age = age, d.maternalOffspring = mat, d.paternalOffspring = pat, d.mealsEaten = meals, d.mass = mass;
    return d;
}

// A body whose first slot past its segments holds a colour of its own.
DrifterRec junk(DrifterRec d) {
    d.segments[d.segmentCount].color = 5;
    return d;
}

// Whether criterion `index` of `slot` relates drifter c to drifter k.
bool holds(const DrifterRec& k, const DrifterRec& c, float threshold, int slot, int index) {
    PoolEditor e(poolOf({k, c}));
    e.app.poolThreshold = threshold;
    return CriterionHolds(groupContext(e.app), slot, index, 0, 1);
}

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

Pool segmentPool(std::vector<int> counts) {
    std::vector<DrifterRec> ds;
    for (int n : counts) ds.push_back(makeDrifter(static_cast<int>(ds.size()), n));
    return poolOf(ds);
}

}  // namespace

TEST(GroupCriteria, TheDocumentedExamplesAndMeasures) {
    // Drifters k and c, the threshold, the Group0 index, whether it relates c to k.
    const std::tuple<const char*, DrifterRec, DrifterRec, float, int, bool> cases[] = {
        {"similar age reaches up from 100", with(100), with(131), 70, 3, true},
        {"similar age doesn't reach down from 131", with(131), with(100), 70, 3, false},
        {"age 0 only matches age 0", with(5), with(0), 0, 3, false},
        {"threshold 100: the same age", with(100), with(101), 100, 3, false},
        {"threshold 0: up to twice", with(100), with(50), 0, 3, true},
        {"threshold 0: not below half", with(100), with(49), 0, 3, false},
        {"colour order: prefix", body({0, 4, 3}), body({0, 4}), 44.4f, 8, true},
        {"colour order: swapped", body({0, 4}), body({4, 0}), 44.4f, 8, false},
        {"colour sequence: last colour repeated", body({0, 0, 4}), body({0, 0, 4, 4, 4}), 44.4f, 10, true},
        {"colour sequence: other way round", body({0, 0, 4, 4, 4}), body({0, 0, 4}), 44.4f, 10, true},
        {"colour sequence: no", body({0, 4, 0}), body({0, 4}), 44.4f, 10, false},
        {"same colours in any order", body({0, 4}), body({4, 0}), 44.4f, 6, true},
        {"same colours: a slot past the last segment doesn't count", body({0, 4}), junk(body({4, 0})), 44.4f, 6, true},
        {"same colours needs the same number", body({0, 4}), body({0, 4, 3}), 44.4f, 6, false},
        {"same base colour", body({2, 4}), body({2}), 44.4f, 7, true},
        {"same number of colours", body({2, 4}), body({1, 1, 3}), 44.4f, 9, true},
        {"individual never", with(1), with(1), 44.4f, 0, false},
        {"same age or older", with(10), with(10), 44.4f, 11, true},
        {"same age or younger", with(10), with(11), 44.4f, 12, false},
        {"as many meals or more", with(1, 0, 0, 4), with(1, 0, 0, 4), 44.4f, 25, true},
        {"same number of segments", body({1, 2}), body({3, 3}), 44.4f, 27, true},
    };
    for (const auto& [name, k, c, threshold, index, expected] : cases)
        EXPECT_EQ(holds(k, c, threshold, 0, index), expected) << name;
    DrifterRec k = makeDrifter(0), c = makeDrifter(1);
    k.totalLength = 100, c.totalLength = 96.6f;  // 96.6 * 1.035 = 99.98 < 100
    k.mass = 10, c.mass = 10.36f;                // 10.36 * 0.965 = 9.9974 <= 10
    k.energy = 5, c.energy = 6;
    k.energyEfficiency = 2, c.energyEfficiency = 1;
    k.maternalOffspring = 1, c.maternalOffspring = 1;
    k.paternalOffspring = 3, c.paternalOffspring = 2;
    k.mealsEaten = 4, c.mealsEaten = 9;
    // Group0 indices 13 to 26, then 1 (identical, zero genes) and 4, 5.
    std::string got;
    for (int index : {13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 1, 4, 5})
        got += holds(k, c, 96.5f, 0, index) ? '1' : '0';
    EXPECT_EQ(got, "01101001110110101");
    // The other slots' items map to the same tests; their index 0 never holds.
    const int group0[] = {3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 15, 16, 27};
    for (int i = 1; i <= 13; ++i) {
        EXPECT_EQ(holds(k, c, 96.5f, 2, i), holds(k, c, 96.5f, 0, group0[i - 1])) << i;
        EXPECT_EQ(poolGroupSlotItems()[i], i < 13 ? poolGroup0Items()[group0[i - 1]] : "same segment count.");
    }
    EXPECT_FALSE(holds(k, c, 96.5f, 1, 0));
    EXPECT_EQ(std::vector<std::size_t>({poolGroup0Items().size(), poolGroupSlotItems().size()}),
              std::vector<std::size_t>({28, 14}));
    EXPECT_EQ(poolGroup0Items()[13], "same total segemt lenth or higher.");
}

TEST(GroupSelection, SpeciesSetsOperatorsAndTheSentence) {
    Sentence s;
    s.app.lstSpeciatePool.userCheck(4, true);
    EXPECT_EQ(s.ticked(), (std::vector<int>{3, 4, 5}));
    s.app.lstSpeciatePool.userCheck(0, true);
    s.app.lstSpeciatePool.userCheck(1, false);
    EXPECT_EQ(s.ticked(), (std::vector<int>{3, 4, 5}));  // earlier ticks of other groups stay
    EXPECT_EQ(std::pair(s.app.lstSpeciatePool.currentIndex(), s.app.uiBusy), std::pair(1, false));

    Sentence x;  // "extended species." follows the tags, not the genes
    x.set(0, 2);
    for (int i = 0; i < 6; ++i) x.app.lstSpeciatePool.setTag(i, i == 5 ? 0 : 1);
    x.app.lstSpeciatePool.userCheck(5, true);
    EXPECT_EQ(x.ticked(), (std::vector<int>{5}));
    x.app.lstSpeciatePool.userCheck(0, true);
    EXPECT_EQ(x.ticked(), (std::vector<int>{0, 1, 2, 3, 4, 5}));
    // The sentence's operators apply left to right.
    // The indices of controls 1, 2, ...; the rows ticked by a tick on row 0.
    const std::tuple<const char*, std::vector<int>, std::vector<int>> cases[] = {
        {"And: same genes and same base colour", {1, 5}, {0, 2}},
        {"Or", {2, 5}, {0, 1, 2, 4}},
        {"Xor: exactly one (the clicked row keeps its own tick)", {3, 5}, {0, 1, 4}},
        {"Eqv: both or neither", {4, 5}, {0, 2, 3, 5}},
        {"(a And b) Or c: same segment count reaches everyone", {1, 5, 2, 13}, {0, 1, 2, 3, 4, 5}},
        {"((a And b) Or c) And d: the last slot counts too", {1, 5, 2, 13, 1, 5}, {0, 2, 4}},
    };
    for (const auto& [name, sentence, ticked] : cases) {
        Sentence s;
        for (std::size_t k = 0; k < sentence.size(); ++k) s.set(static_cast<int>(k) + 1, sentence[k]);
        s.app.lstSpeciatePool.userCheck(0, true);
        EXPECT_EQ(s.ticked(), ticked) << name;
    }
    // The sentence enables left to right.
    Sentence t;
    EXPECT_EQ(t.enabled(), (std::vector<bool>{true, true, false, false, false, false, false}));
    t.set(1, 1);
    EXPECT_EQ(t.enabled(), (std::vector<bool>{true, true, true, true, false, false, false}));
    t.set(3, 2);
    t.set(5, 3);
    EXPECT_EQ(t.enabled(), (std::vector<bool>(7, true)));
    t.set(0, 0);  // individual drifters: the rest goes dark but keeps its selections
    EXPECT_EQ(t.enabled(), (std::vector<bool>{true, false, false, false, false, false, false}));
    EXPECT_EQ(poolSentenceIndex(t.app, 1), 1);
    t.app.lstSpeciatePool.userCheck(3, true);
    EXPECT_EQ(t.ticked(), (std::vector<int>{3}));
    // "extended species." keeps the list closed while the species numbers are pending.
    t.app.poolSpeciesPending = true;
    t.set(0, 2);
    bool closed = !t.app.lstSpeciatePool.enabled();
    t.set(0, 1);
    EXPECT_TRUE(closed && t.app.lstSpeciatePool.enabled());
}

TEST(RecordHolders, EachMeasureItsStartAndTheCurrentRow) {
    std::vector<DrifterRec> pool = {with(50, 1, 5, 3, 2.5f), with(90, 4, 1, 7, 9.25f), with(90, 0, 6, 7, 9.25f),
                                    with(10, 2, 2, 1, 1.0f)};
    pool[2].alive = 0;  // the dead take part
    // The rows ticked afterwards, with row 3, ticked before, staying.
    const std::tuple<const char*, void (*)(App&), std::vector<int>> cases[] = {
        {"Oldest", mSelectOldest, {1, 2, 3}},
        {"Most Prolithic", mSelectMostProlithic, {0, 2, 3}},
        {"Most Maternal", mSelectMaternal, {1, 3}},
        {"Most Paternal", mSelectPaternal, {2, 3}},
        {"Biggest Eater", mSelectBiggestEater, {1, 2, 3}},
        {"Heaviest", mSelectHeaviest, {1, 2, 3}},
    };
    for (const auto& [name, command, ticked] : cases) {
        PoolEditor r(poolOf(pool));
        r.app.lstSpeciatePool.setChecked(3, true);
        command(r.app);
        EXPECT_EQ(r.ticked(), ticked) << name;
        EXPECT_TRUE(r.app.lstSpeciatePool.visible() && !r.app.uiBusy);
    }
    // Everyone more paternal than maternal: the least negative is still the most maternal,
    // but below the floor of -1000 nobody holds the record.
    PoolEditor r(poolOf({with(1, 0, 5), with(1, 1, 3)})), low(poolOf({with(1, 0, 1500)})), none(poolOf({}));
    mSelectMaternal(r.app);
    mSelectMaternal(low.app);
    mSelectHeaviest(none.app);
    EXPECT_EQ(r.ticked(), (std::vector<int>{1}));
    EXPECT_TRUE(low.ticked().empty() && none.app.lstSpeciatePool.visible());
    // The current row moves to the first other holder.
    PoolEditor h(poolOf({with(90), with(50), with(90)})), single(poolOf({with(90), with(5)}));
    h.app.lstSpeciatePool.setCurrentIndex(1);
    std::vector<int> current;
    for (PoolEditor* e : {&h, &h, &single}) {
        mSelectOldest(e->app);
        current.push_back(e->app.lstSpeciatePool.currentIndex());
    }
    EXPECT_EQ(current, (std::vector<int>{0, 2, 0}));
}

TEST(SelectionCommands, AllInvertAndQuickSpeciate) {
    PoolEditor r(poolOf({makeDrifter(0), makeDrifter(1), makeDrifter(2)}));
    r.app.lstSpeciatePool.setChecked(2, true);
    SelectAllDrifters(r.app);
    SelectAllDrifters(r.app);  // all stay ticked
    EXPECT_EQ(r.ticked(), (std::vector<int>{0, 1, 2}));
    r.app.lstSpeciatePool.setChecked(1, false);
    // The view hears of the whole command at once, not row by row.
    CountingView view;
    r.app.lstSpeciatePool.setObserver(&view);
    InvertPoolDrifterSelection(r.app);
    r.app.lstSpeciatePool.setObserver(nullptr);
    EXPECT_EQ(std::pair(view.rows, view.resets), std::pair(0, 1));
    EXPECT_EQ(r.ticked(), (std::vector<int>{1}));
    // The sliders show the new selection: three drifters at the origin.
    EXPECT_EQ(std::pair(r.app.SliderSpeciatePoolDrifterWidth.visible, r.app.SliderSpeciatePoolDrifterX.min),
              std::pair(false, -4000));
    // Quick Speciate changes the depth and restarts the pass.
    PoolEditor q(poolOf({makeDrifter(0), makeDrifter(1)}));
    ToggleQuickSpeciate(q.app);
    EXPECT_FALSE(q.app.quickSpeciate || q.app.poolSpeciesPending);  // no pool file open
    // Both thresholds are nudged and put back, and their texts rewritten.
    EXPECT_EQ(std::vector<int>({q.app.similarityDepth, q.app.scrollPoolSpeciesThreshold,
                                q.app.dna.scrollDrifterSpeciesThreshold.pos}),
              std::vector<int>({1000, 444, 965}));
    EXPECT_EQ(q.app.txtPoolSpeciesThreshold, " 44.4");
    EXPECT_TRUE(q.app.poolThresholdTyped && q.app.drifterThresholdTyped);

    q.app.openPoolPath = "/pools/open.aqp";
    ToggleQuickSpeciate(q.app);
    EXPECT_EQ(std::pair(q.app.similarityDepth, q.app.poolSpeciesPending), std::pair(std::int16_t{100}, true));

    // At position 0 the nudge goes to the other end and back.
    q.app.scrollPoolSpeciesThreshold = 0;
    q.app.poolThreshold = 0;
    ToggleQuickSpeciate(q.app);
    EXPECT_EQ(std::pair(q.app.scrollPoolSpeciesThreshold, q.app.txtPoolSpeciesThreshold), std::pair(0, " 0"s));
}

TEST(Minorities, TheDefaultPoolTheWorkPoolAndStageKeys) {
    PoolEditor e(defaultPool()), f(defaultPool());
    // The figures of the program's tutorial: distinct keys at each stage.
    std::vector<int> keys;
    for (int stage = 0; stage < 4; ++stage)
        keys.push_back(distinctMinorityKeys(e.app.openPool, {stage == 0, stage == 1, stage == 2, stage == 3}));
    EXPECT_EQ(keys, (std::vector<int>{12, 33, 38, 28}));
    mSelectMutantsBySegmentCount(e.app);
    EXPECT_EQ(e.ticked(), (std::vector<int>{0, 48}));                 // the lone 1 and the lone 6
    EXPECT_EQ(poolBytes(e.app.workPool), poolBytes(e.app.openPool));  // ticked, not killed
    // The other stages mark nobody in the default pool.
    mSelectMutantsByBranching(f.app);
    mSelectMutantsByColorOrder(f.app);
    mSelectMutantsByColors(f.app);
    EXPECT_TRUE(f.ticked().empty());
    // Deselect takes back what the segment stage ticked, and only that.
    e.app.lstSpeciatePool.setChecked(3, true);
    mDeSelectMutants(e.app);
    EXPECT_EQ(e.ticked(), (std::vector<int>{3}));
    // Minorities die on the work pool, not in the open one.
    PoolEditor w(segmentPool({1, 1, 1, 1, 1, 1, 1, 1, 1, 2}));
    w.app.workPool = w.app.openPool;
    // Without counting still drifters the population is 0: nobody is a minority.
    poolMutants(w.app, true, false, false, {true, false, false, false}, false);
    EXPECT_EQ(w.app.workPool.drifters[9].alive, 1);
    for (auto& d : w.app.workPool.drifters) d.velocityX = 0.001f;
    poolMutants(w.app, true, false, false, {true, false, false, false}, false);
    EXPECT_EQ(std::pair(w.app.workPool.drifters[9].alive, w.app.openPool.drifters[9].alive), std::pair(0, 1));
    EXPECT_TRUE(w.ticked().empty());
    // Colour order 0,2,1 (runs written once) is shared by the first two; colour set {0,1,2} by three.
    std::vector<DrifterRec> ds = {body({0, 2, 2, 1, 1}), body({0, 2, 1}), body({1, 2, 0})};
    ds.resize(12, body({3}));
    PoolEditor c1(poolOf(ds)), f2(poolOf(ds));
    mSelectMutantsByColorOrder(c1.app);  // 12 living, 3 keys: bar 3; 2 + 1 = 3 is not above, 1 + 1 is
    EXPECT_EQ(c1.ticked(), (std::vector<int>{2}));
    mSelectMutantsByColors(f2.app);  // 2 keys: bar 4; {0,1,2} counts 3 -> 4, not above
    EXPECT_TRUE(f2.ticked().empty());
    // A lone branching and lone colours are marked by their own commands only.
    std::vector<DrifterRec> bs(11, body({1, 1}));
    bs.push_back(body({1, 1}, {1, 0}));
    bs.push_back(body({2, 2}));
    PoolEditor g2(poolOf(bs)), h2(poolOf(bs)), k2(poolOf(bs));
    mSelectMutantsBySegmentCount(g2.app);
    mSelectMutantsByBranching(h2.app);
    mSelectMutantsByColors(k2.app);
    EXPECT_EQ(std::tuple(g2.ticked(), h2.ticked(), k2.ticked()),
              std::tuple(std::vector<int>{}, std::vector<int>{11}, std::vector<int>{12}));
}

TEST(DrifterKeys, FieldsCompressionAndTaperSymbols) {
    EXPECT_EQ(CompressKey("11{0020}3"), "1{02}3");
    EXPECT_EQ(CompressKey("5\u00BB\u00BB<\U0001F41F\U0001F41F"), "5\u00BB<\U0001F41F");
    Pool p = poolOf({body({0, 0, 1, 1}), body({0, 1, 0, 1}, {3, 0, 0, 0}), body({0}), body({2, 2, 2}, {2, 0, 0})});
    // Colour fields: "0011" and "0101" both give "01"; a short key is never compressed.
    EXPECT_EQ(DrifterKey(p, 0, true, false, false) + DrifterKey(p, 1, true, false, false) +
                  DrifterKey(p, 1, true, true, false),
              "401{000}401{000}401{000}");
    EXPECT_EQ(DrifterKey(p, 2, true, false, false), "10{}");  // the Dot
    // Numbers of several digits, negative ones as 32 bits; the field drops the first character.
    EXPECT_EQ(DrifterKey(poolOf({body({0, 0}, {0x1F0, -1})}), 0, true, false, false), "20{F0FFFFFFFF}");
    // Length 10 per segment: 10 / 10 + sqrt(10) / 3 = 2.05 -> 2; mass 36: 36 / 37 + sqrt(36) / 5 = 2.17 -> 2.
    p.drifters[2].mass = 36;
    EXPECT_EQ(DrifterKey(p, 2, false, false, false), "10{}22");
    // Detailed: base colour and colour count, 10/27 + 0.5 + sqrt(10)/5 = 1.5 -> 1, 25/50 + 0.5 + sqrt(25)/13 = 1.38
    // -> 1, and equal segments give one "="; compressed, "11" is one "1".
    p.drifters[3].mass = 75;
    EXPECT_EQ(DrifterKey(p, 3, false, false, true), "321{00}11=");
    EXPECT_EQ(DrifterKeyPair(p, 3), DrifterKey(p, 3, false, true, false) + "\r\n321{}1=");
    EXPECT_EQ(DrifterKey(p, 4, false, false, false) + DrifterKey(p, -1, false, false, false), "");
    // Width and length of two segments, and their field: 0 against 1, then 1 against 0.
    const std::tuple<float, float, float, float, const char*> cases[] = {
        {4, 10, 4, 10, "="},  {5, 10, 4, 10, "><"},          {5, 12, 4, 10, "\u00BB\u00AB"},
        {3, 12, 4, 10, "*."}, {4, 10, 4.002f, 10.001f, "="},  // within a thousandth
    };
    for (const auto& [w0, l0, w1, l1, field] : cases) {
        DrifterRec d = body({0, 0});
        d.segments[0].width = w0, d.segments[0].length = l0, d.segments[1].width = w1, d.segments[1].length = l1;
        std::string key = DrifterKey(poolOf({d}), 0, false, false, true);
        EXPECT_EQ(key.substr(key.find('}') + 3), field) << key;
    }
}

// A compressed key is the whole plain key compressed, whatever its numbers: many hex
// digits, runs across fields, taper symbols of two bytes.
TEST(DrifterKeys, CompressedKeysAreThePlainKeysCompressed) {
    std::mt19937 rng(7);
    auto pick = [&](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
    const int numbers[] = {0, 1, 2, 0x11, 0x1F0, -1};
    for (int k = 0; k < 2000; ++k) {
        std::vector<int> colors(static_cast<std::size_t>(1 + pick(16))), branches(colors.size());
        for (int& c : colors) c = numbers[pick(6)];
        for (int& b : branches) b = numbers[pick(6)];
        DrifterRec d = body(colors, branches);
        for (Segment& s : d.segments)
            s.width = static_cast<float>(1 + pick(3)), s.length = static_cast<float>(10 + pick(2));
        d.totalLength = static_cast<float>(pick(600));
        d.mass = static_cast<float>(pick(9000));
        const Pool p = poolOf({d});
        for (bool detailed : {false, true})
            ASSERT_EQ(DrifterKey(p, 0, false, true, detailed), CompressKey(DrifterKey(p, 0, false, false, detailed)))
                << k;
    }
}
