#include "app/PoolMap.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "base/CheckList.h"

namespace aqapp {

namespace {

const QColor kSegmentColors[6] = {QColor(220, 40, 40),  QColor(240, 140, 30), QColor(235, 210, 40),
                                  QColor(50, 170, 60),  QColor(50, 100, 230), QColor(150, 60, 190)};
const QColor kDead(150, 150, 150);
const QColor kWater(235, 244, 250);

QColor colorOf(int code) { return code >= 0 && code < 6 ? kSegmentColors[code] : kDead; }

bool ticked(const aq::CheckList* list, int i) { return list && i < list->count() && list->checked(i); }

}  // namespace

PoolMap::PoolMap(QWidget* parent) : QWidget(parent) {
    setObjectName("PoolMap");
    setMinimumSize(120, 120);
    setMouseTracking(false);
    setToolTip("Wheel to zoom, drag to pan, double click to see the whole pool.\nClick a drifter or food bit to find "
               "it in the list; Ctrl+click ticks it.");
}

void PoolMap::setPool(const aq::Pool* pool) {
    bool first = pool_ == nullptr;
    pool_ = pool;
    if (first || !fitted_) fit();
    update();
}

void PoolMap::setTicks(const aq::CheckList* drifters, const aq::CheckList* food) {
    drifterTicks_ = drifters;
    foodTicks_ = food;
    update();
}

void PoolMap::setSelectionBox(std::optional<aq::WorldRect> box) {
    box_ = box;
    update();
}

void PoolMap::fit() {
    // Everything that is in the pool (bodies, food, walls), else the world's bounds.
    double left = 1e30, right = -1e30, bottom = 1e30, top = -1e30;
    auto take = [&](double x, double y) {
        if (!std::isfinite(x) || !std::isfinite(y)) return;
        left = std::min(left, x), right = std::max(right, x);
        bottom = std::min(bottom, y), top = std::max(top, y);
    };
    if (pool_) {
        int drifters = std::min<int>(pool_->drifterCount, static_cast<int>(pool_->drifters.size()));
        for (int i = 0; i < drifters; ++i) {
            aq::WorldRect r = aq::drifterBounds(pool_->drifters[static_cast<std::size_t>(i)]);
            take(r.left, r.bottom);
            take(r.right, r.top);
        }
        int foods = std::min<int>(pool_->foodCount, static_cast<int>(pool_->food.size()));
        for (int i = 0; i < foods; ++i) take(pool_->food[static_cast<std::size_t>(i)].x, pool_->food[static_cast<std::size_t>(i)].y);
        for (const aq::GreatWall& w : pool_->walls)
            if (w.right > w.left && w.top > w.bottom) {
                take(w.left, w.bottom);
                take(w.right, w.top);
            }
    }
    if (right - left < 1 || top - bottom < 1) {
        left = pool_ && pool_->maxX > pool_->minX ? pool_->minX : -4000;
        right = pool_ && pool_->maxX > pool_->minX ? pool_->maxX : 4000;
        bottom = pool_ && pool_->maxY > pool_->minY ? pool_->minY : -4000;
        top = pool_ && pool_->maxY > pool_->minY ? pool_->maxY : 4000;
    }
    double margin = 0.05 * std::max(right - left, top - bottom);
    left -= margin, right += margin, bottom -= margin, top += margin;
    centerX_ = (left + right) / 2;
    centerY_ = (bottom + top) / 2;
    double w = std::max(1, width()), h = std::max(1, height());
    scale_ = std::min(w / (right - left), h / (top - bottom));
    fitted_ = width() > 0 && height() > 0;
    update();
}

QPointF PoolMap::toScreen(double x, double y) const {
    return {width() / 2.0 + (x - centerX_) * scale_, height() / 2.0 - (y - centerY_) * scale_};
}

QPointF PoolMap::toWorld(QPointF p) const {
    return {centerX_ + (p.x() - width() / 2.0) / scale_, centerY_ - (p.y() - height() / 2.0) / scale_};
}

void PoolMap::paintPool(QPainter& painter) const {
    painter.fillRect(QRect(0, 0, width(), height()), QColor(250, 250, 250));
    if (!pool_) return;
    const aq::Pool& pool = *pool_;
    QRectF world(toScreen(pool.minX, pool.maxY), toScreen(pool.maxX, pool.minY));
    painter.fillRect(world, kWater);
    painter.setPen(QPen(QColor(90, 110, 130), 1));
    painter.drawRect(world);

    painter.setBrush(QColor(110, 90, 70));
    for (const aq::GreatWall& w : pool.walls) {
        if (!(w.right >= w.left && w.top >= w.bottom)) continue;
        painter.drawRect(QRectF(toScreen(w.left, w.top), toScreen(w.right, w.bottom)));
    }

    // Food: dots coloured by family; ticked ones ringed.
    int foods = std::min<int>(pool.foodCount, static_cast<int>(pool.food.size()));
    double dot = std::clamp(6.0 * scale_, 4.0, 10.0);
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < foods; ++i) {
        const aq::FoodBit& f = pool.food[static_cast<std::size_t>(i)];
        QPointF p = toScreen(f.x, f.y);
        painter.setBrush(colorOf(f.family % 6 == f.family ? f.family : -1));
        painter.drawEllipse(p, dot / 2, dot / 2);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 2));
    for (int i = 0; i < foods; ++i)
        if (ticked(foodTicks_, i)) {
            const aq::FoodBit& f = pool.food[static_cast<std::size_t>(i)];
            painter.drawEllipse(toScreen(f.x, f.y), dot, dot);
        }

    // Drifters: their segments' quadrilaterals. A ticked body first gets a wide halo,
    // then is filled in its own colours like the others.
    int drifters = std::min<int>(pool.drifterCount, static_cast<int>(pool.drifters.size()));
    QPointF quad[4];
    auto drawBody = [&](const aq::DrifterRec& d, bool halo) {
        int used = std::clamp(d.segmentCount, 0, aq::kSegmentSlots);
        for (int s = 0; s < used; ++s) {
            const aq::Segment& g = d.segments[s];
            auto q = aq::segmentQuad(g);
            for (int k = 0; k < 4; ++k) quad[k] = toScreen(q[static_cast<std::size_t>(k)][0], q[static_cast<std::size_t>(k)][1]);
            if (!halo) painter.setBrush(d.alive == 0 ? kDead : colorOf(g.color));
            painter.drawPolygon(quad, 4);
        }
        if (used == 0 || scale_ < 0.05) {  // too small to see: a dot at its place
            if (!halo) painter.setBrush(d.alive == 0 ? kDead : colorOf(used ? d.segments[0].color : -1));
            painter.drawEllipse(toScreen(d.x, d.y), halo ? 4.0 : 2.0, halo ? 4.0 : 2.0);
        }
    };
    painter.setPen(QPen(QColor(230, 0, 150, 170), 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(QColor(230, 0, 150, 170));
    for (int i = 0; i < drifters; ++i)
        if (ticked(drifterTicks_, i)) drawBody(pool.drifters[static_cast<std::size_t>(i)], true);
    painter.setPen(QPen(QColor(60, 60, 60, 120), 0));
    for (int i = 0; i < drifters; ++i) drawBody(pool.drifters[static_cast<std::size_t>(i)], false);

    std::optional<aq::WorldRect> box = boxProvider_ ? boxProvider_() : box_;
    if (box) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(200, 0, 120), 1, Qt::DashLine));
        painter.drawRect(QRectF(toScreen(box->left, box->top), toScreen(box->right, box->bottom)));
    }
}

void PoolMap::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintPool(painter);
}

void PoolMap::resizeEvent(QResizeEvent*) {
    if (!fitted_) fit();
}

void PoolMap::wheelEvent(QWheelEvent* e) {
    QPointF before = toWorld(e->position());
    double factor = std::pow(1.0015, e->angleDelta().y());
    scale_ = std::clamp(scale_ * factor, 0.005, 200.0);
    // Keep the point under the pointer where it is.
    QPointF after = toWorld(e->position());
    centerX_ += before.x() - after.x();
    centerY_ += before.y() - after.y();
    update();
}

void PoolMap::mousePressEvent(QMouseEvent* e) {
    pressPos_ = lastPos_ = e->pos();
    dragging_ = false;
}

void PoolMap::mouseMoveEvent(QMouseEvent* e) {
    if (!(e->buttons() & Qt::LeftButton)) return;
    if ((e->pos() - pressPos_).manhattanLength() > 3) dragging_ = true;
    if (!dragging_) return;
    QPoint delta = e->pos() - lastPos_;
    lastPos_ = e->pos();
    centerX_ -= delta.x() / scale_;
    centerY_ += delta.y() / scale_;
    update();
}

void PoolMap::mouseReleaseEvent(QMouseEvent* e) {
    if (dragging_ || e->button() != Qt::LeftButton || !pool_) return;
    QPointF w = toWorld(e->position());
    float slack = static_cast<float>(8.0 / scale_);
    bool ctrl = e->modifiers() & Qt::ControlModifier;
    if (picks_ == Picks::Drifters) {
        int i = aq::drifterAt(*pool_, static_cast<float>(w.x()), static_cast<float>(w.y()), slack);
        if (i >= 0) emit drifterPicked(i, ctrl);
    } else if (picks_ == Picks::Food) {
        int i = aq::foodAt(*pool_, static_cast<float>(w.x()), static_cast<float>(w.y()), slack);
        if (i >= 0) emit foodPicked(i, ctrl);
    }
}

void PoolMap::mouseDoubleClickEvent(QMouseEvent*) { fit(); }

}  // namespace aqapp
