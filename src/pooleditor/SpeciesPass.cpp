#include "pooleditor/SpeciesPass.h"

#include <algorithm>
#include <cmath>

#include "base/NumberText.h"
#include "base/Parallel.h"
#include "base/ThresholdText.h"
#include "pooleditor/DrifterList.h"
#include "pooleditor/PackedGenes.h"
#include "pooleditor/Similarity.h"

namespace aq {

const char* const kPoolSpeciesNotice =
    "Please be patient. Extended species grouping may take several minutes on larger aquariums.\r\n\r\n"
    "An extended species is any group of entities within a aquarium each of which is genetically compatible "
    "with at least one other member of the group. "
    "Genetic comparisons are being done between all possible pairs of drifters to see if their genetic code "
    "sequences are close enough to identical to be within the selected species boundary threshold.";

namespace {

constexpr double kSliceSeconds = 2.0;

// The species of drifter `index`: the tag of the first earlier drifter it is similar
// to, else `fresh`.
template <class TagOf>
std::int32_t firstSimilarGroup(const Pool& pool, int index, const Kinship& similar, TagOf tagOf, std::int32_t fresh) {
    const std::uint8_t* genes = pool.drifters[static_cast<std::size_t>(index)].genes;
    for (int j = 0; j < index; ++j)
        if (similar(pool.drifters[static_cast<std::size_t>(j)].genes, genes)) return tagOf(j);
    return fresh;
}

void beginPass(App& app) {
    app.poolNoticeShown = false;
    app.poolLastIndex = static_cast<std::int16_t>(app.openPool.drifterCount - 1);
    app.poolMaxGroup = -1;
    app.poolPassIndex = 0;
    app.poolPassRunning = true;
}

// A list that no longer matches the pool ends the slice and starts the pass over;
// the timer goes on from the first drifter while the pass is pending.
void restartPass(App& app) {
    beginPass(app);
    app.PoolProgressBar1.hide();
    app.lstSpeciatePool.setVisible(true);
    app.uiBusy = false;
}

bool drifterListed(const App& app, int i) {
    return i >= 0 && i < app.openPool.drifterCount && static_cast<std::size_t>(i) < app.openPool.drifters.size() &&
           i < app.lstSpeciatePool.count();
}

}  // namespace

void speciatePoolList(App& app) {
    if (app.uiBusy || app.openPool.drifterCount < 1) return;
    // The start is kept in single precision: read the clock the same way, or a start
    // rounded up would look like a slice begun just before midnight.
    auto now = [&] { return static_cast<float>(app.clock.secondsSinceMidnight()); };
    app.poolSliceStart = now();
    auto elapsed = [&] { return elapsedSeconds(app.poolSliceStart, now()); };
    if (!app.poolPassRunning && app.poolSpeciesPending) beginPass(app);
    app.uiBusy = true;
    app.poolPassStart = app.poolPassIndex;
    CheckList& list = app.lstSpeciatePool;

    const Kinship similar(app.poolThreshold, app.similarityDepth);
    while (app.poolPassIndex <= app.poolLastIndex && elapsed() < kSliceSeconds) {
        int i = app.poolPassIndex;
        if (!drifterListed(app, i)) return restartPass(app);
        std::int32_t group = firstSimilarGroup(
            app.openPool, i, similar, [&](int j) { return list.tag(j); }, app.poolMaxGroup + 1);
        if (group > app.poolMaxGroup) app.poolMaxGroup = static_cast<std::int16_t>(group);
        list.setTag(i, group);
        ++app.poolPassIndex;
    }

    double sinceHelp = elapsedSeconds(app.lastHelpMove, app.clock.secondsSinceMidnight());
    if (sinceHelp > 2.0 && app.comboSpeciatePoolGroup0 == 2 && app.poolSpeciesPending && !app.poolNoticeShown &&
        app.poolPassIndex - app.poolPassStart < app.poolLastIndex / (app.poolPatience + 10)) {
        app.poolNoticeShown = true;
        // Each notice waits for a slower pass than the last: 16, 32, ... 256.
        if (app.poolPatience < 200) app.poolPatience = static_cast<std::int16_t>(app.poolPatience * 2);
        if (app.poolPatience < 1) app.poolPatience = 16;
        list.setEnabled(false);
        list.setVisible(true);
        app.notice->show(kPoolSpeciesNotice);
    }

    if (elapsed() > kSliceSeconds) {
        app.uiBusy = false;
        return;
    }

    if (app.poolPassIndex >= app.poolLastIndex && app.poolSpeciesPending) {
        list.setVisible(false);
        app.uiBusy = true;
        ProgressBarState& bar = app.PoolProgressBar1;
        bar.show(0, app.poolLastIndex);
        for (int i = 0; i <= app.poolLastIndex; ++i) {
            if (!drifterListed(app, i)) return restartPass(app);
            bar.setValue(i);
            listPoolDrifter(app, i);
        }
        bar.hide();
        list.setVisible(true);
        app.poolMaxGroup = -1;
        app.poolTagsThreshold = app.poolThreshold;
        app.poolTagsDepth = app.similarityDepth;
        app.uiBusy = false;
    }

    if (app.poolPassIndex >= app.poolLastIndex || !app.poolSpeciesPending) {
        list.setEnabled(true);
        app.poolPassRunning = false;
        app.poolSpeciesPending = false;
    }
    app.uiBusy = false;
}

void scrollPoolSpeciesThresholdChange(App& app) {
    int position = app.scrollPoolSpeciesThreshold;
    if (!app.uiBusy) app.txtPoolSpeciesThreshold = thresholdText(position);
    app.poolThreshold = static_cast<float>(position / 10.0);
    if (!app.openPoolPath.empty()) {
        // A slice under the new threshold: it closes a pass that can finish now, so
        // the timer starts afresh; a longer pass goes on under the new threshold.
        app.poolSpeciesPending = false;
        speciatePoolList(app);
        app.poolSpeciesPending = true;
        if (app.comboSpeciatePoolGroup0 == 2) app.lstSpeciatePool.setEnabled(false);
    }
    app.stateChanged();
}

void setPoolSpeciesThresholdPosition(App& app, int position) {
    position = std::clamp(position, 0, 1000);
    if (position == app.scrollPoolSpeciesThreshold) return;
    app.scrollPoolSpeciesThreshold = position;
    scrollPoolSpeciesThresholdChange(app);
}

void typePoolSpeciesThreshold(App& app, const std::string& text) {
    app.txtPoolSpeciesThreshold = text;
    app.lastThresholdEdit = app.clock.secondsSinceMidnight();
    app.poolThresholdTyped = true;
}

void validatePoolSpeciesThreshold(App& app) {
    if (app.uiBusy) {
        app.poolThresholdTyped = true;
        return;
    }
    app.poolThresholdTyped = false;
    int position = thresholdPosition(app.txtPoolSpeciesThreshold, 0, 1000);
    app.uiBusy = true;
    setPoolSpeciesThresholdPosition(app, position);
    app.ui.YieldToUi();
    app.uiBusy = false;
}

std::vector<std::int32_t> poolSpeciesTags(const Pool& pool, float threshold, int depth) {
    const int count = std::max(0, std::min<int>(pool.drifterCount, static_cast<int>(pool.drifters.size())));
    const Kinship similar(threshold, depth);
    const PackedGenes g(pool, count, similar.genes());
    // The first earlier drifter each one is similar to, found for rows of drifters against
    // columns of a few hundred at a time, in order, so the genes compared stay in the
    // nearest cache; each row on its own, the rows shared among the cores. The tags
    // follow from it in one more pass.
    std::vector<std::int32_t> first(static_cast<std::size_t>(count), -1);
    constexpr int kRows = 64, kColumns = 256;
    auto rows = [&](int block, int) {
        const int i0 = block * kRows, i1 = std::min(count, i0 + kRows);
        for (int j0 = 0; j0 < i1 - 1; j0 += kColumns)
            for (int i = std::max(i0, j0 + 1); i < i1; ++i) {
                std::int32_t& found = first[static_cast<std::size_t>(i)];
                for (int j = j0, j1 = std::min(j0 + kColumns, i); j < j1 && found < 0; ++j)
                    if (similar(g[j], g[i])) found = j;
            }
    };
    const int blocks = (count + kRows - 1) / kRows;
    forEachBlock(blocks, blocks > 4 ? parallelWorkers() : 1, rows, [](int) {});
    std::vector<std::int32_t> tags(static_cast<std::size_t>(count), -1);
    std::int32_t fresh = 0;
    for (std::size_t i = 0; i < tags.size(); ++i)
        tags[i] = first[i] < 0 ? fresh++ : tags[static_cast<std::size_t>(first[i])];
    return tags;
}

ThresholdRange poolThresholdRange(const Pool& pool, int depth, const std::function<void(int)>& progress) {
    int n = static_cast<int>(std::clamp(MinNonZero(1000, depth), 1.0, 1000.0));
    int count = std::min<int>(pool.drifterCount, static_cast<int>(pool.drifters.size()));
    const EqualGeneRange found = equalGeneRange(PackedGenes(pool, count, n), progress);
    ThresholdRange r{found.low, found.high};
    // Fewer than two drifters: nothing to tell apart, a drifter matches itself wholly.
    if (r.high < 0) r.low = r.high = n;
    if (n != 1000) {
        r.low = static_cast<int>(std::nearbyint(r.low * 1000.0 / n));
        r.high = static_cast<int>(std::nearbyint(r.high * 1000.0 / n));
    }
    return r;
}

std::string thresholdRangeMessage(const ThresholdRange& r) {
    auto percent = [](int thousandths) { return " " + NumberText(thousandths / 10.0); };
    if (r.high == r.low)
        return "Zero range found.  Listed drifters all match " + percent(r.low) +
               "% of each other's genetic sequences.";
    return "Range found.  Listed drifters all match from" + percent(r.low) + "% to " + percent(r.high) +
           "% of each other's genetic sequences.";
}

void findPoolThresholdRange(App& app) {
    ProgressBarState& bar = app.PoolProgressBar1;
    bar.show(0, app.openPool.drifterCount - 1);
    ThresholdRange r = poolThresholdRange(app.openPool, app.similarityDepth, [&](int i) { bar.setValue(i); });
    bar.hide();
    if (r.high != r.low) app.ui.YieldToUi();
    app.ui.ShowMessage(thresholdRangeMessage(r));
}

}  // namespace aq
