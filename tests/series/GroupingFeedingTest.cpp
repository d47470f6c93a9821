#include <gtest/gtest.h>

#include <cmath>

#include "SeriesFakes.h"
#include "series/Feeding.h"
#include "series/Grouping.h"

using namespace aqtest;

namespace {

constexpr double kPi = 3.14159265358979;

// n drifters, drifter i at (100 i, 50).
aq::Pool poolOfN(int n, float energy = 100) {
    std::vector<aq::DrifterRec> ds;
    for (int i = 0; i < n; ++i) ds.push_back(makeDrifter(i, 1, 0, 100.0f * float(i), 50));
    for (auto& d : ds) d.energy = energy;
    return poolOf(ds, 2);
}

void expectAt(const aq::DrifterRec& d, double x, double y, const std::string& what) {
    EXPECT_NEAR(d.x, x, 0.01) << what;
    EXPECT_NEAR(d.y, y, 0.01) << what;
    EXPECT_NEAR(d.prevX, x, 0.01) << what << " (the body moves along)";
}

void expectOnCircle(const aq::DrifterRec& d, double radius, double angle, const std::string& what) {
    expectAt(d, radius * std::sin(angle), radius * std::cos(angle), what);
}

TEST(Grouping, EveryMode) {
    // 4 and 5: skip 0, ring 2 (angles 0 and pi); 8: skip 2 (0 and 1 at the centre), ring 3; 30: ring 7;
    // gravity shrinks the ring once, each retry once more; fewer than 4 all at the centre.
    const std::tuple<int, int, bool, int, double, double> cases[] = {
        {5, 0, false, 0, 1000, 0}, {5, 0, false, 4, 1000, 4 * kPi},
        {8, 0, false, 1, 0, 0},    {8, 0, false, 2, 1000, 2 * 2 * kPi / 3},
        {30, 0, false, 1, 0, 0},   {30, 0, false, 9, 1000, 9 * 2 * kPi / 7},
        {5, 0, true, 0, 900, 0},   {5, 3, false, 0, 729, 0},
        {3, 0, false, 2, 0, 0},    {4, 0, false, 1, 1000, kPi}};
    for (auto [n, retries, gravity, index, radius, angle] : cases) {
        aq::Pool p = poolOfN(n);
        aq::groupDriftersAtStart(p, true, false, false, retries, 3, gravity, 100);
        expectOnCircle(p.drifters[index], radius, angle,
                       "n " + std::to_string(n) + " drifter " + std::to_string(index));
    }
    // Mode 2: the colours' hues, halved below the limit.
    aq::Pool p = poolOfN(10);
    p.drifters[3].segmentCount = 16;
    for (auto& s : p.drifters[3].segments) s.color = 0;
    p.drifters[4].segmentCount = 2;
    p.drifters[4].segments[1].color = 3;  // red and green
    aq::groupDriftersAtStart(p, true, false, false, 0, 2, false, 100);
    expectAt(p.drifters[0], 1250, 0, "one red segment");
    expectAt(p.drifters[3], 2500, 0, "sixteen red segments");
    expectAt(p.drifters[4], 0, 0, "red and green cancel");

    // Mode 1: sorted by length, equal lengths on one spot.
    aq::Pool q = poolOfN(3);
    q.drifters[0].segmentCount = 4;
    q.drifters[1].segmentCount = q.drifters[2].segmentCount = 3;
    aq::groupDriftersAtStart(q, true, false, false, 0, 1, false, 100);
    EXPECT_EQ(idsOf(q), (std::vector<int>{1, 2, 0}));
    expectOnCircle(q.drifters[1], 2500, 3 * 11 * 0.41887902119724, "3 segments");
    expectOnCircle(q.drifters[2], 2500, 4 * 11 * 0.41887902119724, "4 segments");
    q.drifters[2].segmentCount = 2147483647;  // a damaged file's length, with no overflow
    aq::groupDriftersAtStart(q, true, false, false, 0, 1, false, 100);
    expectOnCircle(q.drifters[2], 2500, 2147483647.0 * 11 * 0.41887902119724, "absurd length");

    // Mode 0 with 12 drifters: 3 sectors of 4 neighbours; two drifters make one group.
    aq::Pool r = poolOfN(12);
    aq::groupDriftersAtStart(r, true, false, false, 0, 0, false, 100);
    expectAt(r.drifters[3], 0, 2000, "first sector");
    expectOnCircle(r.drifters[4], 2000, 2 * kPi / 3, "second sector");
    aq::Pool two = poolOfN(2);
    aq::groupDriftersAtStart(two, true, false, false, 0, 0, false, 100);
    expectAt(two.drifters[1], 0, 2000, "pair");
}

TEST(Grouping, SingleDrifterGatheringChainAndPrompt) {
    aq::Pool one = poolOfN(1);
    aq::groupDriftersAtStart(one, false, false, false, 0, 3, false, 100);
    ASSERT_EQ(one.drifterCount, 2);
    EXPECT_EQ(0, std::memcmp(&one.drifters[0], &one.drifters[1], sizeof(aq::DrifterRec)));

    aq::Pool p = poolOfN(10);
    p.drifters[5].energy = 500;
    p.food[0].x = 900;
    p.food[0].y = -600;
    p.food[1].x = p.food[1].y = 100;
    aq::groupDriftersAtStart(p, false, true, true, 0, 3, false, 100);
    EXPECT_FLOAT_EQ(p.drifters[0].energy, 670);
    EXPECT_FLOAT_EQ(p.drifters[1].energy, 170);
    EXPECT_FLOAT_EQ(p.drifters[5].energy, 500);
    EXPECT_FLOAT_EQ(p.drifters[1].x, 100);  // not grouped: stays
    EXPECT_FLOAT_EQ(p.food[0].x, 310);
    EXPECT_FLOAT_EQ(p.food[0].y, -210);
    EXPECT_FLOAT_EQ(p.food[1].x, 100);
    // Drifter i differs from drifter 0 in its first differing[i] genes.
    const int differing[] = {0, 50, 10, 10};  // 2 and 3 equally near: the first of equals is taken
    aq::Pool chain = poolOfN(4);
    for (int i = 0; i < 4; ++i) {
        std::memset(chain.drifters[i].genes, 0, aq::kGeneCount);
        std::memset(chain.drifters[i].genes, 9, std::size_t(differing[i]));
    }
    aq::orderBySimilarity(chain, 100);
    EXPECT_EQ(idsOf(chain), (std::vector<int>{0, 2, 3, 1}));

    // Nothing nearer than 100 differing genes: the order stays.
    aq::Pool apart = poolOfN(3);
    for (int i = 0; i < 3; ++i) std::memset(apart.drifters[i].genes, i, aq::kGeneCount);
    aq::orderBySimilarity(apart, 100);
    EXPECT_EQ(idsOf(apart), (std::vector<int>{0, 1, 2}));
    const std::tuple<std::string, bool, std::string, int> cases[] = {
        {"4", true, "&Group Drifters at Start", 3},
        {"1", true, "&Group Drifters by Genetic Similarity", 0},
        {" 2 ", true, "&Group Drifters by Segment Count", 1},
        {"3", true, "&Group Drifters by Color", 2},
        {"5", false, "&Group Drifters at Start", -1},
        {"", true, "&Group Drifters by Color", 2},  // cancelled: as it was
    };
    for (const auto& [answer, checked, caption, mode] : cases) {
        UiRig r;
        r.app.groupMode = 2;
        r.app.series.options.mSeriesGroup = true;
        r.app.series.options.mSeriesGroupCaption = "&Group Drifters by Color";
        r.ui.text(
            "Please select one of the following options, and enter the corresponding number.\r\n1 = Group Drifters "
            "by Genetic Similarity (Slow)\r\n2 = Group Drifters by Segment Count\r\n3 = Group Drifters by "
            "Color\r\n4 = Group Arbitrarily (Fastest)",
            "Select Drifter Grouping Mode", answer);
        aq::mSeriesGroupClick(r.app);
        EXPECT_TRUE(r.ui.done()) << r.ui.report();
        EXPECT_EQ(r.app.series.options.mSeriesGroup, checked) << answer;
        EXPECT_EQ(r.app.series.options.mSeriesGroupCaption, caption) << answer;
        EXPECT_EQ(r.app.groupMode, mode) << answer;
    }
}

aq::DrifterRec colored(std::vector<int> colors, float x = 0, float y = 0, float energy = 40) {
    aq::DrifterRec d = makeDrifter(0, static_cast<int>(colors.size()), 0, x, y);
    for (std::size_t s = 0; s < colors.size(); ++s) d.segments[s].color = colors[s];
    d.energy = energy;
    return d;
}

TEST(Feeding, ColorPromptsAndGifts) {
    // The answers to the colour and the mode prompt ("-": none), the feed mode before; the check,
    // caption, colour and mode after.
    const std::tuple<std::string, int, std::string, bool, std::string, int, int> cases[] = {
        {"Blue sky", -1, "1", true, "Feed Completely Blue D&rifters", 4, 0},
        {"4", 1, "3", true, "Feed D&rifters with Blue Parts", 4, 2},
        {" b", 1, "=default", true, "Feed Blue Headed D&rifters", 4, 1},  // the default follows the last mode
        {"B", 0, "4", true, "Feed Partially Blue D&rifters", 4, 3},
        {"blue", 0, "", false, "Feed D&rifters by Color", 4, -1},  // cancelled mode
        {"blue", 0, "7", false, "Feed D&rifters by Color", 4, -1},
        {"", 2, "-", false, "Feed D&rifters by Color", -1, 2},  // cancelled colour: off, mode kept
        {"none", 2, "-", false, "Feed D&rifters by Color", -1, 2},
        {"6", 2, "-", false, "Feed D&rifters by Color", -1, 2},  // colours go from 0 to 5
    };
    for (const auto& [colorAnswer, modeBefore, modeAnswer, checked, caption, color, mode] : cases) {
        UiRig r;
        r.app.feedMode = modeBefore;
        r.app.feedColor = 1;
        r.ui.text(
            "Feed drifters containing what color?\r\n(enter one of... red, orange, yellow, green, blue, purple, or "
            "none to turn off.)",
            "Choose Color", colorAnswer);
        if (modeAnswer != "-")
            r.ui.text(
                "Please select one of the following options, and enter the corresponding number.\r\n1 = Feed "
                "Completely Blue Drifters\r\n2 = Feed Blue Headed Drifters\r\n3 = Feed Drifters with Blue Parts\r\n4 = "
                "Feed Partially Blue Drifters",
                "Select Color Feeding Mode", modeAnswer);
        aq::mFeedColorClick(r.app);
        EXPECT_TRUE(r.ui.done()) << colorAnswer << "\n" << r.ui.report();
        EXPECT_EQ(r.app.series.options.mFeedColor, checked) << colorAnswer;
        EXPECT_EQ(r.app.series.options.mFeedColorCaption, caption) << colorAnswer;
        EXPECT_EQ(r.app.feedColor, color) << colorAnswer;
        EXPECT_EQ(r.app.feedMode, mode) << colorAnswer;
    }
    const std::tuple<const char*, aq::DrifterRec, int, float> byColor[] = {
        {"mode 0, all red", colored({0, 0}), 0, 90},        {"mode 0, red and blue", colored({0, 4}), 0, 40},
        {"mode 1 as mode 2", colored({4, 0}), 1, 90},       {"mode 2, one red part", colored({4, 4, 0}), 2, 90},
        {"mode 2, no red", colored({4, 4}), 2, 40},         {"mode 3, partly red", colored({4, 0}), 3, 90},
        {"mode 3, one red segment", colored({0}), 3, 40},   {"mode 4 feeds nobody", colored({0}), 4, 40},
        {"energy 100", colored({0}, 0, 0, 100), 2, 100},    {"at 3880, 0", colored({0}, 3880, 0), 2, 50},
        {"at 0, 3950", colored({0}, 0, 3950), 2, 50},       {"at -3950, 0", colored({0}, -3950, 0), 2, 90},
        {"beyond 4100", colored({0}, -3000, -3000), 2, 65}, {"at 3870, 0", colored({0}, 3870, 0), 2, 90},
        {"at 0, 3870", colored({0}, 0, 3870), 2, 90},
    };
    for (const auto& [what, d, mode, energy] : byColor) {
        aq::Pool p = poolOf({d});
        aq::feedByColor(p, 0, mode);
        EXPECT_FLOAT_EQ(p.drifters[0].energy, energy) << what;
    }
    // Place, energy and meals; gifts for the hungry, the fed; the energy after.
    const std::tuple<const char*, float, float, float, int, bool, bool, float> gifts[] = {
        {"hungry and fed", 0, 0, 40, 1, true, true, 140}, {"hungry only", 0, 0, 40, 1, true, false, 90},
        {"not hungry", 0, 0, 50, 0, true, true, 50},      {"at 3880, 0", 3880, 0, 40, 0, true, false, 70},
        {"at 0, 3950", 0, 3950, 40, 0, true, false, 50},  {"fed at 2000", 0, 0, 2000, 3, false, true, 2000},
        {"at 3850, 0", 3850, 0, 40, 0, true, false, 90},  {"at 3900, 0", 3900, 0, 40, 0, true, false, 70},
    };
    for (auto [what, x, y, energy, meals, hungry, fed, after] : gifts) {
        aq::DrifterRec d = colored({0}, x, y, energy);
        d.mealsEaten = meals;
        aq::Pool p = poolOf({d});
        aq::feedPool(p, hungry, fed, false, false);
        EXPECT_FLOAT_EQ(p.drifters[0].energy, after) << what;
    }
}

TEST(Feeding, AddFoodBesideTheYoungestAndTheGradedWedge) {
    aq::Pool p = poolOfN(3);
    p.foodCount = 6;
    p.food.resize(6);
    for (int k = 0; k < 6; ++k) p.food[k].family = static_cast<std::uint8_t>(k);
    p.drifters[0].age = 30;
    p.drifters[1].age = 10;
    p.drifters[2].age = 20;
    p.drifters[1].x = -500;
    p.drifters[1].y = 0;
    aq::feedPool(p, false, false, true, false);
    ASSERT_EQ(p.foodCount, 100);
    ASSERT_EQ(p.food.size(), 100u);
    EXPECT_EQ(idsOf(p), (std::vector<int>{1, 2, 0}));  // sorted, youngest first
    EXPECT_EQ(p.food[6].family, 0);
    EXPECT_FLOAT_EQ(p.food[6].x, -460);
    EXPECT_FLOAT_EQ(p.food[6].y, 0);    // level with the drifter on the axis
    EXPECT_FLOAT_EQ(p.food[7].x, 160);  // drifter 2 at (200, 50)
    EXPECT_FLOAT_EQ(p.food[7].y, 10);
    EXPECT_EQ(p.food[9].family, 3);
    EXPECT_FLOAT_EQ(p.food[9].x, -460);

    // No drifters and no food: one bit at the centre first, then copies of it.
    aq::Pool q = poolOf({});
    aq::feedPool(q, false, false, true, false);
    ASSERT_EQ(q.foodCount, 100);
    EXPECT_FLOAT_EQ(q.food[99].x, 0);

    aq::Pool full = poolOfN(1);
    full.foodCount = 1990;
    full.food.resize(1990);
    aq::feedPool(full, false, false, true, false);
    EXPECT_EQ(full.foodCount, 2000);
    // Pools of 1, 2 and 5 at energy 100, the second of five at 3000.
    aq::Pool one = poolOfN(1), two = poolOfN(2), five = poolOfN(5);
    five.drifters[1].energy = 3000;
    for (aq::Pool* p : {&one, &two, &five}) aq::feedPool(*p, false, false, false, true);
    EXPECT_FLOAT_EQ(one.drifters[0].energy, 100);  // half rounds to 0
    EXPECT_FLOAT_EQ(two.drifters[0].energy, 100 + 2000.0f / 3);
    EXPECT_FLOAT_EQ(two.drifters[1].energy, 100);
    EXPECT_FLOAT_EQ(five.drifters[0].energy, 100 + 2000.0f / 6);  // allot 333.3, half 2
    EXPECT_FLOAT_EQ(five.drifters[1].energy, 3000);
    EXPECT_FLOAT_EQ(five.drifters[2].energy, 100);
}

}  // namespace
