// aqfm species, range: the species of a pool's drifters and the spread of their kinship.
#include <iostream>

#include "base/NumberText.h"
#include "cli/Cli.h"
#include "cli/CliSupport.h"
#include "pooleditor/SpeciesPass.h"

using namespace aqcli;

namespace {

int runSpecies(const Args& a) {
    a.expectPositional(1);
    float threshold = thresholdOption(a, "--threshold", 44.4f);
    int depth = depthOption(a, 100);
    aq::Pool pool;
    if (int rc = readPoolOrFail(a.positional()[0], pool)) return rc;
    std::string out;
    for (std::int32_t tag : aq::poolSpeciesTags(pool, threshold, depth)) (out += aq::NumberText(tag)) += '\n';
    std::cout << out;
    return 0;
}

int runRange(const Args& a) {
    a.expectPositional(1);
    int depth = depthOption(a, 100);
    aq::Pool pool;
    if (int rc = readPoolOrFail(a.positional()[0], pool)) return rc;
    std::cout << aq::thresholdRangeMessage(aq::poolThresholdRange(pool, depth)) << "\n";
    return 0;
}

Register regSpecies(
    {"species",
     "print the species number of each drifter after a complete pass",
     "aqfm species FILE [--threshold T] [--depth D]",
     runSpecies,
     {"--threshold", "--depth"},
     {},
     "Prints the species number of each drifter after a complete pass, one a line: drifters whose first D genes (1 to "
     "1000, default 100) are at least T percent equal (default 44.4) share a species."});
Register regRange({"range",
                   "print the lowest and highest share of equal genes over all pairs of drifters",
                   "aqfm range FILE [--depth D]",
                   runRange,
                   {"--depth"},
                   {},
                   "Prints the message of the drifter tab's range command: the lowest and the highest share of equal "
                   "genes over all pairs of drifters, over the first D genes (default 100)."});

}  // namespace
