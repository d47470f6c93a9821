#include "pooleditor/Minorities.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "pooleditor/BulkEdits.h"

namespace aq {

namespace {

using Key = std::vector<int>;

int usedSegments(const DrifterRec& d) { return std::clamp(d.segmentCount, 0, kSegmentSlots); }

// A sequence with runs of equal neighbours written once.
Key runs(const DrifterRec& d, std::int32_t Segment::*field) {
    Key k;
    for (int s = 0; s < usedSegments(d); ++s)
        if (k.empty() || k.back() != d.segments[s].*field) k.push_back(d.segments[s].*field);
    return k;
}

Key colorSet(const DrifterRec& d) {
    Key k;
    for (int s = 0; s < usedSegments(d); ++s) k.push_back(d.segments[s].color);
    std::sort(k.begin(), k.end());
    k.erase(std::unique(k.begin(), k.end()), k.end());
    return k;
}

enum class Stage { SegmentCount, Branching, ColorOrder, Colors };

Key stageKey(const DrifterRec& d, Stage stage) {
    switch (stage) {
        case Stage::SegmentCount:
            return {d.segmentCount};
        case Stage::Branching:
            return runs(d, &Segment::branchCount);
        case Stage::ColorOrder:
            return runs(d, &Segment::color);
        case Stage::Colors:
            return colorSet(d);
    }
    return {};
}

bool sharesAColor(const Key& colors, const Key& other) {
    for (int c : colors)
        if (std::binary_search(other.begin(), other.end(), c)) return true;
    return false;
}

void runStage(App& app, Stage stage, bool kill, bool select, bool deselect, double& population) {
    Pool& pool = app.workPool;
    int n = std::min(pool.drifterCount, static_cast<int>(pool.drifters.size()));
    std::vector<Key> keys(static_cast<std::size_t>(std::max(n, 0)));
    std::vector<Key> distinct;  // in order of first appearance
    for (int i = 0; i < n; ++i) {
        const DrifterRec& d = pool.drifters[static_cast<std::size_t>(i)];
        if (d.alive == 0) continue;
        keys[static_cast<std::size_t>(i)] = stageKey(d, stage);
        if (std::find(distinct.begin(), distinct.end(), keys[static_cast<std::size_t>(i)]) == distinct.end())
            distinct.push_back(keys[static_cast<std::size_t>(i)]);
    }
    double bar = population / (static_cast<double>(distinct.size()) + 1);
    double next = population;
    CheckList& list = app.lstSpeciatePool;
    for (const Key& key : distinct) {
        // Counted as the pool stands when the key's turn comes.
        int count = 0;
        for (int i = 0; i < n; ++i) {
            if (pool.drifters[static_cast<std::size_t>(i)].alive == 0) continue;
            const Key& own = keys[static_cast<std::size_t>(i)];
            // A colour group counts everyone who has any of its colours.
            count += stage == Stage::Colors ? sharesAColor(key, own) : own == key;
        }
        if (!(bar > count + 1.0)) continue;
        for (int i = 0; i < n; ++i) {
            DrifterRec& d = pool.drifters[static_cast<std::size_t>(i)];
            if (d.alive == 0 || keys[static_cast<std::size_t>(i)] != key) continue;
            if (kill) d.alive = 0;
            if (i < list.count()) {
                if (select)
                    list.setChecked(i, true);
                else if (deselect)
                    list.setChecked(i, false);
            }
            if (d.alive != 0) next -= 1;
        }
    }
    population = next;
}

}  // namespace

int distinctMinorityKeys(const Pool& pool, MutantStages stage) {
    Stage which = stage.bySegmentCount ? Stage::SegmentCount
                  : stage.byBranching  ? Stage::Branching
                  : stage.byColorOrder ? Stage::ColorOrder
                                       : Stage::Colors;
    std::vector<Key> keys;
    int n = std::min(pool.drifterCount, static_cast<int>(pool.drifters.size()));
    for (int i = 0; i < n; ++i)
        if (pool.drifters[static_cast<std::size_t>(i)].alive != 0)
            keys.push_back(stageKey(pool.drifters[static_cast<std::size_t>(i)], which));
    std::sort(keys.begin(), keys.end());
    return static_cast<int>(std::unique(keys.begin(), keys.end()) - keys.begin());
}

void poolMutants(App& app, bool kill, bool select, bool countStill, MutantStages stages, bool deselect) {
    int current = -1;
    if (select || deselect) {
        app.workPool = app.openPool;
        current = app.lstSpeciatePool.currentIndex();
    }
    BusyScope busy(app);
    const Pool& pool = app.workPool;
    double population = 0;
    for (int i = 0; i < pool.drifterCount && static_cast<std::size_t>(i) < pool.drifters.size(); ++i) {
        const DrifterRec& d = pool.drifters[static_cast<std::size_t>(i)];
        if (d.alive != 0 && (countStill || std::fabs(d.velocityX) > 0.00004f)) population += 1;
    }
    if (stages.bySegmentCount) runStage(app, Stage::SegmentCount, kill, select, deselect, population);
    if (stages.byBranching) runStage(app, Stage::Branching, kill, select, deselect, population);
    if (stages.byColorOrder) runStage(app, Stage::ColorOrder, kill, select, deselect, population);
    if (stages.byColors) runStage(app, Stage::Colors, kill, select, deselect, population);
    if (select || deselect) app.lstSpeciatePool.setCurrentIndex(current);
}

namespace {
void minorityCommand(App& app, MutantStages stages, bool deselect) {
    poolMutants(app, false, !deselect, true, stages, deselect);
    setSpeciatePoolSliders(app);
}
}  // namespace

void mSelectMutantsBySegmentCount(App& app) { minorityCommand(app, {true, false, false, false}, false); }
void mSelectMutantsByBranching(App& app) { minorityCommand(app, {false, true, false, false}, false); }
void mSelectMutantsByColorOrder(App& app) { minorityCommand(app, {false, false, true, false}, false); }
void mSelectMutantsByColors(App& app) { minorityCommand(app, {false, false, false, true}, false); }
void mDeSelectMutants(App& app) { minorityCommand(app, {true, true, true, true}, true); }

}  // namespace aq
