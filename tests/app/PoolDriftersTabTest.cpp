// The drifter tab offscreen: species numbers arrive from the timer, ticks move the
// sliders, the sliders move drifters, and the menu commands ask their questions.
#include <QScrollBar>
#include <QSlider>

#include "Window.h"
#include "format/PoolFile.h"
#include "pooleditor/SpeciesPass.h"
#include "support/PoolFixtures.h"

class PoolDriftersTabTest : public QObject {
    Q_OBJECT

    static void load(aqtest::Window<>& h, const aq::Pool& pool) {
        std::string path = h.file("pool.aqp");
        QCOMPARE(aq::writePool(path, pool), std::string());
        h.w.selectTab(3);
        h.ui.file("open", "Select Pool File", path);
        h.menu("mLoadPool");
    }

private slots:
    void speciesSlidersAndCommands() {
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
        aqtest::Window<> h;
        load(h, pool);
        aq::App& app = h.app();
        QCOMPARE(app.lstSpeciatePool.count(), 4);
        // The timer's phase 0 numbers the species and writes them at the head of the lines.
        QTRY_VERIFY_WITH_TIMEOUT(!app.poolSpeciesPending, 5000);
        QCOMPARE(QString::fromStdString(app.lstSpeciatePool.text(1)).left(4), QString("{0} "));
        QCOMPARE(QString::fromStdString(app.lstSpeciatePool.text(3)).left(4), QString("{2} "));
        QCOMPARE(h.text("lblPoolPer:tip"), QString("Click here to calculate Species Threshold range"));

        // The user ticks rows 0 and 1: the box spans -1000 .. 1000.
        auto* x = h.get<QSlider>("SliderSpeciatePoolDrifterX");
        auto* width = h.get<QSlider>("SliderSpeciatePoolDrifterWidth");
        h.tick("lstSpeciatePool", 0);
        h.tick("lstSpeciatePool", 1);
        QCOMPARE(QList<int>({x->minimum(), x->maximum(), width->value()}), QList<int>({-3000, 3000, 2000}));
        QVERIFY(!width->isHidden());
        width->setValue(4000);
        QCOMPARE(app.openPool.drifters[0].x, -2000.0f);
        QCOMPARE(app.openPool.drifters[1].x, 2000.0f);
        x->setValue(-1000);
        QCOMPARE(app.openPool.drifters[0].x, -3000.0f);
        QCOMPARE(app.openPool.drifters[1].x, 1000.0f);
        QVERIFY(!app.poolChanged);

        h.menu("mSelectKill");
        QVERIFY(QString::fromStdString(app.lstSpeciatePool.text(0)).contains("Dead, "));
        h.menu("mSelectRevive");
        QVERIFY(!QString::fromStdString(app.lstSpeciatePool.text(0)).contains("Dead, "));
        float energy = app.openPool.drifters[0].energy;
        h.menu("mSelectPoolFeed");
        QCOMPARE(app.openPool.drifters[0].energy, energy + 50);

        h.ui.ask("yesnocancel",
                 "You are about to delete the 2 selected drifters. These drifters can be saved to a pool file before "
                 "deletion if you answer YES to the following question. If you answer NO, they will simply be deleted "
                 "from the open pool.\r\n\r\nSave the  selected drifters before deletion?",
                 aq::kAppTitle, aq::Answer::No);
        h.menu("mSelectPoolDelete");
        QCOMPARE(app.openPool.drifterCount, 2);
        QCOMPARE(h.rows("lstSpeciatePool")->rowCount(), 2);
        QVERIFY(app.poolChanged);
        QVERIFY(width->isHidden());  // nothing ticked now: the size sliders go
        SCRIPT_DONE(h);
    }

    void sentenceAndSelectionMenus() {
        aqtest::Window<> h;
        load(h, aqtest::defaultPool());
        aq::App& app = h.app();
        QComboBox* combo[7];
        for (int k = 0; k < 7; ++k)
            combo[k] =
                h.get<QComboBox>(QString(k % 2 ? "comboSpeciatePoolBool%1" : "comboSpeciatePoolGroup%1").arg(k / 2));
        QCOMPARE(combo[0]->count(), 28);
        QCOMPARE(combo[0]->currentText(), QString("local species."));
        QCOMPARE(QList<int>({combo[1]->currentIndex(), combo[2]->currentIndex(), combo[4]->currentIndex(),
                             combo[6]->currentIndex()}),
                 QList<int>({-1, 13, 6, 8}));
        QVERIFY(combo[1]->isEnabled() && !combo[2]->isEnabled());
        combo[1]->setCurrentIndex(1);
        QVERIFY(combo[2]->isEnabled() && combo[3]->isEnabled() && !combo[4]->isEnabled());
        combo[1]->setCurrentIndex(0);
        QVERIFY(!combo[2]->isEnabled());

        // "local species." at 44.4% over the first 100 genes: a tick reaches its relatives, an untick clears them.
        h.tick("lstSpeciatePool", 0);
        QVERIFY(app.lstSpeciatePool.checkedCount() > 1);
        h.tick("lstSpeciatePool", 0, false);
        QCOMPARE(app.lstSpeciatePool.checkedCount(), 0);

        h.menu("mSelectAll");
        QCOMPARE(app.lstSpeciatePool.checkedCount(), app.openPool.drifterCount);
        h.menu("mSelectPoolInvert");
        h.menu("mSelectMutantsBySegmentCount");
        QCOMPARE(app.lstSpeciatePool.checkedCount(), 2);
        h.menu("mQuickSpec");
        QVERIFY(!h.w.menuItem("mQuickSpec")->isChecked());
        QCOMPARE(app.similarityDepth, std::int16_t(1000));
        QVERIFY(app.poolSpeciesPending);
        SCRIPT_DONE(h);
    }

    void thresholdBoxAndRange() {
        aqtest::Window<> h;
        auto* scroll = h.get<QScrollBar>("scrollPoolSpeciesThreshold");
        auto* text = h.get<QLineEdit>("txtPoolSpeciesThreshold");
        QCOMPARE(scroll->value(), 444);
        QCOMPARE(text->text(), QString("44.4"));
        // A drag of a threshold's thumb that ends where it began runs no handler.
        for (auto* bar : {scroll, h.get<QScrollBar>("scrollFoodThreshold")}) {
            bar->setSliderDown(true);
            for (int at : {bar->value() / 2, bar->value()}) bar->setSliderPosition(at);
            bar->setSliderDown(false);
        }
        QCOMPARE(h.app().txtPoolSpeciesThreshold + h.app().txtFoodThreshold, std::string("44.488.8"));
        scroll->setValue(7);
        QCOMPARE(text->text(), QString(" .7"));
        QCOMPARE(h.app().poolThreshold, 0.7f);
        h.w.selectTab(3);
        text->setFocus();
        text->selectAll();
        QTest::keyClicks(text, "95%");
        QTRY_COMPARE_WITH_TIMEOUT(scroll->value(), 950, 5000);
        QCOMPARE(text->text(), QString("95%"));
    }

    void longWorkKeepsTheViewAndShowsItsBar() {
        aqtest::Window<> h;
        h.w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&h.w));
        load(h, aqtest::makePool(400, 0));
        auto* view = h.get<QListView>("lstSpeciatePool");
        QTRY_VERIFY(view->verticalScrollBar()->maximum() > 0);
        // Kill rewrites every line in place: the view stays at the top, away from the current row.
        h.tick("lstSpeciatePool", 350);
        QCOMPARE(h.app().lstSpeciatePool.currentIndex(), 350);
        view->scrollToTop();
        h.menu("mSelectKill");
        QCOMPARE(h.app().openPool.drifters[350].alive, 0);
        QCOMPARE(view->verticalScrollBar()->value(), 0);

        // The range scan's bar is on show while the scan runs.
        int seen = 0;
        h.app().PoolProgressBar1.paint = [&, paint = h.app().PoolProgressBar1.paint](const auto& s) {
            if (paint) paint(s);
            seen += h.get("PoolProgressBar1")->isVisible();
        };
        h.ui.message(aq::thresholdRangeMessage(aq::poolThresholdRange(h.app().openPool, 100, {})));
        QTest::mouseClick(h.get("lblPoolPer"), Qt::LeftButton);
        QVERIFY(seen > 0 && h.get("PoolProgressBar1")->isHidden());
        SCRIPT_DONE(h);
    }
};

QTEST_MAIN(PoolDriftersTabTest)
#include "PoolDriftersTabTest.moc"
