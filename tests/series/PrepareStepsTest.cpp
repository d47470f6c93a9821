#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "SeriesFakes.h"
#include "generator/Random.h"
#include "series/PrepareSteps.h"

using namespace aqtest;

namespace {

// A pool of these drifters, numbered in order.
aq::Pool numbered(std::vector<aq::DrifterRec> drifters) {
    for (std::size_t i = 0; i < drifters.size(); ++i) drifters[i].id = static_cast<int>(i);
    return poolOf(std::move(drifters), 3);
}

aq::DrifterRec at(float x, float y, float energy = 100, int age = 0, int segments = 1) {
    aq::DrifterRec d = makeDrifter(0, segments, 0, x, y);
    d.energy = energy;
    d.age = age;
    return d;
}

TEST(PrepareSteps, GravityAndAnEmptyPool) {
    for (auto [percent, factor] : {std::pair{10.0f, 0.9f}, {100.0f, 0.0f}, {150.0f, 0.5f}, {0.0f, 0.0f}}) {
        aq::Pool p = numbered({at(1000, -2000)});
        p.drifters[0].prevX = 1010;
        p.drifters[0].segments[0].point3Y = -1990;
        p.food[0].x = 400;
        p.food[0].y = -800;
        aq::gravitateToCenter(p, percent, true, true);
        const aq::DrifterRec& d = p.drifters[0];
        EXPECT_FLOAT_EQ(d.x, 1000 * factor) << percent;
        EXPECT_FLOAT_EQ(d.y, -2000 * factor) << percent;
        EXPECT_NEAR(d.prevX - d.x, 10, 1e-3) << percent;
        EXPECT_NEAR(d.segments[0].point3Y - d.y, 10, 1e-3) << percent;
        EXPECT_FLOAT_EQ(p.food[0].x, 400 * factor);
        EXPECT_FLOAT_EQ(p.food[0].y, -800 * factor);
    }
    aq::Pool p = numbered({at(1000, 1000)});
    p.food[0].x = 400;
    aq::gravitateToCenter(p, 50, false, true);
    EXPECT_FLOAT_EQ(p.drifters[0].x, 1000);
    EXPECT_FLOAT_EQ(p.food[0].x, 200);
    // An empty pool passes every step.
    aq::Pool empty = makePool(0, 0);
    for (auto step : std::vector<std::function<void(aq::Pool&)>>{
             aq::markStillborns, aq::restoreYouth, aq::drainEdgeEnergy, aq::halveAges, aq::applyPlague,
             [](aq::Pool& q) { aq::ensureMinimumDrifters(q, 1); }, [](aq::Pool& q) { aq::limitLiveDrifters(q, 1); },
             [](aq::Pool& q) { aq::deleteDeadDrifters(q); }, [](aq::Pool& q) { aq::sortDrifters(q); },
             [](aq::Pool& q) { aq::prepareHarvest(q, 2500); }, [](aq::Pool& q) { aq::deleteStarters(q, 0); }})
        step(empty);
    EXPECT_EQ(empty.drifterCount, 0);
    EXPECT_EQ(empty.foodCount, 0);
}

TEST(PrepareSteps, PrepareHarvestShrinksTheCircleForSmallPools) {
    aq::setRandomState(0x123456);
    std::vector<aq::DrifterRec> ds;
    for (int i = 0; i < 125; ++i) {
        aq::DrifterRec d = at(3000, 3000, 7, 7500 + i);
        d.mealsEaten = 4;
        d.maternalOffspring = 2;
        d.paternalOffspring = 1;
        ds.push_back(d);
    }
    aq::Pool p = numbered(ds);
    aq::prepareHarvest(p, 2500.0f);
    float widest = 0;
    for (const aq::DrifterRec& d : p.drifters) {
        float r = std::sqrt(d.x * d.x + d.y * d.y);
        EXPECT_LE(r, 1250.0f);
        widest = std::max(widest, r);
        EXPECT_FLOAT_EQ(d.energy, 50);
        EXPECT_EQ(d.mealsEaten + d.maternalOffspring + d.paternalOffspring, 0);
    }
    EXPECT_GT(widest, 900.0f);
    // Ages 7500 / 75 + 150, 100.01 + 150 and 101.65 + 150.
    EXPECT_EQ(std::vector<int>({p.drifters[0].age, p.drifters[1].age, p.drifters[124].age}),
              std::vector<int>({250, 250, 252}));

    // No radius: nothing is moved and no random number is used.
    aq::Pool q = numbered({at(3000, 3000)});
    std::uint32_t before = aq::randomState();
    aq::prepareHarvest(q, 0);
    EXPECT_FLOAT_EQ(q.drifters[0].x, 3000);
    EXPECT_EQ(aq::randomState(), before);

    // Small circles in wide pools take millions of draws, one by one; the draws come round
    // after 2^23, and a circle no draw of a round meets (the last two) keeps the first point drawn.
    // The edge, the drifters, the state before; the places drawn and the state after.
    const std::tuple<float, int, std::uint32_t, std::vector<float>, std::uint32_t> cases[] = {
        {16000, 1, 1, {0x1.b38p-1f, 0x1.12p+3f}, 0x801189},
        {40000, 2, 0x123456, {-0x1.5a4p+3f, 0x1.a2p+2f, 0x1.6ccp+2f, -0x1.fa8p+1f}, 0x7FFCC2},
        {40000, 2, 1, {0x1.3cd32cp+14f, -0x1.3b654p+10f, -0x1.3109b6p+14f, -0x1.49dfd8p+14f}, 0x3C7115},
        {-100, 2, 1, {0x1.5eb126p+7f, 0x1.28d896p+7f, 0x1.f6634ap+6f, 0x1.ee70bp+6f}, 0x3C7115}};
    for (const auto& [edge, drifters, state, want, wantState] : cases) {
        SCOPED_TRACE(std::to_string(edge) + " " + std::to_string(state));
        aq::Pool pool = numbered(std::vector<aq::DrifterRec>(std::size_t(drifters), at(3000, 3000)));
        pool.minX = pool.minY = edge < 0 ? 100 : -edge;  // the last: a box of 100 to 200
        pool.maxX = pool.maxY = edge < 0 ? 200 : edge;
        aq::setRandomState(state);
        aq::prepareHarvest(pool, 2500.0f);
        std::vector<float> got;
        for (const aq::DrifterRec& d : pool.drifters) got.insert(got.end(), {d.x, d.y});
        EXPECT_EQ(got, want);
        EXPECT_EQ(aq::randomState(), wantState);
    }
}

TEST(PrepareSteps, StillbornsAndMinimumDrifters) {
    // A still one without the energy for its age is killed and cleared; a moving or a fed one stays.
    aq::DrifterRec still = at(500, 500, 10, 300, 2);
    still.velocityX = 0.00003f;
    still.segments[1].point2X = 77;
    aq::DrifterRec moving = still, fed = still;
    moving.velocityX = -0.00005f;
    fed.energy = 100;
    aq::Pool p = numbered({still, moving, fed});
    aq::markStillborns(p);
    EXPECT_EQ(p.drifters[0].alive + 2 * p.drifters[1].alive + 4 * p.drifters[2].alive, 6);
    EXPECT_FLOAT_EQ(p.drifters[0].x, 0);
    EXPECT_FLOAT_EQ(p.drifters[0].segments[1].point2X, 0);

    // The killed one alone: revived and copied, both below 50 and so fed 50, nothing left to delete.
    aq::Pool one = numbered({p.drifters[0]});
    aq::ensureMinimumDrifters(one, 1);
    aq::deleteDeadDrifters(one);
    ASSERT_EQ(one.drifterCount, 2);
    for (const aq::DrifterRec& d : one.drifters) EXPECT_FLOAT_EQ(d.energy, 60);

    // Enough records: dead ones are revived in order until two live, the rest left alone.
    aq::Pool r = numbered({at(0, 0), at(0, 0), at(0, 0)});
    for (auto& d : r.drifters) d.alive = 0;
    aq::ensureMinimumDrifters(r, 1);
    EXPECT_EQ(r.drifters[0].alive + r.drifters[1].alive + 2 * r.drifters[2].alive, 2);

    // A copy near the edge gets less.
    aq::Pool e = numbered({at(3950, 0, 20)});
    aq::ensureMinimumDrifters(e, -5);
    ASSERT_EQ(e.drifterCount, 5);
    EXPECT_FLOAT_EQ(e.drifters[4].energy, 30);
}

TEST(PrepareSteps, SortLimitsCountingAndStarters) {
    // The first gap moves the 0 over the first 1, which reverses the two 1s.
    const std::pair<std::vector<int>, std::vector<int>> cases[] = {
        {{1, 1, 0, 5}, {2, 1, 0, 3}}, {{3, 1, 2, 1}, {1, 3, 2, 0}}, {{2, 2, 2}, {0, 1, 2}}, {{}, {}}};
    for (const auto& [ages, ids] : cases) {
        std::vector<aq::DrifterRec> ds;
        for (int age : ages) ds.push_back(at(0, 0, 100, age));
        aq::Pool p = numbered(ds);
        aq::sortDrifters(p);
        EXPECT_EQ(idsOf(p), ids);
    }
    // Many gaps, then the youngest 1000 live on.
    std::vector<aq::DrifterRec> ds;
    for (int i = 0; i < 1500; ++i) ds.push_back(at(0, 0, 100, (i * 7919) % 1500));
    aq::Pool p = numbered(ds);
    aq::sortDrifters(p);
    EXPECT_TRUE(std::is_sorted(p.drifters.begin(), p.drifters.end(),
                               [](const auto& a, const auto& b) { return a.age < b.age; }));
    aq::limitLiveDrifters(p, 1000);
    aq::deleteDeadDrifters(p);
    ASSERT_EQ(p.drifterCount, 1000);
    EXPECT_EQ(p.drifters.back().age, 999);
    aq::Pool q = numbered({at(0, 0, 1, 10), at(0, 0, 1, 11), at(0, 0, 1, 12), at(0, 0, 1, 9)});
    EXPECT_EQ(aq::countYoungerThan(q, 11), 2);  // 11 itself does not count
    EXPECT_EQ(aq::countYoungerThan(q, 11.5f), 3);
    aq::deleteStarters(q, 11);  // 11 stays
    EXPECT_EQ(idsOf(q), (std::vector<int>{0, 1, 3}));

    aq::Pool h = numbered({at(0, 0, 1, 3), at(0, 0, 1, 5), at(0, 0, 1, 7), at(0, 0, 1, -3)});
    aq::halveAges(h);
    std::vector<int> ages;
    for (const auto& d : h.drifters) ages.push_back(d.age);
    EXPECT_EQ(ages, (std::vector<int>{2, 2, 4, -2}));

    aq::Pool c = numbered({at(0, 0)});
    c.drifters[0].mealsEaten = c.drifters[0].maternalOffspring = c.drifters[0].paternalOffspring = 3;
    aq::resetCounters(c, false, true, true);
    EXPECT_EQ(c.drifters[0].mealsEaten, 3);
    EXPECT_EQ(c.drifters[0].maternalOffspring + c.drifters[0].paternalOffspring, 0);
}

// Drifters of one body plan; `length` sets the length class of the full key.
aq::DrifterRec shaped(int segments, float lengthPerSegment, int meals) {
    aq::DrifterRec d = makeDrifter(0, segments, 2);
    d.totalLength = lengthPerSegment * static_cast<float>(segments);
    d.mealsEaten = meals;
    d.age = 100;
    d.velocityX = 1;
    return d;
}

TEST(PrepareSteps, PlagueDrainAndYouth) {
    // Pass 1 takes the best's full key when it holds more than a quarter (50 of 120), pass 2
    // then its plan when that holds more than three quarters of the rest (45 of 55); not when
    // all share the key, nor when the best form is too rare in both passes.
    const std::tuple<const char*, std::vector<std::pair<int, aq::DrifterRec>>, int> cases[] = {
        {"full key", {{50, shaped(3, 100, 9)}, {70, shaped(2, 100, 1)}}, 70},
        {"then the plan", {{45, shaped(3, 100, 9)}, {45, shaped(3, 1000, 5)}, {10, shaped(2, 100, 1)}}, 10},
        {"not the plan first", {{30, shaped(3, 100, 9)}, {30, shaped(3, 1000, 5)}, {40, shaped(2, 100, 1)}}, 70},
        {"all alike", {{110, shaped(3, 100, 9)}}, 110},
        {"rare best", {{20, shaped(3, 100, 9)}, {90, shaped(2, 100, 1)}}, 110},
    };
    for (const auto& [what, groups, survivors] : cases) {
        std::vector<aq::DrifterRec> ds;
        for (const auto& [n, d] : groups) ds.insert(ds.end(), std::size_t(n), d);
        aq::Pool p = numbered(ds);
        aq::applyPlague(p);
        EXPECT_EQ(p.drifterCount, survivors) << what;
    }
    // The drain of sqrt(3000) at the edge is cut to half the energy plus 5, unless that is not
    // below the energy; 301 from the edge nothing is drained, nor a drain of 1 or less.
    const std::array<float, 4> drain[] = {{4000, 0, 40, 15},
                                          {4000, 0, 6, 6},
                                          {-4000, 0, 200, 200 - static_cast<float>(std::sqrt(3000.0))},
                                          {0, 3800, 100, 100 - static_cast<float>(std::sqrt(1000.0))},
                                          {3699, 0, 100, 100},
                                          {3700.05f, 0, 100, 100}};
    for (auto [x, y, energy, after] : drain) {
        aq::Pool p = numbered({at(x, y, energy)});
        aq::drainEdgeEnergy(p);
        EXPECT_FLOAT_EQ(p.drifters[0].energy, after) << x << "," << y << " energy " << energy;
    }
    // Exactly at the distance of 3900 nothing changes; 37.5 rounds to even.
    const std::tuple<float, float, int, int, int> youth[] = {{3900, 0, 1, 300, 300}, {0, -3899, 1, 300, 100},
                                                             {3000, 0, 2, 300, 38},  {100, 100, 3, 300, 20},
                                                             {100, 100, 16, 45, 3},  {5000, 5000, 3, 300, 300}};
    for (auto [x, y, segments, age, after] : youth) {
        aq::Pool p = numbered({at(x, y, 100, age, segments)});
        aq::restoreYouth(p);
        EXPECT_EQ(p.drifters[0].age, after) << x << "," << y;
    }
}

}  // namespace
