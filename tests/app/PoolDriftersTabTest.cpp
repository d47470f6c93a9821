// The drifter tab offscreen: species numbers arrive from the timer, ticks move the
// sliders, the sliders move drifters, and the menu commands ask their questions.
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QSlider>
#include <QtTest>

#include "app/MainWindow.h"
#include "pool/PoolFile.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

using aqapp::MainWindow;

class PoolDriftersTabTest : public QObject {
    Q_OBJECT

private slots:
    void speciesSlidersAndCommands() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        aq::Pool pool = aqtest::makePool(4, 2);
        for (int i = 0; i < 4; ++i) {
            auto& d = pool.drifters[static_cast<std::size_t>(i)];
            for (int k = 0; k < 1000; ++k) d.genes[k] = static_cast<std::uint8_t>(i < 2 ? k : k + i);
            d.x = d.prevX = -1000.0f + 2000.0f * (i % 2);
            d.y = d.prevY = 100.0f * i;
            d.segmentCount = 2;
            d.energy = 100;
            d.alive = 1;
        }
        std::string path = dir.file("four.aqp");
        QCOMPARE(aq::writePool(path, pool), std::string());

        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        w.selectTab(3);
        ui.file("open", "Select Pool File", path);
        w.menuItem("mLoadPool")->trigger();
        aq::App& app = w.app();
        QCOMPARE(app.lstSpeciatePool.count(), 4);
        // The timer's phase 0 numbers the species and writes them at the head of the lines.
        QTRY_VERIFY_WITH_TIMEOUT(!app.poolSpeciesPending, 5000);
        QCOMPARE(QString::fromStdString(app.lstSpeciatePool.text(1)).left(4), QString("{0} "));
        QCOMPARE(QString::fromStdString(app.lstSpeciatePool.text(3)).left(4), QString("{2} "));

        auto* list = w.findChild<QListView*>("lstSpeciatePool");
        auto* x = w.findChild<QSlider*>("SliderSpeciatePoolDrifterX");
        auto* width = w.findChild<QSlider*>("SliderSpeciatePoolDrifterWidth");
        QVERIFY(list && x && width);
        QCOMPARE(w.findChild<QLabel*>("lblPoolPer")->toolTip(),
                 QString("Click here to calculate Species Threshold range"));

        // The user ticks rows 0 and 1: the box spans -1000 .. 1000.
        list->model()->setData(list->model()->index(0, 0), Qt::Checked, Qt::CheckStateRole);
        list->model()->setData(list->model()->index(1, 0), Qt::Checked, Qt::CheckStateRole);
        QCOMPARE(x->minimum(), -3000);
        QCOMPARE(x->maximum(), 3000);
        QCOMPARE(width->value(), 2000);
        QVERIFY(!width->isHidden());
        // A picture of the tab for a person to look at, when asked for.
        if (qEnvironmentVariableIsSet("AQ_SCREENSHOT_DIR")) {
            w.resize(980, 720);
            w.show();
            QTest::qWait(300);
            w.grab().save(qEnvironmentVariable("AQ_SCREENSHOT_DIR") + "/pool-drifters-tab.png");
        }

        width->setValue(4000);
        QCOMPARE(app.openPool.drifters[0].x, -2000.0f);
        QCOMPARE(app.openPool.drifters[1].x, 2000.0f);
        x->setValue(-1000);
        QCOMPARE(app.openPool.drifters[0].x, -3000.0f);
        QCOMPARE(app.openPool.drifters[1].x, 1000.0f);
        QVERIFY(!app.poolChanged);

        w.menuItem("mSelectKill")->trigger();
        QVERIFY(QString::fromStdString(app.lstSpeciatePool.text(0)).contains("Dead, "));
        w.menuItem("mSelectRevive")->trigger();
        QVERIFY(!QString::fromStdString(app.lstSpeciatePool.text(0)).contains("Dead, "));
        float energy = app.openPool.drifters[0].energy;
        w.menuItem("mSelectPoolFeed")->trigger();
        QCOMPARE(app.openPool.drifters[0].energy, energy + 50);

        ui.ask("yesnocancel",
               "You are about to delete the 2 selected drifters. These drifters can be saved to a pool file before "
               "deletion if you answer YES to the following question. If you answer NO, they will simply be deleted "
               "from the open pool.\r\n\r\nSave the  selected drifters before deletion?",
               aq::kAppTitle, aq::Answer::No);
        w.menuItem("mSelectPoolDelete")->trigger();
        QCOMPARE(app.openPool.drifterCount, 2);
        QCOMPARE(list->model()->rowCount(), 2);
        QVERIFY(app.poolChanged);
        // Nothing ticked now: the size sliders go.
        QVERIFY(width->isHidden());
        QVERIFY(ui.done());
    }

    void sentenceRecordHoldersAndMinorities() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        std::string path = dir.file("default.aqp");
        QCOMPARE(aq::writePool(path, aqtest::defaultPool()), std::string());
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        w.selectTab(3);
        ui.file("open", "Select Pool File", path);
        w.menuItem("mLoadPool")->trigger();
        aq::App& app = w.app();
        auto* list = w.findChild<QListView*>("lstSpeciatePool");
        QComboBox* combo[7];
        const char* names[7] = {"comboSpeciatePoolGroup0", "comboSpeciatePoolBool0",  "comboSpeciatePoolGroup1",
                                "comboSpeciatePoolBool1",  "comboSpeciatePoolGroup2", "comboSpeciatePoolBool2",
                                "comboSpeciatePoolGroup3"};
        for (int k = 0; k < 7; ++k) QVERIFY(combo[k] = w.findChild<QComboBox*>(names[k]));
        QCOMPARE(combo[0]->count(), 28);
        QCOMPARE(combo[0]->currentText(), QString("local species."));
        QCOMPARE(combo[2]->currentIndex(), 13);
        QCOMPARE(combo[4]->currentIndex(), 6);
        QCOMPARE(combo[6]->currentIndex(), 8);
        QCOMPARE(combo[1]->currentIndex(), -1);
        QVERIFY(combo[1]->isEnabled());
        QVERIFY(!combo[2]->isEnabled());
        combo[1]->setCurrentIndex(1);
        QVERIFY(combo[2]->isEnabled() && combo[3]->isEnabled() && !combo[4]->isEnabled());
        combo[1]->setCurrentIndex(0);
        QVERIFY(!combo[2]->isEnabled());

        // "local species." at 44.4% over the first 100 genes: a tick reaches every drifter with 44 equal genes.
        list->model()->setData(list->model()->index(0, 0), Qt::Checked, Qt::CheckStateRole);
        int expected = 0;
        for (int i = 0; i < app.openPool.drifterCount; ++i) {
            int same = 0;
            for (int g = 0; g < 100; ++g)
                same += app.openPool.drifters[i].genes[g] == app.openPool.drifters[0].genes[g];
            bool want = same >= 44;
            expected += want;
            QCOMPARE(app.lstSpeciatePool.checked(i), want);
        }
        QVERIFY(expected > 1);
        list->model()->setData(list->model()->index(0, 0), Qt::Unchecked, Qt::CheckStateRole);
        QCOMPARE(app.lstSpeciatePool.checkedCount(), 0);

        w.menuItem("mSelectOldest")->trigger();
        int oldest = -1;
        for (int i = 0; i < app.openPool.drifterCount; ++i) oldest = std::max(oldest, app.openPool.drifters[i].age);
        for (int i = 0; i < app.openPool.drifterCount; ++i)
            QCOMPARE(app.lstSpeciatePool.checked(i), app.openPool.drifters[i].age == oldest);
        w.menuItem("mSelectPoolInvert")->trigger();
        w.menuItem("mSelectPoolInvert")->trigger();
        w.menuItem("mDeSelectMutants")->trigger();
        w.menuItem("mSelectAll")->trigger();
        QCOMPARE(app.lstSpeciatePool.checkedCount(), app.openPool.drifterCount);
        w.menuItem("mSelectPoolInvert")->trigger();
        w.menuItem("mSelectMutantsBySegmentCount")->trigger();
        QCOMPARE(app.lstSpeciatePool.checkedCount(), 2);

        w.menuItem("mQuickSpec")->trigger();
        QVERIFY(!w.menuItem("mQuickSpec")->isChecked());
        QCOMPARE(app.similarityDepth, std::int16_t(1000));
        QVERIFY(app.poolSpeciesPending);
        QVERIFY(ui.done());
    }

    void thresholdBoxAndRange() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        auto* scroll = w.findChild<QScrollBar*>("scrollPoolSpeciesThreshold");
        auto* text = w.findChild<QLineEdit*>("txtPoolSpeciesThreshold");
        QVERIFY(scroll && text);
        QCOMPARE(scroll->value(), 444);
        QCOMPARE(text->text(), QString("44.4"));
        scroll->setValue(7);
        QCOMPARE(text->text(), QString(" .7"));
        QCOMPARE(w.app().poolThreshold, 0.7f);
        w.selectTab(3);
        text->setFocus();
        text->selectAll();
        QTest::keyClicks(text, "95%");
        QTRY_COMPARE_WITH_TIMEOUT(scroll->value(), 950, 5000);
        QCOMPARE(text->text(), QString("95%"));
    }
};

QTEST_MAIN(PoolDriftersTabTest)
#include "PoolDriftersTabTest.moc"
