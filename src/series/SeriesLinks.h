#pragma once
// The calls the series makes into other features: path names, file dialogs, the
// merge and the preparation steps between runs. Each forwards to its owner; a step
// whose owner isn't built yet does nothing, and the cycle goes on without it.
#include <string>

#include "state/App.h"

namespace aq::series {

std::string joinPath(const std::string& folder, const std::string& name);
std::string folderOfPath(const std::string& path);
std::string fileNameOfPath(const std::string& path);
std::string locateSourceFile(App& app, const std::string& folder, const std::string& name, const std::string& extension,
                             const std::string& description, const std::string& title);
std::string locateDestFile(App& app, const std::string& folder, const std::string& name, const std::string& extension,
                           const std::string& description, const std::string& title);

// The merge of a pool file into workPool.
void mergePoolFile(App& app, bool mergeDrifters, bool mergeFood, const std::string& path);

// Steps between runs, on workPool.
void applyPlague(App& app);
void HarvestSuccessful(App& app, const std::string& folder, int reserved, int maxCount, bool keepBest,
                       bool drawAtRandom);
void prepareHarvest(App& app, double radius);
void gravitateToCenter(App& app, double percent, bool moveDrifters, bool moveFood);
void halveAges(App& app);
void markStillborns(App& app);
void ensureMinimumDrifters(App& app, int count);
void deleteDeadDrifters(App& app, bool useOpen);
void sortDrifters(App& app, bool useOpen);
void limitLiveDrifters(App& app, int count);
void feedPool(App& app, bool hungry, bool fed, bool addFood, bool graded, bool useOpen);
void feedByColor(App& app, int color, int mode);
void groupDriftersAtStart(App& app, bool group, bool feedAll, bool gatherFood, int extinctionRetries, int groupMode);
void restoreYouth(App& app);
void resetCounters(App& app, bool meals, bool maternal, bool paternal);
void drainEdgeEnergy(App& app);
int countYoungerThan(App& app, double age);
void deleteStarters(App& app, double age);
void poolMutants(App& app, bool kill, bool select, bool countStill, bool bySegmentCount, bool byBranching,
                 bool byColorOrder, bool byColors, bool deselect);

// Seeds the shared random stream from the system clock.
void reseedRandomFromClock(App& app);

}  // namespace aq::series
