#include "files/PoolMerge.h"

#include <algorithm>
#include <cstdint>

#include "files/FileNames.h"
#include "files/PoolOps.h"
#include "foodeditor/FoodList.h"
#include "format/MergePools.h"
#include "pooleditor/DrifterList.h"

namespace aq {

namespace {

std::string askForPool(App& app) {
    return locateSourceFile(app, app.comboPoolPath, "", "aqp", "Aquarium Files", "Select Pool File");
}

void showMergedPool(App& app) {
    if (app.uiBusy) return;
    if (app.comboSpeciatePoolGroup0 == 2) app.lstSpeciatePool.setEnabled(false);
    populateSpeciatePoolList(app);
    populateFoodList(app);
    // A pass begun on the rows before the merge would stop at their old last row.
    app.poolPassRunning = false;
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
    renumberDrifters(merged);
    app.openPool = std::move(merged);
    app.openPoolPath.clear();
    app.poolLoaded = true;
    app.poolChanged = true;
    showMergedPool(app);
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
    // The merged pool is kept in undoPool, the merges' scratch.
    Pool& out = app.undoPool;
    out = mergePools(base, app.workPool, mergeDrifters, mergeFood);

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
