#include "pooleditor/SelectionCommands.h"

#include <algorithm>

#include "pooleditor/BulkEdits.h"
#include "pooleditor/Similarity.h"
#include "pooleditor/SpeciesPass.h"

namespace aq {

namespace {

// Every command works inside the same frame: busy, list hidden, current row kept,
// sliders brought up to date at the end.
template <class Work>
void selectionCommand(App& app, Work work) {
    BusyScope busy(app);
    CheckList& list = app.lstSpeciatePool;
    int current = list.currentIndex();
    list.setVisible(false);
    work(list, current);
    list.setCurrentIndex(current);
    list.setVisible(true);
    setSpeciatePoolSliders(app);
}

int rowsWithDrifters(const App& app) {
    return std::min(
        {app.lstSpeciatePool.count(), app.openPool.drifterCount, static_cast<int>(app.openPool.drifters.size())});
}

}  // namespace

void SelectAllDrifters(App& app) {
    selectionCommand(app, [](CheckList& list, int&) {
        for (int i = 0; i < list.count(); ++i) list.setChecked(i, true);
    });
}

void InvertPoolDrifterSelection(App& app) {
    selectionCommand(app, [](CheckList& list, int&) {
        for (int i = 0; i < list.count(); ++i) list.setChecked(i, !list.checked(i));
    });
}

void SelectRecordHolders(App& app, const std::function<double(const DrifterRec&)>& measure, double start) {
    selectionCommand(app, [&](CheckList& list, int& current) {
        int rows = rowsWithDrifters(app);
        auto of = [&](int i) { return measure(app.openPool.drifters[static_cast<std::size_t>(i)]); };
        double best = start;
        for (int i = 0; i < rows; ++i) best = MaxOf(best, of(i));
        int was = current;
        bool moved = false;
        for (int i = 0; i < rows; ++i) {
            if (of(i) != best) continue;
            list.setChecked(i, true);
            if (!moved && i != was) {
                current = i;
                moved = true;
            }
        }
    });
}

void mSelectOldest(App& app) {
    SelectRecordHolders(
        app, [](const DrifterRec& d) { return d.age; }, -1);
}
void mSelectMostProlithic(App& app) {
    SelectRecordHolders(
        app, [](const DrifterRec& d) { return double(d.maternalOffspring) + d.paternalOffspring; }, -1);
}
void mSelectMaternal(App& app) {
    SelectRecordHolders(
        app, [](const DrifterRec& d) { return double(d.maternalOffspring) - d.paternalOffspring; }, -1000);
}
void mSelectPaternal(App& app) {
    SelectRecordHolders(
        app, [](const DrifterRec& d) { return double(d.paternalOffspring) - d.maternalOffspring; }, -1000);
}
void mSelectBiggestEater(App& app) {
    SelectRecordHolders(
        app, [](const DrifterRec& d) { return d.mealsEaten; }, -1);
}
void mSelectHeaviest(App& app) {
    // A float measure compares as the float it is.
    SelectRecordHolders(
        app, [](const DrifterRec& d) { return static_cast<double>(d.mass); }, -1.0);
}

void ToggleQuickSpeciate(App& app) {
    app.quickSpeciate = !app.quickSpeciate;
    int position = app.scrollPoolSpeciesThreshold;
    {
        BusyScope busy(app);
        app.similarityDepth = similarityDepthFor(app.quickSpeciate);
        // A nudge away and back makes the scrollbar report a change, which restarts the pass.
        setPoolSpeciesThresholdPosition(app, position <= 0 ? 1000 : 0);
    }
    setPoolSpeciesThresholdPosition(app, position);
    app.poolThresholdTyped = true;
    app.drifterThresholdTyped = true;
}

}  // namespace aq
