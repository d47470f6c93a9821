#pragma once
// The series driver: runs the simulator on one pool after another and stores each
// result as the next file or files of the series.
#include <string>

#include "state/App.h"

namespace aq {

// The whole series, from choosing the file to the end; it stays inside until the
// series ends, yielding to the window while it waits. `flag` is always false.
void EvolvePoolSeries(App& app, const std::string& file, bool flag);

// The buttons of the series tab.
void cmdCreateSeriesNowClick(App& app);
void cmdCreateSeriesStopClick(App& app);
void cmdCreateSeriesRestartClick(App& app);
void cmdCreateSeriesNextClick(App& app);

}  // namespace aq
