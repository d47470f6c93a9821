// The pool map offscreen: its view while the box sliders move the ticked drifters and
// after undo, the room it keeps around the pool, the palette it follows on screen and
// the pictures saved from it.
#include <QComboBox>
#include <QSlider>
#include <QWheelEvent>
#include <filesystem>

#include "Window.h"
#include "app/pictures/MapPanel.h"
#include "app/pictures/PictureCommand.h"
#include "app/pictures/PictureExport.h"
#include "generator/Generator.h"
#include "support/PoolFixtures.h"

class PoolMapTest : public QObject {
    Q_OBJECT

    // Every drifter's position on the map's widget.
    static bool allOnShow(const aqapp::PoolMap& map, const aq::Pool& pool) {
        for (int i = 0; i < pool.drifterCount; ++i)
            if (!map.rect().contains(
                    map.toScreen(pool.drifters[std::size_t(i)].x, pool.drifters[std::size_t(i)].y).toPoint()))
                return false;
        return true;
    }

private slots:
    // What moves on screen is what the slider moves: the view holds still until the
    // ticked drifter would leave it, and an undo brings it back into a view that still
    // shows the whole pool.
    void theViewHoldsStillWhileTheSlidersMoveTheTicked() {
        aqtest::Window<> h;
        h.w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&h.w));
        aq::Pool pool;  // a ring of drifters about the centre, the world far beyond it
        QVERIFY(aq::buildStartupPool(aqtest::defaultPool(), aq::StartupSettings{}, pool));
        std::filesystem::create_directories(h.file("pools"));
        QCOMPARE(aq::writePool(h.file("pools/ring.aqp"), pool), std::string());
        h.w.selectTab(3);
        h.ui.file("open", "Select Pool File", h.file("pools/ring.aqp"));
        h.menu("mLoadPool");
        h.get<QComboBox>("comboSpeciatePoolGroup0")->setCurrentIndex(0);  // one drifter alone
        h.tick("lstSpeciatePool", 0);
        const aq::Pool& open = h.app().openPool;
        aqapp::PoolMap& map = *h.w.mapPanel()->map();
        auto* slider = h.get<QSlider>("SliderSpeciatePoolDrifterX");
        auto view = [&] { return std::pair(map.scale(), map.toScreen(0, 0)); };
        auto drifter = [&] { return map.toScreen(open.drifters[0].x, open.drifters[0].y); };
        const float x0 = open.drifters[0].x, y0 = open.drifters[0].y;

        // Fitted: steps inside the view leave it alone, one that would leave takes in the world.
        const auto fitted = view();
        slider->setSliderDown(true);
        for (int x : {int(x0) - 300, int(x0) - 600}) {
            slider->setSliderPosition(x);
            QCOMPARE(open.drifters[0].x, float(x));
            QVERIFY(view() == fitted);
        }
        slider->setSliderPosition(3900);
        QVERIFY(view() != fitted && allOnShow(map, open));
        const auto world = view();
        slider->setSliderPosition(3000);
        QVERIFY(view() == world);
        slider->setSliderDown(false);
        h.menu("mUndo");
        QVERIFY(open.drifters[0].x == x0 && view() == world && allOnShow(map, open));

        // Framed by hand: the view centres on the drifter only when it would leave, also on undo.
        const QPointF at = drifter();
        QWheelEvent wheel(at, map.mapToGlobal(at), {}, QPoint(0, 1200), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&map, &wheel);
        QVERIFY(map.userFramed());
        const auto zoomed = view();
        const QPointF centre = QRectF(map.rect()).center();
        auto centred = [&] { return (drifter() - centre).manhattanLength() < 2; };
        slider->setValue(int(x0) + 20);
        QVERIFY(view() == zoomed && !centred());
        slider->setValue(-3900);
        QVERIFY(view() != zoomed && centred());
        h.menu("mUndo");  // back to the first step, far behind the view
        QVERIFY(open.drifters[0].x == float(int(x0) + 20) && open.drifters[0].y == y0 && centred());

        // Saving the picture starts beside the pool; the name's extension picks the format.
        const std::string details = h.file("pools") + "|ring-map.png|png|PNG pictures";
        h.ui.file("save", "Aquarium File Manager - Save Picture", h.file("shot.jpg"), details);
        h.w.mapPanel()->savePicture("png");
        QVERIFY(aqtest::readBytes(h.file("shot.jpg")).starts_with("\xFF\xD8\xFF"));
        h.ui.file("save", "Aquarium File Manager - Save Picture", h.file("shot.map"), details);
        h.ui.message("Error saving " + h.file("shot.map") +
                         ", error: cannot tell a picture format from the name \"shot.map\"; it must end in one of " +
                         aqapp::pictureExtensions(),
                     "Aquarium File Manager - Save Picture");
        h.w.mapPanel()->savePicture("png");
        SCRIPT_DONE(h);
        QVERIFY(!std::filesystem::exists(h.file("shot.map")));
    }

    // Food in the corners of the world, ticked: each ring is whole on a map of any shape,
    // the map and the genes picture take the palette's colours, a saved picture keeps its light ones.
    void theMapKeepsRoomAtItsEdgeAndFollowsThePalette() {
        aq::Pool pool = aqtest::makePool(0, 4);
        aq::CheckList ticks;
        for (int i = 0; i < 4; ++i) {
            pool.food[std::size_t(i)].x = i % 2 ? 4000.0f : -4000.0f;
            pool.food[std::size_t(i)].y = i / 2 ? 4000.0f : -4000.0f;
            ticks.add("f");
            ticks.setChecked(i, true);
        }
        aqapp::PoolMap map;
        map.setPool(&pool);
        map.setTicks(nullptr, &ticks);
        map.show();
        for (QSize size : {QSize(120, 120), QSize(400, 130), QSize(130, 400), QSize(900, 700)}) {
            map.resize(size);
            for (const aq::FoodBit& f : pool.food) {
                const QRectF ring(map.toScreen(f.x, f.y) - QPointF(11, 11), QSizeF(22, 22));  // the largest ring
                QVERIFY2(QRectF(map.rect()).contains(ring),
                         qPrintable(QString("at %1x%2").arg(size.width()).arg(size.height())));
            }
        }

        QPalette dark;
        dark.setColor(QPalette::Window, QColor(32, 33, 36));
        dark.setColor(QPalette::Base, QColor(20, 20, 22));
        dark.setColor(QPalette::Text, QColor(230, 230, 230));
        dark.setColor(QPalette::WindowText, QColor(220, 220, 220));
        map.setPalette(dark);
        QImage shown = map.grab().toImage();
        QCOMPARE(shown.pixelColor(1, 1), QColor(32, 33, 36));  // beyond the world's corner
        QVERIFY(shown.pixelColor(map.toScreen(0, 0).toPoint()).lightness() < 60);
        aqapp::GenomePicture genes;
        std::uint8_t genome[1000] = {};
        genes.setSource([&] { return std::vector<aqapp::GenomeStrip>{{"a", genome, 0}}; });
        genes.resize(300, 200);
        genes.setPalette(dark);
        QCOMPARE(genes.grab().toImage().pixelColor(1, 1), QColor(32, 33, 36));

        // The command line under a dark desktop still writes the light map.
        aqtest::TempDir dir;
        QVERIFY(aq::writePool(dir.file("p.aqp"), pool).empty());
        const QPalette before = QApplication::palette();
        QApplication::setPalette(dark);
        std::string message;
        QCOMPARE(aqapp::pictureCommand({"map", dir.file("p.aqp"), dir.file("p.png")}, message), 0);
        QApplication::setPalette(before);
        QCOMPARE(QImage(QString::fromStdString(dir.file("p.png"))).pixelColor(1, 1), QColor(250, 250, 250));
    }
};

QTEST_MAIN(PoolMapTest)
#include "PoolMapTest.moc"
