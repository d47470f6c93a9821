// The editor tabs offscreen: a pool from outside edited, undone and redone, the map beside
// it and what it draws, a failed load, long work that keeps the list's place and shows its
// bar, threshold bars, each command reaching the core, and a dropped DNA file through the
// gene panel and the genome picture.
#include <QMimeData>
#include <QScrollBar>
#include <QSlider>
#include <QToolButton>
#include <QUrl>
#include <cmath>
#include <filesystem>

#include "Window.h"
#include "app/pictures/MapPanel.h"
#include "app/window/WindowParts.h"
#include "dnaeditor/DrifterFiles.h"
#include "foodeditor/FoodList.h"
#include "format/PoolFile.h"
#include "generator/Generator.h"
#include "generator/Placement.h"
#include "pooleditor/DrifterList.h"
#include "pooleditor/SpeciesPass.h"
#include "shell/UndoHistory.h"
#include "support/PoolFixtures.h"

class EditorTabsTest : public QObject {
    Q_OBJECT

    static bool near(QColor a, QColor b, int slack = 40) {
        return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue()) <= slack;
    }

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
    void aPoolFromOutsideIsEditedUndoneAndRedone() {
        aq::Pool pool = aqtest::makePool(4, 2);
        for (int i = 0; i < 4; ++i) {
            auto& d = pool.drifters[static_cast<std::size_t>(i)];
            for (int k = 0; k < 1000; ++k) d.genes[k] = static_cast<std::uint8_t>(i < 2 ? k : k + i);
            d.x = d.prevX = -1000.0f + 2000.0f * (i % 2);
            d.y = d.prevY = 100.0f * i;
        }
        aqtest::Window<> h;
        aq::App& app = h.app();
        const std::string path = h.file("pool.aqp");
        QCOMPARE(aq::writePool(path, pool), std::string());
        aqapp::openFiles(h.w, {QString::fromStdString(path)});  // as from the command line or a drop
        QCOMPARE(h.w.selectedTab(), 3);
        QCOMPARE(h.w.menuItem("mRecentPool1")->text(), "&1 " + QString::fromStdString(path));
        QVERIFY(h.text("statusPool") == "pool.aqp" && h.text("statusCounts").startsWith("4 drifters, "));
        // The timer numbers the species and writes them at the head of the lines.
        QTRY_VERIFY_WITH_TIMEOUT(!app.poolSpeciesPending, 5000);
        QCOMPARE(h.row("lstSpeciatePool", 1).left(4) + h.row("lstSpeciatePool", 3).left(4), QString("{0} {2} "));

        h.tick("lstSpeciatePool", 0);
        h.tick("lstSpeciatePool", 1);
        // The question's words are the core tests'; here it is cancelled once, then answered No.
        QVERIFY(h.firstPrompt("mSelectPoolDelete").starts_with("yesnocancel [Aquarium File Manager] You are about"));
        h.ui.ask("yesnocancel", h.ui.seen[0].text, aq::kAppTitle, aq::Answer::No);
        h.menu("mSelectPoolDelete");
        SCRIPT_DONE(h);
        auto* width = h.get<QSlider>("SliderSpeciatePoolDrifterWidth");
        QVERIFY(h.rows("lstSpeciatePool")->rowCount() == 2 && app.poolChanged);
        QVERIFY(width->isHidden());  // nothing ticked now: the size sliders go
        QCOMPARE(h.w.menuItem("mUndo")->text(), QString("&Undo Delete Selected Drifters"));
        h.menu("mUndo");
        QCOMPARE(h.rows("lstSpeciatePool")->rowCount(), 4);
        QVERIFY(app.lstSpeciatePool.checked(1) && !app.poolChanged);  // back to the file's state
        QCOMPARE(h.w.menuItem("mRedo")->text(), QString("&Redo Delete Selected Drifters"));
        h.menu("mRedo");
        QVERIFY(h.rows("lstSpeciatePool")->rowCount() == 2 && h.text("statusChanged") == "changed");
        h.menu("mUndo");
        width->setValue(4000);  // rows 0 and 1, at -1000 and 1000, spread apart
        QCOMPARE(QList<float>({app.openPool.drifters[0].x, app.openPool.drifters[1].x}), QList<float>({-2000, 2000}));
        // A slider's move is an edit like the others: the pool is changed until it is undone.
        QVERIFY(app.poolChanged && h.text("statusChanged") == "changed");
        h.menu("mUndo");
        QVERIFY(!app.poolChanged && app.openPool.drifters[0].x == -1000.0f);
    }

    void longWorkKeepsTheViewAndShowsItsBar() {
        aqtest::Window<> h;
        h.w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&h.w));
        h.loadPool(aqtest::makePool(400, 0));
        auto* view = h.get<QListView>("lstSpeciatePool");
        QTRY_VERIFY(view->verticalScrollBar()->maximum() > 0);
        // Kill rewrites every line in place: the view stays at the top, away from the current row.
        h.tick("lstSpeciatePool", 350);
        QCOMPARE(h.app().lstSpeciatePool.currentIndex(), 350);
        view->scrollToTop();
        h.menu("mSelectKill");
        QVERIFY(h.app().openPool.drifters[350].alive == 0 && h.row("lstSpeciatePool", 350).contains("Dead, "));
        QCOMPARE(view->verticalScrollBar()->value(), 0);
        h.menu("mSelectRevive");
        QCOMPARE(h.app().openPool.drifters[350].alive, 1);

        // The range scan's bar is on show while the scan runs.
        int seen = 0;
        h.app().PoolProgressBar1.paint = [&, paint = h.app().PoolProgressBar1.paint](const auto& s) {
            if (paint) paint(s);
            seen += h.get("PoolProgressBar1")->isVisible();
        };
        h.ui.message(aq::thresholdRangeMessage(aq::poolThresholdRange(h.app().openPool, 100, {})));
        QTest::mouseClick(h.get("lblPoolPer"), Qt::LeftButton);
        QVERIFY(seen > 0 && h.get("PoolProgressBar1")->isHidden());
        SCRIPT_DONE(h);
    }

    // The map beside the drifter tab picks rows; a cancelled load clears the lists and the map.
    void theMapPanelAndAFailedLoad() {
        aqtest::Window<> h;
        aq::App& app = h.app();
        app.openPool = app.defaultPool;
        app.poolLoaded = true;
        app.openPoolPath = "/somewhere/else.aqp";
        app.poolFiles.note(app.openPoolPath, app.openPool);  // as if read from there
        aq::populateSpeciatePoolList(app);
        aq::populateFoodList(app);
        h.w.refreshAll();
        aqapp::MapPanel* panel = h.w.mapPanel();
        h.w.show();
        QVERIFY(!panel->isVisible());  // the archive tab has no pool to show
        h.w.selectTab(3);
        QVERIFY(panel->isVisible());
        emit panel->map()->drifterPicked(7, false);
        QCOMPARE(h.get<QListView>("lstSpeciatePool")->currentIndex().row(), 7);
        QVERIFY(!app.lstSpeciatePool.checked(7));
        emit panel->map()->drifterPicked(7, true);
        QVERIFY(app.lstSpeciatePool.checked(7));

        QVERIFY(panel->map()->pool());
        h.ui.file("open", "Select Pool File", "");
        h.menu("mLoadPool");
        QVERIFY(app.lstSpeciatePool.count() == 0 && !panel->map()->pool());
        h.get<QToolButton>("cmdShowMap")->click();
        QVERIFY(!panel->isVisible());
    }

    // Generated drifters have every point of their bodies on their positions; dead ones,
    // broken ones and ticked ones must show as well.
    void everyDrifterIsDrawnWhateverItsShape() {
        aq::Pool generated;
        QVERIFY(aq::buildStartupPool(aqtest::defaultPool(), aq::StartupSettings{}, generated));
        generated.drifterCount = 5;
        generated.drifters.resize(5);
        generated.foodCount = 0;
        const QColor grey(150, 150, 150);  // a dead body: a hollow grey ring
        struct Row {
            float x, y;
            int color, alive;
            bool broken, tick;
            QColor shown;
        } rows[] = {{-1500, 0, 0, 1, false, false, QColor(220, 40, 40)},
                    {1500, 0, 4, 1, false, false, QColor(50, 100, 230)},
                    {0, 1500, 3, 1, true, false, QColor(50, 170, 60)},  // points not finite
                    {0, -1500, 0, 0, false, false, grey},
                    {0, 0, 2, 1, false, true, QColor(235, 210, 40)}};
        aq::CheckList ticks;
        for (int i = 0; i < 5; ++i) {
            aq::DrifterRec& d = generated.drifters[std::size_t(i)];
            aq::ResetDrifter(generated, std::int16_t(i), 0, 100);
            aq::MoveDrifter(generated, std::int16_t(i), rows[i].x, rows[i].y);
            for (auto& seg : d.segments) seg.color = rows[i].color;
            d.alive = rows[i].alive;
            if (rows[i].broken) d.segments[0].point2X = NAN;
            ticks.add("d");
            ticks.setChecked(i, rows[i].tick);
        }
        aqapp::PoolMap map;
        map.resize(600, 500);
        map.setPool(&generated);
        map.setTicks(&ticks, nullptr);
        QImage image = map.grab().toImage();
        for (int i = 0; i < 5; ++i) {
            QPoint at = map.toScreen(rows[i].x, rows[i].y).toPoint();
            QVERIFY2(map.rect().contains(at), qPrintable(QString("drifter %1 off the map").arg(i)));
            QColor centre = image.pixelColor(at), ring = image.pixelColor(at + QPoint(3, 0));
            bool dead = rows[i].alive == 0;
            QVERIFY2(dead ? near(centre, QColor(235, 244, 250)) && near(ring, grey, 60) : near(centre, rows[i].shown),
                     qPrintable(QString("drifter %1: %2").arg(i).arg(centre.name())));
            QColor halo = image.pixelColor(at + QPoint(6, 0));
            QCOMPARE(halo.red() > 150 && halo.green() < 120, rows[i].tick);
        }
        // Fitted to the drifters, not to the world: they spread over most of the map.
        double spread = map.toScreen(1500, 0).x() - map.toScreen(-1500, 0).x();
        QVERIFY(spread > 0.6 * 500);
    }

    // Threshold drags that end where they began run nothing; each menu command and button
    // reaches the core, known by the first question it asks (the words are the core tests').
    void thresholdBarsAndTheMenuCommands() {
        aqtest::Window<> h;
        h.loadPool(aqtest::defaultPool());
        aq::App& app = h.app();
        for (auto* bar : {h.get<QScrollBar>("scrollPoolSpeciesThreshold"), h.get<QScrollBar>("scrollFoodThreshold")})
            drag(bar, {bar->value() / 2, bar->value()});
        QCOMPARE(app.txtPoolSpeciesThreshold + app.txtFoodThreshold, std::string("44.488.8"));
        h.get<QScrollBar>("scrollPoolSpeciesThreshold")->setValue(7);
        QVERIFY(h.text("txtPoolSpeciesThreshold") == " .7" && app.poolThreshold == 0.7f);

        h.menu("mEnable");  // every command on every tab
        h.menu("mSelectAll");
        h.tick("lstPoolFood", 0);
        const std::pair<const char*, const char*> first[] = {
            {"mMergePool", "open [Select Pool File] "},
            {"mSavePool", "yesnocancel [Save Speciated Pool] Would you like to save over "},
            {"mSelectPoolDelete",
             "yesnocancel [Aquarium File Manager] You are about to delete the 49 selected drifters"},
            {"mSelectFoodDelete", "yesnocancel [Aquarium File Manager] You are about to delete the 1 selected food"},
            {"mImportDrifters", "yesnocancel [Aquarium File Manager] Would you like to import the drifters from the"},
            {"mSelectDrifterMove", "yesnocancel [Moving Drifter Files] You are about to move the 0 selected"},
            {"mSelectDrifterDelete", "message [Aquarium File Manager] Nothing Selected"},
            {"mLoadDrifter", "message [Aquarium File Manager - Load Drifter Files] Error reading "},
            {"mSelectPoolMove", "yesno [Clone Food Bits into New Pool] If you answer NO"},  // it takes them out
            {"cmdCopyToArchive", "save [Move Drifter_1.DNA to:] "},
            {"cmdReplaceFromArchive", "open [Copy which file over Drifter_1.DNA?] "},
        };
        for (const auto& [item, want] : first) QVERIFY2(h.firstPrompt(item).starts_with(want), item);
        QCOMPARE(app.openPool.drifterCount, 0);
        // A button's command reaches the core and is a step of the history too.
        const aq::Pool before = app.openPool;
        h.ui.ask(
            "yesnocancel",
            "The currently open pool file has been changed.  Changes will be lost if not saved now.  Save changes?",
            "File Has Changed", aq::Answer::No);
        h.click("cmdNewStartupPool");
        SCRIPT_DONE(h);
        QCOMPARE(h.w.menuItem("mUndo")->text(), QString("&Undo Generate Pool Now"));
        h.menu("mUndo");
        QVERIFY(aq::samePool(app.openPool, before));
    }

    // A dropped DNA file opens its folder; ticks feed the gene panel, whose bars act once per
    // change and undo on this tab; the picture beside the list has a strip per ticked file,
    // the genes that differ marked above them, and a click there chooses the panel's gene.
    void dnaFilesFromADropThroughTheGenePanelAndTheirPicture() {
        aqtest::Window<> h;
        std::filesystem::create_directories(h.file("dna"));
        writeGenome(h.file("dna/a.dna"), 1, 10);
        writeGenome(h.file("dna/b.DNA"), 1, 20);
        writeGenome(h.file("dna/c.dna"), 2, 30);
        aq::App& app = h.app();
        h.w.resize(1400, 800);
        h.w.show();
        const QString a = QString::fromStdString(h.file("dna/a.dna"));
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(a)});
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&h.w, &enter);
        QVERIFY(enter.isAccepted());
        aqapp::openFiles(h.w, {a});  // what the drop then does
        SCRIPT_DONE(h);
        QCOMPARE(h.w.selectedTab(), 5);
        // While the pass runs the rows refuse ticks, but the view stays enabled: a disabled
        // view hands the focus on to the threshold box, whose leaving restarts the pass.
        auto* list = h.get<QListView>("lstSpeciateDrifters");
        QVERIFY(list->isEnabled() && list->model()->flags(list->model()->index(0, 0)) == Qt::NoItemFlags);
        aq::speciateDrifterList(app);  // what the timer's next phase does
        h.w.refreshAll();
        QCOMPARE(h.row("lstSpeciateDrifters", 0) + "|" + h.row("lstSpeciateDrifters", 2),
                 QString("{0}, a.dna|{1}, c.dna"));
        drag(h.get<QScrollBar>("scrollDrifterSpeciesThreshold"), {900, 700, 965});  // back where it began
        QVERIFY(!app.speciesPending);

        // A tick spreads over the extended species; the gene panel's bars act on both files.
        h.tick("lstSpeciateDrifters", 0);
        QVERIFY(app.lstSpeciateDrifters.checked(1) && !app.lstSpeciateDrifters.checked(2));
        auto* value = h.get<QScrollBar>("VsGeneValue");
        drag(value, {17, 20, 15});
        QCOMPARE(app.dna.dnaChanged, (std::vector<std::uint8_t>{0, 0, 0}));
        value->setValue(16);  // shift both up by one
        QCOMPARE(h.get<QLabel>("lblVsGeneValueNumber")->text(), QString("16"));  // the number beside the bar
        QCOMPARE(QList<int>({app.dna.dnaGenes[0][0], app.dna.dnaGenes[1][0]}), QList<int>({11, 21}));
        QCOMPARE(h.w.menuItem("mUndo")->text(), QString("&Undo Change Gene Value"));
        h.w.selectTab(3);  // the pool's history has nothing to undo
        QVERIFY(!h.w.menuItem("mUndo")->isEnabled());
        h.w.selectTab(5);
        h.menu("mUndo");
        QCOMPARE(QList<int>({app.dna.dnaGenes[0][0], app.dna.dnaGenes[1][0]}), QList<int>({10, 20}));
        QVERIFY(!app.dna.dnaChanged[0] && app.lstSpeciateDrifters.checked(0));
        h.menu("mRedo");  // changed again: the File menu offers to save it
        QVERIFY(h.firstPrompt("mSaveDrifter").starts_with("yesno [Save Changed Drifter] " + h.file("dna/a.dna")));

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
        QCOMPARE(picture->tipAt(QPoint(columnOf(0), firstStrip)), QString("a.dna\nGene 0: 11"));
        // A click on gene 500 chooses it; the third file differs there and is marked once ticked.
        QTest::mouseClick(picture, Qt::LeftButton, Qt::NoModifier, QPoint(columnOf(500), firstStrip));
        QCOMPARE(h.text("txtGene"), QString("500"));
        h.tick("lstSpeciateDrifters", 2);
        QCoreApplication::processEvents();
        QCOMPARE(picture->grab().toImage().pixelColor(columnOf(500), diffRow), QColor(215, 25, 28));
        h.ui.file("save", "Aquarium File Manager - Save Picture", h.file("genes"));
        h.w.mapPanel()->savePicture("png");
        SCRIPT_DONE(h);
        QCOMPARE(QImage(QString::fromStdString(h.file("genes.png"))).size(), picture->size());

        // Leaving the threshold box applies its text, also when the timer has read it already.
        auto* threshold = h.get<QComboBox>("comboDrifterSpeciesThreshold");
        threshold->setEditText("90");
        aq::validateDrifterSpeciesThreshold(app);
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(threshold, &out);
        QCOMPARE(app.dna.thresholdText, std::string(" 90%"));
    }
};

QTEST_MAIN(EditorTabsTest)
#include "EditorTabsTest.moc"
