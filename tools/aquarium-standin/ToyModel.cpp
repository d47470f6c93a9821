#include "ToyModel.h"

#include <algorithm>
#include <cmath>

namespace standin {

namespace {

constexpr float kPi = 3.14159265f;
constexpr int kDrifterLimit = 2000;
constexpr float kMealEnergy = 15.0f;
constexpr float kMealReach = 20.0f;
constexpr float kBreedEnergy = 50.0f;
constexpr int kBreedAge = 30;

void shiftBody(aq::DrifterRec& d, float dx, float dy) {
    int segments = std::clamp(d.segmentCount, 0, aq::kSegmentSlots);
    for (int s = 0; s < segments; ++s) {
        aq::Segment& g = d.segments[s];
        g.point1X += dx, g.point1Y += dy;
        g.point2X += dx, g.point2Y += dy;
        g.point3X += dx, g.point3Y += dy;
        g.point4X += dx, g.point4Y += dy;
    }
}

}  // namespace

ToyModel::ToyModel(aq::Pool& pool)
    : pool_(pool),
      state_(static_cast<std::uint32_t>(pool.clock) * 2654435761u ^ static_cast<std::uint32_t>(pool.drifterCount) ^
             0x9e3779b9u) {
    if (state_ == 0) state_ = 1;
    // Counts beyond the arrays would come from a broken reader; stay inside them.
    pool_.drifterCount =
        std::clamp<std::int32_t>(pool_.drifterCount, 0, static_cast<std::int32_t>(pool_.drifters.size()));
    pool_.foodCount = std::clamp<std::int32_t>(pool_.foodCount, 0, static_cast<std::int32_t>(pool_.food.size()));
}

std::uint32_t ToyModel::next() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    return state_;
}

float ToyModel::unit() { return static_cast<float>(next() >> 8) / 16777216.0f; }

void ToyModel::step() {
    ++pool_.clock;
    const int n = pool_.drifterCount;
    for (int i = 0; i < n; ++i) {
        aq::DrifterRec& d = pool_.drifters[static_cast<std::size_t>(i)];
        if (d.alive == 0) continue;
        ++d.age;
        moveDrifter(d);
        d.energy -= 0.02f + 0.005f * static_cast<float>(std::clamp(d.segmentCount, 1, aq::kSegmentSlots));
        eat(d);
        if (d.energy <= 0) {
            d.alive = 0;
            d.energy = 0;
            d.velocityX = d.velocityY = 0;
        }
    }
    for (int i = 0; i < n; ++i) {
        const aq::DrifterRec& d = pool_.drifters[static_cast<std::size_t>(i)];
        if (d.alive != 0 && d.energy > kBreedEnergy && d.age > kBreedAge) breed(i);
    }
}

void ToyModel::moveDrifter(aq::DrifterRec& d) {
    // The genes steer: a drifter wanders along a path its genome shapes.
    int turn = d.genes[static_cast<unsigned>(d.age) % aq::kGeneCount] % 7 - 3;
    d.heading += static_cast<float>(turn) * 1.5f;
    float speed = 0.5f + static_cast<float>(d.genes[0] % 5) * 0.2f;
    float vx = std::cos(d.heading * kPi / 180.0f) * speed;
    float vy = std::sin(d.heading * kPi / 180.0f) * speed;
    float nx = d.x + vx, ny = d.y + vy;
    if (nx < pool_.minX || nx > pool_.maxX) {
        vx = -vx;
        d.heading = 180.0f - d.heading;
        nx = d.x + vx;
    }
    if (ny < pool_.minY || ny > pool_.maxY) {
        vy = -vy;
        d.heading = -d.heading;
        ny = d.y + vy;
    }
    d.prevX = d.x;
    d.prevY = d.y;
    shiftBody(d, nx - d.x, ny - d.y);
    d.x = nx;
    d.y = ny;
    d.velocityX = vx;
    d.velocityY = vy;
}

void ToyModel::eat(aq::DrifterRec& d) {
    for (int j = 0; j < pool_.foodCount; ++j) {
        aq::FoodBit& f = pool_.food[static_cast<std::size_t>(j)];
        if (std::fabs(f.x - d.x) > kMealReach || std::fabs(f.y - d.y) > kMealReach) continue;
        ++d.mealsEaten;
        d.energy += kMealEnergy;
        // The bit grows again somewhere near the middle, so the toy never starves.
        f.x = (unit() - 0.5f) * 600.0f;
        f.y = (unit() - 0.5f) * 600.0f;
    }
}

int ToyModel::nextId() const {
    int top = -1;
    for (int i = 0; i < pool_.drifterCount; ++i) top = std::max(top, pool_.drifters[static_cast<std::size_t>(i)].id);
    return top + 1;
}

void ToyModel::breed(int mother) {
    if (pool_.drifterCount >= kDrifterLimit) return;
    const int n = pool_.drifterCount;
    int father = -1;
    for (int k = 1; k < n && father < 0; ++k) {
        int j = (mother + k) % n;
        if (pool_.drifters[static_cast<std::size_t>(j)].alive != 0) father = j;
    }
    if (father < 0) return;
    aq::DrifterRec& m = pool_.drifters[static_cast<std::size_t>(mother)];
    aq::DrifterRec& f = pool_.drifters[static_cast<std::size_t>(father)];
    aq::DrifterRec child = m;
    int cut = static_cast<int>(unit() * aq::kGeneCount);
    for (int g = cut; g < aq::kGeneCount; ++g) child.genes[g] = f.genes[g];
    for (int k = 0; k < 3; ++k) child.genes[next() % aq::kGeneCount] = static_cast<std::uint8_t>(next() & 0xff);
    child.age = 0;
    child.id = nextId();
    child.alive = 1;
    child.mealsEaten = 0;
    child.maternalOffspring = 0;
    child.paternalOffspring = 0;
    child.energy = m.energy / 2;
    m.energy -= child.energy;
    ++m.maternalOffspring;
    ++f.paternalOffspring;
    float dx = (unit() - 0.5f) * 40.0f, dy = (unit() - 0.5f) * 40.0f;
    shiftBody(child, dx, dy);
    child.x += dx;
    child.y += dy;
    child.prevX = child.x;
    child.prevY = child.y;
    child.heading = unit() * 360.0f;
    if (pool_.drifters.size() <= static_cast<std::size_t>(n)) pool_.drifters.resize(static_cast<std::size_t>(n) + 1);
    pool_.drifters[static_cast<std::size_t>(n)] = child;
    pool_.drifterCount = n + 1;
}

}  // namespace standin
