#include "pooleditor/BulkEdits.h"

#include <algorithm>

#include "base/NumberText.h"
#include "files/FileNames.h"
#include "files/PoolOps.h"
#include "files/PoolSave.h"
#include "foodeditor/FoodList.h"
#include "pooleditor/DrifterList.h"
#include "pooleditor/TickedRecords.h"

namespace aq {

namespace {

const char* const kNoDrifters = "No Drifters Selected in Open Pool";

// Rows that stand for a drifter of openPool.
int listedDrifters(const App& app) {
    int n = std::min(app.lstSpeciatePool.count(), app.openPool.drifterCount);
    return std::min(n, static_cast<int>(app.openPool.drifters.size()));
}

template <class Fn>
void forTicked(App& app, Fn fn) {
    for (int i = 0; i < listedDrifters(app); ++i)
        if (app.lstSpeciatePool.checked(i)) fn(app.openPool.drifters[static_cast<std::size_t>(i)]);
}

bool anyTicked(App& app) {
    if (app.lstSpeciatePool.checkedCount() > 0) return true;
    app.ui.ShowMessage(kNoDrifters);
    return false;
}

// A drifter carries its whole body along: its previous position and every point of
// its used segments keep their distance from x (or y).
class DrifterContents : public BoxContents {
public:
    explicit DrifterContents(App& app) : app_(app), count_(listedDrifters(app)) {}
    int count() const override { return count_; }
    bool selected(int i) const override { return app_.lstSpeciatePool.checked(i); }
    float coordinate(int i, Axis axis) const override {
        const DrifterRec& d = drifter(i);
        return axis == Axis::X ? d.x : d.y;
    }
    void moveTo(int i, Axis axis, float value) override {
        DrifterRec& d = drifter(i);
        int segments = std::clamp(d.segmentCount, 0, kSegmentSlots);
        if (axis == Axis::X) {
            d.prevX = d.prevX - d.x + value;
            for (int s = 0; s < segments; ++s) {
                Segment& g = d.segments[s];
                for (float* p : {&g.point1X, &g.point2X, &g.point3X, &g.point4X}) *p = *p - d.x + value;
            }
            d.x = value;
        } else {
            d.prevY = d.prevY - d.y + value;
            for (int s = 0; s < segments; ++s) {
                Segment& g = d.segments[s];
                for (float* p : {&g.point1Y, &g.point2Y, &g.point3Y, &g.point4Y}) *p = *p - d.y + value;
            }
            d.y = value;
        }
    }

private:
    DrifterRec& drifter(int i) const { return app_.openPool.drifters[static_cast<std::size_t>(i)]; }
    App& app_;
    int count_;
};

BoxControls drifterSliders(App& app) {
    return {app.SliderSpeciatePoolDrifterX,      app.SliderSpeciatePoolDrifterY,  app.SliderSpeciatePoolDrifterWidth,
            app.SliderSpeciatePoolDrifterHeight, app.lblSpeciatePoolDrifterX,     app.lblSpeciatePoolDrifterY,
            app.lblSpeciatePoolDrifterWidth,     app.lblSpeciatePoolDrifterHeight};
}

SliderState& slider(App& app, Axis axis, bool size) {
    if (size) return axis == Axis::X ? app.SliderSpeciatePoolDrifterWidth : app.SliderSpeciatePoolDrifterHeight;
    return axis == Axis::X ? app.SliderSpeciatePoolDrifterX : app.SliderSpeciatePoolDrifterY;
}

}  // namespace

void killSelectedPoolSpecies(App& app) {
    if (!anyTicked(app)) return;
    forTicked(app, [](DrifterRec& d) { d.alive = 0; });
    app.poolChanged = true;
}

void reviveSelectedPoolSpecies(App& app) {
    if (!anyTicked(app)) return;
    forTicked(app, [](DrifterRec& d) {
        if (d.alive == 0) d.alive = 1;
    });
    app.poolChanged = true;
}

void feedSelectedPoolSpecies(App& app) {
    if (!anyTicked(app)) return;
    double total = 0;
    for (int i = 0; i < app.openPool.drifterCount && static_cast<std::size_t>(i) < app.openPool.drifters.size(); ++i)
        total += app.openPool.drifters[static_cast<std::size_t>(i)].energy;
    // The food on hand limits how much energy one feeding may add to the pool.
    double budget = (4000.0 - app.openPool.foodCount) * 50.0 - total;
    if (budget < 50.0) budget = 50.0;
    double share = std::min(budget / app.lstSpeciatePool.checkedCount(), 50.0);
    forTicked(app, [share](DrifterRec& d) {
        if (d.energy < 2000.0f) d.energy = static_cast<float>(d.energy + share);
    });
    app.poolChanged = true;
}

void saveSelectedPoolSpecies(App& app) {
    CheckList& list = app.lstSpeciatePool;
    if (list.checkedCount() == 0) {
        app.ui.ShowMessage("Nothing Selected");
        return;
    }
    app.undoPool = app.openPool;
    app.undoPool.drifters = recordsTicked(app.openPool.drifters, app.openPool.drifterCount, list, true);
    app.undoPool.drifterCount = static_cast<std::int32_t>(app.undoPool.drifters.size());
    if (app.ui.AskYesNo("If you answer NO to the following question, the generated pool file will not have any food "
                        "bits in it.\r\n\r\nWould you like the food bits copied from the open pool to the pool file "
                        "where the selected drifters are being saved?",
                        "Clone Food Bits into New Pool") == Answer::No)
        app.undoPool.foodCount = 0;
    saveUndoPoolAs(app, "Save New Pool of Selected Drifters");
}

void deleteSelectedPoolSpecies(App& app, bool askFirst) {
    CheckList& list = app.lstSpeciatePool;
    int n = list.checkedCount();
    if (n == 0) {
        app.ui.ShowMessage(kNoDrifters);
        return;
    }
    Answer a = Answer::Yes;
    if (askFirst)
        a = app.ui.AskYesNoCancel("You are about to delete the " + NumberText(n) +
                                  " selected drifters. These drifters can be saved to a pool file before deletion if "
                                  "you answer YES to the following question. If you answer NO, they will simply be "
                                  "deleted from the open pool.\r\n\r\nSave the  selected drifters before deletion?");
    if (a == Answer::Cancel) return;
    if (a == Answer::Yes) saveSelectedPoolSpecies(app);

    app.tempPool = app.openPool;
    dropTickedRecords(app.tempPool.drifters, app.tempPool.drifterCount, list, n);
    app.openPool = app.tempPool;
    app.poolChanged = true;
    removeTickedRows(list);
}

void setSpeciatePoolSliders(App& app) {
    BusyScope busy(app);
    setBoxSliders(DrifterContents(app), drifterSliders(app));
}

void MoveDrifterBox(App& app, Axis axis, int position) {
    slider(app, axis, false).setValue(position);
    if (app.uiBusy) return;
    DrifterContents contents(app);
    if (moveBox(contents, axis, position)) app.poolChanged = true;
    populateSpeciatePoolList(app);
}

void StretchDrifterBox(App& app, Axis axis, int position) {
    slider(app, axis, true).setValue(position);
    if (app.uiBusy) return;
    DrifterContents contents(app);
    if (stretchBox(contents, axis, position)) app.poolChanged = true;
    setSpeciatePoolSliders(app);
    populateSpeciatePoolList(app);
}

namespace {
template <void (*Edit)(App&)>
void editThenRefresh(App& app) {
    Edit(app);
    populateSpeciatePoolList(app);
    populateFoodList(app);
    setSpeciatePoolSliders(app);
    app.stateChanged();
}
}  // namespace

void mSelectKill(App& app) { editThenRefresh<killSelectedPoolSpecies>(app); }
void mSelectRevive(App& app) { editThenRefresh<reviveSelectedPoolSpecies>(app); }
void mSelectPoolFeed(App& app) { editThenRefresh<feedSelectedPoolSpecies>(app); }

void mSelectPoolMove(App& app) {
    deleteSelectedPoolSpecies(app, false);
    setSpeciatePoolSliders(app);
    app.stateChanged();
}

void mSelectPoolDelete(App& app) {
    deleteSelectedPoolSpecies(app, true);
    setSpeciatePoolSliders(app);
    app.stateChanged();
}

}  // namespace aq
