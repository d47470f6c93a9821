#pragma once
// Where things are in a pool: drifter bodies as quadrilaterals, and finding the
// drifter or food bit under a point. Used by the pool map.
#include <array>
#include <optional>

#include "format/Records.h"

namespace aq {

struct WorldRect {
    float left, bottom, right, top;
    bool contains(float x, float y) const { return x >= left && x <= right && y >= bottom && y <= top; }
};

// The four corners of segment s of a drifter, in world coordinates.
std::array<std::array<float, 2>, 4> segmentQuad(const Segment& s);

// The box around a drifter's used segments and its position.
WorldRect drifterBounds(const DrifterRec& d);

// The drifter whose body holds (x, y), else the one whose position is nearest
// within `slack`; -1 when none. Later drifters are drawn on top, so they win.
int drifterAt(const Pool& pool, float x, float y, float slack);

// The food bit nearest to (x, y) within `slack`; -1 when none.
int foodAt(const Pool& pool, float x, float y, float slack);

}  // namespace aq
