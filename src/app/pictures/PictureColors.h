#pragma once
// The colours of the map and the genome picture around their data. On screen they follow
// the widget's palette, so a dark desktop gets a dark map; files get one fixed light set,
// so a picture looks the same whoever saved it. The drifters' and genes' own colours are
// data and never change.
#include <QColor>

class QPalette;

namespace aqapp {

struct PictureColors {
    QColor background;  // around the pool's bounds, behind the genome strips
    QColor water;       // inside the pool's bounds
    QColor border;      // the pool's edge
    QColor ink;         // rings of ticked food, the chosen gene's inner outline, names on strips
    QColor backdrop;    // the chosen gene's outer outline, behind names on strips
    QColor text;        // gene numbers and the legend
    QColor hint;        // what an empty picture says
    QColor outline;     // between the segments of a big body
    QColor rim;         // around a newborn's dot
    QColor band;        // the ground of the row of differing genes

    static PictureColors light();
    static PictureColors of(const QPalette& palette);
};

}  // namespace aqapp
