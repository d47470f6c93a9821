#include <string>
#include <vector>

#include "pooleditor/DrifterKey.h"
#include "series/PrepareSteps.h"
#include "series/Success.h"

namespace aq {

namespace {

// The key of the most successful drifter (the first of equals), and whether more than
// `share` of the pool, but not all of it, shares that key; those are killed and removed.
void strike(Pool& pool, bool shortKey, double share) {
    const int n = pool.drifterCount;
    float best = -1;
    int top = 0;
    for (int i = 0; i < n; ++i) {
        float s = SuccessScore(pool, i);
        if (s > best) {
            best = s;
            top = i;
        }
    }
    std::vector<std::string> keys(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) keys[static_cast<std::size_t>(i)] = DrifterKey(pool, i, shortKey, true, false);
    const std::string& key = keys[static_cast<std::size_t>(top)];
    int same = 0;
    for (const std::string& k : keys) same += k == key;
    if (!(same > n * share && same < n)) return;
    for (int i = 0; i < n; ++i)
        if (keys[static_cast<std::size_t>(i)] == key) pool.drifters[static_cast<std::size_t>(i)].alive = 0;
    deleteDeadDrifters(pool);
}

}  // namespace

void applyPlague(Pool& pool) {
    if (pool.drifterCount < 1) return;
    strike(pool, false, 0.25);
    if (pool.drifterCount < 1) return;
    strike(pool, true, 0.75);
}

}  // namespace aq
