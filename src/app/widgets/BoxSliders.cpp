#include "app/widgets/BoxSliders.h"

#include <QSignalBlocker>
#include <algorithm>

namespace aqapp {

BoxSliders::BoxSliders(QWidget* owner, const QString& sliderPrefix, const QString& labelPrefix,
                       std::function<void(int, int)> moved)
    : grid_(new QGridLayout) {
    const char* stems[4] = {"X", "Y", "Width", "Height"};
    for (int k = 0; k < 4; ++k) {
        labels_[k] = new QLabel(stems[k], owner);
        labels_[k]->setObjectName(labelPrefix + stems[k]);
        sliders_[k] = new QSlider(Qt::Horizontal, owner);
        sliders_[k]->setObjectName(sliderPrefix + stems[k]);
        sliders_[k]->setTickPosition(QSlider::TicksBelow);
        grid_->addWidget(labels_[k], k, 0);
        grid_->addWidget(sliders_[k], k, 1);
        QObject::connect(sliders_[k], &QSlider::valueChanged, owner, [moved, k](int v) { moved(k, v); });
    }
}

void BoxSliders::show(const aq::BoxControls& c) {
    const aq::SliderState* states[4] = {&c.x, &c.y, &c.width, &c.height};
    const bool captions[4] = {c.lblX, c.lblY, c.lblWidth, c.lblHeight};
    for (int k = 0; k < 4; ++k) {
        QSlider* s = sliders_[k];
        const aq::SliderState& st = *states[k];
        QSignalBlocker block(s);
        s->setRange(st.min, st.max);
        s->setValue(st.value);
        s->setTickInterval(std::max(st.tickFrequency, 1));
        s->setSingleStep(std::max((st.max - st.min) / 100, 1));
        s->setPageStep(std::max(st.tickFrequency, 1));
        s->setVisible(st.visible);
        labels_[k]->setVisible(captions[k]);
    }
}

}  // namespace aqapp
