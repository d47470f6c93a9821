// aqfm default, info, drifters: the pool file itself.
#include <iostream>

#include "base/FileIo.h"
#include "base/NumberText.h"
#include "cli/Cli.h"
#include "cli/CliSupport.h"
#include "files/PoolOps.h"
#include "format/PoolFile.h"
#include "pooleditor/DrifterList.h"
#include "pooleditor/SpeciesPass.h"

using namespace aqcli;

namespace {

int runDefault(const Args& a) {
    a.expectPositional(0);
    std::string out = a.required("-o");
    auto bytes = aq::defaultPoolBytes();
    std::string error = aq::writeFileAtomically(out, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    if (!error.empty()) return fail("Error saving " + out + ", error: " + error);
    return 0;
}

int runInfo(const Args& a) {
    a.expectPositional(1);
    aq::Pool pool;
    if (int rc = readPoolOrFail(a.positional()[0], pool)) return rc;
    using aq::NumberText;
    std::cout << "version: " << NumberText(pool.version) << "\n"
              << "clock: " << NumberText(pool.clock) << "\n"
              << "headerWord: " << NumberText(pool.headerWord) << "\n"
              << "drifterCount: " << NumberText(pool.drifterCount) << "\n"
              << "foodCount: " << NumberText(pool.foodCount) << "\n"
              << "worldValueA: " << NumberText(pool.worldValueA) << "\n"
              << "worldValueB: " << NumberText(pool.worldValueB) << "\n"
              << "minX: " << NumberText(pool.minX) << "\n"
              << "minY: " << NumberText(pool.minY) << "\n"
              << "maxX: " << NumberText(pool.maxX) << "\n"
              << "maxY: " << NumberText(pool.maxY) << "\n"
              << "lastWord: " << NumberText(pool.lastWord) << "\n"
              << "fileSize: " << pool.fileSize() << "\n";
    return 0;
}

int runDrifters(const Args& a) {
    a.expectPositional(1);
    aq::Pool pool;
    if (int rc = readPoolOrFail(a.positional()[0], pool)) return rc;
    // With --species the lines carry the species numbers of a complete pass, as the tab shows them.
    std::vector<std::int32_t> tags;
    if (a.value("--species"))
        tags = aq::poolSpeciesTags(pool, thresholdOption(a, "--species", 44.4f), depthOption(a, 100));
    else if (a.value("--depth"))
        throw UsageError{"option --depth needs --species"};
    std::string out;
    for (int i = 0; i < pool.drifterCount; ++i) {
        if (static_cast<std::size_t>(i) < tags.size())
            out += "{" + aq::NumberText(tags[static_cast<std::size_t>(i)]) + "} ";
        (out += aq::DrifterLineText(pool.drifters[static_cast<std::size_t>(i)])) += '\n';
    }
    std::cout << out;
    return 0;
}

Register regDefault({"default",
                     "write the embedded default pool",
                     "aqfm default -o OUT",
                     runDefault,
                     {"-o"},
                     {},
                     "Writes the default pool the program carries to OUT, byte for byte."});
Register regInfo({"info",
                  "print a pool file's header and world fields",
                  "aqfm info FILE",
                  runInfo,
                  {},
                  {},
                  "Prints name: value lines: version, clock, headerWord, drifterCount, foodCount, worldValueA, "
                  "worldValueB, minX, minY, maxX, maxY, lastWord and fileSize."});
Register regDrifters({"drifters",
                      "print one list line per drifter",
                      "aqfm drifters FILE [--species T] [--depth D]",
                      runDrifters,
                      {"--species", "--depth"},
                      {},
                      "Prints one line per drifter, as the drifter tab lists it. With --species each line starts with "
                      "the \"{n} \" species number of a complete pass at threshold T percent over the first D genes (D "
                      "from 1 to 1000, default 100)."});

}  // namespace
