#pragma once
// The four sliders of a selection box (X, Y, Width, Height) with their captions, as
// the drifter tab and the food tab both show them. The core keeps their state.
#include <QGridLayout>
#include <QLabel>
#include <QSlider>
#include <functional>

#include "pooleditor/SelectionBox.h"

namespace aqapp {

class BoxSliders {
public:
    // `prefix` names the controls: prefix + "X", "lbl" + stem + "X" and so on.
    // `moved(slider, position)` gets 0..3 for X, Y, Width, Height.
    BoxSliders(QWidget* owner, const QString& sliderPrefix, const QString& labelPrefix,
               std::function<void(int, int)> moved);
    QGridLayout* layout() const { return grid_; }
    // Shows range, position and visibility as the core has them, without raising events.
    void show(const aq::BoxControls& c);

private:
    QGridLayout* grid_;
    QSlider* sliders_[4];
    QLabel* labels_[4];
};

}  // namespace aqapp
