#include "series/SeriesLinks.h"

#include <algorithm>
#include <filesystem>

#include "generator/Random.h"
#include "pool/PoolOps.h"
#include "pooleditor/Minorities.h"
#include "series/Feeding.h"
#include "series/Grouping.h"
#include "series/Harvest.h"
#include "series/PrepareSteps.h"
#include "shell/FileNames.h"
#include "shell/Paths.h"

namespace aq::series {

std::string joinPath(const std::string& folder, const std::string& name) { return aq::joinPath(folder, name); }

std::string folderOfPath(const std::string& path) { return aq::folderOfPath(path); }

std::string fileNameOfPath(const std::string& path) { return aq::fileNameOfPath(path); }

std::string locateSourceFile(App& app, const std::string& folder, const std::string& name, const std::string& extension,
                             const std::string& description, const std::string& title) {
    return aq::locateSourceFile(app, folder, name, extension, description, title);
}

std::string locateDestFile(App& app, const std::string& folder, const std::string& name, const std::string& extension,
                           const std::string& description, const std::string& title) {
    return aq::locateDestFile(app, folder, name, extension, description, title);
}

// The pool file's drifters and food go behind those of workPool, up to 2000 of each,
// and every drifter's id becomes its index. A file that can't be read merges workPool
// with itself, as the reader leaves it in place.
void mergePoolFile(App& app, bool mergeDrifters, bool mergeFood, const std::string& path) {
    constexpr int kLimit = 2000;
    Pool base = std::move(app.workPool);
    app.workPool = Pool{};
    const bool loaded = loadPoolFile(app, path, false);
    const Pool& other = loaded ? app.workPool : base;
    const int baseDrifters = std::max(0, base.drifterCount), baseFood = std::max(0, base.foodCount);
    const int addDrifters = mergeDrifters ? std::max(0, other.drifterCount) : 0;
    const int addFood = mergeFood ? std::max(0, other.foodCount) : 0;
    const int nd = mergeDrifters ? std::min(baseDrifters + addDrifters, kLimit) : baseDrifters;
    const int nf = mergeFood ? std::min(baseFood + addFood, kLimit) : baseFood;
    if (base.drifters.size() < static_cast<std::size_t>(nd)) base.drifters.resize(static_cast<std::size_t>(nd));
    for (int i = baseDrifters, k = 0; i < nd && k < addDrifters; ++i, ++k)
        base.drifters[static_cast<std::size_t>(i)] = other.drifters[static_cast<std::size_t>(k)];
    for (int i = 0; i < nd; ++i) base.drifters[static_cast<std::size_t>(i)].id = i;
    if (base.food.size() < static_cast<std::size_t>(nf)) base.food.resize(static_cast<std::size_t>(nf));
    for (int i = baseFood, k = 0; i < nf && k < addFood; ++i, ++k)
        base.food[static_cast<std::size_t>(i)] = other.food[static_cast<std::size_t>(k)];
    base.drifterCount = nd;
    base.foodCount = nf;
    app.workPool = std::move(base);
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
void poolMutants(App& app, bool kill, bool select, bool countStill, bool bySegmentCount, bool byBranching,
                 bool byColorOrder, bool byColors, bool deselect) {
    aq::poolMutants(app, kill, select, countStill, {bySegmentCount, byBranching, byColorOrder, byColors}, deselect);
}
void reseedRandomFromClock(App& app) { RandomReseed(app.clock.secondsSinceMidnight()); }

}  // namespace aq::series
