#include "series/SeriesLinks.h"

#include <algorithm>
#include <filesystem>

#include "generator/Random.h"
#include "pool/PoolOps.h"
#include "series/Feeding.h"
#include "series/Grouping.h"
#include "series/Harvest.h"
#include "series/PrepareSteps.h"

namespace aq::series {

std::string joinPath(const std::string& folder, const std::string& name) {
    if (folder.empty()) return name;
    if (folder.back() == '/') return folder + name;
    return folder + "/" + name;
}

std::string folderOfPath(const std::string& path) {
    auto cut = path.find_last_of('/');
    if (cut == std::string::npos) return "";
    return cut == 0 ? "/" : path.substr(0, cut);
}

std::string fileNameOfPath(const std::string& path) {
    auto cut = path.find_last_of('/');
    return cut == std::string::npos ? path : path.substr(cut + 1);
}

std::string locateSourceFile(App& app, const std::string& folder, const std::string& name,
                             const std::string& extension, const std::string& description, const std::string& title) {
    return app.ui.ChooseOpenFile(folder, name, extension, description, title);
}

std::string locateDestFile(App& app, const std::string& folder, const std::string& name, const std::string& extension,
                           const std::string& description, const std::string& title) {
    return app.ui.ChooseSaveFile(folder, name, extension, description, title);
}

// The pool file's drifters and food go behind those of workPool, up to 2000 of each,
// and every drifter's id becomes its index.
void mergePoolFile(App& app, bool mergeDrifters, bool mergeFood, const std::string& path) {
    constexpr int kLimit = 2000;
    Pool base = app.workPool;
    app.keepPool = app.workPool;
    loadPoolFile(app, path, false);
    Pool& other = app.workPool;
    int addDrifters = mergeDrifters ? std::max(0, other.drifterCount) : 0;
    int addFood = mergeFood ? std::max(0, other.foodCount) : 0;
    Pool merged = base;
    int nd = std::max(0, base.drifterCount) + addDrifters;
    int nf = std::max(0, base.foodCount) + addFood;
    if (mergeDrifters) nd = std::min(nd, kLimit);
    if (mergeFood) nf = std::min(nf, kLimit);
    merged.drifterCount = nd;
    merged.foodCount = nf;
    if (nd > 0) merged.drifters.resize(static_cast<std::size_t>(std::max<int>(nd, base.drifterCount)));
    if (nf > 0) merged.food.resize(static_cast<std::size_t>(std::max<int>(nf, base.foodCount)));
    for (int i = std::max(0, base.drifterCount), k = 0; i < nd && k < addDrifters; ++i, ++k)
        merged.drifters[static_cast<std::size_t>(i)] = other.drifters[static_cast<std::size_t>(k)];
    for (int i = 0; i < nd; ++i) merged.drifters[static_cast<std::size_t>(i)].id = i;
    for (int i = std::max(0, base.foodCount), k = 0; i < nf && k < addFood; ++i, ++k)
        merged.food[static_cast<std::size_t>(i)] = other.food[static_cast<std::size_t>(k)];
    app.workPool = std::move(merged);
}

void applyPlague(App& app) { aq::applyPlague(app.workPool); }
void HarvestSuccessful(App& app, const std::string& folder, int reserved, int maxCount, bool keepBest,
                       bool drawAtRandom) {
    aq::HarvestSuccessful(app, folder, reserved, maxCount, keepBest, drawAtRandom);
}
void prepareHarvest(App& app, double radius) { aq::prepareHarvest(app.workPool, static_cast<float>(radius)); }
void gravitateToCenter(App& app, double percent, bool moveDrifters, bool moveFood) {
    aq::gravitateToCenter(app.workPool, static_cast<float>(percent), moveDrifters, moveFood);
}
void halveAges(App& app) { aq::halveAges(app.workPool); }
void markStillborns(App& app) { aq::markStillborns(app.workPool); }
void ensureMinimumDrifters(App& app, int count) { aq::ensureMinimumDrifters(app.workPool, count); }
void deleteDeadDrifters(App& app, bool useOpen) { aq::deleteDeadDrifters(app, useOpen); }
void sortDrifters(App& app, bool useOpen) { aq::sortDrifters(app, useOpen); }
void limitLiveDrifters(App& app, int count) { aq::limitLiveDrifters(app.workPool, count); }
void feedPool(App& app, bool hungry, bool fed, bool addFood, bool graded, bool useOpen) {
    aq::feedPool(useOpen ? app.openPool : app.workPool, hungry, fed, addFood, graded);
}
void feedByColor(App& app, int color, int mode) { aq::feedByColor(app.workPool, color, mode); }
void groupDriftersAtStart(App& app, bool group, bool feedAll, bool gatherFood, int extinctionRetries, int groupMode) {
    aq::groupDriftersAtStart(app.workPool, group, feedAll, gatherFood, extinctionRetries, groupMode,
                             app.series.options.mSeriesGravity, app.similarityDepth);
}
void restoreYouth(App& app) { aq::restoreYouth(app.workPool); }
void resetCounters(App& app, bool meals, bool maternal, bool paternal) {
    aq::resetCounters(app.workPool, meals, maternal, paternal);
}
void drainEdgeEnergy(App& app) { aq::drainEdgeEnergy(app.workPool); }
int countYoungerThan(App& app, double age) { return aq::countYoungerThan(app.workPool, static_cast<float>(age)); }
void deleteStarters(App& app, double age) { aq::deleteStarters(app.workPool, static_cast<float>(age)); }
void poolMutants(App&, bool, bool, bool, bool, bool, bool, bool, bool) {}
void reseedRandomFromClock(App& app) { RandomReseed(static_cast<float>(app.clock.secondsSinceMidnight())); }

}  // namespace aq::series
