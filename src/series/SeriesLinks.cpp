#include "series/SeriesLinks.h"

#include <algorithm>
#include <filesystem>

#include "generator/Random.h"
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
