// The main window offscreen: tabs, menus, loading a pool and the questions on closing.
#include <QTabWidget>
#include <QToolButton>

#include "Window.h"
#include "app/MapPanel.h"
#include "foodeditor/FoodList.h"
#include "format/PoolFile.h"
#include "files/PoolOps.h"
#include "pooleditor/DrifterList.h"

class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void showsItsTabsFramesMenusAndCaption() {
        aqtest::Window<> h;
        QCOMPARE(h.w.windowTitle(), QString("Aquarium File Manager - v.3.1.0.1"));
        auto* tabs = h.get<QTabWidget>("TabStrip1");
        QStringList captions;
        for (int i = 0; i < tabs->count(); ++i) captions << tabs->tabText(i);
        QCOMPARE(captions, QStringList({"Archive", "Startup Pool", "Edit Drifters in Pool File",
                                        "Edit Food in Pool File", "Edit Drifter Files", "Create Series"}));
        QCOMPARE(h.wrongTexts({{"FrmTa(0)", "Directory Paths"},
                               {"FrmTa(1)", "File archive operations, to backup or retreive Aquarium files."},
                               {"FrmTa(3)", "Categorize and Process Drifters in a Pool File"}}),
                 QStringList());
        QCOMPARE(h.w.selectedTab(), 1);
        QVERIFY(h.w.menuItem("mQuickSpec")->isChecked() && h.w.menuItem("mNoStill")->isChecked());
        QVERIFY(!h.w.menuItem("mNoOld")->isChecked());
        QCOMPARE(h.w.menuItem("mSelectMostProlithic")->text(), QString("Most Prolithic"));
        QCOMPARE(h.app().similarityDepth, std::int16_t(100));
        QVERIFY(h.app().defaultPoolUsable);

        // The menus follow the tab; "Enable All" lifts that.
        QVERIFY(h.w.menuItem("mSelectSwitchPool")->isEnabled());
        QVERIFY(!h.w.menuItem("mSelectKill")->isEnabled());
        h.menu("mSpeciatePool");
        QCOMPARE(h.w.selectedTab(), 3);
        QVERIFY(!h.w.menuItem("mSelectSwitchPool")->isEnabled());
        QVERIFY(h.w.menuItem("mSelectKill")->isEnabled() && h.w.menuItem("mSelect")->isEnabled());
        QVERIFY(!h.w.menuItem("mSelectFoodDelete")->isEnabled());
        h.menu("mEnable");
        for (const char* name : {"mSelectSwitchPool", "mSelectFoodDelete", "mSelectDrifterMove", "mSelectSwitchFood"})
            QVERIFY2(h.w.menuItem(name)->isEnabled(), name);
        h.menu("mSelectSwitchFood");
        QCOMPARE(h.w.selectedTab(), 4);
        SCRIPT_DONE(h);
    }

    void loadsAPoolAndAsksBeforeClosing() {
        aqtest::Window<> h;
        std::string path = h.file("default.aqp");
        auto bytes = aq::defaultPoolBytes();
        aqtest::writeBytes(path, std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
        h.app().comboPoolPath = h.dir.path();
        h.ui.file("open", "Select Pool File", path, h.dir.path() + "||aqp|Aquarium Files");
        h.menu("mLoadPool");
        SCRIPT_DONE(h);
        QCOMPARE(h.rows("lstSpeciatePool")->rowCount(), 49);
        QCOMPARE(h.row("lstSpeciatePool", 1),
                 QString("three-color 5 segment drifter #1, age=1941, father of 3, energy level = 46.31878., @ 51X, "
                         "77Y, has eaten 3 meals"));
        QVERIFY(h.app().poolLoaded && h.app().poolSpeciesPending);
        QCOMPARE(h.app().openPoolPath, path);
        h.tick("lstSpeciatePool", 2);
        QVERIFY(h.app().lstSpeciatePool.checked(2));

        h.app().poolChanged = true;
        h.app().openPool.drifters[0].age = 5;
        h.ui.ask("yesnocancel",
                 "The currently open pool file has been changed.  Changes will be lost if the file is not saved now."
                 "\r\n\r\nSave changes to the open pool file?",
                 "Pool File Has Changed", aq::Answer::Yes)
            .ask("yesnocancel", "Would you like to save over " + path, "Save Speciated Pool", aq::Answer::No)
            .file("save", "Save Pool As", h.file("saved.aqp"), h.dir.path() + "|default.aqp|aqp|Pool Files");
        h.w.close();
        SCRIPT_DONE(h);
        aq::Pool saved;
        QVERIFY(aq::readPool(h.file("saved.aqp"), saved).status == aq::PoolReadStatus::Ok);
        QCOMPARE(saved.drifters[0].age, 5);
        QVERIFY(!h.app().poolChanged);
    }

    void theMapFollowsTheTabAndPicksRows() {
        aqtest::Window<> h;
        h.app().openPool = h.app().defaultPool;
        h.app().poolLoaded = true;
        aq::populateSpeciatePoolList(h.app());
        aq::populateFoodList(h.app());
        aqapp::MapPanel* panel = h.w.mapPanel();
        h.w.show();
        QVERIFY(!panel->isVisible());  // the archive tab has no pool to show
        h.w.selectTab(3);
        QVERIFY(panel->isVisible());
        emit panel->map()->drifterPicked(7, false);
        QCOMPARE(h.app().lstSpeciatePool.currentIndex(), 7);
        QCOMPARE(h.get<QListView>("lstSpeciatePool")->currentIndex().row(), 7);
        QVERIFY(!h.app().lstSpeciatePool.checked(7));
        emit panel->map()->drifterPicked(7, true);
        QVERIFY(h.app().lstSpeciatePool.checked(7));
        // The toggle shows the ticked drifters' genes in the map's place; a click there finds the drifter.
        QCoreApplication::processEvents();
        h.get<QToolButton>("cmdShowGenes")->click();
        QVERIFY(panel->genes()->isVisible() && !panel->map()->isVisible());
        int firstTicked = 0;
        while (!h.app().lstSpeciatePool.checked(firstTicked)) ++firstTicked;
        h.app().lstSpeciatePool.setCurrentIndex(-1);
        QTest::mouseClick(panel->genes(), Qt::LeftButton, Qt::NoModifier, QPoint(50, 20));
        QCOMPARE(h.app().lstSpeciatePool.currentIndex(), firstTicked);
        h.get<QToolButton>("cmdShowGenes")->click();
        // Lists cleared (a load that was cancelled): the map no longer shows the pool.
        h.app().lstSpeciatePool.clear();
        h.app().lstPoolFood.clear();
        QCoreApplication::processEvents();
        QVERIFY(panel->map()->isVisible() && !panel->map()->pool());
        h.get<QToolButton>("cmdShowMap")->click();
        QVERIFY(!panel->isVisible());
        h.app().poolChanged = false;
        SCRIPT_DONE(h);
    }

    void aBadFileKeepsThePoolOnShow() {
        aqtest::Window<> h;
        std::string bad = h.file("bad.aqp");
        aqtest::writeBytes(bad, std::string(10, '\0'));
        h.app().openPool = h.app().defaultPool;
        h.app().poolLoaded = true;
        h.app().openPoolPath = "/somewhere/else.aqp";
        h.ui.file("open", "Select Pool File", bad)
            .message("Error opening " + bad + ", error: file is truncated: the header needs 12 bytes, 10 remain",
                     "Aquarium File Manager - Load Pool File");
        h.menu("mLoadPool");
        SCRIPT_DONE(h);
        QCOMPARE(h.app().openPool.drifterCount, 49);
        QCOMPARE(h.app().lstSpeciatePool.count(), 49);
        QCOMPARE(h.app().openPoolPath, std::string("/somewhere/else.aqp"));
        // Its rows are new, so the timer numbers their species again.
        QTRY_VERIFY_WITH_TIMEOUT(h.row("lstSpeciatePool", 0).startsWith("{0} "), 5000);
        // A load cancelled in its dialog leaves the lists empty, and the map with them.
        auto* map = h.get<aqapp::PoolMap>("PoolMap");
        QVERIFY(map->pool());
        h.ui.file("open", "Select Pool File", "");
        h.menu("mLoadPool");
        QCOMPARE(h.app().lstSpeciatePool.count(), 0);
        QVERIFY(!map->pool());
    }
};

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
