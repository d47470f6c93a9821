// The main window offscreen: menus and keys, the file dialogs, and one series at a time
// from the series tab with its bar on show. The rules behind them are the core tests'.
#include <QFileDialog>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QTimer>
#include <filesystem>

#include "Window.h"
#include "app/QtUi.h"
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
             {"mLoadPool", "mSavePool", "mSaveDrifter", "mUndo", "mRedo", "mExit", "keyHelp", "keyTab6"})
            keys += QKeySequence::listToString(h.w.menuItem(n)->shortcuts(), QKeySequence::PortableText) + "|";
        QCOMPARE(keys, QString("Ctrl+O|Ctrl+S|Ctrl+Shift+S|Ctrl+Z|Ctrl+Shift+Z; Ctrl+Y|Ctrl+Q|F1|Ctrl+6|"));
        // The Selection menu follows the tab; "Enable All" lifts that.
        QVERIFY(!h.w.menuItem("mSelectKill")->isEnabled());
        h.menu("mSpeciatePool");
        QCOMPARE(h.w.selectedTab(), 3);
        QVERIFY(h.w.menuItem("mSelectKill")->isEnabled() && !h.w.menuItem("mSelectSwitchPool")->isEnabled());
        h.menu("mEnable");
        QVERIFY(h.w.menuItem("mSelectSwitchPool")->isEnabled());
        h.menu("mSelectSwitchFood");
        QCOMPARE(h.w.selectedTab(), 4);
        h.menu("keyTab6");
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
        h.ui.onYield = [&] {
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
};

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
