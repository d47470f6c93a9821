// Every pass over a pool, on each pool the reader accepts: the drifter list, species
// and threshold range at both depths, keys with all flags, minorities, every grouping
// mode, feeding, the plague, a merge and the harvest list. Each must stay defined on
// whatever the fields hold.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "ScratchFile.h"
#include "format/PoolFile.h"
#include "files/PoolMerge.h"
#include "pooleditor/DrifterKey.h"
#include "pooleditor/DrifterList.h"
#include "pooleditor/Minorities.h"
#include "pooleditor/SpeciesPass.h"
#include "series/Feeding.h"
#include "series/Grouping.h"
#include "series/Harvest.h"
#include "series/PrepareSteps.h"
#include "series/Success.h"
#include "base/FileIo.h"
#include "base/QuietUi.h"
#include "support/ManualClock.h"

namespace {

// The passes that compare every pair of genomes run on pools of this many drifters at
// most, so that each input takes milliseconds; the tests time the big pools.
constexpr int kPairwiseLimit = 200;

const std::string& scratchPath() {
    static const std::string path = aqfuzz::scratchPath("passes.aqp");
    return path;
}

void listAndMinorities(const aq::Pool& pool) {
    aq::QuietUi ui;
    aqtest::ManualClock clock;
    aq::App app(ui, clock);
    app.openPool = pool;
    app.poolLoaded = true;
    aq::populateSpeciatePoolList(app);
    for (int stage = 0; stage < 4; ++stage) {
        aq::MutantStages s;
        (stage == 0 ? s.bySegmentCount : stage == 1 ? s.byBranching : stage == 2 ? s.byColorOrder : s.byColors) = true;
        aq::distinctMinorityKeys(pool, s);
        aq::poolMutants(app, false, true, stage % 2 == 0, s, false);
        aq::poolMutants(app, true, false, stage % 2 != 0, s, false);
    }
    // The pool merged with itself through its file.
    aq::mergePoolFile(app, true, true, scratchPath(), true);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    aq::Pool pool;
    if (aq::parsePool({data, size}, pool).status != aq::PoolReadStatus::Ok) return 0;
    if (!aq::writeFileAtomically(scratchPath(), {reinterpret_cast<const char*>(data), size}).empty()) return 0;

    for (int i = 0; i < pool.drifterCount; ++i) {
        aq::DrifterLineText(pool.drifters[static_cast<std::size_t>(i)]);
        aq::DrifterKeyPair(pool, i);
        for (int flags = 0; flags < 8; ++flags) aq::DrifterKey(pool, i, flags & 1, flags & 2, flags & 4);
    }
    if (pool.drifterCount <= kPairwiseLimit)
        for (int depth : {100, 1000}) {
            aq::poolSpeciesTags(pool, 44.4f, depth);
            aq::thresholdRangeMessage(aq::poolThresholdRange(pool, depth));
        }
    listAndMinorities(pool);

    aq::HarvestList list(pool, 2000);
    list.considerPool(pool, aq::SuccessNorm(pool));
    list.considerPool(pool, 1.0f);

    for (int mode = 0; mode < 4; ++mode) {
        if (mode == 0 && pool.drifterCount > kPairwiseLimit) continue;
        aq::Pool grouped = pool;
        aq::groupDriftersAtStart(grouped, true, mode % 2 == 0, mode < 2, mode, mode, mode % 2 != 0, 100);
    }
    aq::Pool fed = pool;
    for (int mode = 0; mode < 4; ++mode) aq::feedByColor(fed, mode + 1, mode);
    aq::feedPool(fed, true, true, true, false);
    aq::feedPool(fed, false, false, true, true);

    aq::Pool plagued = pool;
    aq::applyPlague(plagued);
    aq::Pool prepared = pool;
    aq::markStillborns(prepared);
    aq::restoreYouth(prepared);
    aq::drainEdgeEnergy(prepared);
    aq::gravitateToCenter(prepared, 50, true, true);
    aq::prepareHarvest(prepared, 2500);
    return 0;
}
