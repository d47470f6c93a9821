#include "series/SeriesLinks.h"

#include <algorithm>
#include <filesystem>

#include "generator/Random.h"
#include "pool/PoolMerge.h"
#include "pool/PoolOps.h"
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

void mergePoolFile(App& app, bool mergeDrifters, bool mergeFood, const std::string& path) {
    aq::mergePoolFile(app, mergeDrifters, mergeFood, path, false);
}

void applyPlague(App&) {}
void HarvestSuccessful(App&, const std::string&, int, int, bool, bool) {}
void prepareHarvest(App&, double) {}
void gravitateToCenter(App&, double, bool, bool) {}
void halveAges(App&) {}
void markStillborns(App&) {}
void ensureMinimumDrifters(App&, int) {}
void deleteDeadDrifters(App&, bool) {}
void sortDrifters(App&, bool) {}
void limitLiveDrifters(App&, int) {}
void feedPool(App&, bool, bool, bool, bool, bool) {}
void feedByColor(App&, int, int) {}
void groupDriftersAtStart(App&, bool, bool, bool, int, int) {}
void restoreYouth(App&) {}
void resetCounters(App&, bool, bool, bool) {}
void drainEdgeEnergy(App&) {}
int countYoungerThan(App&, double) { return 0; }
void deleteStarters(App&, double) {}
void poolMutants(App&, bool, bool, bool, bool, bool, bool, bool, bool) {}
void reseedRandomFromClock(App& app) { RandomReseed(app.clock.secondsSinceMidnight()); }

}  // namespace aq::series
