// The archive tab's widgets: captions, tips, the help line, and archiving and
// restoring through its buttons.
#include <QCheckBox>
#include <QMouseEvent>
#include <QTabBar>
#include <QTabWidget>
#include <filesystem>

#include "Window.h"

class ArchiveTabTest : public QObject {
    Q_OBJECT

    static void pointerOver(QWidget* w) {
        QMouseEvent move(QEvent::MouseMove, QPointF(2, 2), w->mapToGlobal(QPointF(2, 2)), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(w, &move);
    }

private slots:
    void controlsCaptionsAndHelpLine() {
        aqtest::Window<> h;
        auto* list = h.rows("lstArchive");
        QCOMPARE(list->rowCount(), 8);
        QCOMPARE(h.row("lstArchive", 0), QString("Drifter_1.DNA"));
        QCOMPARE(h.row("lstArchive", 7), QString("Pool_4.AQP"));
        QCOMPARE(h.app().archive.lstArchive.checkedCount(), 8);
        QCOMPARE(h.get<QCheckBox>("chkDeleteOriginal")->checkState(), Qt::Checked);
        QCOMPARE(h.wrongTexts(
                     {{"cmdCopyToArchive", "Move Selected Files to Archive"},
                      {"chkDeleteOriginal:tip", "This causes the Copy function to essentially act as a Move function."},
                      {"chkNowName", "Using Date and Time"},
                      {"cmdReplaceFromArchive:tip",
                       "Click here to copy archived drifter files over the selected drifter files."},
                      {"lblArchiveInstruct", "Welcome to the Aquarium File Manager."}}),
                 QStringList());
        h.click("chkDeleteOriginal");
        QCOMPARE(h.app().archive.chkDeleteOriginal, 0);
        QCOMPARE(h.text("cmdCopyToArchive"), QString("Copy Selected Files to Archive"));

        auto* help = h.get<QLabel>("lblArchiveInstruct");
        h.clock.seconds = 1234;
        pointerOver(h.get("chkAutoName"));
        QVERIFY(help->text().startsWith("When you click the Move or Copy files to Archive button, if there is a"));
        QCOMPARE(h.app().lastHelpMove, 1234.0);
        pointerOver(h.get("lstArchive"));  // the list has no text: the line stays
        QVERIFY(help->text().startsWith("When you click the Move or Copy files to Archive button, if there is a"));
        pointerOver(h.get<QTabWidget>("TabStrip1")->tabBar());
        QVERIFY(help->text().startsWith("Welcome to the Aquarium File Manager. Use the tabs at the top"));

        h.click("cmdLstArchiveAllPool");
        QCOMPARE(h.app().archive.lstArchive.checkedCount(), 4);
        QCOMPARE(list->index(4, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        h.click("cmdLstArchiveAll");
        QCOMPARE(h.app().archive.lstArchive.checkedCount(), 8);
    }

    void archiveAndRestoreThroughTheButtons() {
        aqtest::Window<> h;
        std::string sim = h.file("Aquarium");
        for (const char* sub : {"Aquarium", "Drifters", "Pools"}) std::filesystem::create_directories(h.file(sub));
        for (const char* n : {"Drifter_1.DNA", "Drifter_2.DNA", "Drifter_3.DNA", "Drifter_4.DNA", "Pool_1.AQP",
                              "Pool_2.AQP", "Pool_3.AQP", "Pool_4.AQP"})
            aqtest::writeBytes(sim + "/" + n, n);
        h.app().comboAquariumPath = sim;
        h.click("chkAutoName");
        h.click("chkNowName");
        h.ui.message("Moved 8 files. ", "Done");
        h.click("cmdCopyToArchive");
        SCRIPT_DONE(h);
        QCOMPARE(aqtest::readBytes(h.file("Drifters/Drifter_2.0.DNA")), std::string("Drifter_2.DNA"));
        QCOMPARE(aqtest::readBytes(h.file("Pools/Pool_4.0.AQP")), std::string("Pool_4.AQP"));
        QVERIFY(!std::filesystem::exists(sim + "/Pool_1.AQP"));

        h.click("cmdLstArchiveAll");
        h.app().archive.lstArchive.setChecked(5, true);
        h.ui.file("open", "Copy which file over Pool_2.AQP?", h.file("Pools/Pool_2.0.AQP"))
            .message("Copied 1 file. ", "Done");
        h.click("cmdReplaceFromArchive");
        SCRIPT_DONE(h);
        QCOMPARE(aqtest::readBytes(sim + "/Pool_2.AQP"), std::string("Pool_2.AQP"));
    }
};

QTEST_MAIN(ArchiveTabTest)
#include "ArchiveTabTest.moc"
