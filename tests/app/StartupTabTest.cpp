// The "Startup Pool" tab offscreen: its controls, the seed buttons, the help line,
// "Randomize Settings" and "Generate Pool Now" filling the two pool lists.
#include <QCheckBox>
#include <QEnterEvent>
#include <QRadioButton>

#include "Window.h"
#include "generator/Random.h"
#include "generator/StartupSettings.h"
#include "format/PoolFile.h"

class StartupTabTest : public QObject {
    Q_OBJECT

    static QString option(aqtest::Window<>& h, const QString& group) {
        for (int k = 0; k < 5; ++k)
            if (auto* b = h.w.findChild<QRadioButton*>(QString("%1(%2)").arg(group).arg(k)); b && b->isChecked())
                return b->text();
        return {};
    }
    static QStringList options(aqtest::Window<>& h) {
        return {option(h, "optPoolType"), option(h, "optFoodPlace"), option(h, "optDrifterPlace"),
                option(h, "optWallPlace")};
    }
    static QString ticks(aqtest::Window<>& h) {
        QString t;
        for (const char* n : {"chkStartupSplitPool", "chkStartupExtraFood", "chkStartupExtraDrifters"})
            t += h.get<QCheckBox>(n)->isChecked() ? "1" : "0";
        return t;
    }

private slots:
    void controlsStartWithTheirCaptionsAndDefaults() {
        aqtest::Window<> h;
        QCOMPARE(h.wrongTexts({{"FrmTa(2)", "Generate Startup Pool"},
                               {"frStartupPoolType", "Select Pool Type"},
                               {"frStartupFoodPlace", "Food Placement"},
                               {"frStartupDrifterPlace", "Drifter Placement"},
                               {"frStartupWallPlace", "Great Walls Configuration"},
                               {"optFoodPlace(3)", "Evenly Distributed"},
                               {"optWallPlace(2)", "Double Horizontal"},
                               {"chkStartupExtraDrifters:tip",
                                "This option doubles the number of drifters in a new Startup Pool"},
                               {"txtSeedNumber", "1"},
                               {"txtSeedNumber:tip", "The Seed Number selects a specific startup pool."},
                               {"cmdDecSeed:tip", "Click here to decrement seed number"},
                               {"cmdRewSeed", "<<"},
                               {"cmdDecSeed", "<"},
                               {"cmdZeroSeed", "0"},
                               {"cmdIncSeed", ">"},
                               {"cmdFfSeed", ">>"},
                               {"cmdStartupRnd", "Randomize Settings"},
                               {"cmdNewStartupPool", "Generate Pool Now"},
                               {"lblStartupPoolHelp",
                                "Select a Seed Number and click the Generate Pool button.  Then save your new Startup "
                                "Pool file."}}),
                 QStringList());
        QCOMPARE(options(h), QStringList({"Ordered Startup Pool", "Spiral", "Central Ring", "Default"}));
        QCOMPARE(ticks(h), QString("010"));
    }

    void seedButtonsStepTheText() {
        aqtest::Window<> h;
        auto* seed = h.get<QLineEdit>("txtSeedNumber");
        // Each step: text typed first ("" keeps it), button, text shown.
        const struct {
            const char* typed;
            const char* button;
            const char* shown;
        } steps[] = {{"", "cmdFfSeed", "50"},      {"", "cmdRewSeed", "1"},    {"", "cmdDecSeed", "0"},
                     {"", "cmdDecSeed", "-1"},     {"17", "cmdZeroSeed", "0"}, {"", "cmdZeroSeed", "17"},
                     {"12abc", "cmdIncSeed", "13"}};
        for (const auto& s : steps) {
            if (*s.typed) seed->setText(s.typed);
            h.click(s.button);
            QCOMPARE(seed->text(), QString(s.shown));
        }
    }

    void helpLineFollowsThePointer() {
        aqtest::Window<> h;
        auto* help = h.get<QLabel>("lblStartupPoolHelp");
        auto hover = [&](const char* name) {
            QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
            QCoreApplication::sendEvent(h.get(name), &enter);
        };
        for (const char* name : {"chkStartupSplitPool", "cmdNewStartupPool", "frStartupWallPlace", "optPoolType(0)"}) {
            hover(name);
            QString expected = QString::fromStdString(aq::startupHelpText(name)).replace("\r\n", "\n");
            QVERIFY2(!expected.isEmpty(), name);
            QCOMPARE(help->text(), expected);
        }
        QString before = help->text();
        hover("cmdDecSeed");  // no help of its own: the line stays
        QCOMPARE(help->text(), before);
    }

    void randomizeSettingsSetsEveryControl() {
        aqtest::Window<> h;
        h.clock.seconds = 45296.0;
        aq::setRandomState(aq::kRandomStartState);
        h.click("cmdStartupRnd");
        QCOMPARE(options(h), QStringList({"Test Startup Pool", "Peripheral", "Peripheral", "Default"}));
        QCOMPARE(h.text("txtSeedNumber"), QString("37296"));
        QCOMPARE(ticks(h).mid(1), QString("01"));
    }

    void generatePoolNowFillsBothListsAndClosingAsksForAFile() {
        aqtest::Window<> h;
        h.app().comboPoolPath = h.dir.path();
        h.w.selectTab(2);
        h.get<QLineEdit>("txtSeedNumber")->setText("-7");
        h.get<QRadioButton>("optPoolType(0)")->setChecked(true);
        h.get<QCheckBox>("chkStartupExtraFood")->setChecked(false);
        h.click("cmdNewStartupPool");
        SCRIPT_DONE(h);
        QCOMPARE(h.rows("lstSpeciatePool")->rowCount(), 14);
        QCOMPARE(h.rows("lstPoolFood")->rowCount(), 20);
        QCOMPARE(h.row("lstPoolFood", 0), QString("{0} Food bit @ 650X, 0Y. "));
        QVERIFY(h.row("lstSpeciatePool", 0).contains("drifter #0, age=0, energy level = 5000."));
        QVERIFY(h.app().poolChanged);

        // A second run over the changed pool asks first; No goes on.
        h.get<QLineEdit>("txtSeedNumber")->setText("1");
        h.get<QRadioButton>("optPoolType(1)")->setChecked(true);
        h.ui.ask(
            "yesnocancel",
            "The currently open pool file has been changed.  Changes will be lost if not saved now.  Save changes?",
            "File Has Changed", aq::Answer::No);
        h.click("cmdNewStartupPool");
        SCRIPT_DONE(h);
        QCOMPARE(h.rows("lstSpeciatePool")->rowCount(), 120);
        QCOMPARE(h.rows("lstPoolFood")->rowCount(), 200);

        std::string saved = h.file("startup.aqp");
        h.ui.ask("yesnocancel",
                 "The currently open pool file has been changed.  Changes will be lost if the file is not saved now."
                 "\r\n\r\nSave changes to the open pool file?",
                 "Pool File Has Changed", aq::Answer::Yes)
            .file("save", "Save Pool As", saved, h.dir.path() + "||aqp|Pool Files");
        h.w.close();
        SCRIPT_DONE(h);
        aq::Pool back;
        QVERIFY(aq::readPool(saved, back).status == aq::PoolReadStatus::Ok);
        QCOMPARE(back.drifterCount, 120);
        QCOMPARE(aq::poolBytes(back), aq::poolBytes(h.app().openPool));
    }
};

QTEST_MAIN(StartupTabTest)
#include "StartupTabTest.moc"
