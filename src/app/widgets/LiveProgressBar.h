#pragma once
// A progress bar that the core's long loops paint while they run: no event is handled
// until such a loop returns, so a bar shown only from the event loop is never seen.
#include <QLayout>
#include <QPointer>
#include <QProgressBar>
#include <algorithm>

#include "base/Controls.h"

namespace aqapp {

inline void showProgressBar(QProgressBar* bar, const aq::ProgressBarState& s) {
    bar->setRange(s.min, std::max(s.min, s.max));
    bar->setValue(s.value);
    bar->setVisible(s.visible);
}

inline void paintProgressLive(QProgressBar* bar, aq::ProgressBarState& state) {
    state.paint = [bar = QPointer<QProgressBar>(bar)](const aq::ProgressBarState& s) {
        if (!bar) return;
        const bool appears = s.visible && bar->isHidden();
        showProgressBar(bar, s);
        // A bar that has just appeared needs its place in the layout before it can paint.
        QWidget* parent = bar->parentWidget();
        if (appears && parent && parent->layout()) parent->layout()->activate();
        if (bar->isVisible()) bar->repaint();
    };
}

}  // namespace aqapp
