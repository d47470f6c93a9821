// The series tab offscreen: its controls, and a short series run from its buttons.
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QtTest>
#include <filesystem>

#include "app/MainWindow.h"
#include "pool/PoolFile.h"
#include "series/Feeding.h"
#include "series/Grouping.h"
#include "series/SeriesFakes.h"
#include "support/PoolFixtures.h"
#include "support/TempDir.h"

using aqapp::MainWindow;

class SeriesTabTest : public QObject {
    Q_OBJECT

private slots:
    void controlsStartInTheirDesignState() {
        aqtest::ManualClock clock;
        aqtest::ScriptedUi ui;
        MainWindow w(ui, clock, "/tmp");
        struct Button {
            const char* name;
            const char* caption;
            bool enabled;
        } buttons[] = {{"cmdCreateSeriesNow", "Create Series Now", true},
                       {"cmdCreateSeriesStop", "Stop", false},
                       {"cmdCreateSeriesRestart", "Restart Current Pool", false},
                       {"cmdCreateSeriesNext", "Save and Continue", false}};
        for (const auto& b : buttons) {
            auto* p = w.findChild<QPushButton*>(b.name);
            QVERIFY2(p, b.name);
            QCOMPARE(p->text(), QString(b.caption));
            QCOMPARE(p->isEnabled(), b.enabled);
        }
        auto* slider = w.findChild<QSlider*>("sliderTimeDelay");
        QCOMPARE(slider->minimum(), 7);
        QCOMPARE(slider->maximum(), 1200);
        QCOMPARE(slider->value(), 500);
        QCOMPARE(slider->singleStep(), 1);
        QCOMPARE(slider->pageStep(), 5);
        QCOMPARE(slider->tickInterval(), 60);
        QCOMPARE(slider->toolTip(), QString("Number of seconds to run each pool in the series."));
        QVERIFY(!w.findChild<QCheckBox*>("chkPlague")->isChecked());
        QVERIFY(!w.findChild<QCheckBox*>("chkGetSuc")->isChecked());
        QVERIFY(w.findChild<QCheckBox*>("chkBranchingSeries")->isChecked());
        QVERIFY(w.findChild<QRadioButton*>("optionContinueSeries")->isChecked());
        QCOMPARE(w.findChild<QRadioButton*>("optionCreateSeriesPrompt")->text(),
                 QString("Start series from the beginning and prompt before over-writing files."));

        // The options reach the series as the user changes them.
        aq::App& app = w.app();
        QVERIFY(app.series.options.mNoStill && app.series.options.mCloneWhenExtinct);
        w.menuItem("mSeriesExtinction")->trigger();
        QVERIFY(app.series.options.mSeriesExtinction);
        w.findChild<QRadioButton*>("optionCreateSeriesOverwrite")->setChecked(true);
        QVERIFY(app.series.options.ifExists == aq::SeriesOptions::IfExists::Overwrite);
        w.findChild<QCheckBox*>("chkBranchingSeries")->setChecked(false);
        QVERIFY(!app.series.options.chkBranchingSeries);
        slider->setValue(7);
        QCOMPARE(app.series.controls.sliderTimeDelay, 7);

        auto* help = w.findChild<QLabel*>("lblCreateSeriesHelp");
        QCOMPARE(help->text(), QString("Click the Create Series Now button to evolve a series of pool files."));
        QEvent enter(QEvent::Enter);
        QCoreApplication::sendEvent(w.findChild<QPushButton*>("cmdCreateSeriesStop"), &enter);
        QCOMPARE(help->text(), QString("Click the Stop button to terminate the pool series production."));
    }

    void promptingItemsFollowTheAnswers() {
        aqtest::ManualClock clock;
        aqtest::ScriptedUi ui;
        MainWindow w(ui, clock, "/tmp");
        QAction* group = w.menuItem("mSeriesGroup");
        QAction* feed = w.menuItem("mFeedColor");
        ui.text(aq::kGroupPrompt, "Select Drifter Grouping Mode", "2");
        group->trigger();
        QVERIFY(group->isChecked());
        QCOMPARE(group->text(), QString("&Group Drifters by Segment Count"));
        QVERIFY(w.app().series.options.mSeriesGroup);
        ui.text(aq::kGroupPrompt, "Select Drifter Grouping Mode", "");  // cancelled: as it was
        group->trigger();
        QVERIFY(group->isChecked());
        ui.text(aq::kGroupPrompt, "Select Drifter Grouping Mode", "None");
        group->trigger();
        QVERIFY(!group->isChecked());
        QCOMPARE(group->text(), QString("&Group Drifters at Start"));

        ui.text(aq::kFeedColorPrompt, "Choose Color", "green");
        ui.text("*", "Select Color Feeding Mode", "3");
        ui.script.back().text =
            "Please select one of the following options, and enter the corresponding number.\r\n1 = Feed Completely "
            "Green Drifters\r\n2 = Feed Green Headed Drifters\r\n3 = Feed Drifters with Green Parts\r\n4 = Feed "
            "Partially Green Drifters";
        feed->trigger();
        QVERIFY(feed->isChecked());
        QCOMPARE(feed->text(), QString("Feed D&rifters with Green Parts"));
        QCOMPARE(w.app().feedColor, 3);
        QVERIFY2(ui.done(), ui.report().c_str());

        // Any other item just flips its mark.
        QAction* youth = w.menuItem("mRestoreYouth");
        youth->trigger();
        QVERIFY(youth->isChecked() && w.app().series.options.mRestoreYouth);
    }

    void runsASeriesFromTheButtonsUntilStop() {
        aqtest::ManualClock clock;
        aqtest::TickingUi ui(clock);
        aqtest::TempDir dir;
        std::filesystem::create_directories(dir.file("sim"));
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        w.show();
        w.selectTab(6);
        aq::App& app = w.app();
        aqtest::FakeSimulator sim;
        sim.clock = &clock;
        sim.executables = {dir.file("sim") + "/Aquarium"};
        app.series.simulator = &sim;
        app.series.pauseMs = 0;
        app.comboAquariumPath = dir.file("sim");
        app.comboPoolPath = dir.path();
        QVERIFY(aq::writePool(dir.file("pool.aqp"), aqtest::makePool(4, 6)).empty());
        w.findChild<QSlider*>("sliderTimeDelay")->setValue(30);
        ui.file("open", "Select Pool File", dir.file("pool.aqp"));

        auto* stop = w.findChild<QPushButton*>("cmdCreateSeriesStop");
        auto* now = w.findChild<QPushButton*>("cmdCreateSeriesNow");
        auto* bar = w.findChild<QProgressBar*>("sliderTimeDelaySelection");
        int shown = 0;
        bool nowWasDisabled = false;
        ui.onYield = [&] {
            shown = std::max(shown, bar->isVisible() ? bar->value() : 0);
            nowWasDisabled = nowWasDisabled || !now->isEnabled();
            if (sim.starts >= 2 && stop->isEnabled()) stop->click();
        };
        now->click();
        QVERIFY(ui.done());
        QVERIFY(nowWasDisabled);
        QCOMPARE(shown, 30 - 7);
        QVERIFY(now->isEnabled());
        QVERIFY(!stop->isEnabled());
        QVERIFY(!bar->isVisible());
        QVERIFY(std::filesystem::exists(dir.file("pool0.aqp")));
        QVERIFY(!std::filesystem::exists(dir.file("pool00.aqp")));
    }

    void closingTheWindowEndsARunningSeries() {
        aqtest::ManualClock clock;
        aqtest::TickingUi ui(clock);
        aqtest::TempDir dir;
        std::filesystem::create_directories(dir.file("sim"));
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        w.show();
        w.selectTab(6);
        aq::App& app = w.app();
        aqtest::FakeSimulator sim;
        sim.clock = &clock;
        sim.executables = {dir.file("sim") + "/Aquarium"};
        app.series.simulator = &sim;
        app.series.pauseMs = 0;
        app.comboAquariumPath = dir.file("sim");
        QVERIFY(aq::writePool(dir.file("pool.aqp"), aqtest::makePool(4, 6)).empty());
        ui.file("open", "Select Pool File", dir.file("pool.aqp"));
        bool closed = false;
        ui.onYield = [&] {
            if (!closed && sim.starts == 1 && clock.seconds > 36000 + 30) {
                closed = true;
                w.close();
            }
        };
        w.findChild<QPushButton*>("cmdCreateSeriesNow")->click();
        QVERIFY(closed);
        QCOMPARE(sim.starts, 1);
        QVERIFY(!sim.isRunning());
        QVERIFY(!std::filesystem::exists(dir.file("pool0.aqp")));
        QVERIFY(clock.seconds < 36000 + 60);
    }
};

QTEST_MAIN(SeriesTabTest)
#include "SeriesTabTest.moc"
