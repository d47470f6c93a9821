// The main window offscreen, driven through the scripted Ui.
#include <QAction>
#include <QGroupBox>
#include <QListView>
#include <QTabWidget>
#include <QToolButton>
#include <QtTest>

#include "app/MainWindow.h"
#include "app/MapPanel.h"
#include "foodeditor/FoodList.h"
#include "generator/Generator.h"
#include "generator/StartupSettings.h"
#include "pooleditor/DrifterList.h"
#include "pool/PoolFile.h"
#include "pool/PoolOps.h"
#include "support/ManualClock.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

using aqapp::MainWindow;

class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void showsItsTabsFramesAndCaption() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        QCOMPARE(w.windowTitle(), QString("Aquarium File Manager - v.3.1.0.1"));
        auto* tabs = w.findChild<QTabWidget*>("TabStrip1");
        QVERIFY(tabs);
        QStringList captions;
        for (int i = 0; i < tabs->count(); ++i) captions << tabs->tabText(i);
        QCOMPARE(captions, QStringList({"Archive", "Startup Pool", "Edit Drifters in Pool File", "Edit Food in Pool File",
                                        "Edit Drifter Files", "Create Series"}));
        QCOMPARE(w.findChild<QGroupBox*>("FrmTa(0)")->title(), QString("Directory Paths"));
        QCOMPARE(w.findChild<QGroupBox*>("FrmTa(1)")->title(),
                 QString("File archive operations, to backup or retreive Aquarium files."));
        QCOMPARE(w.findChild<QGroupBox*>("FrmTa(3)")->title(),
                 QString("Categorize and Process Drifters in a Pool File"));
        QCOMPARE(w.selectedTab(), 1);
        QVERIFY(w.menuItem("mQuickSpec")->isChecked());
        QVERIFY(w.menuItem("mNoStill")->isChecked());
        QVERIFY(!w.menuItem("mNoOld")->isChecked());
        QCOMPARE(w.menuItem("mSelectMostProlithic")->text(), QString("Most Prolithic"));
        QCOMPARE(w.app().similarityDepth, std::int16_t(100));
        QVERIFY(w.app().defaultPoolUsable);
        QVERIFY(ui.done());
    }

    void menusFollowTheTabAndEnableAll() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        MainWindow w(ui, clock, "/tmp");
        QVERIFY(w.menuItem("mSelectSwitchPool")->isEnabled());
        QVERIFY(!w.menuItem("mSelectKill")->isEnabled());
        w.menuItem("mSpeciatePool")->trigger();
        QCOMPARE(w.selectedTab(), 3);
        QVERIFY(!w.menuItem("mSelectSwitchPool")->isEnabled());
        QVERIFY(w.menuItem("mSelectKill")->isEnabled());
        QVERIFY(w.menuItem("mSelect")->isEnabled());
        QVERIFY(!w.menuItem("mSelectFoodDelete")->isEnabled());
        w.menuItem("mEnable")->trigger();
        for (const char* name : {"mSelectSwitchPool", "mSelectFoodDelete", "mSelectDrifterMove", "mSelectSwitchFood"})
            QVERIFY2(w.menuItem(name)->isEnabled(), name);
        w.menuItem("mSelectSwitchFood")->trigger();
        QCOMPARE(w.selectedTab(), 4);
    }

    void loadsAPoolAndAsksBeforeClosing() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        std::string path = dir.file("default.aqp");
        auto bytes = aq::defaultPoolBytes();
        aqtest::writeBytes(path, std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        w.app().comboPoolPath = dir.path();
        ui.file("open", "Select Pool File", path, dir.path() + "||aqp|Aquarium Files");
        w.menuItem("mLoadPool")->trigger();
        QVERIFY2(ui.done(), ui.report().c_str());
        auto* list = w.findChild<QListView*>("lstSpeciatePool");
        QCOMPARE(list->model()->rowCount(), 49);
        QCOMPARE(list->model()->index(1, 0).data().toString(),
                 QString("three-color 5 segment drifter #1, age=1941, father of 3, energy level = 46.31878., @ 51X, "
                         "77Y, has eaten 3 meals"));
        QVERIFY(w.app().poolLoaded);
        QVERIFY(w.app().poolSpeciesPending);
        QCOMPARE(w.app().openPoolPath, path);

        // A user's tick reaches the list.
        list->model()->setData(list->model()->index(2, 0), Qt::Checked, Qt::CheckStateRole);
        QVERIFY(w.app().lstSpeciatePool.checked(2));

        w.app().poolChanged = true;
        w.app().openPool.drifters[0].age = 5;
        ui.ask("yesnocancel",
               "The currently open pool file has been changed.  Changes will be lost if the file is not saved now."
               "\r\n\r\nSave changes to the open pool file?",
               "Pool File Has Changed", aq::Answer::Yes)
            .ask("yesnocancel", "Would you like to save over " + path, "Save Speciated Pool", aq::Answer::No)
            .file("save", "Save Pool As", dir.file("saved.aqp"), dir.path() + "|default.aqp|aqp|Pool Files");
        w.close();
        QVERIFY2(ui.done(), ui.report().c_str());
        aq::Pool saved;
        QVERIFY(aq::readPool(dir.file("saved.aqp"), saved).status == aq::PoolReadStatus::Ok);
        QCOMPARE(saved.drifters[0].age, 5);
        QVERIFY(!w.app().poolChanged);
    }

    void theMapFollowsTheTabAndPicksRows() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        MainWindow w(ui, clock, "/tmp");
        w.app().openPool = w.app().defaultPool;
        w.app().poolLoaded = true;
        aq::populateSpeciatePoolList(w.app());
        aq::populateFoodList(w.app());
        aqapp::MapPanel* panel = w.mapPanel();
        w.show();
        QVERIFY(!panel->isVisible());  // the archive tab has no pool to show
        w.selectTab(3);
        QVERIFY(panel->isVisible());
        emit panel->map()->drifterPicked(7, false);
        QCOMPARE(w.app().lstSpeciatePool.currentIndex(), 7);
        QCOMPARE(w.findChild<QListView*>("lstSpeciatePool")->currentIndex().row(), 7);
        QVERIFY(!w.app().lstSpeciatePool.checked(7));
        emit panel->map()->drifterPicked(7, true);
        QVERIFY(w.app().lstSpeciatePool.checked(7));
        if (!qEnvironmentVariableIsEmpty("AQ_SHOTS")) {
            w.app().lstSpeciatePool.setChecked(20, true);
            w.resize(1400, 800);
            w.refreshAll();
            w.grab().save(qEnvironmentVariable("AQ_SHOTS") + "/window-drifters.png");
            w.selectTab(4);
            w.app().lstPoolFood.setChecked(1, true);
            w.grab().save(qEnvironmentVariable("AQ_SHOTS") + "/window-food.png");
            w.app().poolChanged = false;
            aq::generateStartupPool(w.app(), aq::StartupSettings{});
            w.selectTab(2);
            w.grab().save(qEnvironmentVariable("AQ_SHOTS") + "/window-startup.png");
            w.selectTab(3);
        }
        w.findChild<QToolButton*>("cmdShowMap")->click();
        QVERIFY(!panel->isVisible());
        w.app().poolChanged = false;
        QVERIFY(ui.done());
    }

    void cancelKeepsThePoolOnShowWhenTheFileIsBad() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        std::string bad = dir.file("bad.aqp");
        aqtest::writeBytes(bad, std::string(10, '\0'));
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        w.app().openPool = w.app().defaultPool;
        w.app().poolLoaded = true;
        w.app().openPoolPath = "/somewhere/else.aqp";
        ui.file("open", "Select Pool File", bad)
            .message("Error opening " + bad + ", error: file is truncated: the header needs 12 bytes, 10 remain",
                     "Aquarium File Manager - Load Pool File");
        w.menuItem("mLoadPool")->trigger();
        QVERIFY2(ui.done(), ui.report().c_str());
        QCOMPARE(w.app().openPool.drifterCount, 49);
        QCOMPARE(w.app().lstSpeciatePool.count(), 49);
        QCOMPARE(w.app().openPoolPath, std::string("/somewhere/else.aqp"));
    }
};

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
