// aqfm dna: one drifter's genome as a DNA file.
#include <algorithm>
#include <charconv>

#include "cli/Cli.h"
#include "cli/CliSupport.h"
#include "format/DnaFile.h"
#include "format/PoolFile.h"

using namespace aqcli;

namespace {

int runDna(const Args& a) {
    a.expectPositional(2);
    std::string out = a.required("-o");
    const std::string& indexText = a.positional()[1];
    int index = -1;
    auto [end, ec] = std::from_chars(indexText.data(), indexText.data() + indexText.size(), index);
    if (ec != std::errc() || end != indexText.data() + indexText.size())
        throw UsageError{"INDEX needs a whole number, got \"" + indexText + "\""};
    aq::Pool pool;
    if (int rc = readPoolOrFail(a.positional()[0], pool)) return rc;
    if (index < 0 || index >= pool.drifterCount)
        return fail("drifter " + indexText + " is not in the pool: it has " + std::to_string(pool.drifterCount) +
                    " drifters");
    aq::Genome genome;
    const auto& genes = pool.drifters[static_cast<std::size_t>(index)].genes;
    std::copy(std::begin(genes), std::end(genes), genome.begin());
    std::string error = aq::writeGenomeFile(out, genome);
    if (!error.empty()) return fail("Error saving " + out + ", error: " + error);
    return 0;
}

Register regDna(
    {"dna",
     "write one drifter's genome as a 1000-byte DNA file",
     "aqfm dna FILE INDEX -o OUT",
     runDna,
     {"-o"},
     {},
     "Writes the genome of drifter INDEX (counted from 0) of the pool FILE to OUT as a 1000-byte DNA file."});

}  // namespace
