// aqfm generate, food: a new startup pool, and the food list of a pool file.
#include <iostream>

#include "cli/Cli.h"
#include "cli/CliSupport.h"
#include "files/PoolOps.h"
#include "foodeditor/FoodList.h"
#include "format/PoolFile.h"
#include "generator/Generator.h"
#include "generator/Random.h"

using namespace aqcli;

namespace {

std::int16_t choice(const Args& a, const std::string& name, int fallback, int last) {
    int v = intOption(a, name, fallback);
    if (v < 0 || v > last)
        throw UsageError{"option " + name + " must be 0 to " + std::to_string(last) + ", got " + std::to_string(v)};
    return static_cast<std::int16_t>(v);
}

int runGenerate(const Args& a) {
    a.expectPositional(0);
    std::string out = a.required("-o");
    if (a.flag("--extra-food") && a.flag("--no-extra-food"))
        throw UsageError{"--extra-food and --no-extra-food exclude each other"};
    aq::StartupSettings s;
    s.seed = aq::seedFromText(a.value("--seed").value_or("1"));
    s.poolType = choice(a, "--type", 1, 2);
    s.foodPlacement = choice(a, "--food", 2, 4);
    s.drifterPlacement = choice(a, "--placement", 1, 2);
    s.wallPlacement = choice(a, "--walls", 1, 2);
    s.splitPool = a.flag("--split");
    s.extraFood = !a.flag("--no-extra-food");
    s.extraDrifters = a.flag("--extra-drifters");
    aq::setRandomState(stateOption(a));

    aq::Pool base, pool;
    if (aq::parsePool(aq::defaultPoolBytes(), base).status != aq::PoolReadStatus::Ok ||
        !aq::buildStartupPool(base, s, pool))
        return fail("Error loading default pool. Not a Aquarium 4 data file");
    std::string error = aq::writePool(out, pool);
    if (!error.empty()) return fail("Error saving " + out + ", error: " + error);
    return 0;
}

int runFood(const Args& a) {
    a.expectPositional(1);
    aq::Pool pool;
    if (int rc = readPoolOrFail(a.positional()[0], pool)) return rc;
    std::string out;
    for (int i = 0; i < pool.foodCount; ++i) (out += aq::FoodLineText(pool.food[static_cast<std::size_t>(i)])) += '\n';
    std::cout << out;
    return 0;
}

Register regGenerate(
    {"generate",
     "write a new startup pool made from a seed and the generator's settings",
     "aqfm generate [--seed TEXT] [--type 0-2] [--food 0-4] [--placement 0-2] [--walls 0-2] [--split] "
     "[--extra-food | --no-extra-food] [--extra-drifters] [--state HEX] -o OUT",
     runGenerate,
     {"-o", "--seed", "--type", "--food", "--placement", "--walls", "--state"},
     {"--split", "--extra-food", "--no-extra-food", "--extra-drifters"},
     "Writes a new startup pool to OUT, as \"Generate Pool Now\" makes it. --type: 0 test, 1 ordered (default), 2 "
     "chaotic. --food: 0 gathered, 1 centrally scattered, 2 spiral (default), 3 evenly distributed, 4 peripheral. "
     "--placement (of the drifters): 0 random, 1 central ring (default), 2 peripheral. --walls: 0 double vertical, 1 "
     "default (default), 2 double horizontal. --split splits the pool; extra food is on unless --no-extra-food; "
     "--extra-drifters adds drifters. --seed (default 1) is read like the seed box: its leading number, rounded half "
     "to even, 0 beyond 32 bits. --state sets the 24-bit random state first (default 50000, the state at the program's "
     "start)."});
Register regFood({"food",
                  "print one list line per food bit",
                  "aqfm food FILE",
                  runFood,
                  {},
                  {},
                  "Prints one line per food bit, as the food tab lists it (each line ends in a blank)."});

}  // namespace
