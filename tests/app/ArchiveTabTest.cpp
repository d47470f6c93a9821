// The archive tab's widgets: captions, tips, the help line, the buttons, and the
// ticks and boxes kept across two runs.
#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QMouseEvent>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest>
#include <filesystem>

#include "app/MainWindow.h"
#include "support/ManualClock.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

using aqapp::MainWindow;

class ArchiveTabTest : public QObject {
    Q_OBJECT

    static void pointerOver(QWidget* w) {
        QMouseEvent move(QEvent::MouseMove, QPointF(2, 2), w->mapToGlobal(QPointF(2, 2)), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(w, &move);
    }

private slots:
    void controlsCaptionsAndHelpLine() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        auto* list = w.findChild<QListView*>("lstArchive");
        QCOMPARE(list->model()->rowCount(), 8);
        QCOMPARE(list->model()->index(0, 0).data().toString(), QString("Drifter_1.DNA"));
        QCOMPARE(list->model()->index(7, 0).data().toString(), QString("Pool_4.AQP"));
        for (int i = 0; i < 8; ++i)
            QCOMPARE(list->model()->index(i, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));

        auto* copy = w.findChild<QPushButton*>("cmdCopyToArchive");
        auto* del = w.findChild<QCheckBox*>("chkDeleteOriginal");
        QCOMPARE(copy->text(), QString("Move Selected Files to Archive"));
        QCOMPARE(del->checkState(), Qt::Checked);
        del->click();
        QCOMPARE(w.app().archive.chkDeleteOriginal, 0);
        QCOMPARE(copy->text(), QString("Copy Selected Files to Archive"));
        del->click();
        QCOMPARE(w.app().archive.chkDeleteOriginal, 1);
        QCOMPARE(del->toolTip(), QString("This causes the Copy function to essentially act as a Move function."));
        QCOMPARE(w.findChild<QCheckBox*>("chkNowName")->text(), QString("Using Date and Time"));
        QCOMPARE(w.findChild<QPushButton*>("cmdReplaceFromArchive")->toolTip(),
                 QString("Click here to copy archived drifter files over the selected drifter files."));

        auto* help = w.findChild<QLabel*>("lblArchiveInstruct");
        QCOMPARE(help->text(), QString("Welcome to the Aquarium File Manager."));
        clock.seconds = 1234;
        pointerOver(w.findChild<QCheckBox*>("chkAutoName"));
        QVERIFY(help->text().startsWith("When you click the Move or Copy files to Archive button, if there is a"));
        QCOMPARE(w.app().lastHelpMove, 1234.0);
        pointerOver(list);  // the list has no text: the line stays
        QVERIFY(help->text().startsWith("When you click the Move or Copy files to Archive button, if there is a"));
        pointerOver(w.findChild<QTabWidget*>("TabStrip1")->tabBar());
        QVERIFY(help->text().startsWith("Welcome to the Aquarium File Manager. Use the tabs at the top"));

        w.findChild<QPushButton*>("cmdLstArchiveAllPool")->click();
        QCOMPARE(w.app().archive.lstArchive.checkedCount(), 4);
        QCOMPARE(list->model()->index(4, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        w.findChild<QPushButton*>("cmdLstArchiveAll")->click();
        QCOMPARE(w.app().archive.lstArchive.checkedCount(), 8);
    }

    void archiveAndRestoreThroughTheButtons() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        std::string sim = dir.file("Aquarium");
        for (const char* sub : {"Aquarium", "Drifters", "Pools"}) std::filesystem::create_directories(dir.file(sub));
        std::string names[8] = {"Drifter_1.DNA", "Drifter_2.DNA", "Drifter_3.DNA", "Drifter_4.DNA",
                                "Pool_1.AQP",    "Pool_2.AQP",    "Pool_3.AQP",    "Pool_4.AQP"};
        for (const auto& n : names) aqtest::writeBytes(sim + "/" + n, n);
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        QCOMPARE(w.app().comboAquariumPath, dir.path());
        w.app().comboAquariumPath = sim;
        w.findChild<QCheckBox*>("chkAutoName")->click();
        w.findChild<QCheckBox*>("chkNowName")->click();
        ui.message("Moved 8 files. ", "Done");
        w.findChild<QPushButton*>("cmdCopyToArchive")->click();
        QVERIFY2(ui.done(), ui.report().c_str());
        QCOMPARE(aqtest::readBytes(dir.file("Drifters/Drifter_2.0.DNA")), std::string("Drifter_2.DNA"));
        QCOMPARE(aqtest::readBytes(dir.file("Pools/Pool_4.0.AQP")), std::string("Pool_4.AQP"));
        QVERIFY(!std::filesystem::exists(sim + "/Pool_1.AQP"));

        w.findChild<QPushButton*>("cmdLstArchiveAll")->click();
        w.app().archive.lstArchive.setChecked(5, true);
        ui.file("open", "Copy which file over Pool_2.AQP?", dir.file("Pools/Pool_2.0.AQP"), "*")
            .message("Copied 1 file. ", "Done");
        w.findChild<QPushButton*>("cmdReplaceFromArchive")->click();
        QVERIFY2(ui.done(), ui.report().c_str());
        QCOMPARE(aqtest::readBytes(sim + "/Pool_2.AQP"), std::string("Pool_2.AQP"));
    }

    void ticksAndBoxesSurviveARestart() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        QString prog = QString::fromStdString(dir.path());
        {
            MainWindow w(ui, clock, prog);
            auto* list = w.findChild<QListView*>("lstArchive");
            list->model()->setData(list->model()->index(6, 0), Qt::Unchecked, Qt::CheckStateRole);
            w.findChild<QCheckBox*>("chkAutoBackup")->click();
            w.findChild<QCheckBox*>("chkDeleteOriginal")->click();
            w.close();
        }
        MainWindow again(ui, clock, prog);
        QVERIFY(!again.app().archive.lstArchive.checked(6));
        QVERIFY(again.app().archive.lstArchive.checked(7));
        QCOMPARE(again.findChild<QCheckBox*>("chkAutoBackup")->checkState(), Qt::Checked);
        QCOMPARE(again.findChild<QCheckBox*>("chkDeleteOriginal")->checkState(), Qt::Unchecked);
        QCOMPARE(again.findChild<QPushButton*>("cmdCopyToArchive")->text(), QString("Copy Selected Files to Archive"));
        QVERIFY2(ui.done(), ui.report().c_str());
    }
};

QTEST_MAIN(ArchiveTabTest)
#include "ArchiveTabTest.moc"
