// aqfm merge: the drifters, the food or both of one pool file merged into another.
#include <iostream>

#include "cli/Cli.h"
#include "cli/CliSupport.h"
#include "files/PoolMerge.h"
#include "format/PoolFile.h"
#include "state/App.h"

using namespace aqcli;

namespace {

int runMerge(const Args& a) {
    a.expectPositional(2);
    std::string out = a.required("-o");
    bool drifters = a.flag("--drifters"), food = a.flag("--food");
    if (!drifters && !food) drifters = food = true;
    const std::string& basePath = a.positional()[0];
    const std::string& otherPath = a.positional()[1];
    aq::Pool base, other;
    if (int rc = readPoolOrFail(basePath, base)) return rc;
    if (int rc = readPoolOrFail(otherPath, other)) return rc;

    CliUi ui;
    aq::SystemClock clock;
    aq::App app(ui, clock);
    app.workPool = std::move(base);
    aq::mergePoolFile(app, drifters, food, otherPath, false);
    if (ui.messages > 0) return 1;
    std::string error = aq::writePool(out, app.workPool);
    if (!error.empty()) return fail("Error saving " + out + ", error: " + error);
    return 0;
}

Register regMerge({"merge",
                   "merge the drifters and/or food of OTHER into BASE (at most 2000 of each)",
                   "aqfm merge BASE OTHER [--drifters] [--food] -o OUT",
                   runMerge,
                   {"-o"},
                   {"--drifters", "--food"},
                   "Writes BASE to OUT with the drifters and/or the food of OTHER appended (both when neither option "
                   "is given), at most 2000 of each, the drifters' ids renumbered."});

}  // namespace
