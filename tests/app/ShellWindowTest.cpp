// The window's shell: folder boxes filled at start, aqfm.ini across two runs, help,
// about and the notice.
#include <QCheckBox>
#include <QDialog>
#include <QFileDialog>
#include <QPushButton>
#include <QTimer>
#include <filesystem>

#include "Window.h"
#include "app/HelpWindows.h"
#include "app/PathFrame.h"
#include "app/QtUi.h"

using aqapp::MainWindow;

class ShellWindowTest : public QObject {
    Q_OBJECT

    static QStringList boxItems(MainWindow& w, const char* name) {
        auto* box = w.findChild<QComboBox*>(name);
        QStringList items;
        for (int i = 0; i < box->count(); ++i) items << box->itemText(i);
        return items;
    }
    static QString boxText(MainWindow& w, const char* name) { return w.findChild<QComboBox*>(name)->currentText(); }

private slots:
    void fileDialogsTakeNewNamesAndTheSaveDialogKeepsItsName() {
        aqtest::TempDir dir;
        aqapp::QtUi ui;
        QString nameShown;
        // The next file dialog shows its name field to `nameShown` and is answered with `name`
        // (or what it shows); an answer it refuses (and any warning about it) ends in a cancel.
        auto answer = [&nameShown](const QString& name) {
            QTimer::singleShot(0, [&nameShown, name] {
                auto* dlg = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                if (!dlg) return;
                nameShown = dlg->findChild<QLineEdit*>("fileNameEdit")->text();
                if (!name.isEmpty()) dlg->selectFile(name);
                QTimer::singleShot(500, dlg, [] {
                    for (QWidget* w : QApplication::topLevelWidgets())
                        if (auto* d = qobject_cast<QDialog*>(w); d && d->isVisible()) d->reject();
                });
                static_cast<QDialog*>(dlg)->accept();  // QFileDialog checks the name
            });
        };
        answer("missing.aqp");
        QVERIFY(
            ui.ChooseOpenFile(dir.path(), "", "aqp", "Aquarium Files", "Select Pool File").ends_with("/missing.aqp"));
        answer("kept.aqp");
        ui.ChooseSaveFile(dir.path(), "", "aqp", "Pool Files", "Save Pool As");
        answer("");
        QVERIFY(ui.ChooseSaveFile(dir.path(), "", "aqp", "Pool Files", "Save Pool As").ends_with("/kept.aqp"));
        QCOMPARE(nameShown, QString("kept.aqp"));
    }

    void settingsSurviveARestart() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        std::filesystem::create_directories(dir.file("prog"));
        std::filesystem::create_directories(dir.file("elsewhere"));
        QString p = QString::fromStdString(dir.file("prog"));
        QString elsewhere = QString::fromStdString(dir.file("elsewhere"));
        {
            MainWindow w(ui, clock, p);
            QCOMPARE(boxText(w, "comboAquariumPath"), p);
            QCOMPARE(boxText(w, "comboDrifterPath"), p + "/Drifters");
            QCOMPARE(boxText(w, "comboPoolPath"), p + "/Pools");
            for (int i = 0; i < 8; ++i) QVERIFY(w.app().archive.lstArchive.checked(i));
            QCOMPARE(w.app().archive.chkDeleteOriginal, 1);

            // The path button keeps the old folder in the list and takes the chosen one.
            w.pathFrame()->chooseFolder = [&](int i, const QString& start) {
                return i == 2 && start == p + "/Pools" ? elsewhere : QString();
            };
            w.findChild<QPushButton*>("cmdPoolPath")->click();
            QCOMPARE(boxText(w, "comboPoolPath"), elsewhere);
            QCOMPARE(boxItems(w, "comboPoolPath"), QStringList({p + "/Pools"}));
            w.findChild<QComboBox*>("comboDrifterPath")->setEditText("/typed/drifters");
            QCOMPARE(w.app().comboDrifterPath, std::string("/typed/drifters"));
            auto* list = w.findChild<QListView*>("lstArchive");
            list->model()->setData(list->model()->index(3, 0), Qt::Unchecked, Qt::CheckStateRole);
            w.findChild<QCheckBox*>("chkAutoBackup")->click();
            w.findChild<QCheckBox*>("chkDeleteOriginal")->click();
            w.close();
        }
        std::string ini = aqtest::readBytes(dir.file("prog/aqfm.ini"));
        QVERIFY(ini.find("lstArchive.Selected(3) = False\r\n") != std::string::npos);
        QVERIFY(ini.find("comboDrifterPath.Text = /typed/drifters\r\n") != std::string::npos);

        MainWindow again(ui, clock, p);
        QCOMPARE(boxText(again, "comboPoolPath"), elsewhere);
        QCOMPARE(boxText(again, "comboDrifterPath"), QString("/typed/drifters"));
        QCOMPARE(boxItems(again, "comboPoolPath"), QStringList({p + "/Pools"}));
        QVERIFY(!again.app().archive.lstArchive.checked(3));
        QVERIFY(again.app().archive.lstArchive.checked(4));
        QCOMPARE(again.findChild<QCheckBox*>("chkAutoBackup")->checkState(), Qt::Checked);
        QCOMPARE(again.findChild<QCheckBox*>("chkDeleteOriginal")->checkState(), Qt::Unchecked);
        QCOMPARE(again.findChild<QPushButton*>("cmdCopyToArchive")->text(), QString("Copy Selected Files to Archive"));
        QVERIFY2(ui.done(), ui.report().c_str());
    }

    void escapePutsTheBoxBack() {
        aqtest::Window<> h;
        h.w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&h.w));
        auto* box = h.get<QComboBox>("comboAquariumPath");
        box->setFocus();
        QTRY_VERIFY(box->hasFocus());
        QString before = box->currentText();
        box->setEditText("/somewhere/else");
        QTest::keyClick(box->lineEdit(), Qt::Key_Escape);
        QCOMPARE(box->currentText(), before);
        QCOMPARE(QString::fromStdString(h.app().comboAquariumPath), before);
    }

    void helpAndAboutOpenOnTheirTopics() {
        aqtest::Window<> h;
        h.menu("mHelpArchiveHelp");
        auto* help = h.get<QDialog>("frmHelp");
        QVERIFY(help->isVisible());
        QCOMPARE(help->windowTitle(), QString("Aquarium File Manager Help - Archive"));
        QCOMPARE(h.text("lblHelp"), QString("Aquarium File Manager - Archive..."));
        h.menu("mHelpHelp");
        QCOMPARE(h.w.findChildren<QDialog*>("frmHelp").size(), 1);
        QCOMPARE(help->windowTitle(), QString("Aquarium File Manager Help"));
        QCOMPARE(h.text("lblHelp"), QString("Welcome to Aquarium File Manager..."));
        QVERIFY(h.text("lblHelpText").startsWith("Use the Tabs at the top of the application window"));
        h.menu("mHelpSpeciateHelp");
        QCOMPARE(help->windowTitle(), QString("Aquarium File Manager Help - Speciate"));
        QVERIFY(h.text("lblHelpText").endsWith("Then load the new file into Aquarium."));
        h.click("cmdOK");
        QVERIFY(!help->isVisible());

        h.menu("mHelpAbout");
        auto* about = h.get<QDialog>("frmAbout");
        QVERIFY(about->isVisible());
        QCOMPARE(about->windowTitle(), QString("About Aquarium File Manager"));
        QCOMPARE(h.wrongTexts({{"lblVersion", "Version 3.1.1"}, {"lblTitle", "Aquarium File Manager"}}), QStringList());
        QVERIFY(h.text("lblDisclaimer").startsWith("Warning: As with the use of any file utility, it s a"));
        h.menu("mHelpArchiveAbout");
        QCOMPARE(
            h.wrongTexts({{"lblTitle", "Aquarium File Manager - Archive"},
                          {"lblDescription",
                           "This feature set is intended to help you preserve and organize your Aquarium files."}}),
            QStringList());
        h.click("cmdOKx");
        QVERIFY(!about->isVisible());
    }

    void noticeStaysWhileAPassRunsAndFadesAfter() {
        aqtest::Window<> h;
        aq::App& app = h.app();
        app.lstSpeciatePool.setEnabled(false);
        app.notice->show("Speciating...");
        auto* dlg = h.get<aqapp::NotificationDialog>("dlgNotification");
        QVERIFY(dlg->isVisible());
        QCOMPARE(dlg->windowTitle(), QString("Note:"));
        QCOMPARE(dlg->findChild<QLabel*>("Label1")->text(), QString("Speciating..."));
        QCOMPARE(dlg->findChild<QTimer*>("Timer1")->interval(), 777);
        h.clock.advance(60);
        dlg->tick();
        QVERIFY(dlg->isVisible());  // the pass still holds its list
        app.lstSpeciatePool.setEnabled(true);
        h.clock.advance(1);
        app.notice->stir();
        dlg->tick();
        QVERIFY(dlg->isVisible());
        h.clock.advance(5.5);
        dlg->tick();
        QVERIFY(!dlg->isVisible());
        app.notice->show("Again");
        dlg->findChild<QPushButton*>("OKButton")->click();
        QVERIFY(!dlg->isVisible());
    }
};

QTEST_MAIN(ShellWindowTest)
#include "ShellWindowTest.moc"
