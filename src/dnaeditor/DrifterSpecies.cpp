// The species of the loaded DNA files, worked out in slices of at most two seconds,
// and the threshold controls that decide them.
#include <algorithm>
#include <cmath>

#include "base/NumberText.h"
#include "base/ThresholdText.h"
#include "dnaeditor/DrifterFiles.h"
#include "pooleditor/PackedGenes.h"
#include "pooleditor/Similarity.h"
#include "pooleditor/SpeciesPass.h"

namespace aq {

namespace {

constexpr double kSliceSeconds = 2.0;

void beginPass(App& app) {
    DrifterSpeciesPass& p = app.dna.pass;
    p.noticeShown = false;
    p.lastIndex = static_cast<std::int16_t>(app.dna.dnaCount - 1);
    p.maxGroup = -1;
    p.passIndex = 0;
    p.passRunning = true;
}

// The line's file name with the species prefix of a finished pass, or none when all
// files are one species or each is its own.
void writeSpeciesPrefixes(App& app) {
    DrifterSpeciesPass& p = app.dna.pass;
    CheckList& list = app.lstSpeciateDrifters;
    ProgressBarState& bar = app.dna.drifterProgressBar1;
    list.setVisible(false);
    BusyScope busy(app);
    bar.show(0, p.lastIndex);
    for (int i = 0; i <= p.lastIndex && i < list.count(); ++i) {
        bar.setValue(i);
        std::string text = list.text(i);
        if (!text.empty() && text.front() == '{') {
            auto cut = text.find(", ");
            text = cut == std::string::npos ? text.substr(1) : text.substr(cut + 2);
        }
        if (p.maxGroup > 0 && p.maxGroup < p.lastIndex) text = "{" + std::to_string(list.tag(i)) + "}, " + text;
        list.setText(i, std::move(text));
    }
    bar.hide();
    list.setVisible(true);
    p.maxGroup = -1;
}

}  // namespace

bool drifterGenomesSimilar(const App& app, const Genome& a, const Genome& b) {
    return GenomesSimilar(a.data(), b.data(), app.drifterThreshold, app.similarityDepth);
}

void speciateDrifterList(App& app) {
    if (app.uiBusy) return;
    DrifterSpeciesPass& p = app.dna.pass;
    DnaFolder& d = app.dna;
    CheckList& list = app.lstSpeciateDrifters;
    auto now = [&] { return static_cast<float>(app.clock.secondsSinceMidnight()); };
    p.sliceStart = now();
    auto elapsed = [&] { return elapsedSeconds(p.sliceStart, now()); };
    if (!p.passRunning && app.speciesPending) beginPass(app);
    p.passStart = p.passIndex;
    const Kinship similar(app.drifterThreshold, app.similarityDepth);

    while (p.passIndex <= p.lastIndex && elapsed() < kSliceSeconds) {
        const int i = p.passIndex;
        if (i >= d.dnaCount || i >= list.count()) {
            // The folder changed under a running pass: it starts over with the next slice.
            beginPass(app);
            return;
        }
        std::int32_t group = p.maxGroup + 1;
        const std::uint8_t* genes = d.dnaGenes[static_cast<std::size_t>(i)].data();
        for (int j = 0; j < i; ++j) {
            if (similar(d.dnaGenes[static_cast<std::size_t>(j)].data(), genes)) {
                group = list.tag(j);
                break;
            }
        }
        if (group > p.maxGroup) p.maxGroup = static_cast<std::int16_t>(group);
        list.setTag(i, group);
        ++p.passIndex;
    }

    if (d.comboSpeciateDrifterGroup == 2 && app.speciesPending && !p.noticeShown &&
        p.passIndex - p.passStart < p.lastIndex / (p.patience + 10)) {
        p.noticeShown = true;
        // Each notice waits for a slower pass than the last: 16, 32, ... 256.
        if (p.patience < 200) p.patience = static_cast<std::int16_t>(p.patience * 2);
        if (p.patience < 1) p.patience = 16;
        list.setEnabled(false);
        list.setVisible(true);
        app.notice->show(kPoolSpeciesNotice);
    }

    if (elapsed() > kSliceSeconds) return;
    if (p.passIndex >= p.lastIndex && app.speciesPending) writeSpeciesPrefixes(app);
    if (!(p.passIndex < p.lastIndex && app.speciesPending)) {
        list.setEnabled(true);
        p.passRunning = false;
        app.speciesPending = false;
    }
}

void scrollDrifterSpeciesThresholdChange(App& app) {
    DnaFolder& d = app.dna;
    const int position = d.scrollDrifterSpeciesThreshold.pos;
    app.drifterThreshold = static_cast<float>(position / 10.0);
    if (!d.dnaFolder.empty()) {
        // One slice under the new threshold closes a pass that can finish now; then the
        // timer starts afresh.
        app.speciesPending = false;
        speciateDrifterList(app);
        app.speciesPending = true;
        if (d.comboSpeciateDrifterGroup == 2) app.lstSpeciateDrifters.setEnabled(false);
    }
    if (!app.uiBusy) {
        d.thresholdText = thresholdText(position) + "%";
        app.lastThresholdEdit = app.clock.secondsSinceMidnight();
    }
    app.stateChanged();
}

void setDrifterThresholdPosition(App& app, int position) {
    ScrollBarState& s = app.dna.scrollDrifterSpeciesThreshold;
    position = std::clamp(position, s.min, s.max);
    if (position == s.pos) return;
    s.pos = position;
    scrollDrifterSpeciesThresholdChange(app);
}

void typeDrifterSpeciesThreshold(App& app, const std::string& text, int caret) {
    app.dna.thresholdText = text;
    app.dna.thresholdCaret = caret;
    app.lastThresholdEdit = app.clock.secondsSinceMidnight();
    app.drifterThresholdTyped = true;
}

void validateDrifterSpeciesThreshold(App& app) {
    if (app.uiBusy) {
        app.drifterThresholdTyped = true;
        return;
    }
    app.drifterThresholdTyped = false;
    DnaFolder& d = app.dna;
    const int caret = d.thresholdCaret;
    const ScrollBarState& s = d.scrollDrifterSpeciesThreshold;
    const int position = thresholdPosition(d.thresholdText, s.min, s.max);
    app.uiBusy = true;
    setDrifterThresholdPosition(app, position);
    app.ui.YieldToUi();
    app.uiBusy = false;
    d.thresholdCaret = caret;
}

void findDrifterThresholdRange(App& app) {
    DnaFolder& d = app.dna;
    ProgressBarState& bar = d.drifterProgressBar1;
    const int n = static_cast<int>(std::clamp(MinNonZero(1000, app.similarityDepth), 1.0, 1000.0));
    bar.show(0, d.dnaCount - 1);
    auto [low, high] = equalGeneRange(PackedGenes(d.dnaGenes, d.dnaCount, n), [&bar](int i) { bar.setValue(i); });
    bar.hide();
    // Fewer than two files: nothing to tell apart, a file matches itself wholly.
    if (high < 0) low = high = n;
    if (n != 1000) {
        low = static_cast<int>(std::nearbyint(low * 1000.0 / n));
        high = static_cast<int>(std::nearbyint(high * 1000.0 / n));
    }
    auto percent = [](int thousandths) { return " " + NumberText(thousandths / 10.0); };
    if (high == low) {
        restoreDrifterSpeciateScroll(app);
        app.stateChanged();
        app.ui.ShowMessage("No range found.  Listed drifters all match " + percent(low) +
                           "% of each other's genetic sequences.");
        return;
    }
    ScrollBarState& s = d.scrollDrifterSpeciesThreshold;
    s.min = low;
    s.max = high;
    app.stateChanged();
    app.ui.YieldToUi();
    d.thresholdItems.clear();
    int step = std::max(1, (high - low) / 10);
    while (step > 1 && (high - low) % step != 0) --step;
    for (int f = low; f <= high; f += step) d.thresholdItems.push_back(NumberText(std::floor(f + 0.5) / 10.0) + "%");
    // A position outside the new range is pulled in, and its handler runs.
    if (s.pos < low || s.pos > high) {
        s.pos = std::clamp(s.pos, low, high);
        scrollDrifterSpeciesThresholdChange(app);
    }
    app.stateChanged();
    app.ui.ShowMessage("Range found.  Listed drifters all match from" + percent(low) + "% to " + percent(high) +
                       "% of each other's genetic sequences.");
}

}  // namespace aq
