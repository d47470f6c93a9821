// The startup pool generator: recipes, counts, placement, walls and the stream; the
// whole-body reset and move of a copied drifter; "Randomize Settings", the seed box with
// its buttons, and the help line.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "format/PoolFile.h"
#include "generator/Generator.h"
#include "generator/Placement.h"
#include "generator/Random.h"
#include "generator/StartupSettings.h"
#include "support/PoolFixtures.h"

namespace {

const aq::Pool& base() {
    static const aq::Pool p = aqtest::defaultPool();
    return p;
}

aq::Pool build(const aq::StartupSettings& s, std::uint32_t state = aq::kRandomStartState) {
    aq::setRandomState(state);
    aq::Pool out;
    EXPECT_TRUE(aq::buildStartupPool(base(), s, out));
    return out;
}

aq::StartupSettings settings(std::int32_t seed, int type = 1, int food = 2, int placement = 1, int walls = 1,
                             bool split = false, bool extraFood = true, bool extraDrifters = false) {
    return {seed,  std::int16_t(type), std::int16_t(food), std::int16_t(placement), std::int16_t(walls),
            split, extraFood,          extraDrifters};
}

const aq::DrifterRec& drifter(const aq::Pool& p, int i) { return p.drifters[std::size_t(i)]; }

// One drifter of `segments` segments at (10, -20), every segment slot's points set around it.
aq::Pool poolWithBody(int segments) {
    aq::Pool p = aqtest::makePool(1, 0);
    aq::DrifterRec& d = p.drifters[0];
    d.segmentCount = segments;
    d.x = 10.0f, d.y = -20.0f, d.prevX = 9.0f, d.prevY = -21.0f;
    for (int s = 0; s < aq::kSegmentSlots; ++s) {
        aq::Segment& g = d.segments[s];
        float base = static_cast<float>(s);
        g.point1X = 11 + base, g.point1Y = -19 + base, g.point2X = 12 + base, g.point2Y = -18 + base;
        g.point3X = 13 + base, g.point3Y = -17 + base, g.point4X = 14 + base, g.point4Y = -16 + base;
    }
    return p;
}

std::vector<float> points(const aq::Segment& g) {
    return {g.point1X, g.point1Y, g.point2X, g.point2Y, g.point3X, g.point3Y, g.point4X, g.point4Y};
}

TEST(SeedRecipe, RecipesAndCounts) {
    const std::pair<std::int32_t, std::vector<int>> cases[] = {
        {1, {1}}, {50, {1, 3}}, {49, {0, 2}}, {2401, {0, 2, 5}}, {12345, {46, 9, 16}}, {-7, {7}}, {0, {}},
    };
    for (const auto& [seed, recipe] : cases) {
        aq::SeedRecipe r = aq::seedRecipe(seed, 49);
        EXPECT_EQ(std::vector<int>(r.index.begin(), r.index.begin() + r.length), recipe) << seed;
    }
    EXPECT_EQ(aq::seedRecipe(2147483647, 3).length, 3);  // a tiny default pool runs out of radixes
    // Settings; drifters and food bits.
    const std::pair<aq::StartupSettings, std::pair<int, int>> counts[] = {
        {settings(1), {120, 400}},
        {settings(-7), {122, 400}},
        {settings(0), {12, 400}},
        {settings(0, 2), {12, 400}},
        {settings(0, 0), {14, 40}},
        {settings(5, 0), {12, 40}},
        {settings(5, 0, 2, 1, 1, false, false, false), {12, 20}},
        {settings(5, 1, 2, 2, 1, true, true, true), {512, 432}},
        {settings(-1, 2, 2, 2, 1, true, false, false), {256, 216}},
        {settings(0, 1, 2, 2, 1, false, true, true), {48, 400}},
    };
    for (const auto& [s, counts] : counts) {
        aq::Pool p = build(s);
        EXPECT_EQ(std::vector<int>({p.drifterCount, p.foodCount, int(p.drifters.size()), int(p.food.size())}),
                  std::vector<int>({counts.first, counts.second, counts.first, counts.second}))
            << "seed " << s.seed << " type " << s.poolType;
    }
}

TEST(GenerateStartupPool, DefaultsAndSeedsOfZeroOrBelow) {
    aq::Pool p = build(aq::StartupSettings{});
    ASSERT_EQ(std::pair(p.drifterCount, p.foodCount), std::pair(120, 400));
    EXPECT_NEAR(p.drifters[0].x, 974.946f, 1e-3);
    EXPECT_NEAR(p.drifters[30].y, 974.946f, 1e-3);  // a quarter of the way round the ring
    EXPECT_EQ(p.food[0].x, 507.5f);
    // Food cycles through the six default bits; the spiral's second ring is 7.5 further out.
    for (int i = 0; i < 12; ++i) EXPECT_EQ(p.food[std::size_t(i)].family, base().food[std::size_t(i % 6)].family);
    EXPECT_NEAR(std::hypot(p.food[1].x, p.food[1].y), 515.0, 1e-3);
    // Seed 0 and negative seeds lead with Dots.
    aq::Pool z = build(settings(0));
    ASSERT_EQ(z.drifterCount, 12);
    EXPECT_EQ(std::tuple(z.drifters[0].energy, z.drifters[0].age, z.drifters[1].energy, z.drifters[1].age),
              std::tuple(20777.0f, 30000, 50.0f, 0));
    const int ages[] = {20000, 30000, 0, 10000};
    for (int i = 2; i < 12; ++i)
        EXPECT_EQ(std::pair(drifter(z, i).age, drifter(z, i).energy),
                  std::pair(ages[(i - 2) % 4], i % 2 == 0 ? 7000.0f : 250.0f))
            << i;
    // Pairs of Dots share a place on the ring: (i - 2) div 2 picks the angle.
    EXPECT_EQ(z.drifters[2].x, z.drifters[3].x);
    EXPECT_NE(z.drifters[3].y, z.drifters[4].y);
    EXPECT_EQ(z.worldValueB, 150000.0f);
    EXPECT_EQ(z.food[0].x, 20.3f);  // food is drawn in 25 times closer

    aq::Pool n = build(settings(-7));
    ASSERT_EQ(n.drifterCount, 122);
    EXPECT_EQ(std::tuple(n.drifters[0].energy, n.drifters[1].energy, n.drifters[0].id), std::tuple(5000.0f, 50.0f, 0));
    EXPECT_NEAR(n.drifters[2].x, 974.946f * std::sqrt(122.0f / 120.0f), 1e-2);
    EXPECT_EQ(n.worldValueB, base().worldValueB);
}

TEST(GenerateStartupPool, ChaoticRandomAndCopiedBytes) {
    aq::Pool p = build(settings(31, 2, 2, 0), 0x4321AB);
    aq::setRandomState(0x4321AB);
    aq::RandomReseed(31.0);
    for (int i = 0; i < p.drifterCount; ++i) {
        int k = static_cast<int>(aq::RandomNext() * 49.0f);
        float r = static_cast<float>(aq::RandomNext() * 80.0 * std::sqrt(120.0));
        float a = static_cast<float>(aq::RandomNext() * 6.28318530717959);
        float heading = static_cast<float>(aq::RandomNext() * 360.0);
        const aq::DrifterRec& d = drifter(p, i);
        ASSERT_EQ(d.id, drifter(base(), k).id) << i;
        EXPECT_EQ(d.heading, heading) << i;
        EXPECT_NEAR(d.x, std::cos(a) * r, 1e-3) << i;
        EXPECT_NEAR(d.y, std::sin(a) * r, 1e-3) << i;
        EXPECT_EQ(d.energy, k == 0 ? 100.0f : 50.0f) << i;
    }
    aq::Pool copied = build(settings(12345, 1, 4, 2, 1, true));
    const int recipe[] = {46, 9, 16};
    for (int i = 0; i < copied.drifterCount; ++i) {
        aq::DrifterRec g = drifter(copied, i);
        const aq::DrifterRec& b = drifter(base(), recipe[i % 3]);
        // Put back what the generator may change; the rest must be the default drifter's bytes.
        g.age = b.age, g.alive = b.alive, g.paternalOffspring = b.paternalOffspring;
        g.maternalOffspring = b.maternalOffspring, g.mealsEaten = b.mealsEaten, g.energy = b.energy;
        g.x = b.x, g.y = b.y, g.prevX = b.prevX, g.prevY = b.prevY, g.velocityX = b.velocityX;
        for (int k = 0; k < b.segmentCount && k < aq::kSegmentSlots; ++k) {
            aq::Segment& gs = g.segments[k];
            const aq::Segment& bs = b.segments[k];
            gs.point1X = bs.point1X, gs.point1Y = bs.point1Y, gs.point2X = bs.point2X, gs.point2Y = bs.point2Y;
            gs.point3X = bs.point3X, gs.point3Y = bs.point3Y, gs.point4X = bs.point4X, gs.point4Y = bs.point4Y;
        }
        ASSERT_EQ(std::memcmp(&g, &b, sizeof g), 0) << "drifter " << i;
    }
}

TEST(GenerateStartupPool, PeripheralPlacementAndDoubleWalls) {
    aq::Pool p = build(settings(5, 1, 4, 2));
    // Drifter 0: top edge, left end, pulled in by (8000 - e) * 0.9 / 8000; then the left and right edges.
    const float e = static_cast<float>(2000.0 / 240 + 0.25);
    const float edge = 4000.0f * static_cast<float>((8000.0f - e) * 0.9 / 8000.0f);
    EXPECT_NEAR(p.drifters[0].y, edge, 1e-2);
    EXPECT_NEAR(p.drifters[3].x, edge, 1e-2);
    EXPECT_LT(p.drifters[7].y, p.drifters[3].y);  // down the right edge
    EXPECT_NEAR(p.drifters[4].y, edge, 1e-2);     // and round again
    // Food: the same edges at 0.7.
    EXPECT_EQ(std::make_pair(p.food[0].x, p.food[0].y), std::make_pair(-2800.0f, 2800.0f));
    // Double walls are turned half round.
    const aq::GreatWall* kinds = base().walls;
    for (int placement : {0, 2}) {
        for (bool split : {false, true}) {
            aq::Pool p = build(settings(1, 1, 2, 1, placement, split));
            const aq::GreatWall &a = p.walls[0], &b = p.walls[1];
            const aq::GreatWall& kind = kinds[placement == 0 ? 0 : 1];  // both copy one default wall
            SCOPED_TRACE(testing::Message() << "placement " << placement << " split " << split);
            EXPECT_EQ(std::vector<double>({b.left, b.right, b.bottom, b.top}),
                      std::vector<double>({-a.right, -a.left, -a.top, -a.bottom}));
            EXPECT_EQ(std::pair(a.orientation, b.orientation), std::pair(kind.orientation, kind.orientation));
        }
    }
    aq::Pool vertical = build(settings(1, 1, 2, 1, 0));
    EXPECT_EQ(std::vector<double>(
                  {vertical.walls[0].left, vertical.walls[0].right, vertical.walls[1].left, vertical.walls[1].bottom}),
              std::vector<double>({-kinds[0].right, -kinds[0].left, kinds[0].left, -kinds[0].top}));
}

TEST(GenerateStartupPool, SplitPoolSpreadsOverEightSectorsAndBuildsWalls) {
    aq::Pool p = build(settings(1, 1, 2, 1, 1, true));
    ASSERT_EQ(std::pair(p.drifterCount, p.foodCount), std::pair(136, 432));
    // Drifter 0 and food bit 0 go to sector 1 (top right); drifter 7 to sector 0, drifter 3 to sector 4.
    const double ring = 89.0 * std::sqrt(136.0);
    EXPECT_NEAR(p.drifters[0].x, 2400.0 + ring, 1e-2);
    EXPECT_NEAR(p.food[0].x, 2400.0 + 500.0 + 3000.0 / 432.0, 1e-3);
    EXPECT_EQ(p.food[0].y, 2400.0f);
    EXPECT_LT(std::hypot(p.drifters[7].x, p.drifters[7].y - 2400.0), ring + 1);
    EXPECT_LT(std::hypot(p.drifters[3].x, p.drifters[3].y + 2400.0), ring + 1);
    EXPECT_LT(std::hypot(p.drifters[6].x + 2400.0, p.drifters[6].y - 2400.0), ring + 1);
    const aq::GreatWall &v = p.walls[0], &h = p.walls[1];
    EXPECT_EQ(std::vector<double>({v.left, v.right, v.bottom, v.top, h.left, h.right, h.bottom, h.top}),
              std::vector<double>({-830, -770, -1600, 1600, -1600, 1600, -830, -770}));
    // Bounds off the centre move the walls with the middle: the middle row is at 1000.
    aq::Pool tall = base(), t;
    tall.maxY = 6000;
    ASSERT_TRUE(aq::buildStartupPool(tall, settings(1, 1, 2, 1, 1, true), t));
    EXPECT_EQ(std::pair(t.walls[0].bottom, t.walls[0].top), std::pair(600.0, 4600.0));
    // Peripheral food moves on a sector every fourth bit: bits 0-3 top right, 4-7 right.
    aq::Pool q = build(settings(1, 1, 4, 1, 1, true));
    for (int i = 0; i < 8; ++i) EXPECT_LE(std::abs(q.food[i].y - (i < 4 ? 2400 : 0)), 1120) << i;
}

TEST(ResetDrifter, ResetAndMoveKeepTheWholeBody) {
    aq::Pool p = poolWithBody(3);
    aq::DrifterRec& d = p.drifters[0];
    d.alive = 0;
    d.velocityX = 3.0f, d.velocityY = -4.5f;
    d.mealsEaten = 7, d.maternalOffspring = 2, d.paternalOffspring = 5;
    aq::DrifterRec before = d;
    aq::ResetDrifter(p, 0, 2.5f, 50.0f);
    EXPECT_EQ(std::vector<int>({d.alive, d.age, d.mealsEaten, d.maternalOffspring, d.paternalOffspring}),
              std::vector<int>({1, 2, 0, 0, 0}));  // the age rounds half to even
    EXPECT_EQ(std::vector<float>({d.energy, d.velocityX, d.velocityY, d.x, d.y, d.prevX, d.prevY}),
              std::vector<float>({50, 0, -4.5f, 0, 0, 0, 0}));
    // Unused segments stay byte for byte.
    EXPECT_EQ(std::memcmp(&d.segments[3], &before.segments[3], sizeof(aq::Segment) * 13), 0);
    aq::ResetDrifter(p, 0, 3.5f, 1.0f);
    EXPECT_EQ(d.age, 4);
    d.segmentCount = -1;  // a bad count touches no segment
    d.segments[0].point1X = 7.0f;
    aq::ResetDrifter(p, 0, 0, 0);
    EXPECT_EQ(d.segments[0].point1X, 7.0f);
    // A move carries the whole body.
    aq::Pool m = poolWithBody(2), q = poolWithBody(16), far = poolWithBody(1);
    aq::DrifterRec mBefore = m.drifters[0];
    aq::MoveDrifter(m, 0, 110.0f, 80.0f);
    const aq::DrifterRec& md = m.drifters[0];
    EXPECT_EQ(std::vector<float>({md.x, md.y, md.prevX, md.prevY}), std::vector<float>({110, 80, 109, 79}));
    EXPECT_EQ(std::memcmp(&md.segments[2], &mBefore.segments[2], sizeof(aq::Segment) * 14), 0);

    // After a reset every point stands at the new place.
    aq::ResetDrifter(q, 0, 0, 50.0f);
    aq::MoveDrifter(q, 0, -974.5f, 12.25f);
    for (int s = 0; s < 16; ++s)
        EXPECT_EQ(points(q.drifters[0].segments[s]),
                  std::vector<float>({-974.5f, 12.25f, -974.5f, 12.25f, -974.5f, 12.25f, -974.5f, 12.25f}));

    // The old position is taken off before the new is added: (1 - 1e8) rounds to -1e8 in a
    // float, so the point lands on 0, not on 1.
    aq::DrifterRec& fe = far.drifters[0];
    fe.x = 1e8f;
    fe.segments[0].point1X = fe.prevX = 1.0f;
    aq::MoveDrifter(far, 0, 1e8f, 0.0f);
    EXPECT_EQ(std::pair(fe.segments[0].point1X, fe.prevX), std::pair(0.0f, 0.0f));
}

TEST(RandomStream, TheStreamAndRandomizeSettings) {
    aq::setRandomState(aq::kRandomStartState);
    aq::RandomReseed(1.0);  // keeps the low byte; the rest are the halves of 1.0's high word, xored
    EXPECT_EQ(aq::randomState(), 0x3FF000u);
    float first = aq::RandomNext(), second = aq::RandomNext();
    EXPECT_EQ(std::tuple(aq::randomState(), first, second),
              std::tuple(0x1AFE7Au, 0xC3CEC3 / 16777216.0f, 0x1AFE7A / 16777216.0f));
    // Seconds since midnight; pool type, food, walls, drifters, seed, extra food, extra drifters, split; the state
    // after.
    const std::tuple<double, std::vector<int>, std::uint32_t> cases[] = {
        {45296.0, {0, 4, 1, 2, 37296, 0, 1, 0}, 0x887E11},
        {86399.5, {1, 4, 2, 2, 19596, 1, 1, 0}, 0x363111},
        {3.0, {2, 4, 2, 1, 34435, 1, 0, 0}, 0x034811},
    };
    for (const auto& [seconds, expected, stateAfter] : cases) {
        aq::setRandomState(aq::kRandomStartState);
        aq::StartupSettings s = aq::randomizeStartupSettings(seconds, 49);
        EXPECT_EQ(std::vector<int>({s.poolType, s.foodPlacement, s.wallPlacement, s.drifterPlacement, s.seed,
                                    s.extraFood, s.extraDrifters, s.splitPool}),
                  expected)
            << seconds;
        EXPECT_EQ(aq::randomState(), stateAfter) << seconds;
    }
}

TEST(SeedValue, TheSeedBoxItsButtonsAndTheHelpLine) {
    std::vector<double> values;
    std::vector<std::int32_t> seeds;
    for (const char* text :
         {"12abc", "  7", "abc", "2.5", "3.5", "-.75", "1 2", "4E+2x", "5,5", "-2147483648", "2147483647.6"})
        values.push_back(aq::SeedValue(text)), seeds.push_back(aq::seedFromText(text));
    EXPECT_EQ(values, (std::vector<double>{12, 7, 0, 2.5, 3.5, -0.75, 12, 400, 5, -2147483648.0, 2147483647.6}));
    EXPECT_EQ(seeds, (std::vector<std::int32_t>{12, 7, 0, 2, 4, -1, 12, 400, 5, -2147483647 - 1, 0}));
    EXPECT_EQ(std::tuple(aq::seedFromText("1e999"), aq::SeedValue("1e-999"), aq::seedFromText(std::string(5000, '9'))),
              std::tuple(0, 0.0, 0));
    const std::tuple<const char*, double, const char*> cases[] = {
        {"0", -1, "-1"},    {"1", 49, "50"},   {"50", -49, "1"}, {"abc", 1, "1"},
        {"2.5", -1, "1.5"}, {" 12x", 1, "13"}, {"-1", 1, "0"},   {"2147483647", 1, "2147483648"},
    };
    for (auto [text, delta, result] : cases) EXPECT_EQ(aq::steppedSeedText(text, delta), result) << text;
    EXPECT_FALSE(aq::steppedSeedText("1e999", 1).has_value());
    // The "0" button remembers one text; with nothing remembered it stays "0" and remembers "0".
    aq::ZeroSeedToggle zero, fresh;
    std::string clicks;
    for (const char* text : {"17", "0", "5", "0"}) clicks += zero.click(text) + " ";
    for (const char* text : {"0", "0"}) clicks += fresh.click(text) + " ";
    EXPECT_EQ(clicks, "0 17 0 5 0 0 ");
    EXPECT_EQ(aq::startupHelpText("cmdRewSeed"), aq::startupHelpText("cmdFfSeed"));
    EXPECT_EQ(aq::startupHelpText("cmdFfSeed"),
              "The seed number can by typed in directly or adjusted using the buttons provided just below the "
              "text-box.");
    // An option counts as its group.
    EXPECT_EQ(aq::startupHelpText("optPoolType(0)"), aq::startupHelpText("optPoolType(2)"));
    EXPECT_EQ(aq::startupHelpText("optPoolType(1)").substr(0, 28), "Select the Test Startup Pool");
    // Controls without help pass every other control's name by.
    EXPECT_EQ(aq::startupHelpText("cmdDecSeed") + aq::startupHelpText("optPool"), "");
}

}  // namespace
