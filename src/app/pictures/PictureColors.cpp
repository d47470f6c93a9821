#include "app/pictures/PictureColors.h"

#include <QPalette>

namespace aqapp {

namespace {

// `a` moved towards `b` by `t` (0 to 1).
QColor mix(const QColor& a, const QColor& b, double t, int alpha = 255) {
    auto part = [t](int x, int y) { return static_cast<int>(x + (y - x) * t + 0.5); };
    return QColor(part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue()), alpha);
}

// Water is the ground tinted blue: on white it gives the light set's (235, 244, 250).
const QColor kWaterTint(55, 145, 205);

}  // namespace

PictureColors PictureColors::light() {
    return {QColor(250, 250, 250),
            QColor(235, 244, 250),
            QColor(90, 110, 130),
            Qt::black,
            Qt::white,
            QColor(60, 60, 60),
            QColor(110, 110, 110),
            QColor(60, 60, 60, 120),
            QColor(40, 40, 40),
            QColor(232, 232, 232)};
}

PictureColors PictureColors::of(const QPalette& p) {
    const QColor base = p.color(QPalette::Base), window = p.color(QPalette::Window);
    const QColor ink = p.color(QPalette::Text), windowText = p.color(QPalette::WindowText);
    // Rims and outlines part coloured shapes from each other, so they stay dark on any ground.
    const QColor deep = ink.lightness() < base.lightness() ? ink : base;
    return {window,
            mix(base, kWaterTint, 0.1),
            mix(base, mix(windowText, kWaterTint, 0.3), 0.55),
            ink,
            base,
            windowText,
            mix(windowText, window, 0.4),
            mix(deep, base, 0.24, 120),
            mix(deep, base, 0.15),
            mix(window, windowText, 0.08)};
}

}  // namespace aqapp
