// The pool map: picking drifters and food, and the ticks it highlights.
#include <QSignalSpy>
#include <QtTest>

#include "app/PoolMap.h"
#include "base/CheckList.h"
#include "support/PoolFixtures.h"

using aqapp::PoolMap;

class PoolMapTest : public QObject {
    Q_OBJECT

    static QPoint centreOfSegment(const PoolMap& map, const aq::Segment& s) {
        QPointF c = (map.toScreen(s.point1X, s.point1Y) + map.toScreen(s.point3X, s.point3Y)) / 2;
        return c.toPoint();
    }

private slots:
    void clickPicksTheDrifterUnderThePointer() {
        aq::Pool pool = aqtest::defaultPool();
        PoolMap map;
        map.resize(800, 800);
        map.setPool(&pool);
        map.setPicks(PoolMap::Picks::Drifters);
        // Zoom onto the crowd around the centre so bodies are several pixels wide.
        const QPointF centre = map.toScreen(0, 0);
        for (int i = 0; i < 14; ++i) {
            QWheelEvent wheel(centre, map.mapToGlobal(centre), {}, QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(&map, &wheel);
        }
        QVERIFY(map.scale() > 1.0);
        QSignalSpy picked(&map, &PoolMap::drifterPicked);
        // A drifter on show whose first segment no later body covers.
        int want = -1;
        QPoint at;
        for (int i = pool.drifterCount - 1; i >= 0 && want < 0; --i) {
            at = centreOfSegment(map, pool.drifters[std::size_t(i)].segments[0]);
            QPointF w = map.toWorld(at);
            if (map.rect().contains(at) && aq::drifterAt(pool, float(w.x()), float(w.y()), 0.f) == i) want = i;
        }
        QVERIFY(want >= 0);
        QTest::mouseClick(&map, Qt::LeftButton, Qt::NoModifier, at);
        QTest::mouseClick(&map, Qt::LeftButton, Qt::ControlModifier, at);
        QCOMPARE(picked.count(), 2);
        QCOMPARE(picked[0], QVariantList({want, false}));
        QCOMPARE(picked[1][1].toBool(), true);
        // A drag pans and picks nothing.
        QTest::mousePress(&map, Qt::LeftButton, Qt::NoModifier, at);
        QTest::mouseMove(&map, at + QPoint(40, 0));
        QTest::mouseRelease(&map, Qt::LeftButton, Qt::NoModifier, at + QPoint(40, 0));
        QCOMPARE(picked.count(), 2);
    }

    void foodPicksAndTicksChangeTheDrawing() {
        aq::Pool pool = aqtest::defaultPool();
        aq::CheckList food;
        for (int i = 0; i < pool.foodCount; ++i) food.add("f");
        PoolMap map;
        map.resize(600, 600);
        map.setPool(&pool);
        map.setTicks(nullptr, &food);
        map.setPicks(PoolMap::Picks::Food);
        QSignalSpy picked(&map, &PoolMap::foodPicked);
        QTest::mouseClick(&map, Qt::LeftButton, Qt::NoModifier, map.toScreen(pool.food[3].x, pool.food[3].y).toPoint());
        QCOMPARE(picked.count(), 1);
        QCOMPARE(picked[0][0].toInt(), 3);
        QImage plain = map.grab().toImage();
        food.setChecked(3, true);
        QImage ticked = map.grab().toImage();
        QVERIFY(plain != ticked);
        food.setChecked(3, false);
        QCOMPARE(map.grab().toImage(), plain);
    }
};

QTEST_MAIN(PoolMapTest)
#include "PoolMapTest.moc"
