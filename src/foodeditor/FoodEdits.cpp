#include "foodeditor/FoodEdits.h"

#include <algorithm>

#include "foodeditor/FoodList.h"
#include "files/PoolOps.h"
#include "files/PoolSave.h"
#include "pooleditor/TickedRecords.h"
#include "files/FileNames.h"
#include "base/NumberText.h"

namespace aq {

namespace {

// The diagonal of the 8000 by 8000 pool: the proximity distance at threshold 0.
constexpr double kPoolDiagonal = 11313.7;

int listedFood(const App& app) {
    int n = std::min(app.lstPoolFood.count(), app.openPool.foodCount);
    return std::min(n, static_cast<int>(app.openPool.food.size()));
}

// A food bit is a point: it moves by its own coordinates alone.
class FoodContents : public BoxContents {
public:
    explicit FoodContents(App& app) : app_(app), count_(listedFood(app)) {}
    int count() const override { return count_; }
    bool selected(int i) const override { return app_.lstPoolFood.checked(i); }
    float coordinate(int i, Axis axis) const override {
        const FoodBit& f = app_.openPool.food[static_cast<std::size_t>(i)];
        return axis == Axis::X ? f.x : f.y;
    }
    void moveTo(int i, Axis axis, float value) override {
        FoodBit& f = app_.openPool.food[static_cast<std::size_t>(i)];
        (axis == Axis::X ? f.x : f.y) = value;
    }

private:
    App& app_;
    int count_;
};

BoxControls foodSliders(App& app) {
    return {app.SliderFoodX, app.SliderFoodY, app.SliderFoodWidth, app.SliderFoodHeight,
            app.lblFoodX,    app.lblFoodY,    app.lblFoodWidth,    app.lblFoodHeight};
}

}  // namespace

void foodTickedByUser(App& app, int row) {
    if (app.uiBusy) return;
    app.lstPoolFood.setCurrentIndex(row);
    ApplyFoodGroup(app);
}

void ApplyFoodGroup(App& app) {
    app.uiBusy = true;
    CheckList& list = app.lstPoolFood;
    int c = list.currentIndex();
    if (c < 0 || c >= listedFood(app)) {
        app.uiBusy = false;
        return;
    }
    float t = (100.0f - app.foodThreshold) / 100.0f;
    double d = t * kPoolDiagonal;
    const std::vector<FoodBit>& food = app.openPool.food;
    const FoodBit& clicked = food[static_cast<std::size_t>(c)];
    bool tick = list.checked(c);
    for (int i = 0; i < listedFood(app); ++i) {
        const FoodBit& f = food[static_cast<std::size_t>(i)];
        bool inGroup = false;
        // Only x counts for proximity, as a band across the pool.
        if (app.comboFoodGroup == 1) inGroup = f.family == clicked.family;
        if (app.comboFoodGroup == 2)
            inGroup = static_cast<float>(f.x - d) <= clicked.x && static_cast<float>(f.x + d) >= clicked.x;
        if (inGroup) list.setChecked(i, tick);
    }
    setFoodSliders(app);
    list.setCurrentIndex(c);
    list.setVisible(true);
    app.uiBusy = false;
}

void InvertFoodSelection(App& app) {
    BusyScope busy(app);
    CheckList& list = app.lstPoolFood;
    int current = list.currentIndex();
    list.setVisible(false);
    for (int i = 0; i < list.count(); ++i) list.setChecked(i, !list.checked(i));
    list.setCurrentIndex(current);
    list.setVisible(true);
    setFoodSliders(app);
}

void setFoodSliders(App& app) {
    BusyScope busy(app);
    setBoxSliders(FoodContents(app), foodSliders(app));
}

void MoveFoodBox(App& app, Axis axis, int position) {
    (axis == Axis::X ? app.SliderFoodX : app.SliderFoodY).setValue(position);
    if (app.uiBusy) return;
    FoodContents contents(app);
    if (moveBox(contents, axis, position)) app.poolChanged = true;
    populateFoodList(app);
}

void StretchFoodBox(App& app, Axis axis, int position) {
    (axis == Axis::X ? app.SliderFoodWidth : app.SliderFoodHeight).setValue(position);
    if (app.uiBusy) return;
    FoodContents contents(app);
    if (stretchBox(contents, axis, position)) app.poolChanged = true;
    setFoodSliders(app);
    populateFoodList(app);
}

void saveSelectedFood(App& app) {
    CheckList& list = app.lstPoolFood;
    if (list.checkedCount() == 0) {
        app.ui.ShowMessage("Nothing Selected");
        return;
    }
    app.undoPool = app.openPool;
    app.undoPool.food = recordsTicked(app.openPool.food, app.openPool.foodCount, list, true);
    app.undoPool.foodCount = static_cast<std::int32_t>(app.undoPool.food.size());
    if (app.ui.AskYesNo("If you answer NO to the following question, the generated pool file will not have any "
                        "drifters in it.\r\n\r\nWould you like the drifters copied from the open pool to the pool file "
                        "where the selected food bits are being saved?",
                        "Clone Drifters into New Pool") == Answer::No)
        app.undoPool.drifterCount = 0;
    saveUndoPoolAs(app, "Save New Pool with Selected Food Bits");
}

void deleteSelectedFood(App& app) {
    CheckList& list = app.lstPoolFood;
    int n = list.checkedCount();
    if (n == 0) {
        app.ui.ShowMessage("No Food Selected");
        return;
    }
    Answer a = app.ui.AskYesNoCancel("You are about to delete the " + NumberText(n) +
                                     " selected food bits. These food bits can be saved to a pool file before deletion "
                                     "if you answer YES to the following question. If you answer NO, they will simply "
                                     "be deleted from the open pool.\r\n\r\nSave the  selected food bits before "
                                     "deletion?");
    if (a == Answer::Cancel) return;
    if (a == Answer::Yes) saveSelectedFood(app);

    app.tempPool = app.openPool;
    dropTickedRecords(app.tempPool.food, app.tempPool.foodCount, list, n);
    app.openPool = app.tempPool;
    app.poolChanged = true;
    removeTickedRows(list);
}

void mSelectFoodDelete(App& app) {
    deleteSelectedFood(app);
    setFoodSliders(app);
    app.stateChanged();
}

}  // namespace aq
