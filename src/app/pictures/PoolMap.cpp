#include "app/pictures/PoolMap.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace aqapp {

namespace {

constexpr float kFarAway = 1e7f;
// Pixels kept free around a fitted frame: a ticked food bit's ring is 11 pixels across
// its centre, so one at the edge of the frame is drawn whole.
constexpr double kEdge = 14;
// Pixels around the selection that count as leaving the view.
constexpr double kSelectionPad = 12;
constexpr double kLeastScale = 0.005, kMostScale = 200;

int drifterTotal(const aq::Pool& p) { return std::clamp<int>(p.drifterCount, 0, static_cast<int>(p.drifters.size())); }
int foodTotal(const aq::Pool& p) { return std::clamp<int>(p.foodCount, 0, static_cast<int>(p.food.size())); }

bool finite(const aq::WorldRect& r) {
    return std::isfinite(r.left) && std::isfinite(r.right) && std::isfinite(r.bottom) && std::isfinite(r.top);
}

aq::WorldRect united(const aq::WorldRect& a, const aq::WorldRect& b) {
    return {std::min(a.left, b.left), std::min(a.bottom, b.bottom), std::max(a.right, b.right), std::max(a.top, b.top)};
}

}  // namespace

const char* const PoolMap::kHint = "Load or generate a pool to see it here";

PoolMap::PoolMap(QWidget* parent) : QWidget(parent) {
    setObjectName("PoolMap");
    setMinimumSize(120, 120);
    setMouseTracking(false);
    setFocusPolicy(Qt::ClickFocus);
    setToolTip(
        "Wheel to zoom, drag to pan, double click or Home to see the whole pool.\nClick a drifter or food bit "
        "to find it in the list; Ctrl+click ticks it.");
}

void PoolMap::setPool(const aq::Pool* pool) {
    bool changed = pool != pool_;
    pool_ = pool;
    if (changed) fit();
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

aq::WorldRect PoolMap::contents() const {
    // The drifters and the food; the walls sit in a corner, so they count only alone.
    aq::WorldRect r{1e30f, 1e30f, -1e30f, -1e30f};
    auto take = [&](float x, float y) {
        if (!(std::fabs(x) < kFarAway && std::fabs(y) < kFarAway)) return;
        r = united(r, aq::WorldRect{x, y, x, y});
    };
    if (pool_) {
        for (int i = 0; i < drifterTotal(*pool_); ++i) {
            aq::WorldRect b = aq::drifterBounds(pool_->drifters[std::size_t(i)]);
            take(b.left, b.bottom);
            take(b.right, b.top);
        }
        for (int i = 0; i < foodTotal(*pool_); ++i) take(pool_->food[std::size_t(i)].x, pool_->food[std::size_t(i)].y);
        if (r.left > r.right)
            for (const aq::GreatWall& w : pool_->walls)
                if (w.right > w.left && w.top > w.bottom) {
                    take(w.left, w.bottom);
                    take(w.right, w.top);
                }
    }
    if (r.left > r.right) {  // nothing at all: the world's bounds
        if (pool_ && pool_->maxX > pool_->minX && pool_->maxY > pool_->minY)
            return {pool_->minX, pool_->minY, pool_->maxX, pool_->maxY};
        return {-4000, -4000, 4000, 4000};
    }
    return r;
}

void PoolMap::frame(aq::WorldRect r) {
    double left = r.left, right = r.right, bottom = r.bottom, top = r.top;
    // A lone drifter or a crowd on one spot still gets some water around it.
    const double least = 400;
    if (right - left < least) left = (left + right - least) / 2, right = left + least;
    if (top - bottom < least) bottom = (bottom + top - least) / 2, top = bottom + least;
    double margin = 0.05 * std::max(right - left, top - bottom);
    left -= margin, right += margin, bottom -= margin, top += margin;
    centerX_ = (left + right) / 2;
    centerY_ = (bottom + top) / 2;
    double w = std::max(1.0, width() - 2 * kEdge), h = std::max(1.0, height() - 2 * kEdge);
    scale_ = std::clamp(std::min(w / (right - left), h / (top - bottom)), kLeastScale, kMostScale);
    update();
}

void PoolMap::fit() {
    frame(contents());
    userFramed_ = false;
}

void PoolMap::keepInView(const aq::WorldRect& r) {
    if (!finite(r)) return;
    const double pad = kSelectionPad / scale_;
    QPointF lo = toWorld(QPointF(0, height())), hi = toWorld(QPointF(width(), 0));
    if (r.left - pad >= lo.x() && r.right + pad <= hi.x() && r.bottom - pad >= lo.y() && r.top + pad <= hi.y()) return;
    if (!userFramed_) {
        // The sliders keep a selection inside the world: framed with it, the view holds
        // still for the rest of the drag and nothing else leaves it.
        aq::WorldRect world{-4000, -4000, 4000, 4000};
        if (pool_ && pool_->maxX > pool_->minX && pool_->maxY > pool_->minY)
            world = united(world, {pool_->minX, pool_->minY, pool_->maxX, pool_->maxY});
        frame(united(united(contents(), world), r));
        return;
    }
    double needW = r.right - r.left + 2 * pad, needH = r.top - r.bottom + 2 * pad;
    if (needW > hi.x() - lo.x() || needH > hi.y() - lo.y())  // too big for the view: zoom out about it
        scale_ = std::clamp(std::min(width() / needW, height() / needH), kLeastScale, scale_);
    centerX_ = (r.left + r.right) / 2.0;
    centerY_ = (r.bottom + r.top) / 2.0;
    update();
}

QPointF PoolMap::toScreen(double x, double y) const {
    return {width() / 2.0 + (x - centerX_) * scale_, height() / 2.0 - (y - centerY_) * scale_};
}

QPointF PoolMap::toWorld(QPointF p) const {
    return {centerX_ + (p.x() - width() / 2.0) / scale_, centerY_ - (p.y() - height() / 2.0) / scale_};
}

void PoolMap::resizeEvent(QResizeEvent*) {
    if (!userFramed_) fit();
}

void PoolMap::wheelEvent(QWheelEvent* e) {
    QPointF before = toWorld(e->position());
    double factor = std::pow(1.0015, e->angleDelta().y());
    scale_ = std::clamp(scale_ * factor, kLeastScale, kMostScale);
    // Keep the point under the pointer where it is.
    QPointF after = toWorld(e->position());
    centerX_ += before.x() - after.x();
    centerY_ += before.y() - after.y();
    userFramed_ = true;
    update();
}

void PoolMap::keyPressEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_Home)
        fit();
    else
        QWidget::keyPressEvent(e);
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
    userFramed_ = true;
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
