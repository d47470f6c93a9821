// The food tab offscreen with merging and saving from the menu.
#include <QScrollBar>
#include <QSlider>

#include "Window.h"
#include "format/PoolFile.h"
#include "support/PoolFixtures.h"

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
        aqtest::Window<> h;
        std::string open = h.file("open.aqp"), other = h.file("other.aqp");
        QCOMPARE(aq::writePool(open, poolWithFood(2, {{1, -100}, {2, 0}, {1, 100}})), std::string());
        QCOMPARE(aq::writePool(other, poolWithFood(3, {{5, 7}})), std::string());
        h.w.selectTab(4);
        auto* group = h.get<QComboBox>("comboFoodGroup");
        auto* scroll = h.get<QScrollBar>("scrollFoodThreshold");
        QCOMPARE(group->itemText(1), QString("Select by  Family"));
        QCOMPARE(group->currentIndex(), 1);
        QVERIFY(scroll->isHidden());
        group->setCurrentIndex(2);
        QVERIFY(!scroll->isHidden());
        group->setCurrentIndex(1);

        h.ui.file("open", "Select Pool File", open)
            .file("open", "Select Pool File", other)
            .file("open", "Select Pool File", other);
        h.menu("mLoadPool");
        QCOMPARE(h.row("lstPoolFood", 0), QString("{1} Food bit @ -100X, 10Y. "));
        h.menu("mMergePool");
        h.menu("mMergeFood");
        aq::App& app = h.app();
        QCOMPARE(app.openPool.drifterCount, 5);
        QCOMPARE(app.openPool.foodCount, 4);
        QCOMPARE(h.rows("lstPoolFood")->rowCount(), 4);
        QVERIFY(app.poolChanged);

        // A tick on family 1 ticks both bits of family 1; the X slider moves them as a group.
        h.tick("lstPoolFood", 0);
        QVERIFY(app.lstPoolFood.checked(2) && !app.lstPoolFood.checked(1));
        auto* x = h.get<QSlider>("SliderFoodX");
        QCOMPARE(x->value(), 0);
        x->setValue(500);
        QCOMPARE(app.openPool.food[0].x, 400.0f);
        QCOMPARE(app.openPool.food[2].x, 600.0f);

        h.ui.ask("yesnocancel",
                 "You are about to delete the 2 selected food bits. These food bits can be saved to a pool file before "
                 "deletion if you answer YES to the following question. If you answer NO, they will simply be deleted "
                 "from the open pool.\r\n\r\nSave the  selected food bits before deletion?",
                 aq::kAppTitle, aq::Answer::No)
            .ask("yesnocancel", "Would you like to save over " + open, "Save Speciated Pool", aq::Answer::Yes);
        h.menu("mSelectFoodDelete");
        QCOMPARE(h.rows("lstPoolFood")->rowCount(), 2);
        h.menu("mSavePool");
        QVERIFY(!app.poolChanged);
        aq::Pool saved;
        QCOMPARE(aq::readPool(open, saved).status, aq::PoolReadStatus::Ok);
        QCOMPARE(QList<int>({saved.drifterCount, saved.foodCount, saved.food[1].family}), QList<int>({5, 2, 5}));
        SCRIPT_DONE(h);
    }
};

QTEST_MAIN(PoolFoodTabTest)
#include "PoolFoodTabTest.moc"
