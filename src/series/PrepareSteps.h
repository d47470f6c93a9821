#pragma once
// The passes a series makes over its pool between two runs of the simulator: reviving,
// thinning, sorting, ageing, moving, draining. Each works on the pool it is given, by
// its count; none reports anything.
#include <cstdint>

#include "format/Records.h"
#include "state/App.h"

namespace aq {

// Drifters that never moved and spent more life than they had energy for are killed
// and taken off the map.
void markStillborns(Pool& pool);
// At least |n| (2 to 200) live drifters: the dead are revived first, then copies made.
void ensureMinimumDrifters(Pool& pool, int n);
// Kills every live drifter beyond the first |n| (2 to 2000).
void limitLiveDrifters(Pool& pool, int n);
// Keeps the live records, in order.
void deleteDeadDrifters(Pool& pool);
// On openPool with `useOpen` (which then counts as changed), else on workPool.
void deleteDeadDrifters(App& app, bool useOpen);
// Youngest first; drifters of equal age end in the order these passes leave them.
void sortDrifters(Pool& pool);
void sortDrifters(App& app, bool useOpen);
void restoreYouth(Pool& pool);
void resetCounters(Pool& pool, bool meals, bool maternal, bool paternal);
void drainEdgeEnergy(Pool& pool);
void gravitateToCenter(Pool& pool, float percent, bool moveDrifters, bool moveFood);
void halveAges(Pool& pool);
// Young again, fed and, with a positive radius, scattered within it around the centre.
void prepareHarvest(Pool& pool, float radius);
std::int16_t countYoungerThan(const Pool& pool, float limit);
// Removes the drifters older than `limit`: those that were there before the run.
void deleteStarters(Pool& pool, float limit);
// Removes a body form that has grown too common, first by its full key, then by its plan.
void applyPlague(Pool& pool);

// The number of used segments of a record, 0 to 16.
inline int usedSegmentCount(const DrifterRec& d) {
    return d.segmentCount < 0 ? 0 : d.segmentCount > kSegmentSlots ? kSegmentSlots : d.segmentCount;
}

}  // namespace aq
