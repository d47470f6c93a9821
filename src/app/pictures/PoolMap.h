#pragma once
// A map of a pool: its bounds, walls, food bits and drifter bodies. Zoom with the
// wheel, pan by dragging, double click or Home to fit. A click picks a drifter or food bit.
// The view and the pointer are PoolMap.cpp's, the drawing PoolMapDrawing.cpp's.
#include <QImage>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>
#include <unordered_map>

#include "app/pictures/PictureColors.h"
#include "format/PoolGeometry.h"
#include "format/Records.h"

namespace aq {
class CheckList;
}

namespace aqapp {

class PoolMap : public QWidget {
    Q_OBJECT
public:
    enum class Picks { None, Drifters, Food };

    explicit PoolMap(QWidget* parent = nullptr);

    // The pool is not owned; call update() after it changed. Without a pool the map
    // shows a hint instead.
    void setPool(const aq::Pool* pool);
    const aq::Pool* pool() const { return pool_; }
    // Ticked rows are drawn highlighted (row i is record i).
    void setTicks(const aq::CheckList* drifters, const aq::CheckList* food);
    void setSelectionBox(std::optional<aq::WorldRect> box);
    // Asked at every drawing for the selection box to outline (overrides setSelectionBox).
    void setBoxProvider(std::function<std::optional<aq::WorldRect>()> provider) { boxProvider_ = std::move(provider); }
    void setPicks(Picks p) { picks_ = p; }
    // Frames the drifters and food (the walls only when there is nothing else), with room
    // for a food bit's ring at the edge; the map then follows resizes until the user zooms or pans.
    void fit();
    // Leaves the view as it is while `r` is on show, so what moves on screen is what
    // moved in the pool. Only when `r` would leave it does the view change: a fitted map
    // then takes in the whole world at once, a map the user framed centres on `r`.
    void keepInView(const aq::WorldRect& r);
    bool userFramed() const { return userFramed_; }

    QPointF toScreen(double x, double y) const;
    QPointF toWorld(QPointF p) const;
    double scale() const { return scale_; }

    // Draws the pool on any painter of the widget's size (used by paintEvent, export and
    // benchmarks), in the widget's palette or in the colours given.
    void paintPool(QPainter& painter) const;
    void paintPool(QPainter& painter, const PictureColors& colors) const;

    static const char* const kHint;

signals:
    void drifterPicked(int index, bool ctrl);
    void foodPicked(int index, bool ctrl);

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void wheelEvent(QWheelEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;

private:
    // Centres and scales the view on a world rectangle, keeping a margin around it.
    void frame(aq::WorldRect r);
    // What fit() frames: the drifters' bodies and the food (or the walls, or the world).
    aq::WorldRect contents() const;
    void paintDrifters(QPainter& painter, const PictureColors& colors) const;
    void stamp(QPainter& painter, std::uint64_t key, double radius, QPointF at,
               const std::function<void(QPainter&, const QRectF&)>& draw) const;
    const aq::Pool* pool_ = nullptr;
    const aq::CheckList* drifterTicks_ = nullptr;
    const aq::CheckList* foodTicks_ = nullptr;
    std::optional<aq::WorldRect> box_;
    std::function<std::optional<aq::WorldRect>()> boxProvider_;
    Picks picks_ = Picks::None;
    double scale_ = 0.1, centerX_ = 0, centerY_ = 0;
    bool userFramed_ = false;  // zoomed or panned by hand: resizes keep the view
    QPoint pressPos_, lastPos_;
    bool dragging_ = false;
    mutable bool rasterPainting_ = true;
    mutable std::unordered_map<std::uint64_t, QImage> sprites_;
    mutable QRgb spriteInk_ = 0, spriteRim_ = 0;  // the colours the sprites were drawn in
};

}  // namespace aqapp
