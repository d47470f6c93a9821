// The pool map: what it draws, how it frames the pool, picking drifters and food, the
// ticks it highlights, and the pictures written from the command line.
#include <QSignalSpy>
#include <QtTest>
#include <cmath>

#include "app/PictureCommand.h"
#include "app/PoolMap.h"
#include "generator/Generator.h"
#include "generator/Placement.h"
#include "format/PoolFile.h"
#include "base/CheckList.h"
#include "support/PoolFixtures.h"
#include "support/TempDir.h"

using aqapp::PoolMap;

class PoolMapTest : public QObject {
    Q_OBJECT

    static QPoint centreOfSegment(const PoolMap& map, const aq::Segment& s) {
        QPointF c = (map.toScreen(s.point1X, s.point1Y) + map.toScreen(s.point3X, s.point3Y)) / 2;
        return c.toPoint();
    }

    static bool near(QColor a, QColor b, int slack = 40) {
        return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue()) <= slack;
    }

private slots:
    // Generated drifters have every point of their bodies on their positions; dead ones,
    // broken ones and ticked ones must show as well.
    void everyDrifterIsDrawnWhateverItsShape() {
        aq::Pool pool = aqtest::defaultPool();
        aq::StartupSettings settings;
        aq::Pool generated;
        QVERIFY(aq::buildStartupPool(pool, settings, generated));
        generated.drifterCount = 5;
        generated.drifters.resize(5);
        generated.foodCount = 0;
        struct Row {
            float x, y;
            int color, alive;
            bool broken, tick;
        } rows[] = {{-1500, 0, 0, 1, false, false},
                    {1500, 0, 4, 1, false, false},
                    {0, 1500, 3, 1, true, false},  // points not finite
                    {0, -1500, 0, 0, false, false},
                    {0, 0, 2, 1, false, true}};
        aq::CheckList ticks;
        for (int i = 0; i < 5; ++i) {
            aq::DrifterRec& d = generated.drifters[std::size_t(i)];
            aq::ResetDrifter(generated, std::int16_t(i), 0, 100);
            aq::MoveDrifter(generated, std::int16_t(i), rows[i].x, rows[i].y);
            for (auto& seg : d.segments) seg.color = rows[i].color;
            d.alive = rows[i].alive;
            if (rows[i].broken) d.segments[0].point2X = NAN;
            ticks.add("d");
            ticks.setChecked(i, rows[i].tick);
        }
        PoolMap map;
        map.resize(600, 500);
        map.setPool(&generated);
        map.setTicks(&ticks, nullptr);
        QImage image = map.grab().toImage();
        const QColor colors[] = {QColor(220, 40, 40), QColor(50, 100, 230), QColor(50, 170, 60)};
        for (int i = 0; i < 5; ++i) {
            QPoint at = map.toScreen(rows[i].x, rows[i].y).toPoint();
            QVERIFY2(map.rect().contains(at), qPrintable(QString("drifter %1 off the map").arg(i)));
            QColor centre = image.pixelColor(at);
            if (rows[i].alive == 0) {  // a hollow grey ring
                QVERIFY(near(centre, QColor(235, 244, 250)));
                QVERIFY(near(image.pixelColor(at + QPoint(3, 0)), QColor(150, 150, 150), 60));
            } else {
                QColor want = rows[i].color == 0   ? colors[0]
                              : rows[i].color == 4 ? colors[1]
                              : rows[i].color == 3 ? colors[2]
                                                   : QColor(235, 210, 40);
                QVERIFY2(near(centre, want), qPrintable(QString("drifter %1: %2").arg(i).arg(centre.name())));
            }
            QColor halo = image.pixelColor(at + QPoint(6, 0));
            QCOMPARE(halo.red() > 150 && halo.green() < 120, rows[i].tick);
        }
        // Fitted to the drifters, not to the world: they spread over most of the map.
        double spread = map.toScreen(1500, 0).x() - map.toScreen(-1500, 0).x();
        QVERIFY(spread > 0.6 * 500);
    }

    void framingFollowsResizesUntilTheUserZoomsAndKeepsABoxInView() {
        aq::Pool pool = aqtest::defaultPool();
        PoolMap map;
        map.resize(400, 400);
        map.show();
        map.setPool(&pool);
        double fitted = map.scale();
        map.resize(800, 800);
        QCOMPARE(map.scale(), fitted * 2);
        QWheelEvent wheel(QPointF(400, 400), QPointF(400, 400), {}, QPoint(0, 240), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&map, &wheel);
        double zoomed = map.scale();
        map.resize(600, 600);
        QCOMPARE(map.scale(), zoomed);
        aq::WorldRect far{3000, 3000, 3100, 3100};
        map.ensureVisible(far);
        QVERIFY(map.rect().contains(map.toScreen(3000, 3000).toPoint()));
        QVERIFY(map.rect().contains(map.toScreen(3100, 3100).toPoint()));
        QTest::keyClick(&map, Qt::Key_Home);
        QVERIFY(!map.userFramed());
        QCOMPARE(map.scale(), fitted * 1.5);
        map.setPool(nullptr);  // nothing to show: the hint, and no crash on clicks
        QTest::mouseClick(&map, Qt::LeftButton);
    }

    void picturesFromTheCommandLine() {
        aqtest::TempDir dir;
        std::string pool = dir.file("pool.aqp");
        aq::Pool generated;
        QVERIFY(aq::buildStartupPool(aqtest::defaultPool(), aq::StartupSettings{}, generated));
        QVERIFY(aq::writePool(pool, generated).empty());
        std::string odd = dir.file("odd.aqp");  // every float of its records a byte pattern
        QVERIFY(aq::writePool(odd, aqtest::makePool(40, 40)).empty());
        struct Row {
            std::vector<std::string> args;
            int status;
            const char* message;
        } rows[] = {
            {{"map", pool, dir.file("m.png"), "--size", "300x200"}, 0, ""},
            {{"genes", pool, dir.file("g.svg")}, 0, ""},
            {{"map", odd, dir.file("odd.svg"), "--size", "200x100"}, 0, ""},
            {{"map", odd, dir.file("odd.png")}, 0, ""},
            {{"map", dir.file("none.aqp"), dir.file("x.png")}, 1, "Error opening"},
            {{"map", pool, dir.file("no/such/folder/x.png")}, 1, "Error saving"},
            {{"map", pool, dir.file("x.png"), "--size", "3x2"}, 2, "option --size"},
            {{"maps", pool, dir.file("x.png")}, 2, "map or genes"},
            {{"map", pool}, 2, "expected 3 arguments"},
        };
        for (const Row& r : rows) {
            std::string message;
            QCOMPARE(aqapp::pictureCommand(r.args, message), r.status);
            QVERIFY2(message.find(r.message) != std::string::npos, message.c_str());
        }
        QImage png(QString::fromStdString(dir.file("m.png")));
        QCOMPARE(png.size(), QSize(300, 200));
        PoolMap map;  // the same frame as the file's
        map.resize(300, 200);
        map.setPool(&generated);
        const aq::DrifterRec& d = generated.drifters[0];
        QVERIFY(png.pixelColor(map.toScreen(d.x, d.y).toPoint()) != QColor(235, 244, 250));
        QFile svg(QString::fromStdString(dir.file("g.svg")));
        QVERIFY(svg.open(QIODevice::ReadOnly) && svg.readAll().contains("<svg"));
    }

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
