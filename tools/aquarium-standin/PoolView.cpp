#include "PoolView.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPainter>
#include <QPolygonF>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cstdlib>

#include "ToyModel.h"

namespace standin {

namespace {

const QColor kSegmentColors[] = {QColor(220, 40, 40), QColor(240, 140, 20), QColor(230, 220, 40),
                                 QColor(40, 180, 60), QColor(50, 90, 230),  QColor(150, 60, 200)};

class PoolView : public QWidget {
public:
    PoolView(aq::Pool& pool, int stepsPerSecond, volatile std::sig_atomic_t& closeRequested, std::function<int()> save)
        : pool_(pool), model_(pool), closeRequested_(closeRequested), save_(std::move(save)) {
        setWindowTitle("Aquarium version 4 (stand-in)");
        resize(800, 800);
        connect(&timer_, &QTimer::timeout, this, [this] {
            if (closeRequested_) {
                close();
                return;
            }
            model_.step();
            update();
        });
        timer_.start(std::max(1, 1000 / stepsPerSecond));
    }
    int status() const { return status_; }

protected:
    void closeEvent(QCloseEvent* e) override {
        // Closing is saving, as with the real simulator.
        if (!saved_) {
            timer_.stop();
            status_ = save_();
            saved_ = true;
        }
        e->accept();
    }

    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.fillRect(rect(), QColor(10, 20, 40));
        p.setRenderHint(QPainter::Antialiasing);
        QRectF world = viewBox();
        double scale = std::min(width() / world.width(), height() / world.height());
        p.translate(width() / 2.0, height() / 2.0);
        p.scale(scale, -scale);  // y grows upward in the pool
        p.translate(-world.center());
        p.setPen(QPen(QColor(120, 120, 140), 0));
        for (const aq::GreatWall& w : pool_.walls)
            if (w.right > w.left || w.top > w.bottom)
                p.drawRect(QRectF(QPointF(w.left, w.bottom), QPointF(w.right, w.top)));
        p.setBrush(QColor(90, 200, 90));
        p.setPen(Qt::NoPen);
        double dot = 3.0 / scale;
        for (int j = 0; j < pool_.foodCount; ++j) {
            const aq::FoodBit& f = pool_.food[static_cast<std::size_t>(j)];
            p.drawEllipse(QPointF(f.x, f.y), dot, dot);
        }
        for (int i = 0; i < pool_.drifterCount; ++i) {
            const aq::DrifterRec& d = pool_.drifters[static_cast<std::size_t>(i)];
            int segments = std::clamp(d.segmentCount, 0, aq::kSegmentSlots);
            for (int s = 0; s < segments; ++s) {
                const aq::Segment& g = d.segments[s];
                QColor c = kSegmentColors[std::clamp(g.color, 0, 5)];
                if (d.alive == 0) c = c.darker(300);
                p.setBrush(c);
                p.drawPolygon(QPolygonF({QPointF(g.point1X, g.point1Y), QPointF(g.point2X, g.point2Y),
                                         QPointF(g.point3X, g.point3Y), QPointF(g.point4X, g.point4Y)}));
            }
        }
    }

private:
    // The part of the world that holds something, with a margin, inside the edges.
    QRectF viewBox() const {
        QRectF box;
        auto add = [&box](double x, double y) { box |= QRectF(x - 50, y - 50, 100, 100); };
        for (int i = 0; i < pool_.drifterCount; ++i)
            add(pool_.drifters[static_cast<std::size_t>(i)].x, pool_.drifters[static_cast<std::size_t>(i)].y);
        for (int j = 0; j < pool_.foodCount; ++j)
            add(pool_.food[static_cast<std::size_t>(j)].x, pool_.food[static_cast<std::size_t>(j)].y);
        QRectF edges(QPointF(pool_.minX, pool_.minY), QPointF(pool_.maxX, pool_.maxY));
        if (edges.isValid()) box &= edges;
        if (!box.isValid() || box.width() < 1 || box.height() < 1) box = QRectF(-500, -500, 1000, 1000);
        return box;
    }

    aq::Pool& pool_;
    ToyModel model_;
    volatile std::sig_atomic_t& closeRequested_;
    std::function<int()> save_;
    QTimer timer_;
    bool saved_ = false;
    int status_ = 0;
};

}  // namespace

bool guiAvailable() {
    return std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY") || std::getenv("QT_QPA_PLATFORM");
}

int runWindow(int argc, char** argv, aq::Pool& pool, int stepsPerSecond, volatile std::sig_atomic_t& closeRequested,
              const std::function<void()>& ready, const std::function<int()>& save) {
    QApplication qapp(argc, argv);
    PoolView view(pool, stepsPerSecond, closeRequested, save);
    view.show();
    ready();
    qapp.exec();
    return view.status();
}

}  // namespace standin
