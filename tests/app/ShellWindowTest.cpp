// The window's shell: folder boxes filled at start, aqfm.ini across two runs, help,
// about and the notice.
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>
#include <filesystem>

#include "app/HelpWindows.h"
#include "app/MainWindow.h"
#include "app/PathFrame.h"
#include "support/ManualClock.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

using aqapp::MainWindow;

class ShellWindowTest : public QObject {
    Q_OBJECT

    static QString boxText(MainWindow& w, const char* name) { return w.findChild<QComboBox*>(name)->currentText(); }
    static QStringList boxItems(MainWindow& w, const char* name) {
        auto* box = w.findChild<QComboBox*>(name);
        QStringList items;
        for (int i = 0; i < box->count(); ++i) items << box->itemText(i);
        return items;
    }
    static QString labelText(QWidget* w, const char* name) { return w->findChild<QLabel*>(name)->text(); }

private slots:
    void settingsSurviveARestart() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        std::string prog = dir.file("prog");
        std::filesystem::create_directories(prog);
        std::filesystem::create_directories(dir.file("elsewhere"));
        QString p = QString::fromStdString(prog);
        {
            MainWindow w(ui, clock, p);
            QCOMPARE(boxText(w, "comboAquariumPath"), p);
            QCOMPARE(boxText(w, "comboDrifterPath"), p + "/Drifters");
            QCOMPARE(boxText(w, "comboPoolPath"), p + "/Pools");
            for (int i = 0; i < 8; ++i) QVERIFY(w.app().archive.lstArchive.checked(i));
            QCOMPARE(w.app().archive.chkDeleteOriginal, 1);

            // The path button keeps the old folder in the list and takes the chosen one.
            QString elsewhere = QString::fromStdString(dir.file("elsewhere"));
            w.pathFrame()->chooseFolder = [&](int i, const QString& start) {
                return i == 2 && start == p + "/Pools" ? elsewhere : QString();
            };
            w.findChild<QPushButton*>("cmdPoolPath")->click();
            QCOMPARE(boxText(w, "comboPoolPath"), elsewhere);
            QCOMPARE(boxItems(w, "comboPoolPath"), QStringList({p + "/Pools"}));
            // Typing in a box reaches the core.
            w.findChild<QComboBox*>("comboDrifterPath")->setEditText("/typed/drifters");
            QCOMPARE(w.app().comboDrifterPath, std::string("/typed/drifters"));
            w.app().archive.lstArchive.setChecked(3, false);
            w.app().archive.chkAutoBackup = 1;
            w.close();
        }
        std::string ini = aqtest::readBytes(dir.file("prog/aqfm.ini"));
        QVERIFY(ini.find("lstArchive.Selected(3) = False\r\n") != std::string::npos);
        QVERIFY(ini.find("comboDrifterPath.Text = /typed/drifters\r\n") != std::string::npos);

        MainWindow again(ui, clock, p);
        QCOMPARE(boxText(again, "comboPoolPath"), QString::fromStdString(dir.file("elsewhere")));
        QCOMPARE(boxText(again, "comboDrifterPath"), QString("/typed/drifters"));
        QCOMPARE(boxItems(again, "comboPoolPath"), QStringList({p + "/Pools"}));
        QVERIFY(!again.app().archive.lstArchive.checked(3));
        QVERIFY(again.app().archive.lstArchive.checked(4));
        QCOMPARE(again.app().archive.chkAutoBackup, 1);
        QVERIFY2(ui.done(), ui.report().c_str());
    }

    void escapePutsTheBoxBack() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        auto* box = w.findChild<QComboBox*>("comboAquariumPath");
        box->setFocus();
        QTRY_VERIFY(box->hasFocus());
        QString before = box->currentText();
        box->setEditText("/somewhere/else");
        QTest::keyClick(box->lineEdit(), Qt::Key_Escape);
        QCOMPARE(box->currentText(), before);
        QCOMPARE(QString::fromStdString(w.app().comboAquariumPath), before);
    }

    void helpAndAboutOpenOnTheirTopics() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        w.menuItem("mHelpArchiveHelp")->trigger();
        auto* help = w.findChild<QDialog*>("frmHelp");
        QVERIFY(help && help->isVisible());
        QCOMPARE(help->windowTitle(), QString("Aquarium File Manager Help - Archive"));
        QCOMPARE(labelText(help, "lblHelp"), QString("Aquarium File Manager - Archive..."));
        w.menuItem("mHelpHelp")->trigger();
        QCOMPARE(w.findChildren<QDialog*>("frmHelp").size(), 1);
        QCOMPARE(help->windowTitle(), QString("Aquarium File Manager Help"));
        QCOMPARE(labelText(help, "lblHelp"), QString("Welcome to Aquarium File Manager..."));
        QVERIFY(labelText(help, "lblHelpText").startsWith("Use the Tabs at the top of the application window"));
        w.menuItem("mHelpSpeciateHelp")->trigger();
        QCOMPARE(help->windowTitle(), QString("Aquarium File Manager Help - Speciate"));
        QVERIFY(labelText(help, "lblHelpText").endsWith("Then load the new file into Aquarium."));
        help->findChild<QPushButton*>("cmdOK")->click();
        QVERIFY(!help->isVisible());

        w.menuItem("mHelpAbout")->trigger();
        auto* about = w.findChild<QDialog*>("frmAbout");
        QVERIFY(about && about->isVisible());
        QCOMPARE(about->windowTitle(), QString("About Aquarium File Manager"));
        QCOMPARE(labelText(about, "lblVersion"), QString("Version 3.1.1"));
        QCOMPARE(labelText(about, "lblTitle"), QString("Aquarium File Manager"));
        QVERIFY(labelText(about, "lblDisclaimer").startsWith("Warning: As with the use of any file utility, it s a"));
        w.menuItem("mHelpArchiveAbout")->trigger();
        QCOMPARE(labelText(about, "lblTitle"), QString("Aquarium File Manager - Archive"));
        QCOMPARE(labelText(about, "lblDescription"),
                 QString("This feature set is intended to help you preserve and organize your Aquarium files."));
        about->findChild<QPushButton*>("cmdOKx")->click();
        QVERIFY(!about->isVisible());
    }

    void noticeStaysWhileAPassRunsAndFadesAfter() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        aq::App& app = w.app();
        app.lstSpeciatePool.setEnabled(false);
        app.notice->show("Speciating...");
        auto* dlg = w.findChild<aqapp::NotificationDialog*>("dlgNotification");
        QVERIFY(dlg && dlg->isVisible());
        QCOMPARE(dlg->windowTitle(), QString("Note:"));
        QCOMPARE(labelText(dlg, "Label1"), QString("Speciating..."));
        QCOMPARE(dlg->findChild<QTimer*>("Timer1")->interval(), 777);
        clock.advance(60);
        dlg->tick();
        QVERIFY(dlg->isVisible());  // the pass still holds its list
        app.lstSpeciatePool.setEnabled(true);
        clock.advance(1);
        app.notice->stir();
        dlg->tick();
        QVERIFY(dlg->isVisible());
        clock.advance(5.5);
        dlg->tick();
        QVERIFY(!dlg->isVisible());
        app.notice->show("Again");
        dlg->findChild<QPushButton*>("OKButton")->click();
        QVERIFY(!dlg->isVisible());
    }
};

QTEST_MAIN(ShellWindowTest)
#include "ShellWindowTest.moc"
