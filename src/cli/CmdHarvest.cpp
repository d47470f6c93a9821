// aqfm scores, harvest, prepare: success scores, the harvest of a folder, and the
// series' preparation steps on a pool file.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <iostream>
#include <sstream>

#include "base/Clock.h"
#include "base/NumberText.h"
#include "cli/Cli.h"
#include "cli/CliSupport.h"
#include "files/PoolOps.h"
#include "format/PoolFile.h"
#include "generator/Random.h"
#include "series/Feeding.h"
#include "series/Grouping.h"
#include "series/Harvest.h"
#include "series/PrepareSteps.h"
#include "series/Success.h"

using namespace aqcli;

namespace {

int writeOrFail(const std::string& out, const aq::Pool& pool) {
    std::string error = aq::writePool(out, pool);
    if (!error.empty()) return fail("Error saving " + out + ", error: " + error);
    return 0;
}

int runScores(const Args& a) {
    a.expectPositional(1);
    aq::Pool pool;
    if (int rc = readPoolOrFail(a.positional()[0], pool)) return rc;
    std::string out = "norm: " + aq::NumberText(aq::SuccessNorm(pool)) + "\n";
    for (int i = 0; i < pool.drifterCount; ++i) (out += aq::NumberText(aq::SuccessScore(pool, i))) += '\n';
    std::cout << out;
    return 0;
}

int runHarvest(const Args& a) {
    a.expectPositional(1);
    const std::string out = a.required("-o");
    const int max = intOption(a, "--max", 2000);
    if (max < 1 || max > 2000) throw UsageError{"option --max must be 1 to 2000, got " + std::to_string(max)};
    CliUi ui;
    aq::SystemClock clock;
    aq::App app(ui, clock);
    app.uiBusy = true;  // no lists to fill
    aq::loadDefaultPool(app);
    if (auto open = a.value("--open")) {
        if (int rc = readPoolOrFail(*open, app.openPool)) return rc;
        app.poolLoaded = true;
    }
    int skipped = 0;
    if (!aq::HarvestSuccessful(app, a.positional()[0], 0, max, true, false, &skipped)) return 1;
    if (skipped > 0)
        std::cerr << "Skipped " << skipped << (skipped == 1 ? " file" : " files") << " that could not be read.\n";
    return writeOrFail(out, app.openPool);
}

// The pieces of a step, split at ':'.
std::vector<std::string> pieces(const std::string& step) {
    std::vector<std::string> r;
    std::stringstream in(step);
    for (std::string part; std::getline(in, part, ':');) r.push_back(part);
    if (!step.empty() && step.back() == ':') r.emplace_back();
    return r;
}

double number(const std::string& text, const std::string& step) {
    double v = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    if (text.empty() || ec != std::errc() || end != text.data() + text.size() || !std::isfinite(v))
        throw UsageError{"step " + step + " needs a number, got \"" + text + "\""};
    return v;
}

int whole(const std::string& text, const std::string& step, int low, int high) {
    double v = number(text, step);
    if (v != std::floor(v) || v < low || v > high)
        throw UsageError{"step " + step + " needs a whole number from " + std::to_string(low) + " to " +
                         std::to_string(high) + ", got \"" + text + "\""};
    return static_cast<int>(v);
}

// Names from a comma list, each one of `known`.
std::vector<bool> flags(const std::string& list, const std::vector<std::string>& known, const std::string& step) {
    std::vector<bool> on(known.size(), false);
    std::stringstream in(list);
    for (std::string name; std::getline(in, name, ',');) {
        auto it = std::find(known.begin(), known.end(), name);
        if (it == known.end()) throw UsageError{"step " + step + " does not know \"" + name + "\""};
        on[static_cast<std::size_t>(it - known.begin())] = true;
    }
    return on;
}

void runStep(aq::Pool& pool, const std::string& step) {
    std::vector<std::string> p = pieces(step);
    const std::string name = p.empty() ? "" : p[0];
    auto arity = [&](std::size_t n) {
        if (p.size() != n + 1)
            throw UsageError{"step " + name + " takes " + std::to_string(n) + " argument(s): " + step};
    };
    if (name == "markStillborns") {
        arity(0);
        aq::markStillborns(pool);
    } else if (name == "ensureMinimumDrifters") {
        arity(1);
        aq::ensureMinimumDrifters(pool, whole(p[1], name, -32768, 32767));
    } else if (name == "limitLiveDrifters") {
        arity(1);
        aq::limitLiveDrifters(pool, whole(p[1], name, -32768, 32767));
    } else if (name == "deleteDeadDrifters") {
        arity(0);
        aq::deleteDeadDrifters(pool);
    } else if (name == "sortDrifters") {
        arity(0);
        aq::sortDrifters(pool);
    } else if (name == "restoreYouth") {
        arity(0);
        aq::restoreYouth(pool);
    } else if (name == "resetCounters") {
        arity(1);
        auto on = flags(p[1], {"meals", "offspring"}, name);
        aq::resetCounters(pool, on[0], on[1], on[1]);
    } else if (name == "drainEdgeEnergy") {
        arity(0);
        aq::drainEdgeEnergy(pool);
    } else if (name == "gravitateToCenter") {
        arity(1);
        aq::gravitateToCenter(pool, static_cast<float>(number(p[1], name)), true, true);
    } else if (name == "halveAges") {
        arity(0);
        aq::halveAges(pool);
    } else if (name == "prepareHarvest") {
        arity(1);
        aq::prepareHarvest(pool, static_cast<float>(number(p[1], name)));
    } else if (name == "deleteStarters") {
        arity(1);
        aq::deleteStarters(pool, static_cast<float>(number(p[1], name)));
    } else if (name == "applyPlague") {
        arity(0);
        aq::applyPlague(pool);
    } else if (name == "feedPool") {
        arity(1);
        auto on = flags(p[1], {"hungry", "fed", "addFood", "graded"}, name);
        aq::feedPool(pool, on[0], on[1], on[2], on[3]);
    } else if (name == "feedByColor") {
        arity(2);
        aq::feedByColor(pool, whole(p[1], name, -1, 5), whole(p[2], name, -1, 3));
    } else if (name == "group") {
        if (p.size() < 2) throw UsageError{"step group needs a mode: " + step};
        const int mode = whole(p[1], name, -1, 3);
        bool feedAll = false, gather = false, gravity = false;
        int retries = 0;
        for (std::size_t k = 2; k < p.size(); ++k) {
            if (p[k] == "feedAll")
                feedAll = true;
            else if (p[k] == "gather")
                gather = true;
            else if (p[k] == "gravity")
                gravity = true;
            else if (p[k].rfind("retries=", 0) == 0)
                retries = whole(p[k].substr(8), name, 0, 150);
            else
                throw UsageError{"step group does not know \"" + p[k] + "\""};
        }
        aq::groupDriftersAtStart(pool, mode >= 0, feedAll, gather, retries, mode, gravity, 100);
    } else {
        throw UsageError{"unknown step \"" + step + "\""};
    }
}

int runPrepare(const Args& a) {
    if (a.positional().size() < 2) throw UsageError{"give a pool file and at least one step"};
    const std::string out = a.required("-o");
    aq::setRandomState(stateOption(a));
    aq::Pool pool;
    if (int rc = readPoolOrFail(a.positional()[0], pool)) return rc;
    // Every step is checked before the first one runs.
    aq::Pool trial = aq::Pool{};
    for (std::size_t k = 1; k < a.positional().size(); ++k) runStep(trial, a.positional()[k]);
    for (std::size_t k = 1; k < a.positional().size(); ++k) runStep(pool, a.positional()[k]);
    return writeOrFail(out, pool);
}

Register regScores({"scores",
                    "print the pool's success norm and each drifter's success score",
                    "aqfm scores FILE",
                    runScores,
                    {},
                    {},
                    "Prints \"norm: X\", the pool's success norm, then each drifter's success score, one a line."});
Register regHarvest(
    {"harvest",
     "gather the best drifter of each body shape from a folder of pool files",
     "aqfm harvest FOLDER [--open POOL] [--max N] -o OUT",
     runHarvest,
     {"--open", "--max", "-o"},
     {},
     "Writes to OUT the best drifter of each body shape from POOL (when given) and from every *.aqp file in FOLDER, at "
     "most N of them (1 to 2000, default 2000), in POOL's world and food (the default pool's without --open)."});
Register regPrepare(
    {"prepare",
     "run the series' preparation steps on a pool file, in the order given",
     "aqfm prepare FILE STEP... [--state HEX] -o OUT",
     runPrepare,
     {"--state", "-o"},
     {},
     "Runs the series' preparation steps on FILE in the order given and writes the result to OUT. The steps: "
     "markStillborns, ensureMinimumDrifters:N, limitLiveDrifters:N, deleteDeadDrifters, sortDrifters, restoreYouth, "
     "resetCounters:LIST (meals, offspring), drainEdgeEnergy, gravitateToCenter:P, halveAges, prepareHarvest:R, "
     "deleteStarters:LIMIT, applyPlague, feedPool:LIST (hungry, fed, addFood, graded), feedByColor:COLOR:MODE, "
     "group:MODE[:feedAll][:gather][:retries=N][:gravity] (MODE -1 to 3, -1 places nobody). --state sets the random "
     "state first."});

}  // namespace
