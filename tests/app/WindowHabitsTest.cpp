// The habits of a desktop window around the program's own controls: the menu bar, the
// icon, captions, whole rows, what a restart keeps, the map's framing and the pictures
// written from the command line.
#include <QMenuBar>
#include <QToolButton>
#include <QWheelEvent>

#include "Window.h"
#include "app/PictureCommand.h"
#include "app/PoolMap.h"
#include "app/WindowParts.h"
#include "generator/Generator.h"
#include "pooleditor/DrifterList.h"
#include "support/PoolFixtures.h"

class WindowHabitsTest : public QObject {
    Q_OBJECT

private slots:
    void menusIconCaptionsAndWholeRows() {
        aqtest::Window<> h;
        QStringList bar;
        for (QAction* a : h.w.menuBar()->actions()) bar << a->text();
        QCOMPARE(bar, QStringList({"&File", "&Edit", "&Mode", "&Selection", "&Options", "&Help"}));
        QCOMPARE(h.get<QMenu>("mFile")->actions().last()->text(), QString("E&xit"));
        QVERIFY(!h.w.windowIcon().isNull());
        QStringList captions;
        for (const char* n : {"cmdLstArchiveAll", "cmdLstArchiveAllDrifter", "cmdLstArchiveAllPool", "lblVsGeneValue",
                              "lblVsGeneRange"})
            captions << h.text(n);
        QCOMPARE(captions, QStringList({"All", "DNA", "AQP", "Value", "Spread"}));

        // No "...": the tooltip holds the row, and every row is as wide as the longest.
        h.app().openPool = h.app().defaultPool;
        h.app().poolLoaded = true;
        aq::showNewOpenPool(h.app());
        auto* view = h.get<QListView>("lstSpeciatePool");
        int longest = 0;
        for (int r = 0; r < 49; ++r)
            if (h.row("lstSpeciatePool", r).size() > h.row("lstSpeciatePool", longest).size()) longest = r;
        QModelIndex first = h.rows("lstSpeciatePool")->index(0, 0);
        QCOMPARE(first.data(Qt::ToolTipRole).toString(), h.row("lstSpeciatePool", 0));
        QVERIFY(view->sizeHintForIndex(first).width() >=
                view->fontMetrics().horizontalAdvance(h.row("lstSpeciatePool", longest)));
        h.app().poolLoaded = false;
    }

    void aRestartKeepsTheMapToggleAndTheRecentPools() {
        aqtest::Window<> h;
        h.loadPool(aqtest::makePool(2, 1));
        h.get<QToolButton>("cmdShowMap")->setChecked(false);
        h.w.close();
        aqapp::MainWindow again(h.ui, h.clock, QString::fromStdString(h.dir.path()));
        QVERIFY(!again.findChild<QToolButton*>("cmdShowMap")->isChecked());
        QCOMPARE(again.menuItem("mRecentPool1")->text(), "&1 " + QString::fromStdString(h.file("pool.aqp")));
        again.close();
        SCRIPT_DONE(h);
    }

    void theMapRefitsUntilTheUserZoomsAndKeepsABoxInView() {
        aq::Pool pool = aqtest::defaultPool();
        aqapp::PoolMap map;
        map.resize(400, 400);
        map.show();
        map.setPool(&pool);
        const double fitted = map.scale();
        map.resize(800, 800);
        QCOMPARE(map.scale(), fitted * 2);
        QWheelEvent wheel(QPointF(400, 400), QPointF(400, 400), {}, QPoint(0, 240), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&map, &wheel);
        const double zoomed = map.scale();
        map.resize(600, 600);
        QCOMPARE(map.scale(), zoomed);
        map.ensureVisible(aq::WorldRect{3000, 3000, 3100, 3100});
        QVERIFY(map.rect().contains(map.toScreen(3000, 3000).toPoint()) &&
                map.rect().contains(map.toScreen(3100, 3100).toPoint()));
        QTest::keyClick(&map, Qt::Key_Home);
        QVERIFY(!map.userFramed());
        QCOMPARE(map.scale(), fitted * 1.5);
        map.setPool(nullptr);  // nothing to show: the hint, and clicks find nothing
        QTest::mouseClick(&map, Qt::LeftButton);
    }

    void picturesFromTheCommandLine() {
        aqtest::TempDir dir;
        const std::string pool = dir.file("pool.aqp");
        aq::Pool generated;
        QVERIFY(aq::buildStartupPool(aqtest::defaultPool(), aq::StartupSettings{}, generated));
        QVERIFY(aq::writePool(pool, generated).empty());
        const struct {
            std::vector<std::string> args;
            int status;
            const char* message;
        } rows[] = {
            {{"map", pool, dir.file("m.png"), "--size", "300x200"}, 0, ""},
            {{"genes", pool, dir.file("g.svg")}, 0, ""},
            {{"map", dir.file("none.aqp"), dir.file("x.png")}, 1, "Error opening"},
            {{"map", pool, dir.file("no/such/folder/x.png")}, 1, "Error saving"},
            {{"map", pool, dir.file("x.png"), "--size", "3x2"}, 2, "option --size"},
            {{"maps", pool, dir.file("x.png")}, 2, "map or genes"},
        };
        for (const auto& r : rows) {
            std::string message;
            QCOMPARE(aqapp::pictureCommand(r.args, message), r.status);
            QVERIFY2(message.find(r.message) != std::string::npos, message.c_str());
        }
        QImage png(QString::fromStdString(dir.file("m.png")));
        QCOMPARE(png.size(), QSize(300, 200));
        aqapp::PoolMap map;  // framed as the file is
        map.resize(300, 200);
        map.setPool(&generated);
        const aq::DrifterRec& d = generated.drifters[0];
        QVERIFY(png.pixelColor(map.toScreen(d.x, d.y).toPoint()) != QColor(235, 244, 250));
        QVERIFY(aqtest::readBytes(dir.file("g.svg")).find("<svg") != std::string::npos);
    }
};

QTEST_MAIN(WindowHabitsTest)
#include "WindowHabitsTest.moc"
