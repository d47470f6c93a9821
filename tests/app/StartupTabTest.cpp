// The "Startup Pool" tab offscreen: its controls, the seed buttons, the help line,
// "Randomize Settings" and "Generate Pool Now" filling the two pool lists.
#include <QCheckBox>
#include <QEnterEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

#include "app/MainWindow.h"
#include "generator/Random.h"
#include "generator/StartupSettings.h"
#include "pool/PoolFile.h"
#include "support/ManualClock.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

using aqapp::MainWindow;

class StartupTabTest : public QObject {
    Q_OBJECT

    template <class T>
    static T* child(MainWindow& w, const QString& name) {
        T* c = w.findChild<T*>(name);
        if (!c) qFatal("no control %s", qPrintable(name));
        return c;
    }

    static QString option(MainWindow& w, const QString& group) {
        for (int k = 0; k < 5; ++k)
            if (auto* b = w.findChild<QRadioButton*>(QString("%1(%2)").arg(group).arg(k)); b && b->isChecked())
                return b->text();
        return {};
    }

    static void hover(QWidget* control) {
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        QCoreApplication::sendEvent(control, &enter);
    }

private slots:
    void controlsStartWithTheirCaptionsAndDefaults() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        MainWindow w(ui, clock, "/tmp");
        QCOMPARE(child<QGroupBox>(w, "FrmTa(2)")->title(), QString("Generate Startup Pool"));
        QCOMPARE(child<QGroupBox>(w, "frStartupPoolType")->title(), QString("Select Pool Type"));
        QCOMPARE(child<QGroupBox>(w, "frStartupFoodPlace")->title(), QString("Food Placement"));
        QCOMPARE(child<QGroupBox>(w, "frStartupDrifterPlace")->title(), QString("Drifter Placement"));
        QCOMPARE(child<QGroupBox>(w, "frStartupWallPlace")->title(), QString("Great Walls Configuration"));
        QCOMPARE(child<QRadioButton>(w, "optFoodPlace(3)")->text(), QString("Evenly Distributed"));
        QCOMPARE(child<QRadioButton>(w, "optWallPlace(2)")->text(), QString("Double Horizontal"));
        QCOMPARE(option(w, "optPoolType"), QString("Ordered Startup Pool"));
        QCOMPARE(option(w, "optFoodPlace"), QString("Spiral"));
        QCOMPARE(option(w, "optDrifterPlace"), QString("Central Ring"));
        QCOMPARE(option(w, "optWallPlace"), QString("Default"));
        QVERIFY(!child<QCheckBox>(w, "chkStartupSplitPool")->isChecked());
        QVERIFY(child<QCheckBox>(w, "chkStartupExtraFood")->isChecked());
        QVERIFY(!child<QCheckBox>(w, "chkStartupExtraDrifters")->isChecked());
        QCOMPARE(child<QCheckBox>(w, "chkStartupExtraDrifters")->toolTip(),
                 QString("This option doubles the number of drifters in a new Startup Pool"));
        QCOMPARE(child<QLineEdit>(w, "txtSeedNumber")->text(), QString("1"));
        QCOMPARE(child<QLineEdit>(w, "txtSeedNumber")->toolTip(),
                 QString("The Seed Number selects a specific startup pool."));
        QCOMPARE(child<QPushButton>(w, "cmdDecSeed")->toolTip(), QString("Click here to decrement seed number"));
        QStringList captions;
        for (const char* name : {"cmdRewSeed", "cmdDecSeed", "cmdZeroSeed", "cmdIncSeed", "cmdFfSeed", "cmdStartupRnd",
                                 "cmdNewStartupPool"})
            captions << child<QPushButton>(w, name)->text();
        QCOMPARE(captions, QStringList({"<<", "<", "0", ">", ">>", "Randomize Settings", "Generate Pool Now"}));
        QCOMPARE(child<QLabel>(w, "lblStartupPoolHelp")->text(),
                 QString("Select a Seed Number and click the Generate Pool button.  Then save your new Startup Pool "
                         "file."));
    }

    void seedButtonsStepTheText() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        MainWindow w(ui, clock, "/tmp");
        auto* seed = child<QLineEdit>(w, "txtSeedNumber");
        auto click = [&](const char* name) { child<QPushButton>(w, name)->click(); };
        click("cmdFfSeed");
        QCOMPARE(seed->text(), QString("50"));
        click("cmdRewSeed");
        click("cmdDecSeed");
        QCOMPARE(seed->text(), QString("0"));
        click("cmdDecSeed");
        QCOMPARE(seed->text(), QString("-1"));
        seed->setText("17");
        click("cmdZeroSeed");
        QCOMPARE(seed->text(), QString("0"));
        click("cmdZeroSeed");
        QCOMPARE(seed->text(), QString("17"));
        seed->setText("12abc");
        click("cmdIncSeed");
        QCOMPARE(seed->text(), QString("13"));
    }

    void helpLineFollowsThePointer() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        MainWindow w(ui, clock, "/tmp");
        auto* help = child<QLabel>(w, "lblStartupPoolHelp");
        for (const char* name : {"chkStartupSplitPool", "cmdNewStartupPool", "frStartupWallPlace", "optPoolType(0)"}) {
            hover(w.findChild<QWidget*>(name));
            QString expected = QString::fromStdString(aq::startupHelpText(name)).replace("\r\n", "\n");
            QVERIFY2(!expected.isEmpty(), name);
            QCOMPARE(help->text(), expected);
        }
        // A control without help leaves the line as it is.
        QString before = help->text();
        hover(child<QPushButton>(w, "cmdDecSeed"));
        QCOMPARE(help->text(), before);
    }

    void randomizeSettingsSetsEveryControl() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        clock.seconds = 45296.0;
        MainWindow w(ui, clock, "/tmp");
        aq::setRandomState(aq::kRandomStartState);
        child<QPushButton>(w, "cmdStartupRnd")->click();
        QCOMPARE(QStringList({option(w, "optPoolType"), option(w, "optFoodPlace"), option(w, "optWallPlace"),
                              option(w, "optDrifterPlace"), child<QLineEdit>(w, "txtSeedNumber")->text()}),
                 QStringList({"Test Startup Pool", "Peripheral", "Default", "Peripheral", "37296"}));
        QVERIFY(!child<QCheckBox>(w, "chkStartupExtraFood")->isChecked());
        QVERIFY(child<QCheckBox>(w, "chkStartupExtraDrifters")->isChecked());
    }

    void generatePoolNowFillsBothListsAndClosingAsksForAFile() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        w.app().comboPoolPath = dir.path();
        w.selectTab(2);
        child<QLineEdit>(w, "txtSeedNumber")->setText("-7");
        child<QRadioButton>(w, "optPoolType(0)")->setChecked(true);
        child<QCheckBox>(w, "chkStartupExtraFood")->setChecked(false);
        child<QPushButton>(w, "cmdNewStartupPool")->click();
        QVERIFY2(ui.done(), ui.report().c_str());
        auto* drifters = child<QListView>(w, "lstSpeciatePool");
        auto* food = child<QListView>(w, "lstPoolFood");
        QCOMPARE(drifters->model()->rowCount(), 14);
        QCOMPARE(food->model()->rowCount(), 20);
        QCOMPARE(food->model()->index(0, 0).data().toString(), QString("{0} Food bit @ 650X, 0Y. "));
        QVERIFY(drifters->model()->index(0, 0).data().toString().contains("drifter #0, age=0, energy level = 5000."));
        QVERIFY(w.app().poolChanged);

        // A second run over the changed pool asks first; No goes on.
        child<QLineEdit>(w, "txtSeedNumber")->setText("1");
        child<QRadioButton>(w, "optPoolType(1)")->setChecked(true);
        ui.ask("yesnocancel",
               "The currently open pool file has been changed.  Changes will be lost if not saved now.  Save changes?",
               "File Has Changed", aq::Answer::No);
        child<QPushButton>(w, "cmdNewStartupPool")->click();
        QVERIFY2(ui.done(), ui.report().c_str());
        QCOMPARE(drifters->model()->rowCount(), 120);
        QCOMPARE(food->model()->rowCount(), 200);

        std::string saved = dir.file("startup.aqp");
        ui.ask("yesnocancel",
               "The currently open pool file has been changed.  Changes will be lost if the file is not saved now."
               "\r\n\r\nSave changes to the open pool file?",
               "Pool File Has Changed", aq::Answer::Yes)
            .file("save", "Save Pool As", saved, dir.path() + "||aqp|Pool Files");
        w.close();
        QVERIFY2(ui.done(), ui.report().c_str());
        aq::Pool back;
        QVERIFY(aq::readPool(saved, back).status == aq::PoolReadStatus::Ok);
        QCOMPARE(back.drifterCount, 120);
        QCOMPARE(aq::poolBytes(back), aq::poolBytes(w.app().openPool));
    }
};

QTEST_MAIN(StartupTabTest)
#include "StartupTabTest.moc"
