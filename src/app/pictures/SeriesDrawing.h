#pragma once
// The picture of a series: the tree of its pools above, a chart of one branch below,
// their generation columns lined up. Plain data in, so the view, the --picture command
// and the benchmark draw the same thing.
#include <QRectF>
#include <QSize>
#include <QString>
#include <optional>
#include <vector>

#include "app/pictures/PictureColors.h"
#include "app/pictures/SeriesLayout.h"
#include "series/SeriesFigures.h"

class QFontMetricsF;
class QPainter;

namespace aqapp {

enum class SeriesColoring { Species, Score };

struct SeriesScene {
    std::vector<aq::SeriesMember> members;                // in walk order
    std::vector<std::optional<aq::PoolFigures>> figures;  // one per member; none: not read yet
    SeriesLayout layout;
    int running = -1;  // the pool the series works on now
    int hover = -1;    // the pool under the pointer
    SeriesColoring coloring = SeriesColoring::Species;
    QString hint;  // what the picture says without pools

    // New members with their places; their figures are not known yet.
    void setMembers(std::vector<aq::SeriesMember> m);
    // The branch the chart follows: the hovered pool's, else the running pool's, else row 0.
    std::vector<int> chartBranch() const;
};

// Where the picture puts things at a given size; hit tests use the same numbers.
struct SeriesGeometry {
    QRectF tree, chart;
    double columnWidth = 0, rowHeight = 0;
    double largest = 0;  // the radius of the pool with the most live drifters
    QPointF centre(const SeriesPlace& p) const {
        return {tree.left() + (p.column + 0.5) * columnWidth, tree.top() + (p.row + 0.5) * rowHeight};
    }
    double columnX(int column) const { return tree.left() + (column + 0.5) * columnWidth; }
};

SeriesGeometry seriesGeometry(const SeriesScene& scene, QSize size, const QFontMetricsF& fm);
// The pool whose mark is nearest `at` and close enough to be meant, or -1.
int seriesPoolAt(const SeriesScene& scene, const SeriesGeometry& g, QPointF at);
void paintSeries(QPainter& painter, QSize size, const SeriesScene& scene, const PictureColors& colors);
// A pool's row as `aqfm series` lists it, one field a line.
QString seriesTip(const SeriesScene& scene, int index);

}  // namespace aqapp
