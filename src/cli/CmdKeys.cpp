// aqfm keys, minorities: the body plans of a pool's drifters.
#include <iostream>
#include <sstream>

#include "cli/Cli.h"
#include "cli/CliSupport.h"
#include "pooleditor/DrifterKey.h"
#include "pooleditor/DrifterList.h"
#include "pooleditor/Minorities.h"

using namespace aqcli;

namespace {

int runKeys(const Args& a) {
    a.expectPositional(1);
    bool pair = a.flag("--pair");
    if (pair && (a.flag("--short") || a.flag("--compressed") || a.flag("--detailed")))
        throw UsageError{"--pair takes no other option"};
    aq::Pool pool;
    if (int rc = readPoolOrFail(a.positional()[0], pool)) return rc;
    std::string out;
    for (int i = 0; i < pool.drifterCount; ++i) {
        if (pair)
            out += aq::DrifterKey(pool, i, false, true, false) + "\t" + aq::DrifterKey(pool, i, false, true, true);
        else
            out += aq::DrifterKey(pool, i, a.flag("--short"), a.flag("--compressed"), a.flag("--detailed"));
        out += '\n';
    }
    std::cout << out;
    return 0;
}

int runMinorities(const Args& a) {
    a.expectPositional(1);
    aq::MutantStages stages;
    std::stringstream list(a.required("--by"));
    for (std::string stage; std::getline(list, stage, ',');) {
        if (stage == "segments")
            stages.bySegmentCount = true;
        else if (stage == "branching")
            stages.byBranching = true;
        else if (stage == "colororder")
            stages.byColorOrder = true;
        else if (stage == "colors")
            stages.byColors = true;
        else
            throw UsageError{"--by takes segments, branching, colororder, colors; got \"" + stage + "\""};
    }
    aq::Pool pool;
    if (int rc = readPoolOrFail(a.positional()[0], pool)) return rc;
    CliUi ui;
    aq::SystemClock clock;
    aq::App app(ui, clock);
    app.openPool = std::move(pool);
    aq::populateSpeciatePoolList(app);
    aq::poolMutants(app, false, true, a.flag("--count-still"), stages, false);
    std::string out;
    for (int i = 0; i < app.lstSpeciatePool.count(); ++i)
        if (app.lstSpeciatePool.checked(i)) out += std::to_string(i) + "\n";
    std::cout << out;
    return 0;
}

Register regKeys(
    {"keys",
     "print the morphology key of each drifter",
     "aqfm keys FILE [--short] [--compressed] [--detailed] | --pair",
     runKeys,
     {},
     {"--short", "--compressed", "--detailed", "--pair"},
     "Prints the morphology key of each drifter, one a line, in the long form or as --short, --compressed or "
     "--detailed asks; --pair prints the compressed key and the compressed detailed key separated by a TAB."});
Register regMinorities({"minorities",
                        "print the indices of the drifters whose body plan is a minority",
                        "aqfm minorities FILE --by LIST [--count-still]",
                        runMinorities,
                        {"--by"},
                        {"--count-still"},
                        "Prints the indices (from 0, ascending) of the drifters whose body plan is a minority. LIST is "
                        "a comma list of segments, branching, colororder and colors, always applied in that order; "
                        "--count-still counts the living drifters that no longer move in the population too."});

}  // namespace
