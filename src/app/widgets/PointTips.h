#pragma once
// Tooltips that depend on the point under the pointer (a pool, a gene), for a picture's event().
#include <QEvent>
#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

namespace aqapp {

// For a tooltip event: shows what `tipAt` gives for the point, or hides any tip when it
// gives nothing, and returns true. Any other event: false.
template <typename TipAt>
bool showPointTip(QWidget* widget, QEvent* e, TipAt tipAt) {
    if (e->type() != QEvent::ToolTip) return false;
    auto* help = static_cast<QHelpEvent*>(e);
    const QString tip = tipAt(help->pos());
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), tip, widget);
    return true;
}

}  // namespace aqapp
