#pragma once
// A program state with a pool on show in the drifter list, for the pool editor tests.
#include <vector>

#include "pooleditor/DrifterList.h"
#include "pooleditor/SpeciesPass.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"

namespace aqtest {

// Drifters that share their first `shared` genes with one pattern and differ from everyone after.
inline aq::Pool kinPool(std::initializer_list<int> shared) {
    aq::Pool p = makePool(static_cast<int>(shared.size()), 0);
    int i = 0;
    for (int s : shared) {
        auto& g = p.drifters[static_cast<std::size_t>(i++)].genes;
        for (int k = 0; k < 1000; ++k) g[k] = static_cast<std::uint8_t>(k < s ? k : 200 + i);
    }
    return p;
}

// A drifter of the given segment colours and branch counts, every segment 10 long and 4 wide.
inline aq::DrifterRec body(std::vector<int> colors, std::vector<int> branches = {}) {
    aq::DrifterRec d = makeDrifter(0, static_cast<int>(colors.size()));
    for (std::size_t s = 0; s < colors.size(); ++s) {
        d.segments[s].color = colors[s];
        d.segments[s].branchCount = s < branches.size() ? branches[s] : 0;
        d.segments[s].length = 10;
        d.segments[s].width = 4;
    }
    d.totalLength = 10.0f * static_cast<float>(colors.size());
    d.mass = 5.0f * static_cast<float>(colors.size());
    return d;
}

struct PoolEditor {
    ScriptedUi ui;
    SteppingClock clock;
    aq::App app{ui, clock};
    explicit PoolEditor(aq::Pool pool) {
        app.openPool = std::move(pool);
        aq::populateSpeciatePoolList(app);
    }
    aq::DrifterRec& d(int i) { return app.openPool.drifters[static_cast<std::size_t>(i)]; }
    std::vector<int> ticked() const {
        std::vector<int> t;
        for (int i = 0; i < app.lstSpeciatePool.count(); ++i)
            if (app.lstSpeciatePool.checked(i)) t.push_back(i);
        return t;
    }
    std::vector<std::int32_t> tags() const {
        std::vector<std::int32_t> t;
        for (int i = 0; i < app.lstSpeciatePool.count(); ++i) t.push_back(app.lstSpeciatePool.tag(i));
        return t;
    }
    // Runs slices of the species pass as the timer would, until it is done; returns how many it took.
    int finish() {
        int slices = 0;
        for (; app.poolSpeciesPending && slices < 10000; ++slices) aq::speciatePoolList(app);
        return slices;
    }
};

}  // namespace aqtest
