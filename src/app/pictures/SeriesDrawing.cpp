#include "app/pictures/SeriesDrawing.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPolygonF>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <filesystem>

#include "app/pictures/GenomePicture.h"
#include "base/NumberText.h"

namespace aqapp {

namespace {

const QColor kUnknown(150, 150, 150);
const QColor kUnreadable(215, 25, 28);
const QColor kAliveLine(40, 110, 220);
const QColor kSpeciesLine(230, 120, 20);
constexpr double kPad = 6;
constexpr double kSmallest = 3.5;  // an extinct pool's ring, big enough to see and to hover
constexpr double kLargest = 16;
constexpr double kWidestColumn = 120, kTallestRow = 56;

struct Range {
    double low = 0, high = -1;
    void take(double v) {
        if (high < low) low = high = v;
        low = std::min(low, v);
        high = std::max(high, v);
    }
    bool any() const { return high >= low; }
    double share(double v) const { return high > low ? (v - low) / (high - low) : 0.5; }
};

// Series-wide, so the marks and the chart's scales hold still while the pointer moves.
struct Totals {
    int mostAlive = 0;
    int mostSpecies = 0;
    Range colour;
};

const aq::PoolFigures* readable(const SeriesScene& s, int i) {
    const auto& f = s.figures[std::size_t(i)];
    return f && f->error.empty() ? &*f : nullptr;
}

std::optional<double> colourValue(const SeriesScene& s, int i) {
    const aq::PoolFigures* f = readable(s, i);
    if (!f) return std::nullopt;
    if (s.coloring == SeriesColoring::Species)
        return f->species >= 0 ? std::optional<double>(f->species) : std::nullopt;
    return f->bestScore ? std::optional<double>(*f->bestScore) : std::nullopt;
}

Totals totalsOf(const SeriesScene& s) {
    Totals t;
    for (int i = 0; i < int(s.members.size()); ++i) {
        if (const aq::PoolFigures* f = readable(s, i)) {
            t.mostAlive = std::max(t.mostAlive, f->alive);
            t.mostSpecies = std::max(t.mostSpecies, f->species);
        }
        if (auto v = colourValue(s, i)) t.colour.take(*v);
    }
    return t;
}

// Viridis without its darkest and lightest ends, which vanish on a dark or a light ground.
QColor rampColour(double share) {
    return QColor(GenomePicture::valueColor(int(std::lround(20 + 215 * std::clamp(share, 0.0, 1.0)))));
}

double radiusOf(const SeriesScene& s, const SeriesGeometry& g, const Totals& t, int i) {
    const aq::PoolFigures* f = readable(s, i);
    if (!s.figures[std::size_t(i)]) return kSmallest + 1;
    if (!f || f->alive <= 0 || t.mostAlive <= 0) return std::max(kSmallest, g.largest * 0.3);
    // The area, not the radius, tells the number of live drifters.
    return std::max(kSmallest, g.largest * std::sqrt(double(f->alive) / t.mostAlive));
}

// Scores are floats; written as such they read as the tooltip and aqfm show them.
QString number(double v) { return QString::fromStdString(aq::NumberText(static_cast<float>(v))); }

void paintMarks(QPainter& p, const SeriesScene& s, const SeriesGeometry& g, const Totals& t,
                const PictureColors& colors) {
    for (int i = 0; i < int(s.members.size()); ++i) {
        const QPointF at = g.centre(s.layout.places[std::size_t(i)]);
        const double r = radiusOf(s, g, t, i);
        const auto& f = s.figures[std::size_t(i)];
        if (f && !f->error.empty()) {
            const double arm = std::max(kSmallest + 1.5, g.largest * 0.6);
            p.setPen(QPen(kUnreadable, 2));
            p.drawLine(at + QPointF(-arm, -arm), at + QPointF(arm, arm));
            p.drawLine(at + QPointF(-arm, arm), at + QPointF(arm, -arm));
        } else {
            auto v = colourValue(s, i);
            const QColor fill = v ? rampColour(t.colour.share(*v)) : kUnknown;
            if (f && f->alive <= 0) {
                // Hollow: its colour as a ring, with a rim that holds on a light ground.
                p.setPen(QPen(colors.rim, 1));
                p.drawEllipse(at, r + 1.5, r + 1.5);
                p.setPen(QPen(fill, 2.5));
                p.setBrush(colors.background);
            } else {
                p.setPen(r >= 3 ? QPen(colors.rim, 1) : Qt::NoPen);
                p.setBrush(fill);
            }
            p.drawEllipse(at, r, r);
        }
        p.setBrush(Qt::NoBrush);
        if (i == s.running) {
            p.setPen(QPen(colors.ink, 2));
            p.drawEllipse(at, r + 3.5, r + 3.5);
        }
        if (i == s.hover) {
            p.setPen(QPen(colors.ink, 1));
            p.drawEllipse(at, r + 2, r + 2);
        }
    }
}

// A line through the known values; an unknown one breaks it.
void paintLine(QPainter& p, const std::vector<QPointF>& points, const std::vector<char>& known, const QColor& colour,
               bool dots) {
    p.setPen(QPen(colour, 2));
    QPolygonF run;
    auto flush = [&] {
        if (run.size() > 1) p.drawPolyline(run);
        run.clear();
    };
    for (std::size_t k = 0; k < points.size(); ++k) {
        if (known[k])
            run << points[k];
        else
            flush();
    }
    flush();
    if (!dots) return;
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    for (std::size_t k = 0; k < points.size(); ++k)
        if (known[k]) p.drawEllipse(points[k], 2.5, 2.5);
    p.setBrush(Qt::NoBrush);
}

void paintChart(QPainter& p, const SeriesScene& s, const SeriesGeometry& g, const Totals& t,
                const std::vector<int>& branch, const PictureColors& colors) {
    const QFontMetricsF fm(p.font());
    const QRectF plot = g.chart;
    p.setPen(QPen(colors.border, 1));
    p.drawLine(plot.bottomLeft(), plot.bottomRight());
    p.drawLine(plot.topLeft(), plot.bottomLeft());
    p.drawLine(plot.topRight(), plot.bottomRight());

    // The scales: live drifters on the left, species on the right, each in its line's colour.
    const int mostAlive = std::max(1, t.mostAlive), mostSpecies = std::max(1, t.mostSpecies);
    auto scaleText = [&](double x, double y, const QString& text, bool leftSide) {
        double w = fm.horizontalAdvance(text);
        p.drawText(QPointF(leftSide ? x - 4 - w : x + 4, y + fm.ascent() / 2 - 1), text);
    };
    p.setPen(kAliveLine);
    scaleText(plot.left(), plot.bottom(), "0", true);
    scaleText(plot.left(), plot.top(), QString::number(mostAlive), true);
    p.setPen(kSpeciesLine);
    scaleText(plot.right(), plot.bottom(), "0", false);
    scaleText(plot.right(), plot.top(), QString::number(mostSpecies), false);

    // Generation numbers, as many as fit side by side.
    p.setPen(colors.text);
    const int columns = s.layout.columns;
    const double labelWidth = fm.horizontalAdvance(QString::number(std::max(columns - 1, 0))) + 10;
    int step = 1;
    for (int nice : {1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000})
        if ((step = nice) * g.columnWidth >= labelWidth) break;
    for (int col = 0; col < columns; col += step) {
        const double x = g.columnX(col);
        const QString text = QString::number(col);
        p.drawLine(QPointF(x, plot.bottom()), QPointF(x, plot.bottom() + 3));
        p.drawText(QPointF(x - fm.horizontalAdvance(text) / 2, plot.bottom() + 4 + fm.ascent()), text);
    }

    std::vector<QPointF> alive, species;
    std::vector<char> aliveKnown, speciesKnown;
    for (int i : branch) {
        const aq::PoolFigures* f = readable(s, i);
        const double x = g.columnX(s.layout.places[std::size_t(i)].column);
        alive.emplace_back(x, plot.bottom() - plot.height() * (f ? f->alive : 0) / mostAlive);
        aliveKnown.push_back(f != nullptr);
        species.emplace_back(x, plot.bottom() - plot.height() * (f ? std::max(f->species, 0) : 0) / mostSpecies);
        speciesKnown.push_back(f && f->species >= 0);
    }
    const bool dots = g.columnWidth >= 8;
    paintLine(p, alive, aliveKnown, kAliveLine, dots);
    paintLine(p, species, speciesKnown, kSpeciesLine, dots);

    // The legend above the chart: its two lines, the marks' colours, whose branch it is.
    const double baseline = plot.top() - 5 - fm.descent();
    const double mid = baseline - fm.ascent() / 2 + 1;
    double x = plot.left();
    auto key = [&](const QColor& colour, const QString& text) {
        p.setPen(QPen(colour, 2));
        p.drawLine(QPointF(x, mid), QPointF(x + 14, mid));
        p.setPen(colors.text);
        p.drawText(QPointF(x + 18, baseline), text);
        x += 18 + fm.horizontalAdvance(text) + 14;
    };
    key(kAliveLine, "live drifters");
    key(kSpeciesLine, "species");
    if (t.colour.any()) {
        const QString low = number(t.colour.low), high = number(t.colour.high);
        const QString what = s.coloring == SeriesColoring::Species ? "marks: species " : "marks: best score ";
        p.setPen(colors.text);
        p.drawText(QPointF(x, baseline), what + low);
        x += fm.horizontalAdvance(what + low) + 4;
        const QRectF bar(x, mid - fm.ascent() / 3, 60, 2 * fm.ascent() / 3);
        QLinearGradient gradient(bar.topLeft(), bar.topRight());
        for (int k = 0; k <= 4; ++k) gradient.setColorAt(k / 4.0, rampColour(k / 4.0));
        p.fillRect(bar, gradient);
        p.drawText(QPointF(bar.right() + 4, baseline), high);
        x = bar.right() + 4 + fm.horizontalAdvance(high) + 14;
    }
    const int whose = s.hover >= 0 ? s.hover : s.running >= 0 ? s.running : 0;
    const QString name =
        QString::fromStdString(std::filesystem::path(s.members[std::size_t(whose)].path).filename().string());
    const QString owner = (s.hover >= 0 || s.running >= 0) ? "branch of " + name : "first row";
    if (x + fm.horizontalAdvance(owner) <= plot.right()) {
        p.setPen(colors.text);
        p.drawText(QPointF(plot.right() - fm.horizontalAdvance(owner), baseline), owner);
    }
}

}  // namespace

void SeriesScene::setMembers(std::vector<aq::SeriesMember> m) {
    members = std::move(m);
    figures.assign(members.size(), std::nullopt);
    layout = layoutSeries(members);
    running = hover = -1;
}

std::vector<int> SeriesScene::chartBranch() const {
    return seriesBranch(layout, hover >= 0 ? hover : running >= 0 ? running : 0);
}

SeriesGeometry seriesGeometry(const SeriesScene& scene, QSize size, const QFontMetricsF& fm) {
    SeriesGeometry g;
    const double w = size.width(), h = size.height();
    const double left = kPad + fm.horizontalAdvance("00000") + 4;
    const double right = kPad + fm.horizontalAdvance("000") + 4;
    const double chartBlock = std::round(h / 3);
    const double treeHeight = std::max(1.0, h - chartBlock - 2 * kPad);
    const int columns = std::max(1, scene.layout.columns), rows = std::max(1, scene.layout.rows);
    g.columnWidth = std::min(std::max(1.0, w - left - right) / columns, kWidestColumn);
    g.rowHeight = std::min(treeHeight / rows, kTallestRow);
    // A small series stands in the middle of its room rather than in a corner.
    const double x = std::max(left, (w - g.columnWidth * columns + left - right) / 2);
    const double y = kPad + std::max(0.0, (treeHeight - g.rowHeight * rows) / 2);
    g.tree = QRectF(x, y, g.columnWidth * columns, g.rowHeight * rows);
    const double plotTop = h - chartBlock + fm.height() + 6, plotBottom = h - kPad - fm.height() - 4;
    g.chart = QRectF(x, plotTop, g.tree.width(), std::max(1.0, plotBottom - plotTop));
    g.largest = std::clamp(std::min(g.columnWidth, g.rowHeight) * 0.45, kSmallest, kLargest);
    return g;
}

int seriesPoolAt(const SeriesScene& scene, const SeriesGeometry& g, QPointF at) {
    int best = -1;
    double bestDistance = std::max(g.largest, 6.0) + 2;
    for (int i = 0; i < int(scene.members.size()); ++i) {
        const QPointF d = g.centre(scene.layout.places[std::size_t(i)]) - at;
        const double distance = std::hypot(d.x(), d.y());
        if (distance <= bestDistance) best = i, bestDistance = distance;
    }
    return best;
}

void paintSeries(QPainter& p, QSize size, const SeriesScene& s, const PictureColors& colors) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing, true);
    p.fillRect(QRect(QPoint(0, 0), size), colors.background);
    if (s.members.empty()) {
        p.setPen(colors.hint);
        p.drawText(QRect(QPoint(0, 0), size).adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap, s.hint);
        p.restore();
        return;
    }
    const SeriesGeometry g = seriesGeometry(s, size, QFontMetricsF(p.font()));
    const Totals t = totalsOf(s);
    const std::vector<int> branch = s.chartBranch();
    std::vector<char> onBranch(s.members.size(), 0);
    for (int i : branch) onBranch[std::size_t(i)] = 1;

    // Parent to child: down at the parent's column, then across. The layout leaves no
    // pool in the way and no two such lines on top of each other.
    QVector<QLineF> lines, branchLines;
    for (int i = 0; i < int(s.members.size()); ++i) {
        const int parent = s.layout.places[std::size_t(i)].parent;
        if (parent < 0) continue;
        const QPointF a = g.centre(s.layout.places[std::size_t(parent)]), b = g.centre(s.layout.places[std::size_t(i)]);
        QVector<QLineF>& into = onBranch[std::size_t(i)] && onBranch[std::size_t(parent)] ? branchLines : lines;
        const QPointF corner(a.x(), b.y());
        if (corner != a) into.append(QLineF(a, corner));
        into.append(QLineF(corner, b));
    }
    p.setPen(QPen(colors.border, 1));
    p.drawLines(lines);
    p.setPen(QPen(colors.ink, 2));
    p.drawLines(branchLines);
    paintMarks(p, s, g, t, colors);
    paintChart(p, s, g, t, branch, colors);
    p.restore();
}

namespace {

// The parent's suffix and file: the first file's child has the parent "" as the first file
// has none, and the file name tells them apart.
QString parentText(const SeriesScene& s, const aq::SeriesMember& m) {
    if (m.suffix.empty()) return "none";
    for (const aq::SeriesMember& p : s.members)
        if (p.suffix == m.parent) {
            const std::string name = std::filesystem::path(p.path).filename().string();
            return QString::fromStdString(m.parent.empty() ? name : m.parent + " (" + name + ")");
        }
    return QString::fromStdString(m.parent);
}

}  // namespace

QString seriesTip(const SeriesScene& s, int i) {
    if (i < 0 || i >= int(s.members.size())) return {};
    const aq::SeriesMember& m = s.members[std::size_t(i)];
    QStringList lines{"file: " + QString::fromStdString(std::filesystem::path(m.path).filename().string()),
                      "suffix: " + QString::fromStdString(m.suffix), "parent: " + parentText(s, m),
                      "generation: " + QString::number(m.generation)};
    const auto& f = s.figures[std::size_t(i)];
    if (!f) {
        lines << "figures: not read yet";
    } else if (!f->error.empty()) {
        lines << "error: " + QString::fromStdString(f->error);
    } else {
        lines << "drifters: " + QString::number(f->drifters) << "alive: " + QString::number(f->alive)
              << "food: " + QString::number(f->food) << "clock: " + QString::number(f->clock)
              << "best score: " + (f->bestScore ? QString::fromStdString(aq::NumberText(*f->bestScore)) : QString())
              << "species: " + (f->species >= 0 ? QString::number(f->species) : QString("not counted yet"));
    }
    return lines.join('\n');
}

}  // namespace aqapp
