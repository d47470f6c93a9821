#include "pool/PoolMerge.h"

#include <algorithm>
#include <cstdint>

#include "foodeditor/FoodList.h"
#include "pool/PoolOps.h"
#include "pooleditor/DrifterList.h"
#include "shell/FileNames.h"

namespace aq {

namespace {

void renumber(Pool& pool) {
    for (int i = 0; i < pool.drifterCount && static_cast<std::size_t>(i) < pool.drifters.size(); ++i)
        pool.drifters[static_cast<std::size_t>(i)].id = i;
}

std::string askForPool(App& app) {
    return locateSourceFile(app, app.comboPoolPath, "", "aqp", "Aquarium Files", "Select Pool File");
}

void showMergedPool(App& app) {
    if (app.uiBusy) return;
    if (app.comboSpeciatePoolGroup0 == 2) app.lstSpeciatePool.setEnabled(false);
    populateSpeciatePoolList(app);
    populateFoodList(app);
    app.poolSpeciesPending = true;
}

// With no pool open, a merge opens the chosen file as a new pool holding only the
// kind merged: the user sees what was merged, the file itself stays untouched (the
// new pool has no path, so saving asks for a name), and no other pool changes.
void mergeIntoNothing(App& app, bool mergeDrifters, bool mergeFood, std::string path) {
    if (path.empty()) path = askForPool(app);
    if (path.empty()) return;
    app.keepPool = app.workPool;
    if (!loadPoolFile(app, path, false)) {
        app.workPool = app.keepPool;
        return;
    }
    Pool merged = app.workPool;
    app.workPool = app.keepPool;
    if (!mergeFood) merged.foodCount = 0;
    if (!mergeDrifters) merged.drifterCount = 0;
    merged.drifterCount = std::min(merged.drifterCount, kPoolDrifterLimit);
    merged.foodCount = std::min(merged.foodCount, kPoolFoodLimit);
    renumber(merged);
    app.openPool = std::move(merged);
    app.openPoolPath.clear();
    app.poolLoaded = true;
    app.poolChanged = true;
    showMergedPool(app);
}

// Damaged files may hold any negative count; the sum of two stays within 32 bits.
std::int32_t countSum(std::int32_t a, std::int32_t b) {
    const std::int64_t sum = std::int64_t{a} + b;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(sum, INT32_MIN, INT32_MAX));
}

}  // namespace

void mergePoolFile(App& app, bool mergeDrifters, bool mergeFood, std::string path, bool intoOpen) {
    if (intoOpen && !app.poolLoaded) return mergeIntoNothing(app, mergeDrifters, mergeFood, std::move(path));

    app.keepPool = app.workPool;
    const Pool base = intoOpen ? app.openPool : app.workPool;
    if (path.empty()) path = askForPool(app);
    if (path.empty()) return;
    // A file that cannot be read has had its message; nothing is merged from it.
    if (!loadPoolFile(app, path, false)) {
        app.workPool = app.keepPool;
        return;
    }
    if (intoOpen) app.poolChanged = true;
    Pool& other = app.workPool;
    if (!mergeDrifters) other.drifterCount = 0;
    if (!mergeFood) other.foodCount = 0;

    // Everything but the two arrays comes from the receiving pool.
    Pool& out = app.undoPool;
    out = base;
    out.foodCount = countSum(base.foodCount, other.foodCount);
    out.drifterCount = countSum(base.drifterCount, other.drifterCount);
    if (mergeFood && out.foodCount > kPoolFoodLimit) out.foodCount = kPoolFoodLimit;
    if (mergeDrifters && out.drifterCount > kPoolDrifterLimit) out.drifterCount = kPoolDrifterLimit;
    // The arrays hold at least what the counts say; a base from a file with more than
    // the limit keeps all its own records.
    auto baseFood = static_cast<std::size_t>(std::max(base.foodCount, 0));
    auto baseDrifters = static_cast<std::size_t>(std::max(base.drifterCount, 0));
    if (out.foodCount > 0) out.food.resize(std::max(static_cast<std::size_t>(out.foodCount), baseFood));
    if (out.drifterCount > 0) out.drifters.resize(std::max(static_cast<std::size_t>(out.drifterCount), baseDrifters));

    for (std::size_t i = baseDrifters; i < static_cast<std::size_t>(std::max(out.drifterCount, 0)); ++i)
        out.drifters[i] = other.drifters[i - baseDrifters];
    for (std::size_t i = baseFood; i < static_cast<std::size_t>(std::max(out.foodCount, 0)); ++i)
        out.food[i] = other.food[i - baseFood];
    renumber(out);

    if (intoOpen) {
        app.openPool = out;
        app.workPool = app.keepPool;
        app.poolChanged = true;
        showMergedPool(app);
    } else {
        app.workPool = out;
    }
}

void mMergePool(App& app) {
    if (app.poolLoaded && app.openPool.drifterCount >= kPoolDrifterLimit) {
        app.ui.ShowMessage("Limit reached. No more drifters can be added at this time.", "Merge Drifters into Pool");
        return;
    }
    mergePoolFile(app, true, false, "", true);
    app.stateChanged();
}

void mMergeFood(App& app) {
    if (app.poolLoaded && app.openPool.foodCount >= kPoolFoodLimit) {
        app.ui.ShowMessage("Limit reached. No more food can be added at this time.", "Merge Food into Pool");
        return;
    }
    mergePoolFile(app, false, true, "", true);
    app.stateChanged();
}

}  // namespace aq
