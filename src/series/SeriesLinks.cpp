#include "series/SeriesLinks.h"

#include <algorithm>
#include <filesystem>

#include "generator/Random.h"
#include "files/PoolMerge.h"
#include "files/PoolOps.h"
#include "pooleditor/Minorities.h"
#include "series/Feeding.h"
#include "series/Grouping.h"
#include "series/Harvest.h"
#include "series/PrepareSteps.h"
#include "files/FileNames.h"
#include "base/Paths.h"

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

void mergePoolFile(App& app, bool mergeDrifters, bool mergeFood, const std::string& path) {
    aq::mergePoolFile(app, mergeDrifters, mergeFood, path, false);
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
