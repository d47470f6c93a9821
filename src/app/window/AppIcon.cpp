// The program's icon: a pool with a four-segment drifter and three food bits, the
// same picture as packaging/aqfilemanager.svg, drawn here so no image plugin is needed.
#include <QPainter>
#include <QPixmap>

#include "app/window/WindowParts.h"

namespace aqapp {

namespace {

QPixmap drawIcon(int size) {
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 64.0, size / 64.0);
    p.setPen(QPen(QColor("#5a6e82"), 2));
    p.setBrush(QColor("#eaf4fa"));
    p.drawRoundedRect(QRectF(4, 4, 56, 56), 8, 8);
    struct Seg {
        double x, y, w, h, angle, cx, cy;
        const char* color;
    };
    const Seg segs[] = {{14, 26, 10, 6, -15, 19, 29, "#dc2828"},
                        {23, 23, 10, 6, -5, 28, 26, "#f08c1e"},
                        {32, 22, 10, 6, 10, 37, 25, "#32aa3c"},
                        {40, 25, 9, 5, 25, 44, 27, "#3264e6"}};
    p.setPen(QPen(QColor("#333333"), 0.5));
    for (const Seg& s : segs) {
        p.save();
        p.translate(s.cx, s.cy);
        p.rotate(s.angle);
        p.translate(-s.cx, -s.cy);
        p.setBrush(QColor(s.color));
        p.drawRect(QRectF(s.x, s.y, s.w, s.h));
        p.restore();
    }
    p.setPen(Qt::NoPen);
    const struct {
        double x, y;
        const char* color;
    } food[] = {{20, 44, "#ebd228"}, {32, 46, "#963cbe"}, {44, 43, "#32aa3c"}};
    for (const auto& f : food) {
        p.setBrush(QColor(f.color));
        p.drawEllipse(QPointF(f.x, f.y), 2.5, 2.5);
    }
    return pm;
}

}  // namespace

QIcon appIcon() {
    static const QIcon icon = [] {
        QIcon i;
        for (int size : {16, 24, 32, 48, 64, 128, 256}) i.addPixmap(drawIcon(size));
        return i;
    }();
    return icon;
}

}  // namespace aqapp
