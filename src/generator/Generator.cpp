#include "generator/Generator.h"

#include <cmath>
#include <cstdlib>

#include "files/PoolOps.h"
#include "files/PoolSave.h"
#include "foodeditor/FoodList.h"
#include "generator/Placement.h"
#include "generator/Random.h"
#include "pooleditor/DrifterList.h"

namespace aq {

namespace {

constexpr double kTwoPi = 6.28318530717959;
constexpr double kFourPi = 12.5663706143592;

// Sector centres and the rectangle peripheral and even placement use, all floats.
struct Layout {
    float sectorX[8], sectorY[8];
    float xLow, xHigh, yLow, yHigh, spanX, spanY;
};

Layout layoutOf(const Pool& p, bool split) {
    Layout l{};
    for (int s = 0; s < 8; ++s) {
        l.sectorX[s] = (p.maxX + p.minX) / 2;
        l.sectorY[s] = (p.maxY + p.minY) / 2;
    }
    l.xLow = p.minX, l.xHigh = p.maxX, l.yLow = p.minY, l.yHigh = p.maxY;
    if (split) {
        // Sector 0 at the top middle, then clockwise; the centre belongs to none.
        l.sectorY[0] = l.sectorY[1] = l.sectorY[7] = (4 * p.maxY + p.minY) / 5;
        l.sectorX[1] = l.sectorX[2] = l.sectorX[3] = (4 * p.maxX + p.minX) / 5;
        l.sectorY[3] = l.sectorY[4] = l.sectorY[5] = (4 * p.minY + p.maxY) / 5;
        l.sectorX[5] = l.sectorX[6] = l.sectorX[7] = (4 * p.minX + p.maxX) / 5;
        l.xLow = (3 * p.maxX + 5 * p.minX) / 5;
        l.xHigh = (5 * p.maxX + 3 * p.minX) / 5;
        l.yLow = (3 * p.maxY + 5 * p.minY) / 5;
        l.yHigh = (5 * p.maxY + 3 * p.minY) / 5;
    }
    l.spanX = std::fabs(l.xHigh - l.xLow);
    l.spanY = std::fabs(l.yHigh - l.yLow);
    return l;
}

// A point on the rectangle's edge: side i mod 4, `t` of `n` along it.
void peripheralPoint(const Layout& l, int i, int t, int n, float& px, float& py) {
    const auto tf = static_cast<float>(t), nf = static_cast<float>(n);
    switch (i % 4) {
        case 0:
            px = (l.xHigh - l.xLow) * tf / nf + l.xLow, py = l.yHigh;
            break;
        case 1:
            px = l.xLow, py = (l.yHigh - l.yLow) * tf / nf + l.yLow;
            break;
        case 2:
            px = l.xHigh - (l.xHigh - l.xLow) * tf / nf, py = l.yLow;
            break;
        default:
            px = l.xHigh, py = l.yHigh - (l.yHigh - l.yLow) * tf / nf;
            break;
    }
}

float f32(double v) { return static_cast<float>(v); }

void placeDrifters(const Pool& base, const StartupSettings& s, const StartupCounts& c, const SeedRecipe& recipe,
                   const Layout& l, Pool& out) {
    const int n = c.drifters - c.dots;
    const double root = std::sqrt(static_cast<double>(c.drifters));
    int sector = 0;
    int recipePos = 0;
    for (int i = c.dots; i < c.drifters; ++i) {
        const auto idx = static_cast<std::int16_t>(i);
        DrifterRec& d = out.drifters[static_cast<std::size_t>(i)];
        if (!(s.drifterPlacement == 2 && i % 4 != 0)) sector = (sector + 1) % 8;

        if (s.poolType == 2) {
            int k = static_cast<int>(std::floor(RandomNext() * static_cast<float>(base.drifterCount)));
            if (k >= base.drifterCount) k = base.drifterCount - 1;
            d = base.drifters[static_cast<std::size_t>(k)];
            ResetDrifter(out, idx, 0, 50.0f);
            if (k == 0) d.energy = 100.0f;
        } else {
            int k = recipe.index[static_cast<std::size_t>(recipePos)];
            d = base.drifters[static_cast<std::size_t>(k)];
            ResetDrifter(out, idx, 0, 50.0f);
            if (k == 0) {
                d.age = (i % 4) * 10000;
                d.energy = 250.0f;
            }
            if (++recipePos >= recipe.length) recipePos = 0;
        }

        float px = 0, py = 0;
        if (s.drifterPlacement == 0) {
            float r = f32(RandomNext() * 80.0 * root);
            float a = f32(RandomNext() * kTwoPi);
            px = f32(std::cos(a) * r);
            py = f32(std::sin(a) * r);
            d.heading = f32(RandomNext() * 360.0);
        } else if (s.drifterPlacement == 1) {
            const int t = i - c.dots;
            float a = s.seed == 0 ? f32(2 * ((t / 2) * kTwoPi / n)) : f32(t * kTwoPi / n);
            px = f32(std::cos(a) * 89.0 * root);
            py = f32(std::sin(a) * 89.0 * root);
        } else if (s.drifterPlacement == 2) {
            peripheralPoint(l, i, i - c.dots, n, px, py);
            // Pull in from the edge, more for a thin pool of drifters.
            float e = f32(2000.0 / c.drifters + 0.25);
            px = f32((l.spanX - e) * px * 0.9 / l.spanX);
            py = f32((l.spanY - e) * py * 0.9 / l.spanY);
        }
        MoveDrifter(out, idx, px + l.sectorX[sector], py + l.sectorY[sector]);
        if (s.seed == 0 && i % 2 == 0) d.energy = 7000.0f;
    }
}

void placeFood(const Pool& base, const StartupSettings& s, const StartupCounts& c, const Layout& l, Pool& out) {
    const float inv = f32(1.0 / c.food);
    const float lg = f32(std::log(static_cast<double>(c.food)));
    int sector = 0;
    int ring = 0;
    int foodPos = 0;
    for (int i = 0; i < c.food; ++i) {
        if (!(s.foodPlacement == 4 && i % 4 != 0)) sector = (sector + 1) % 8;
        FoodBit& f = out.food[static_cast<std::size_t>(i)];
        f = base.food[static_cast<std::size_t>(foodPos)];

        float fx = 0, fy = 0;
        switch (s.foodPlacement) {
            case 0: {
                float r1 = RandomNext(), r2 = RandomNext(), r3 = RandomNext();
                float r = f32(r2 * r1 * 20.0 * lg);
                float a = f32(r3 * kTwoPi);
                fx = f32(std::cos(a) * r), fy = f32(std::sin(a) * r);
                break;
            }
            case 1: {
                float r = f32(RandomNext() * 150.0 * lg);
                float a = f32(RandomNext() * kTwoPi);
                fx = f32(std::cos(a) * r), fy = f32(std::sin(a) * r);
                break;
            }
            case 2: {
                // Two turns over all the food; the radius steps out ring by ring and starts over.
                ++ring;
                if (c.food / 7.0 < ring) ring = 0;
                float a = f32(i * inv * kFourPi);
                float r = f32(inv * 3000.0 * ring + 500.0);
                fx = f32(std::cos(a) * r), fy = f32(std::sin(a) * r);
                break;
            }
            case 3:
                fx = (l.xHigh - l.xLow) * RandomNext() + l.xLow;
                fy = (l.yHigh - l.yLow) * RandomNext() + l.yLow;
                fx = f32(fx * 0.95), fy = f32(fy * 0.95);
                break;
            case 4:
                peripheralPoint(l, i, i, c.food, fx, fy);
                fx = f32(fx * 0.7), fy = f32(fy * 0.7);
                break;
            default:
                break;
        }
        if (s.seed == 0 && s.foodPlacement != 3) fx = f32(fx / 25.0), fy = f32(fy / 25.0);
        f.x = fx + l.sectorX[sector];
        f.y = fy + l.sectorY[sector];
        if (++foodPos >= base.foodCount) foodPos = 0;
    }
}

void placeWalls(const StartupSettings& s, const Layout& l, Pool& out) {
    GreatWall* w = out.walls;
    if (s.splitPool) {
        w[0].bottom = l.yLow + l.sectorY[6];
        w[0].top = l.yHigh + l.sectorY[6];
        w[0].left = static_cast<double>(l.xHigh + l.sectorX[6]) - 30.0;
        w[0].right = static_cast<double>(l.xHigh + l.sectorX[6]) + 30.0;
        w[1].bottom = static_cast<double>(l.yHigh + l.sectorY[4]) - 30.0;
        w[1].top = static_cast<double>(l.yHigh + l.sectorY[4]) + 30.0;
        w[1].left = l.xLow + l.sectorX[4];
        w[1].right = l.xHigh + l.sectorX[4];
    }
    if (s.wallPlacement == 0) {
        w[1] = w[0];
        w[0].left = -w[1].right;
        w[0].right = -w[1].left;
    } else if (s.wallPlacement == 2) {
        w[0] = w[1];
        w[0].top = -w[1].bottom;
        w[0].bottom = -w[1].top;
    }
    if (s.wallPlacement != 1) {
        // The second wall is the first turned half round the origin.
        w[1].left = -w[0].right;
        w[1].right = -w[0].left;
        w[1].bottom = -w[0].top;
        w[1].top = -w[0].bottom;
    }
}

}  // namespace

SeedRecipe seedRecipe(std::int32_t seed, int defaultDrifterCount) {
    SeedRecipe r;
    // 64 bits, so the most negative seed has a magnitude too.
    std::int64_t v = std::llabs(static_cast<std::int64_t>(seed));
    std::int64_t prev = 0;
    int k = 0;
    while (k < 10 && v >= 1) {
        const std::int64_t radix = defaultDrifterCount - k;
        if (radix < 1) break;
        r.index[static_cast<std::size_t>(k)] =
            static_cast<std::int16_t>(((v % radix) + k + prev) % defaultDrifterCount);
        prev = r.index[static_cast<std::size_t>(k)];
        v /= radix;
        ++k;
    }
    r.length = static_cast<std::int16_t>(k);
    return r;
}

StartupCounts startupCounts(const StartupSettings& s) {
    int dots = s.seed < 1 ? 2 : 0;
    int food = 0, drifters = 0;
    if (s.poolType == 0) {
        food = 20;
        drifters = dots + 12;
    } else {
        food = 200;
        drifters = s.seed == 0 ? 12 : dots + 120;
    }
    if (s.drifterPlacement == 2) drifters *= 2;
    if (s.splitPool) {
        food = (food / 8 + 2) * 8;
        drifters = (drifters / 8 + 2) * 8;
    }
    if (s.extraFood) food *= 2;
    if (s.extraDrifters) drifters *= 2;
    return {static_cast<std::int16_t>(drifters), static_cast<std::int16_t>(food), static_cast<std::int16_t>(dots)};
}

bool buildStartupPool(const Pool& base, const StartupSettings& s, Pool& out) {
    if (base.drifterCount < 1 || base.foodCount < 1 ||
        base.drifters.size() < static_cast<std::size_t>(base.drifterCount) ||
        base.food.size() < static_cast<std::size_t>(base.foodCount))
        return false;
    out = base;
    const Layout l = layoutOf(base, s.splitPool);
    const SeedRecipe recipe = seedRecipe(s.seed, base.drifterCount);
    const StartupCounts c = startupCounts(s);

    out.drifterCount = c.drifters;
    out.drifters.assign(static_cast<std::size_t>(c.drifters), DrifterRec{});
    out.foodCount = c.food;
    out.food.assign(static_cast<std::size_t>(c.food), FoodBit{});

    for (int i = 0; i < c.dots; ++i) {
        out.drifters[static_cast<std::size_t>(i)] = base.drifters[0];
        ResetDrifter(out, static_cast<std::int16_t>(i), 0, 50.0f);
    }
    if (c.dots >= 1) {
        DrifterRec& first = out.drifters[0];
        first.energy = 5000.0f;
        if (s.seed == 0) {
            first.energy = 20777.0f;
            first.age = 30000;
        }
    }

    RandomReseed(std::fabs(static_cast<double>(s.seed)));
    placeDrifters(base, s, c, recipe, l, out);
    placeFood(base, s, c, l, out);
    placeWalls(s, l, out);
    if (s.seed == 0 && out.worldValueB < 150000.0f) out.worldValueB = 150000.0f;
    return true;
}

void generateStartupPool(App& app, const StartupSettings& s) {
    if (!saveChangesFirst(app, kUnsavedPoolQuestion)) return;
    WaitCursor wait(app.ui);
    if (!buildStartupPool(app.defaultPool, s, app.workPool)) {
        app.ui.ShowMessage("Error loading default pool. Not a Aquarium 4 data file");
        return;
    }
    app.openPool = app.workPool;
    app.poolChanged = true;
    app.poolLoaded = true;
    app.lstSpeciatePool.clear();
    app.lstPoolFood.clear();
    showNewOpenPool(app);
}

}  // namespace aq
