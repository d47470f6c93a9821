// The series tab offscreen: its controls, and a short series run from its buttons.
#include <QCheckBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <filesystem>

#include "Window.h"
#include "format/PoolFile.h"
#include "series/Grouping.h"
#include "series/SeriesFakes.h"
#include "support/PoolFixtures.h"

class SeriesTabTest : public QObject {
    Q_OBJECT

    using Window = aqtest::Window<aqtest::TickingUi>;

    // A simulator folder, a four-drifter pool to start from, and a fake simulator.
    static void prepare(Window& h, aqtest::FakeSimulator& sim) {
        std::filesystem::create_directories(h.file("sim"));
        h.w.show();
        h.w.selectTab(6);
        sim.clock = &h.clock;
        sim.executables = {h.file("sim") + "/Aquarium"};
        h.app().series.simulator = &sim;
        h.app().series.pauseMs = 0;
        h.app().comboAquariumPath = h.file("sim");
        h.app().comboPoolPath = h.dir.path();
        QVERIFY(aq::writePool(h.file("pool.aqp"), aqtest::makePool(4, 6)).empty());
        h.ui.file("open", "Select Pool File", h.file("pool.aqp"));
    }

private slots:
    void controlsStartInTheirDesignStateAndReachTheSeries() {
        aqtest::Window<> h;
        QCOMPARE(
            h.wrongTexts(
                {{"cmdCreateSeriesNow", "Create Series Now"},
                 {"cmdCreateSeriesStop", "Stop"},
                 {"cmdCreateSeriesRestart", "Restart Current Pool"},
                 {"cmdCreateSeriesNext", "Save and Continue"},
                 {"sliderTimeDelay:tip", "Number of seconds to run each pool in the series."},
                 {"optionCreateSeriesPrompt", "Start series from the beginning and prompt before over-writing files."},
                 {"lblCreateSeriesHelp", "Click the Create Series Now button to evolve a series of pool files."},
                 {"Frame1", "If the series already exists"}}),
            QStringList());
        QString enabled;
        for (const char* b :
             {"cmdCreateSeriesNow", "cmdCreateSeriesStop", "cmdCreateSeriesRestart", "cmdCreateSeriesNext", "chkPlague",
              "chkGetSuc", "chkBranchingSeries", "optionContinueSeries"})
            enabled += QString::number(h.get<QAbstractButton>(b)->isEnabled()) +
                       QString::number(h.get<QAbstractButton>(b)->isChecked());
        QCOMPARE(enabled, QString("1000000010101111"));
        auto* slider = h.get<QSlider>("sliderTimeDelay");
        QCOMPARE(QList<int>({slider->minimum(), slider->maximum(), slider->value(), slider->singleStep(),
                             slider->pageStep(), slider->tickInterval()}),
                 QList<int>({7, 1200, 500, 1, 5, 60}));

        aq::App& app = h.app();
        QVERIFY(app.series.options.mNoStill && app.series.options.mCloneWhenExtinct);
        h.menu("mSeriesExtinction");
        QVERIFY(app.series.options.mSeriesExtinction);
        h.get<QRadioButton>("optionCreateSeriesOverwrite")->setChecked(true);
        QVERIFY(app.series.options.ifExists == aq::SeriesOptions::IfExists::Overwrite);
        h.get<QCheckBox>("chkBranchingSeries")->setChecked(false);
        QVERIFY(!app.series.options.chkBranchingSeries);
        slider->setValue(7);
        QCOMPARE(app.series.controls.sliderTimeDelay, 7);
        QEvent enter(QEvent::Enter);
        QCoreApplication::sendEvent(h.get("cmdCreateSeriesStop"), &enter);
        QCOMPARE(h.text("lblCreateSeriesHelp"),
                 QString("Click the Stop button to terminate the pool series production."));
    }

    void promptingItemsFollowTheAnswers() {
        aqtest::Window<> h;
        QAction* group = h.w.menuItem("mSeriesGroup");
        h.ui.text(aq::kGroupPrompt, "Select Drifter Grouping Mode", "2");
        group->trigger();
        QVERIFY(group->isChecked() && h.app().series.options.mSeriesGroup);
        QCOMPARE(group->text(), QString("&Group Drifters by Segment Count"));
        h.ui.text(aq::kGroupPrompt, "Select Drifter Grouping Mode", "None");
        group->trigger();
        QVERIFY(!group->isChecked());
        QCOMPARE(group->text(), QString("&Group Drifters at Start"));
        SCRIPT_DONE(h);
        QAction* youth = h.w.menuItem("mRestoreYouth");  // an item without a prompt just flips its mark
        youth->trigger();
        QVERIFY(youth->isChecked() && h.app().series.options.mRestoreYouth);
    }

    void runsASeriesFromTheButtonsUntilStop() {
        Window h;
        aqtest::FakeSimulator sim;
        prepare(h, sim);
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
            if (sim.starts >= 2 && stop->isEnabled()) {
                stop->click();
                stopped = true;
            }
        };
        now->click();
        SCRIPT_DONE(h);
        QVERIFY(nowWasDisabled && clickedAgain);
        QCOMPARE(sim.starts, 2);
        QVERIFY(!sim.overlap);
        QCOMPARE(shown, 30);  // seconds of the run
        QVERIFY(now->isEnabled() && !stop->isEnabled() && !bar->isVisible());
        QVERIFY(std::filesystem::exists(h.file("pool0.aqp")));
        QVERIFY(!std::filesystem::exists(h.file("pool00.aqp")));
    }

    void closingTheWindowEndsARunningSeries() {
        Window h;
        aqtest::FakeSimulator sim;
        prepare(h, sim);
        bool closed = false;
        h.ui.onYield = [&] {
            if (!closed && sim.starts == 1 && h.clock.seconds > 36000 + 30) {
                closed = true;
                h.w.close();
            }
        };
        h.click("cmdCreateSeriesNow");
        QVERIFY(closed);
        QCOMPARE(sim.starts, 1);
        QVERIFY(!sim.isRunning());
        QVERIFY(!std::filesystem::exists(h.file("pool0.aqp")));
        QVERIFY(h.clock.seconds < 36000 + 60);
    }
};

QTEST_MAIN(SeriesTabTest)
#include "SeriesTabTest.moc"
