// The main window offscreen: menus and keys, the file dialogs, one series at a time from
// the series tab with its bar on show; and the habits of a desktop window around the
// program's own controls: the menu bar, the icon, captions, whole rows, what a restart
// keeps, the map's framing and the pictures written from the command line. The rules
// behind them are the core tests'.
#include <QEnterEvent>
#include <QFileDialog>
#include <QImageWriter>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QTimer>
#include <QToolButton>
#include <QWheelEvent>
#include <filesystem>

#include "Window.h"
#include "app/pictures/PictureCommand.h"
#include "app/pictures/PoolMap.h"
#include "app/window/QtUi.h"
#include "app/window/WindowParts.h"
#include "generator/Generator.h"
#include "pooleditor/DrifterList.h"
#include "series/SeriesFakes.h"
#include "support/PoolFixtures.h"

class MainWindowTest : public QObject {
    Q_OBJECT

    // The window on the series tab with a fake simulator in its folder, and a
    // four-drifter pool to start from, its dialog scripted.
    struct Run : aqtest::Window<aqtest::TickingUi> {
        aqtest::FakeSimulator sim;
        Run() {
            std::filesystem::create_directories(file("sim"));
            w.show();
            w.selectTab(6);
            sim.clock = &clock;
            sim.executables = {file("sim") + "/Aquarium"};
            app().series.simulator = &sim;
            app().series.pauseMs = 0;
            app().comboAquariumPath = file("sim");
            app().comboPoolPath = dir.path();
            aq::writePool(file("pool.aqp"), aqtest::makePool(4, 6));
            ui.file("open", "Select Pool File", file("pool.aqp"));
        }
    };

private slots:
    void menusFollowTheTabAndKeysReachThem() {
        aqtest::Window<> h;
        QString keys;
        for (const char* n :
             {"mLoadPool", "mSavePool", "mSaveDrifter", "mUndo", "mRedo", "mExit", "keyHelp", "mCreateSeries"})
            keys += QKeySequence::listToString(h.w.menuItem(n)->shortcuts(), QKeySequence::PortableText) + "|";
        QCOMPARE(keys, QString("Ctrl+O|Ctrl+S|Ctrl+Shift+S|Ctrl+Z|Ctrl+Shift+Z; Ctrl+Y|Ctrl+Q|F1|Ctrl+6|"));
        // The Selection menu follows the tab (the core tests hold which items).
        QVERIFY(!h.w.menuItem("mSelectKill")->isEnabled());
        h.menu("mSpeciatePool");
        QVERIFY(h.w.selectedTab() == 3 && h.w.menuItem("mSelectKill")->isEnabled());
        h.menu("mSelectSwitchFood");
        QCOMPARE(h.w.selectedTab(), 4);
        h.menu("mCreateSeries");
        QCOMPARE(h.w.selectedTab(), 6);
    }

    void fileDialogsTakeNewNamesAndTheSaveDialogKeepsItsName() {
        aqtest::TempDir dir;
        aqapp::QtUi ui;
        QString nameShown;
        // The next file dialog shows its name field to `nameShown` and is answered with `name`
        // (or what it shows); an answer it refuses (and any warning about it) ends in a cancel.
        auto answer = [&nameShown](const QString& name) {
            QTimer::singleShot(0, [&nameShown, name] {
                auto* dlg = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                if (!dlg) return;
                nameShown = dlg->findChild<QLineEdit*>("fileNameEdit")->text();
                if (!name.isEmpty()) dlg->selectFile(name);
                QTimer::singleShot(500, dlg, [] {
                    for (QWidget* w : QApplication::topLevelWidgets())
                        if (auto* d = qobject_cast<QDialog*>(w); d && d->isVisible()) d->reject();
                });
                static_cast<QDialog*>(dlg)->accept();  // QFileDialog checks the name
            });
        };
        answer("missing.aqp");
        QVERIFY(
            ui.ChooseOpenFile(dir.path(), "", "aqp", "Aquarium Files", "Select Pool File").ends_with("/missing.aqp"));
        answer("kept.aqp");
        ui.ChooseSaveFile(dir.path(), "", "aqp", "Pool Files", "Save Pool As");
        answer("");
        QVERIFY(ui.ChooseSaveFile(dir.path(), "", "aqp", "Pool Files", "Save Pool As").ends_with("/kept.aqp"));
        QCOMPARE(nameShown, QString("kept.aqp"));
    }

    void runsASeriesFromTheButtonsUntilStop() {
        Run h;
        h.get<QSlider>("sliderTimeDelay")->setValue(30);
        auto* stop = h.get<QPushButton>("cmdCreateSeriesStop");
        auto* now = h.get<QPushButton>("cmdCreateSeriesNow");
        auto* bar = h.get<QProgressBar>("sliderTimeDelaySelection");
        int shown = 0;
        bool nowWasDisabled = false, stopped = false, clickedAgain = false;
        QCOMPARE(h.get<QLabel>("lblTimeDelayValue")->text(), QString("30 s (0:30)"));
        auto* help = h.get<QLabel>("lblCreateSeriesHelp");
        h.ui.onYield = [&] {
            QEnterEvent hover({}, {}, {});
            if (stop->isEnabled()) QCoreApplication::sendEvent(stop, &hover);
            shown = std::max(shown, bar->isVisible() ? bar->value() : 0);
            nowWasDisabled = nowWasDisabled || !now->isEnabled();
            if (stopped && !clickedAgain) {
                clickedAgain = true;
                now->click();  // while the series still unwinds: no second series
            }
            if (h.sim.starts >= 2 && stop->isEnabled()) {
                stop->click();
                stopped = true;
            }
        };
        now->click();
        SCRIPT_DONE(h);
        QVERIFY(nowWasDisabled && clickedAgain && h.sim.starts == 2 && !h.sim.overlap);
        QCOMPARE(shown, 30);  // seconds of the run
        QVERIFY(now->isEnabled() && !stop->isEnabled() && !bar->isVisible());
        QVERIFY(!help->text().contains("Stop button"));  // the ended series drops the Stop hint
        QVERIFY(std::filesystem::exists(h.file("pool0.aqp")) && !std::filesystem::exists(h.file("pool00.aqp")));
    }

    void cancelOnClosingKeepsTheWindowOpen() {
        aqtest::Window<> h;
        h.w.show();
        h.loadPool(aqtest::makePool(2, 1));
        h.app().poolChanged = true;
        const std::string question =
            "The currently open pool file has been changed.  Changes will be lost if the file is not saved "
            "now.\r\n\r\nSave changes to the open pool file?";
        h.ui.ask("yesnocancel", question, "Pool File Has Changed", aq::Answer::Cancel);
        QVERIFY(!h.w.close() && h.w.isVisible());
        h.ui.ask("yesnocancel", question, "Pool File Has Changed", aq::Answer::No);
        QVERIFY(h.w.close());
        SCRIPT_DONE(h);
    }

    void closingTheWindowEndsARunningSeries() {
        Run h;
        bool closed = false;
        h.ui.onYield = [&] {
            if (!closed && h.sim.starts == 1 && h.clock.seconds > 36000 + 30) {
                closed = true;
                h.w.close();
            }
        };
        h.click("cmdCreateSeriesNow");
        QVERIFY(closed && h.sim.starts == 1 && !h.sim.isRunning());
        QVERIFY(!std::filesystem::exists(h.file("pool0.aqp")));
        QVERIFY(h.clock.seconds < 36000 + 60);
    }

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
        QVERIFY(map.scale() > fitted * 2);  // the edge kept free is the same number of pixels
        const double grown = map.scale();
        QWheelEvent wheel(QPointF(400, 400), QPointF(400, 400), {}, QPoint(0, 240), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&map, &wheel);
        const double zoomed = map.scale();
        map.resize(600, 600);
        QCOMPARE(map.scale(), zoomed);
        map.keepInView(aq::WorldRect{3000, 3000, 3100, 3100});
        QVERIFY(map.rect().contains(map.toScreen(3000, 3000).toPoint()) &&
                map.rect().contains(map.toScreen(3100, 3100).toPoint()));
        QTest::keyClick(&map, Qt::Key_Home);
        QVERIFY(!map.userFramed());
        QVERIFY(map.scale() > fitted && map.scale() < grown);
        map.setPool(nullptr);  // nothing to show: the hint, and clicks find nothing
        QTest::mouseClick(&map, Qt::LeftButton);
    }

    void picturesFromTheCommandLine() {
        aqtest::TempDir dir;
        const std::string pool = dir.file("pool.aqp");
        aq::Pool generated;
        QVERIFY(aq::buildStartupPool(aqtest::defaultPool(), aq::StartupSettings{}, generated));
        QVERIFY(aq::writePool(pool, generated).empty());
        struct Row {
            std::vector<std::string> args;
            int status;
            const char* message;
        };
        std::vector<Row> rows = {
            {{"map", pool, dir.file("m.png"), "--size", "300x200"}, 0, ""},
            {{"genes", pool, dir.file("g.svg")}, 0, ""},
            {{"map", dir.file("none.aqp"), dir.file("x.png")}, 1, "Error opening"},
            {{"map", pool, dir.file("no/such/folder/x.png")}, 1, "Error saving"},
            {{"map", pool, dir.file("x.png"), "--size", "3x2"}, 2, "option --size"},
            {{"maps", pool, dir.file("x.png")}, 2, "map, genes or series"},
            {{"map", pool, dir.file("x.gif")}, 2, "picture format from the name \"x.gif\"; it must end in one of"},
            {{"map", pool, dir.file("x")}, 2, "picture format"},
        };
        // Each format by its first bytes; WebP only where its plugin is installed.
        std::vector<std::pair<std::string, std::string>> magic = {
            {"m.JPG", "\xFF\xD8\xFF"}, {"m.jpeg", "\xFF\xD8\xFF"}, {"m.bmp", "BM"}, {"m.svg", "<?xml"}};
        if (QImageWriter::supportedImageFormats().contains("webp")) magic.push_back({"m.webp", "RIFF"});
        for (const auto& [name, bytes] : magic) rows.push_back({{"map", pool, dir.file(name)}, 0, ""});
        for (const auto& r : rows) {
            std::string message;
            QCOMPARE(aqapp::pictureCommand(r.args, message), r.status);
            QVERIFY2(message.find(r.message) != std::string::npos, message.c_str());
            QVERIFY(r.status != 2 || !std::filesystem::exists(r.args[2]));
        }
        magic.push_back({"m.png", "\x89PNG"});
        for (const auto& [name, bytes] : magic)
            QVERIFY2(aqtest::readBytes(dir.file(name)).starts_with(bytes), name.c_str());
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

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
