// The "Edit Drifter Files" tab offscreen: load a folder, species, ticks, the gene
// panel, saving, moving and importing, all through the window's controls.
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QtTest>
#include <filesystem>

#include "app/MainWindow.h"
#include "dnaeditor/DrifterFiles.h"
#include "pool/PoolFile.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

using aqapp::MainWindow;

class DrifterFilesTabTest : public QObject {
    Q_OBJECT

    static void writeGenome(const std::string& path, int fill, int gene0) {
        std::string bytes(1000, static_cast<char>(fill));
        bytes[0] = static_cast<char>(gene0);
        aqtest::writeBytes(path, bytes);
    }

private slots:
    void loadTickEditSaveMoveAndImport() {
        aqtest::ScriptedUi ui;
        aqtest::ManualClock clock;
        aqtest::TempDir dir;
        namespace fs = std::filesystem;
        fs::create_directories(dir.file("dna"));
        fs::create_directories(dir.file("archive"));
        writeGenome(dir.file("dna/a.dna"), 1, 10);
        writeGenome(dir.file("dna/b.DNA"), 1, 20);
        writeGenome(dir.file("dna/c.dna"), 2, 30);
        MainWindow w(ui, clock, QString::fromStdString(dir.path()));
        aq::App& app = w.app();
        app.comboDrifterPath = dir.file("dna");
        w.selectTab(5);

        auto* list = w.findChild<QListView*>("lstSpeciateDrifters");
        QVERIFY(list);
        QCOMPARE(w.findChild<QComboBox*>("comboSpeciateDrifterGroup")->currentText(),
                 QString("Click selects entire extended species."));
        QCOMPARE(w.findChild<QComboBox*>("comboDrifterSpeciesThreshold")->currentText(), QString("96.5%"));
        QCOMPARE(w.findChild<QComboBox*>("comboDrifterSpeciesThreshold")->count(), 21);

        w.menuItem("mLoadDrifter")->trigger();
        QVERIFY2(ui.done(), ui.report().c_str());
        QCOMPARE(list->model()->rowCount(), 3);
        QCOMPARE(w.findChild<QComboBox*>("comboDrifterSpeciesThreshold")->count(), 11);
        aq::speciateDrifterList(app);  // what the timer's next phase does
        w.refreshAll();
        QCOMPARE(list->model()->index(0, 0).data().toString(), QString("{0}, a.dna"));
        QCOMPARE(list->model()->index(2, 0).data().toString(), QString("{1}, c.dna"));
        QVERIFY(app.lstSpeciateDrifters.enabled());

        // A tick spreads over the extended species; the gene panel shows gene 0 of both.
        list->model()->setData(list->model()->index(0, 0), Qt::Checked, Qt::CheckStateRole);
        QVERIFY(app.lstSpeciateDrifters.checked(1));
        QVERIFY(!app.lstSpeciateDrifters.checked(2));
        auto* caption = w.findChild<QLabel*>("lblGeneRange");
        QCOMPARE(caption->text(),
                 QString("\nValues for the chosen gene within the selected drifters range from 10 to 20."));
        auto* range = w.findChild<QScrollBar*>("VsGeneRange");
        auto* value = w.findChild<QScrollBar*>("VsGeneValue");
        QCOMPARE(range->value(), 10);
        QCOMPARE(value->value(), 15);
        value->setValue(16);  // shift both up by one
        QCOMPARE(app.dna.dnaGenes[0][0], 11);
        QCOMPARE(app.dna.dnaGenes[1][0], 21);
        range->setValue(11);  // 11 doesn't work: on to 12
        QCOMPARE(range->value(), 12);
        QCOMPARE(app.dna.dnaGenes[0][0], 10);
        QCOMPARE(app.dna.dnaGenes[1][0], 22);

        // The gene number buttons.
        w.findChild<QPushButton*>("cmdDecGene")->click();
        QCOMPARE(w.findChild<QLineEdit*>("txtGene")->text(), QString("-1"));
        QVERIFY(w.findChild<QPushButton*>("cmdZeroGene")->isEnabled());
        QCOMPARE(caption->text(), QString("\nThe chosen gene has a value of 1 within the selected drifters."));
        w.findChild<QPushButton*>("cmdZeroGene")->click();
        QVERIFY(!w.findChild<QPushButton*>("cmdZeroGene")->isEnabled());

        // Save the two changed files.
        ui.ask("yesno", dir.file("dna/a.dna") + " has changed.\r\n\r\nSave file now?", "Save Changed Drifter",
               aq::Answer::Yes)
            .ask("yesno", dir.file("dna/b.DNA") + " has changed.\r\n\r\nSave file now?", "Save Changed Drifter",
                 aq::Answer::Yes)
            .message("Saved 2 files. ", "Done");
        w.menuItem("mSaveDrifter")->trigger();
        QVERIFY2(ui.done(), ui.report().c_str());
        QCOMPARE(aqtest::readBytes(dir.file("dna/b.DNA"))[0], '\x16');

        // Move the two ticked files to the archive; their entries leave the list.
        app.comboDrifterPath = dir.file("archive");
        ui.ask("yesnocancel",
               "You are about to move the 2 selected drifter files to a new location.  You can either choose to keep "
               "them listed for the purpose of editing and saving the edited copy to their old locations later, or "
               "have them deleted from the list after the files are moved.  Would you like the selcted files to be "
               "removed from the list after being moved?",
               "Moving Drifter Files", aq::Answer::Yes)
            .message("Moved 2 files. ", "Done");
        w.menuItem("mSelectDrifterMove")->trigger();
        QVERIFY2(ui.done(), ui.report().c_str());
        QCOMPARE(list->model()->rowCount(), 1);
        QVERIFY(fs::exists(dir.file("archive/b.DNA")));
        QVERIFY(!fs::exists(dir.file("dna/a.dna")));

        // Import the drifters of a pool file.
        std::string poolPath = dir.file("Sea.aqp");
        aqtest::writeBytes(poolPath, aq::poolBytes(aqtest::makePool(2, 0)));
        ui.ask("yesno", "Would you like to import the drifters from a pool file into the Drifter Files list?",
               aq::kAppTitle, aq::Answer::Yes)
            .file("open", "Select Pool File", poolPath);
        w.menuItem("mImportDrifters")->trigger();
        QVERIFY2(ui.done(), ui.report().c_str());
        QCOMPARE(list->model()->rowCount(), 3);
        QVERIFY(app.speciesPending);
    }
};

QTEST_MAIN(DrifterFilesTabTest)
#include "DrifterFilesTabTest.moc"
