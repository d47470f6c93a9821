// The startup pool generator: recipes, counts, placement, walls and the stream.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "generator/Generator.h"
#include "generator/Random.h"
#include "pool/PoolFile.h"
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

aq::StartupSettings settings(std::int32_t seed, int type = 1, int food = 2, int placement = 1, int walls = 1) {
    aq::StartupSettings s;
    s.seed = seed;
    s.poolType = static_cast<std::int16_t>(type);
    s.foodPlacement = static_cast<std::int16_t>(food);
    s.drifterPlacement = static_cast<std::int16_t>(placement);
    s.wallPlacement = static_cast<std::int16_t>(walls);
    return s;
}

TEST(SeedRecipe, DigitsOfTheSeedBecomeARunningSum) {
    const struct {
        std::int32_t seed;
        std::vector<int> recipe;
    } cases[] = {
        {1, {1}}, {50, {1, 3}}, {49, {0, 2}}, {2401, {0, 2, 5}}, {12345, {46, 9, 16}}, {-7, {7}}, {0, {}}, {48, {48}},
    };
    for (const auto& c : cases) {
        aq::SeedRecipe r = aq::seedRecipe(c.seed, 49);
        ASSERT_EQ(r.length, static_cast<int>(c.recipe.size())) << c.seed;
        for (std::size_t k = 0; k < c.recipe.size(); ++k)
            EXPECT_EQ(r.index[k], c.recipe[k]) << c.seed << " digit " << k;
    }
    // At most ten digits, the last ones of a large seed are dropped.
    EXPECT_EQ(aq::seedRecipe(2147483647, 49).length, 6);
    EXPECT_EQ(aq::seedRecipe(-2147483647 - 1, 49).length, 6);
    EXPECT_EQ(aq::seedRecipe(2147483647, 3).length, 3);  // a tiny default pool runs out of radixes
}

TEST(StartupCounts, FollowTypePlacementSplitAndExtras) {
    struct Case {
        aq::StartupSettings s;
        int drifters, food, dots;
    };
    auto with = [](aq::StartupSettings s, bool split, bool extraFood, bool extraDrifters) {
        s.splitPool = split, s.extraFood = extraFood, s.extraDrifters = extraDrifters;
        return s;
    };
    const Case cases[] = {
        {settings(1), 120, 400, 0},
        {settings(-7), 122, 400, 2},
        {settings(0), 12, 400, 2},
        {settings(0, 2), 12, 400, 2},
        {settings(0, 0), 14, 40, 2},
        {settings(5, 0), 12, 40, 0},
        {with(settings(5, 0), false, false, false), 12, 20, 0},
        {with(settings(5, 1, 2, 2), true, true, true), 512, 432, 0},
        {with(settings(-1, 2, 2, 2), true, false, false), 256, 216, 2},
        {with(settings(0, 1, 2, 2), false, true, true), 48, 400, 2},
    };
    for (const auto& c : cases) {
        aq::StartupCounts n = aq::startupCounts(c.s);
        EXPECT_EQ(n.drifters, c.drifters) << c.s.seed << " type " << c.s.poolType;
        EXPECT_EQ(n.food, c.food) << c.s.seed << " type " << c.s.poolType;
        EXPECT_EQ(n.dots, c.dots) << c.s.seed;
        aq::Pool p = build(c.s);
        EXPECT_EQ(p.drifterCount, c.drifters);
        EXPECT_EQ(p.foodCount, c.food);
        EXPECT_EQ(p.drifters.size(), static_cast<std::size_t>(c.drifters));
        EXPECT_EQ(p.food.size(), static_cast<std::size_t>(c.food));
    }
}

TEST(GenerateStartupPool, DefaultsGiveTheDocumentedPositions) {
    aq::Pool p = build(aq::StartupSettings{});
    ASSERT_EQ(p.drifterCount, 120);
    ASSERT_EQ(p.foodCount, 400);
    EXPECT_NEAR(p.drifters[0].x, 974.946f, 1e-3);
    EXPECT_EQ(p.drifters[0].y, 0.0f);
    EXPECT_EQ(p.food[0].x, 507.5f);
    EXPECT_EQ(p.food[0].y, 0.0f);
    // A quarter of the way round the ring, on the y axis.
    EXPECT_NEAR(p.drifters[30].x, 0.0f, 1e-3);
    EXPECT_NEAR(p.drifters[30].y, 974.946f, 1e-3);
    for (int i = 0; i < p.drifterCount; ++i) {
        EXPECT_EQ(p.drifters[static_cast<std::size_t>(i)].id, 1);
        EXPECT_NEAR(std::hypot(p.drifters[static_cast<std::size_t>(i)].x, p.drifters[static_cast<std::size_t>(i)].y),
                    974.946, 2e-3);
    }
    // Food cycles through the six default bits; the spiral's second ring is 7.5 further out.
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(p.food[static_cast<std::size_t>(i)].family, base().food[static_cast<std::size_t>(i % 6)].family);
    EXPECT_NEAR(std::hypot(p.food[1].x, p.food[1].y), 515.0, 1e-3);
    // The world is the default pool's.
    EXPECT_EQ(p.worldValueB, base().worldValueB);
    EXPECT_EQ(std::memcmp(p.historyBlock.data(), base().historyBlock.data(), p.historyBlock.size()), 0);
    EXPECT_EQ(std::memcmp(&p.walls, &base().walls, sizeof p.walls), 0);
}

TEST(GenerateStartupPool, SeedZeroIsAPoolOfDots) {
    aq::Pool p = build(settings(0));
    ASSERT_EQ(p.drifterCount, 12);
    EXPECT_EQ(p.drifters[0].energy, 20777.0f);
    EXPECT_EQ(p.drifters[0].age, 30000);
    EXPECT_EQ(p.drifters[1].energy, 50.0f);
    EXPECT_EQ(p.drifters[1].age, 0);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(p.drifters[static_cast<std::size_t>(i)].x, 0.0f);
        EXPECT_EQ(p.drifters[static_cast<std::size_t>(i)].y, 0.0f);
    }
    const int ages[] = {20000, 30000, 0, 10000};
    for (int i = 2; i < 12; ++i) {
        const aq::DrifterRec& d = p.drifters[static_cast<std::size_t>(i)];
        EXPECT_EQ(d.id, base().drifters[0].id) << i;
        EXPECT_EQ(d.segmentCount, base().drifters[0].segmentCount) << i;
        EXPECT_EQ(d.age, ages[(i - 2) % 4]) << i;
        EXPECT_EQ(d.energy, i % 2 == 0 ? 7000.0f : 250.0f) << i;
    }
    // Pairs of Dots share a place on the ring: (i - 2) div 2 picks the angle.
    EXPECT_EQ(p.drifters[2].x, p.drifters[3].x);
    EXPECT_EQ(p.drifters[4].y, p.drifters[5].y);
    EXPECT_NE(p.drifters[3].y, p.drifters[4].y);
    EXPECT_EQ(p.worldValueB, 150000.0f);
    // Food is drawn in 25 times closer.
    EXPECT_EQ(p.food[0].x, 20.3f);
}

TEST(GenerateStartupPool, NegativeSeedsLeadWithTwoDots) {
    aq::Pool p = build(settings(-7));
    ASSERT_EQ(p.drifterCount, 122);
    EXPECT_EQ(p.drifters[0].energy, 5000.0f);
    EXPECT_EQ(p.drifters[1].energy, 50.0f);
    EXPECT_EQ(p.drifters[0].id, 0);
    EXPECT_EQ(p.drifters[0].x, 0.0f);
    for (int i = 2; i < 122; ++i) EXPECT_EQ(p.drifters[static_cast<std::size_t>(i)].id, 7);
    EXPECT_NEAR(p.drifters[2].x, 974.946f * std::sqrt(122.0f / 120.0f), 1e-2);
    EXPECT_EQ(p.worldValueB, base().worldValueB);
}

TEST(GenerateStartupPool, TheMostNegativeSeedStillMakesAPool) {
    aq::Pool p = build(settings(-2147483647 - 1, 2, 0, 0));
    EXPECT_EQ(p.drifterCount, 122);
    EXPECT_EQ(p.foodCount, 400);
    aq::Pool q = build(settings(-2147483647 - 1, 0, 3, 2, 0));
    EXPECT_EQ(q.drifterCount, 28);
}

TEST(GenerateStartupPool, OrderedRingAndSpiralDrawNothing) {
    for (std::int32_t seed : {1, 12345, -7, 0}) {
        std::string a = aq::poolBytes(build(settings(seed), 0x50000));
        std::string b = aq::poolBytes(build(settings(seed), 0xABCDEF));
        EXPECT_EQ(a, b) << seed;
    }
    // Peripheral drifters and food draw nothing either.
    EXPECT_EQ(aq::poolBytes(build(settings(9, 1, 4, 2), 0x000001)),
              aq::poolBytes(build(settings(9, 1, 4, 2), 0x777777)));
}

TEST(GenerateStartupPool, DrawingPlacementsDependOnTheLowByteOnly) {
    const aq::StartupSettings drawing[] = {settings(5, 2, 0, 0), settings(5, 1, 1, 0), settings(77, 1, 3, 1),
                                           settings(-3, 2, 2, 1)};
    for (const auto& s : drawing) {
        SCOPED_TRACE(testing::Message() << "type " << s.poolType << " food " << s.foodPlacement << " drifters "
                                        << s.drifterPlacement);
        std::string a = aq::poolBytes(build(s, 0x123456));
        EXPECT_EQ(a, aq::poolBytes(build(s, 0xABCD56)));
        aq::Pool other = build(s, 0x123457);
        EXPECT_NE(a, aq::poolBytes(other));
        EXPECT_EQ(other.drifterCount, aq::startupCounts(s).drifters);
        EXPECT_EQ(other.foodCount, aq::startupCounts(s).food);
    }
    // An ordered pool keeps its recipe whatever the stream.
    aq::Pool a = build(settings(12345, 1, 0, 0), 0x000001);
    aq::Pool b = build(settings(12345, 1, 0, 0), 0x0000FE);
    for (int i = 0; i < a.drifterCount; ++i)
        EXPECT_EQ(a.drifters[static_cast<std::size_t>(i)].id, b.drifters[static_cast<std::size_t>(i)].id);
}

TEST(GenerateStartupPool, ChaoticRandomTakesChoiceRadiusAngleHeading) {
    const std::uint32_t start = 0x4321AB;
    aq::Pool p = build(settings(31, 2, 2, 0), start);
    // Replay the stream by hand.
    aq::setRandomState(start);
    aq::RandomReseed(31.0);
    const double root = std::sqrt(120.0);
    for (int i = 0; i < p.drifterCount; ++i) {
        const aq::DrifterRec& d = p.drifters[static_cast<std::size_t>(i)];
        int k = static_cast<int>(aq::RandomNext() * 49.0f);
        float r = static_cast<float>(aq::RandomNext() * 80.0 * root);
        float a = static_cast<float>(aq::RandomNext() * 6.28318530717959);
        float heading = static_cast<float>(aq::RandomNext() * 360.0);
        ASSERT_EQ(d.id, base().drifters[static_cast<std::size_t>(k)].id) << i;
        EXPECT_EQ(d.heading, heading) << i;
        EXPECT_NEAR(d.x, std::cos(a) * r, 1e-3) << i;
        EXPECT_NEAR(d.y, std::sin(a) * r, 1e-3) << i;
        EXPECT_EQ(d.energy, k == 0 ? 100.0f : 50.0f) << i;
        EXPECT_EQ(d.age, 0) << i;
    }
}

TEST(GenerateStartupPool, CopiedDriftersKeepEveryByteTheStepsDontName) {
    aq::StartupSettings s = settings(12345, 1, 4, 2);
    s.splitPool = true;
    aq::Pool p = build(s);
    const int recipe[] = {46, 9, 16};
    for (int i = 0; i < p.drifterCount; ++i) {
        aq::DrifterRec g = p.drifters[static_cast<std::size_t>(i)];
        const aq::DrifterRec& b = base().drifters[static_cast<std::size_t>(recipe[i % 3])];
        EXPECT_EQ(g.alive, 1);
        EXPECT_EQ(g.energy, 50.0f);
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
    for (int i = 0; i < p.foodCount; ++i) {
        aq::FoodBit f = p.food[static_cast<std::size_t>(i)];
        const aq::FoodBit& b = base().food[static_cast<std::size_t>(i % base().foodCount)];
        f.x = b.x, f.y = b.y;
        ASSERT_EQ(std::memcmp(&f, &b, sizeof f), 0) << "food " << i;
    }
}

TEST(GenerateStartupPool, PeripheralPlacementKeepsToTheEdges) {
    aq::StartupSettings s = settings(5, 1, 4, 2);
    aq::Pool p = build(s);
    ASSERT_EQ(p.drifterCount, 240);
    // Drifter 0: top edge, left end, pulled in by (8000 - e) * 0.9 / 8000.
    const float e = static_cast<float>(2000.0 / 240 + 0.25);
    const float pull = static_cast<float>((8000.0f - e) * 0.9 / 8000.0f);
    EXPECT_NEAR(p.drifters[0].x, -4000.0f * pull, 1e-2);
    EXPECT_NEAR(p.drifters[0].y, 4000.0f * pull, 1e-2);
    EXPECT_NEAR(p.drifters[1].x, -4000.0f * pull, 1e-2);  // left edge
    EXPECT_NEAR(p.drifters[3].x, 4000.0f * pull, 1e-2);   // right edge
    // Food: the same edges at 0.7.
    EXPECT_EQ(p.food[0].x, -2800.0f);
    EXPECT_EQ(p.food[0].y, 2800.0f);
    EXPECT_EQ(p.food[2].y, -2800.0f);
}

TEST(GenerateStartupPool, SplitPoolSpreadsOverEightSectorsAndBuildsWalls) {
    aq::StartupSettings s = settings(1, 1, 2, 1);
    s.splitPool = true;
    aq::Pool p = build(s);
    ASSERT_EQ(p.drifterCount, 136);
    ASSERT_EQ(p.foodCount, 432);
    // Drifter 0 goes to sector 1 (top right), food bit 0 too.
    const double ring = 89.0 * std::sqrt(136.0);
    EXPECT_NEAR(p.drifters[0].x, 2400.0 + ring, 1e-2);
    EXPECT_NEAR(p.drifters[0].y, 2400.0, 1e-3);
    EXPECT_NEAR(p.food[0].x, 2400.0 + 500.0 + 3000.0 / 432.0, 1e-3);
    EXPECT_EQ(p.food[0].y, 2400.0f);
    // Drifter 7 is in sector 0 (top middle), drifter 3 in sector 4 (bottom middle).
    EXPECT_LT(std::fabs(p.drifters[7].x), ring + 1);
    EXPECT_LT(std::fabs(p.drifters[7].y - 2400.0), ring + 1);
    EXPECT_LT(std::fabs(p.drifters[3].x), ring + 1);
    EXPECT_LT(std::fabs(p.drifters[3].y + 2400.0), ring + 1);
    const aq::GreatWall& v = p.walls[0];
    const aq::GreatWall& h = p.walls[1];
    EXPECT_EQ(v.left, -830.0);
    EXPECT_EQ(v.right, -770.0);
    EXPECT_EQ(v.bottom, -1600.0);
    EXPECT_EQ(v.top, 1600.0);
    EXPECT_EQ(h.bottom, -830.0);
    EXPECT_EQ(h.top, -770.0);
    EXPECT_EQ(h.left, -1600.0);
    EXPECT_EQ(h.right, 1600.0);
    EXPECT_EQ(v.orientation, base().walls[0].orientation);
    EXPECT_EQ(v.wallLength, base().walls[0].wallLength);
}

TEST(GenerateStartupPool, DoubleWallsAreTurnedHalfRound) {
    const aq::GreatWall* d = base().walls;
    for (int placement : {0, 2}) {
        for (bool split : {false, true}) {
            aq::StartupSettings s = settings(1, 1, 2, 1, placement);
            s.splitPool = split;
            aq::Pool p = build(s);
            const aq::GreatWall& a = p.walls[0];
            const aq::GreatWall& b = p.walls[1];
            SCOPED_TRACE(testing::Message() << "placement " << placement << " split " << split);
            EXPECT_EQ(b.left, -a.right);
            EXPECT_EQ(b.right, -a.left);
            EXPECT_EQ(b.bottom, -a.top);
            EXPECT_EQ(b.top, -a.bottom);
            // Both walls are copies of one default wall.
            const aq::GreatWall& kind = d[placement == 0 ? 0 : 1];
            EXPECT_EQ(a.orientation, kind.orientation);
            EXPECT_EQ(b.orientation, kind.orientation);
            EXPECT_EQ(a.wallFlag, kind.wallFlag);
            EXPECT_EQ(b.wallLength, kind.wallLength);
        }
    }
    aq::Pool vertical = build(settings(1, 1, 2, 1, 0));
    EXPECT_EQ(vertical.walls[0].left, -d[0].right);
    EXPECT_EQ(vertical.walls[0].right, -d[0].left);
    EXPECT_EQ(vertical.walls[1].left, d[0].left);
    EXPECT_EQ(vertical.walls[1].bottom, -d[0].top);
}

}  // namespace
