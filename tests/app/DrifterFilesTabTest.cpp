// The "Edit Drifter Files" tab offscreen: load a folder, species, ticks, the gene
// panel, saving, moving and importing, all through the window's controls.
#include <QScrollBar>
#include <filesystem>

#include "Window.h"
#include "app/MapPanel.h"
#include "dnaeditor/DrifterFiles.h"
#include "format/PoolFile.h"
#include "support/PoolFixtures.h"

class DrifterFilesTabTest : public QObject {
    Q_OBJECT

    static void writeGenome(const std::string& path, int fill, int gene0) {
        std::string bytes(1000, static_cast<char>(fill));
        bytes[0] = static_cast<char>(gene0);
        aqtest::writeBytes(path, bytes);
    }
    // A drag of the thumb through `steps`, released at the last one.
    static void drag(QScrollBar* bar, std::initializer_list<int> steps) {
        bar->setSliderDown(true);
        for (int v : steps) bar->setSliderPosition(v);
        bar->setSliderDown(false);
    }

private slots:
    void loadTickEditSaveMoveAndImport() {
        aqtest::Window<> h;
        namespace fs = std::filesystem;
        fs::create_directories(h.file("dna"));
        fs::create_directories(h.file("archive"));
        writeGenome(h.file("dna/a.dna"), 1, 10);
        writeGenome(h.file("dna/b.DNA"), 1, 20);
        writeGenome(h.file("dna/c.dna"), 2, 30);
        aq::App& app = h.app();
        app.comboDrifterPath = h.file("dna");
        h.w.selectTab(5);

        auto* list = h.get<QListView>("lstSpeciateDrifters");
        auto* threshold = h.get<QComboBox>("comboDrifterSpeciesThreshold");
        QCOMPARE(h.wrongTexts({{"comboSpeciateDrifterGroup", "Click selects entire extended species."},
                               {"comboDrifterSpeciesThreshold", "96.5%"}}),
                 QStringList());
        QCOMPARE(threshold->count(), 21);

        h.menu("mLoadDrifter");
        SCRIPT_DONE(h);
        QCOMPARE(list->model()->rowCount(), 3);
        QCOMPARE(threshold->count(), 11);
        aq::speciateDrifterList(app);  // what the timer's next phase does
        h.w.refreshAll();
        QCOMPARE(h.row("lstSpeciateDrifters", 0), QString("{0}, a.dna"));
        QCOMPARE(h.row("lstSpeciateDrifters", 2), QString("{1}, c.dna"));
        QVERIFY(app.lstSpeciateDrifters.enabled());
        // Scroll bars act once per change of position: a drag that ends where it began does nothing.
        drag(h.get<QScrollBar>("scrollDrifterSpeciesThreshold"), {900, 700, 965});
        QVERIFY(!app.speciesPending);

        // A tick spreads over the extended species; the gene panel shows gene 0 of both.
        h.tick("lstSpeciateDrifters", 0);
        QVERIFY(app.lstSpeciateDrifters.checked(1) && !app.lstSpeciateDrifters.checked(2));
        auto* caption = h.get<QLabel>("lblGeneRange");
        QCOMPARE(caption->text(),
                 QString("\nValues for the chosen gene within the selected drifters range from 10 to 20."));
        auto* range = h.get<QScrollBar>("VsGeneRange");
        auto* value = h.get<QScrollBar>("VsGeneValue");
        QCOMPARE(QList<int>({range->value(), value->value()}), QList<int>({10, 15}));
        drag(value, {17, 20, 15});
        QCOMPARE(app.dna.dnaChanged, (std::vector<std::uint8_t>{0, 0, 0}));
        value->setValue(16);  // shift both up by one
        QCOMPARE(app.dna.dnaGenes[0][0], 11);
        QCOMPARE(app.dna.dnaGenes[1][0], 21);
        drag(range, {13, 15, 11});  // one move to 11, which doesn't work: on to 12
        QCOMPARE(range->value(), 12);
        QCOMPARE(app.dna.dnaGenes[0][0], 10);
        QCOMPARE(app.dna.dnaGenes[1][0], 22);

        // The gene number buttons.
        h.click("cmdDecGene");
        QCOMPARE(h.text("txtGene"), QString("-1"));
        QVERIFY(h.get("cmdZeroGene")->isEnabled());
        QCOMPARE(caption->text(), QString("\nThe chosen gene has a value of 1 within the selected drifters."));
        h.click("cmdZeroGene");
        QVERIFY(!h.get("cmdZeroGene")->isEnabled());

        // Save the two changed files.
        h.ui.ask("yesno", h.file("dna/a.dna") + " has changed.\r\n\r\nSave file now?", "Save Changed Drifter",
                 aq::Answer::Yes)
            .ask("yesno", h.file("dna/b.DNA") + " has changed.\r\n\r\nSave file now?", "Save Changed Drifter",
                 aq::Answer::Yes)
            .message("Saved 2 files. ", "Done");
        h.menu("mSaveDrifter");
        SCRIPT_DONE(h);
        QCOMPARE(aqtest::readBytes(h.file("dna/b.DNA"))[0], '\x16');

        // Move the two ticked files to the archive; their entries leave the list.
        app.comboDrifterPath = h.file("archive");
        h.ui.ask("yesnocancel",
                 "You are about to move the 2 selected drifter files to a new location.  You can either choose to keep "
                 "them listed for the purpose of editing and saving the edited copy to their old locations later, or "
                 "have them deleted from the list after the files are moved.  Would you like the selcted files to be "
                 "removed from the list after being moved?",
                 "Moving Drifter Files", aq::Answer::Yes)
            .message("Moved 2 files. ", "Done");
        h.menu("mSelectDrifterMove");
        SCRIPT_DONE(h);
        QCOMPARE(list->model()->rowCount(), 1);
        QVERIFY(fs::exists(h.file("archive/b.DNA")));
        QVERIFY(!fs::exists(h.file("dna/a.dna")));

        // Import the drifters of a pool file.
        std::string poolPath = h.file("Sea.aqp");
        aqtest::writeBytes(poolPath, aq::poolBytes(aqtest::makePool(2, 0)));
        h.ui.ask("yesno", "Would you like to import the drifters from a pool file into the Drifter Files list?",
                 aq::kAppTitle, aq::Answer::Yes)
            .file("open", "Select Pool File", poolPath);
        h.menu("mImportDrifters");
        SCRIPT_DONE(h);
        QCOMPARE(list->model()->rowCount(), 3);
        QVERIFY(app.speciesPending);

        // Leaving the threshold box applies its text, also when the timer has read it already.
        threshold->setEditText("90");
        aq::validateDrifterSpeciesThreshold(app);
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(threshold, &out);
        QCOMPARE(app.dna.thresholdText, std::string(" 90%"));
    }

    // The picture beside the list: a strip per ticked file, the genes that differ marked
    // above them, a click choosing the gene of the gene panel; a right-click saves it.
    void genomePictureShowsTheTickedFilesAndPicksGenes() {
        aqtest::Window<> h;
        std::filesystem::create_directories(h.file("dna"));
        writeGenome(h.file("dna/a.dna"), 1, 10);
        writeGenome(h.file("dna/b.dna"), 1, 20);
        writeGenome(h.file("dna/c.dna"), 200, 30);
        h.app().comboDrifterPath = h.file("dna");
        h.w.resize(1400, 800);
        h.w.show();
        h.w.selectTab(5);
        h.menu("mLoadDrifter");
        h.get<QComboBox>("comboSpeciateDrifterGroup")->setCurrentIndex(0);  // one file a tick
        aq::speciateDrifterList(h.app());
        h.tick("lstSpeciateDrifters", 0);
        h.tick("lstSpeciateDrifters", 1);
        QCoreApplication::processEvents();
        aqapp::GenomePicture* picture = h.w.mapPanel()->genes();
        QVERIFY(picture->isVisible());
        auto columnOf = [&](int gene) {
            for (int x = 0; x < picture->width(); ++x)
                if (picture->geneAt(QPoint(x, 8)) == gene) return x;
            return -1;
        };
        const int diffRow = 8, firstStrip = 20;
        QImage image = picture->grab().toImage();
        QCOMPARE(image.pixelColor(columnOf(0), diffRow), QColor(215, 25, 28));
        QVERIFY(image.pixelColor(columnOf(500), diffRow) != QColor(215, 25, 28));
        QCOMPARE(image.pixel(columnOf(500), firstStrip), aqapp::GenomePicture::valueColor(1));
        QCOMPARE(picture->tipAt(QPoint(columnOf(0), firstStrip)), QString("a.dna\nGene 0: 10"));

        // A click on gene 500 chooses it; the third file differs there and is marked once ticked.
        QTest::mouseClick(picture, Qt::LeftButton, Qt::NoModifier, QPoint(columnOf(500), firstStrip));
        QCOMPARE(h.text("txtGene"), QString("500"));
        QCOMPARE(h.text("lblGeneRange"), QString("\nThe chosen gene has a value of 1 within the selected drifters."));
        h.tick("lstSpeciateDrifters", 2);
        QCoreApplication::processEvents();
        QCOMPARE(picture->grab().toImage().pixelColor(columnOf(500), diffRow), QColor(215, 25, 28));

        h.ui.file("save", "Aquarium File Manager - Save Picture", h.file("genes"));
        h.w.mapPanel()->savePicture("png");
        SCRIPT_DONE(h);
        QCOMPARE(QImage(QString::fromStdString(h.file("genes.png"))).size(), picture->size());
    }
};

QTEST_MAIN(DrifterFilesTabTest)
#include "DrifterFilesTabTest.moc"
