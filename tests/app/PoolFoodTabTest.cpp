// The food tab offscreen with merging and saving from the menu.
#include <QAction>
#include <QComboBox>
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

class PoolFoodTabTest : public QObject {
    Q_OBJECT

    static aq::Pool poolWithFood(int drifters, std::vector<std::pair<int, float>> food) {
        aq::Pool p = aqtest::makePool(drifters, 0);
        for (auto [family, x] : food) {
            aq::FoodBit f{};
            f.family = static_cast<std::uint8_t>(family);
            f.x = x;
            f.y = 10;
            p.food.push_back(f);
        }
        p.foodCount = static_cast<int>(p.food.size());
        return p;
    }

private slots:
    void mergeEditDeleteAndSave() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        std::string open = dir.file("open.aqp"), other = dir.file("other.aqp");
        QCOMPARE(aq::writePool(open, poolWithFood(2, {{1, -100}, {2, 0}, {1, 100}})), std::string());
        QCOMPARE(aq::writePool(other, poolWithFood(3, {{5, 7}})), std::string());

        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        w.selectTab(4);
        auto* list = w.findChild<QListView*>("lstPoolFood");
        auto* group = w.findChild<QComboBox*>("comboFoodGroup");
        auto* scroll = w.findChild<QScrollBar*>("scrollFoodThreshold");
        auto* x = w.findChild<QSlider*>("SliderFoodX");
        QVERIFY(list && group && scroll && x);
        QCOMPARE(group->itemText(1), QString("Select by  Family"));
        QCOMPARE(group->currentIndex(), 1);
        QVERIFY(scroll->isHidden());
        group->setCurrentIndex(2);
        QVERIFY(!scroll->isHidden());
        group->setCurrentIndex(1);

        ui.file("open", "Select Pool File", open);
        w.menuItem("mLoadPool")->trigger();
        aq::App& app = w.app();
        QCOMPARE(list->model()->rowCount(), 3);
        QCOMPARE(list->model()->index(0, 0).data().toString(), QString("{1} Food bit @ -100X, 10Y. "));

        ui.file("open", "Select Pool File", other);
        w.menuItem("mMergePool")->trigger();
        ui.file("open", "Select Pool File", other);
        w.menuItem("mMergeFood")->trigger();
        QCOMPARE(app.openPool.drifterCount, 5);
        QCOMPARE(app.openPool.foodCount, 4);
        QCOMPARE(list->model()->rowCount(), 4);
        QVERIFY(app.poolChanged);

        // A tick on family 1 ticks both bits of family 1; the X slider moves them as a group.
        list->model()->setData(list->model()->index(0, 0), Qt::Checked, Qt::CheckStateRole);
        QCOMPARE(list->model()->index(2, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        QCOMPARE(list->model()->index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        QCOMPARE(x->value(), 0);
        x->setValue(500);
        QCOMPARE(app.openPool.food[0].x, 400.0f);
        QCOMPARE(app.openPool.food[2].x, 600.0f);

        ui.ask("yesnocancel",
               "You are about to delete the 2 selected food bits. These food bits can be saved to a pool file before "
               "deletion if you answer YES to the following question. If you answer NO, they will simply be deleted "
               "from the open pool.\r\n\r\nSave the  selected food bits before deletion?",
               aq::kAppTitle, aq::Answer::No);
        w.menuItem("mSelectFoodDelete")->trigger();
        QCOMPARE(list->model()->rowCount(), 2);

        ui.ask("yesnocancel", "Would you like to save over " + open, "Save Speciated Pool", aq::Answer::Yes);
        w.menuItem("mSavePool")->trigger();
        QVERIFY(!app.poolChanged);
        aq::Pool saved;
        QCOMPARE(aq::readPool(open, saved).status, aq::PoolReadStatus::Ok);
        QCOMPARE(saved.drifterCount, 5);
        QCOMPARE(saved.foodCount, 2);
        QCOMPARE(int(saved.food[1].family), 5);
        if (qEnvironmentVariableIsSet("AQ_SCREENSHOT_DIR")) {
            w.resize(980, 720);
            w.show();
            QTest::qWait(300);
            w.grab().save(qEnvironmentVariable("AQ_SCREENSHOT_DIR") + "/pool-food-tab.png");
        }
        QVERIFY(ui.done());
    }
};

QTEST_MAIN(PoolFoodTabTest)
#include "PoolFoodTabTest.moc"
