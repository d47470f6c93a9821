// Drawing the pool map: the world, walls, food, drifters and the selection box.
#include <QPaintEngine>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <vector>

#include "app/pictures/PoolMap.h"
#include "base/CheckList.h"

namespace aqapp {

namespace {

const QColor kSegmentColors[6] = {QColor(220, 40, 40), QColor(240, 140, 30), QColor(235, 210, 40),
                                  QColor(50, 170, 60), QColor(50, 100, 230), QColor(150, 60, 190)};
const QColor kDead(150, 150, 150);

QColor colorOf(int code) { return code >= 0 && code < 6 ? kSegmentColors[code] : kDead; }

bool ticked(const aq::CheckList* list, int i) { return list && i < list->count() && list->checked(i); }

int drifterTotal(const aq::Pool& p) { return std::clamp<int>(p.drifterCount, 0, static_cast<int>(p.drifters.size())); }
int foodTotal(const aq::Pool& p) { return std::clamp<int>(p.foodCount, 0, static_cast<int>(p.food.size())); }

// A body narrower than this many pixels is drawn as a dot, which stays visible.
constexpr double kSmallestBody = 3;
constexpr double kDotRadius = 4;
constexpr double kOutlinedBody = 24;
constexpr float kFarAway = 1e7f;
// Sprite keys: what is drawn, times a look number below 2^40.
constexpr std::uint64_t kFoodKey = 1ull << 41, kHaloKey = 2ull << 41, kDotKey = 3ull << 41;

// A newborn's dot: its circle shared out among its segments' colours (counts[6]: any
// other code), with a dark rim; a dead drifter's is a hollow grey ring.
void drawDot(QPainter& p, const QRectF& box, const int counts[7], bool dead, const QColor& rim) {
    if (dead) {
        p.setPen(QPen(kDead, 2));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(box.adjusted(1, 1, -1, -1));
        return;
    }
    int total = 0;
    for (int c = 0; c < 7; ++c) total += counts[c];
    p.setPen(Qt::NoPen);
    int start = 90 * 16, done = 0;
    for (int c = 0; c < 7 && total > 0; ++c) {
        if (counts[c] == 0) continue;
        p.setBrush(colorOf(c < 6 ? c : -1));
        if (counts[c] == total) {
            p.drawEllipse(box);
            break;
        }
        int end = 90 * 16 + 5760 * (done + counts[c]) / total;
        p.drawPie(box, start, end - start);
        start = end;
        done += counts[c];
    }
    if (total == 0) {
        p.setBrush(kDead);
        p.drawEllipse(box);
    }
    p.setPen(QPen(rim, 1));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(box);
}

}  // namespace

// Dots, food bits and halos of one look are drawn once into a small image and then
// stamped, which costs a fraction of drawing thousands of ellipses. Vector devices
// (SVG) get the shapes themselves.
void PoolMap::stamp(QPainter& painter, std::uint64_t key, double radius, QPointF at,
                    const std::function<void(QPainter&, const QRectF&)>& draw) const {
    QRectF box(at.x() - radius, at.y() - radius, 2 * radius, 2 * radius);
    if (!rasterPainting_) {
        draw(painter, box);
        return;
    }
    int size = static_cast<int>(std::ceil(2 * radius)) + 2;
    key = key * 64 + static_cast<std::uint64_t>(std::lround(radius * 2)) % 64;
    auto it = sprites_.find(key);
    if (it == sprites_.end()) {
        if (sprites_.size() > 1024) sprites_.clear();
        QImage img(size, size, QImage::Format_ARGB32_Premultiplied);
        img.fill(Qt::transparent);
        QPainter sp(&img);
        sp.setRenderHint(QPainter::Antialiasing);
        draw(sp, QRectF(size / 2.0 - radius, size / 2.0 - radius, 2 * radius, 2 * radius));
        sp.end();
        it = sprites_.emplace(key, std::move(img)).first;
    }
    painter.drawImage(QPointF(std::round(at.x() - size / 2.0), std::round(at.y() - size / 2.0)), it->second);
}

void PoolMap::paintPool(QPainter& painter) const { paintPool(painter, PictureColors::of(palette())); }

void PoolMap::paintPool(QPainter& painter, const PictureColors& colors) const {
    rasterPainting_ = painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Raster;
    // The sprites hold the colours of rings and rims: drawn anew when those change.
    if (spriteInk_ != colors.ink.rgba() || spriteRim_ != colors.rim.rgba()) {
        sprites_.clear();
        spriteInk_ = colors.ink.rgba();
        spriteRim_ = colors.rim.rgba();
    }
    painter.fillRect(QRect(0, 0, width(), height()), colors.background);
    if (!pool_) {
        painter.setPen(colors.hint);
        painter.drawText(QRect(0, 0, width(), height()), Qt::AlignCenter | Qt::TextWordWrap, kHint);
        return;
    }
    const aq::Pool& pool = *pool_;
    // Rectangles are cut to the canvas first: a file's bounds may lie anywhere.
    const QRectF canvas = QRectF(rect()).adjusted(-4, -4, 4, 4);
    auto onCanvas = [&](double left, double top, double right, double bottom) {
        return QRectF(toScreen(left, top), toScreen(right, bottom)).intersected(canvas);
    };
    QRectF world = onCanvas(pool.minX, pool.maxY, pool.maxX, pool.minY);
    painter.setPen(QPen(colors.border, 1));
    if (world.isValid()) {
        painter.fillRect(world, colors.water);
        painter.drawRect(world);
    }

    painter.setBrush(QColor(110, 90, 70));
    for (const aq::GreatWall& w : pool.walls) {
        QRectF r = onCanvas(w.left, w.top, w.right, w.bottom);
        if (w.right >= w.left && w.top >= w.bottom && r.isValid()) painter.drawRect(r);
    }

    // Food: dots coloured by family; ticked ones ringed.
    int foods = foodTotal(pool);
    double dot = std::round(std::clamp(6.0 * scale_, 4.0, 10.0));
    const QRectF view = QRectF(rect()).adjusted(-dot, -dot, dot, dot);
    for (int i = 0; i < foods; ++i) {
        const aq::FoodBit& f = pool.food[std::size_t(i)];
        QPointF at = toScreen(f.x, f.y);
        if (!view.contains(at)) continue;
        int code = f.family < 6 ? f.family : -1;
        bool ring = ticked(foodTicks_, i);
        stamp(painter, kFoodKey + std::uint64_t(code + 1) * 2 + ring, ring ? dot + 1 : dot / 2, at,
              [code, ring, dot, ink = colors.ink](QPainter& p, const QRectF& box) {
                  QPointF c = box.center();
                  p.setPen(Qt::NoPen);
                  p.setBrush(colorOf(code));
                  p.drawEllipse(c, dot / 2, dot / 2);
                  if (!ring) return;
                  p.setBrush(Qt::NoBrush);
                  p.setPen(QPen(ink, 2));
                  p.drawEllipse(c, dot, dot);
              });
    }

    paintDrifters(painter, colors);

    std::optional<aq::WorldRect> box = boxProvider_ ? boxProvider_() : box_;
    if (box) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(200, 0, 120), 1, Qt::DashLine));
        painter.drawRect(onCanvas(box->left, box->top, box->right, box->bottom));
    }
}

void PoolMap::paintDrifters(QPainter& painter, const PictureColors& colors) const {
    const aq::Pool& pool = *pool_;
    const int n = drifterTotal(pool);
    // Each drifter once: off screen, a dot, or a body of quadrilaterals.
    enum Kind : std::uint8_t { Off, Dot, Body };
    struct Shape {
        Kind kind;
        QPointF at;
        double radius;  // of a dot; a body's extent in pixels
    };
    std::vector<Shape> shapes(std::size_t(n), Shape{Off, {}, 0});
    const QRectF view = QRectF(rect()).adjusted(-20, -20, 20, 20);
    for (int i = 0; i < n; ++i) {
        const aq::DrifterRec& d = pool.drifters[std::size_t(i)];
        const int used = std::clamp(d.segmentCount, 0, aq::kSegmentSlots);
        // The extent of the segments' points alone: a newborn's all lie on one spot.
        float left = INFINITY, right = -INFINITY, bottom = INFINITY, top = -INFINITY;
        bool finite = true;
        for (int s = 0; s < used && finite; ++s) {
            const float* pt = &d.segments[s].point1X;
            for (int k = 0; k < 8; k += 2) {
                // Points far beyond any world count as broken: the rasterizer cannot take them.
                finite = finite && std::fabs(pt[k]) < kFarAway && std::fabs(pt[k + 1]) < kFarAway;
                left = std::min(left, pt[k]), right = std::max(right, pt[k]);
                bottom = std::min(bottom, pt[k + 1]), top = std::max(top, pt[k + 1]);
            }
        }
        Shape& sh = shapes[std::size_t(i)];
        if (!(std::fabs(d.x) < kFarAway && std::fabs(d.y) < kFarAway)) continue;  // nowhere to draw it
        sh.at = toScreen(d.x, d.y);
        double extent = finite ? std::max(right - left, top - bottom) * scale_ : 0;
        if (used > 0 && finite && extent >= kSmallestBody) {
            QRectF onScreen(toScreen(left, top), toScreen(right, bottom));
            sh.kind = view.intersects(onScreen) ? Body : Off;
            sh.radius = extent;
        } else {
            // A newborn has every point on its position; a far-off body is too small to see.
            double length = std::isfinite(d.totalLength) && d.totalLength > 0 ? d.totalLength : 0;
            sh.radius = std::clamp(0.5 * length * scale_, kDotRadius, 2 * kDotRadius);
            sh.kind = view.contains(sh.at) ? Dot : Off;
        }
    }

    QPointF quad[4];
    auto quads = [&](const aq::DrifterRec& d, auto&& each) {
        const int used = std::clamp(d.segmentCount, 0, aq::kSegmentSlots);
        for (int s = 0; s < used; ++s) {
            const aq::Segment& g = d.segments[s];
            quad[0] = toScreen(g.point1X, g.point1Y);
            quad[1] = toScreen(g.point2X, g.point2Y);
            quad[2] = toScreen(g.point3X, g.point3Y);
            quad[3] = toScreen(g.point4X, g.point4Y);
            each(g);
        }
    };

    // Halos of the ticked drifters go under every body.
    const QColor halo(230, 0, 150, 170);
    const QPen haloPen(halo, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    for (int i = 0; i < n; ++i) {
        const Shape& sh = shapes[std::size_t(i)];
        if (sh.kind == Off || !ticked(drifterTicks_, i)) continue;
        if (sh.kind == Dot)
            stamp(painter, kHaloKey, sh.radius + 3, sh.at, [&](QPainter& p, const QRectF& box) {
                p.setPen(Qt::NoPen);
                p.setBrush(halo);
                p.drawEllipse(box);
            });
        else {
            painter.setPen(haloPen);
            painter.setBrush(halo);
            quads(pool.drifters[std::size_t(i)], [&](const aq::Segment&) { painter.drawPolygon(quad, 4); });
        }
    }

    // Outlines part the segments of a body big enough to show them; on small ones
    // they would only darken it, at twice the cost.
    const QPen outline(colors.outline, 0);
    bool outlined = false;
    painter.setPen(Qt::NoPen);
    int brushCode = -2;  // the colour the brush holds, so it is set only on a change
    auto useBrush = [&](int code) {
        if (code == brushCode) return;
        brushCode = code;
        painter.setBrush(colorOf(code));
    };
    for (int i = 0; i < n; ++i) {
        const Shape& sh = shapes[std::size_t(i)];
        const aq::DrifterRec& d = pool.drifters[std::size_t(i)];
        if (sh.kind == Body) {
            if (outlined != (sh.radius >= kOutlinedBody)) {
                outlined = !outlined;
                painter.setPen(outlined ? outline : QPen(Qt::NoPen));
            }
            quads(d, [&](const aq::Segment& g) {
                useBrush(d.alive == 0 ? -1 : g.color);
                painter.drawPolygon(quad, 4);
            });
            continue;
        }
        if (sh.kind != Dot) continue;
        int counts[7] = {};
        const int used = std::clamp(d.segmentCount, 0, aq::kSegmentSlots);
        for (int s = 0; s < used; ++s)
            ++counts[d.segments[s].color >= 0 && d.segments[s].color < 6 ? d.segments[s].color : 6];
        // The look of a dot as a number: five bits per colour count, and whether it is dead.
        std::uint64_t look = d.alive == 0 ? 1 : 0;
        for (int c = 0; c < 7; ++c) look = look * 32 + std::uint64_t(counts[c]);
        stamp(painter, kDotKey + look * 2, sh.radius, sh.at,
              [&](QPainter& p, const QRectF& box) { drawDot(p, box, counts, d.alive == 0, colors.rim); });
        if (!rasterPainting_) {
            painter.setPen(Qt::NoPen);
            outlined = false;
            brushCode = -2;
        }
    }
}

void PoolMap::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintPool(painter);
}

}  // namespace aqapp
