// What the window adds around the program's controls: undo and redo, the keyboard,
// files from outside, the status bar, remembered settings, the icon, whole rows.
#include <QMenuBar>
#include <QMimeData>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolButton>
#include <QUrl>

#include "Window.h"
#include "app/WindowParts.h"
#include "dnaeditor/GenePanel.h"
#include "format/DnaFile.h"
#include "format/PoolFile.h"
#include "files/PoolOps.h"
#include "pooleditor/DrifterList.h"
#include "shell/UndoHistory.h"

namespace {

std::string writeDefaultPool(aqtest::Window<>& h) {
    std::string path = h.file("default.aqp");
    auto bytes = aq::defaultPoolBytes();
    aqtest::writeBytes(path, std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
    return path;
}

QString shown(aqtest::Window<>& h, const char* name) { return h.get<QLabel>(name)->text(); }

}  // namespace

class WindowPartsTest : public QObject {
    Q_OBJECT

private slots:
    void aPoolFromOutsideIsEditedUndoneAndRedone() {
        aqtest::Window<> h;
        const std::string path = writeDefaultPool(h);
        aqapp::openFiles(h.w, {QString::fromStdString(path)});
        QCOMPARE(h.w.selectedTab(), 3);
        QCOMPARE(h.rows("lstSpeciatePool")->rowCount(), 49);
        QCOMPARE(h.w.menuItem("mRecentPool1")->text(), "&1 " + QString::fromStdString(path));
        QCOMPARE(shown(h, "statusPool"), QString("default.aqp"));
        const QString counts = shown(h, "statusCounts");
        QVERIFY(counts.startsWith("49 drifters, "));

        h.app().lstSpeciatePool.setChecked(2, true);
        const std::string row3 = h.app().lstSpeciatePool.text(3);
        h.ui.ask("yesnocancel",
                 "You are about to delete the 1 selected drifters. These drifters can be saved to a pool file before "
                 "deletion if you answer YES to the following question. If you answer NO, they will simply be deleted "
                 "from the open pool.\r\n\r\nSave the  selected drifters before deletion?",
                 aq::kAppTitle, aq::Answer::No);
        h.menu("mSelectPoolDelete");
        SCRIPT_DONE(h);
        QCOMPARE(h.rows("lstSpeciatePool")->rowCount(), 48);
        QVERIFY(h.app().poolChanged);
        QCOMPARE(h.w.menuItem("mUndo")->text(), QString("&Undo Delete Selected Drifters"));
        QVERIFY(!h.w.menuItem("mRedo")->isEnabled());

        h.menu("mUndo");
        QCOMPARE(h.rows("lstSpeciatePool")->rowCount(), 49);
        QVERIFY(h.app().lstSpeciatePool.checked(2) && h.app().lstSpeciatePool.text(3) == row3);
        QVERIFY(!h.app().poolChanged);  // back to the file's state
        aq::Pool file;
        aq::readPool(path, file);
        QVERIFY(aq::poolBytes(h.app().openPool) == aq::poolBytes(file));
        QCOMPARE(h.w.menuItem("mRedo")->text(), QString("&Redo Delete Selected Drifters"));
        QVERIFY(!h.w.menuItem("mUndo")->isEnabled());
        h.menu("mRedo");
        QCOMPARE(h.rows("lstSpeciatePool")->rowCount(), 48);
        QVERIFY(h.app().poolChanged);
        QCOMPARE(shown(h, "statusChanged"), QString("changed"));
        h.menu("mUndo");
        SCRIPT_DONE(h);
    }

    void geneEditsUndoOnTheirOwnTabAndADnaFileOpensItsFolder() {
        aqtest::Window<> h;
        aq::Genome g{};
        g.fill(100);
        const std::string a = h.file("a.dna");
        aq::writeGenomeFile(a, g);
        aq::writeGenomeFile(h.file("b.dna"), g);
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(QString::fromStdString(a))});
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&h.w, &enter);
        QVERIFY(enter.isAccepted());
        aqapp::openFiles(h.w, {QString::fromStdString(a)});  // what the drop then does
        QCOMPARE(h.w.selectedTab(), 5);
        QCOMPARE(h.app().dna.dnaCount, 2);

        h.app().lstSpeciateDrifters.setChecked(0, true);
        aq::setGeneSliders(h.app());
        h.w.refreshAll();
        auto* bar = h.get<QScrollBar>("VsGeneValue");
        bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
        QVERIFY(h.app().dna.dnaGenes[0][0] != 100 && h.app().dna.dnaChanged[0]);
        QCOMPARE(h.w.menuItem("mUndo")->text(), QString("&Undo Change Gene Value"));
        h.w.selectTab(3);  // the pool's history has nothing to undo
        QVERIFY(!h.w.menuItem("mUndo")->isEnabled());
        h.w.selectTab(5);
        h.menu("mUndo");
        QCOMPARE(int(h.app().dna.dnaGenes[0][0]), 100);
        QVERIFY(!h.app().dna.dnaChanged[0] && h.app().lstSpeciateDrifters.checked(0));
        SCRIPT_DONE(h);
    }

    void keysMenusCaptionsAndRows() {
        aqtest::Window<> h;
        const std::pair<const char*, QList<QKeySequence>> keys[] = {
            {"mLoadPool", {QKeySequence("Ctrl+O")}},
            {"mSavePool", {QKeySequence("Ctrl+S")}},
            {"mSaveDrifter", {QKeySequence("Ctrl+Shift+S")}},
            {"mUndo", {QKeySequence("Ctrl+Z")}},
            {"mRedo", {QKeySequence("Ctrl+Shift+Z"), QKeySequence("Ctrl+Y")}},
            {"mExit", {QKeySequence("Ctrl+Q")}},
            {"keyHelp", {QKeySequence("F1")}},
            {"keyTab6", {QKeySequence("Ctrl+6")}}};
        for (const auto& [name, want] : keys) QVERIFY2(h.w.menuItem(name)->shortcuts() == want, name);
        QStringList bar;
        for (QAction* a : h.w.menuBar()->actions()) bar << a->text();
        QCOMPARE(bar, QStringList({"&File", "&Edit", "&Mode", "&Selection", "&Options", "&Help"}));
        QCOMPARE(h.get<QMenu>("mFile")->actions().last()->text(), QString("E&xit"));
        h.menu("keyTab4");
        QCOMPARE(h.w.selectedTab(), 4);
        const aq::Pool before = h.app().openPool;
        h.click("cmdNewStartupPool");  // a button's command is a step too
        QCOMPARE(h.w.menuItem("mUndo")->text(), QString("&Undo Generate Pool Now"));
        h.menu("mUndo");
        QVERIFY(!h.app().poolChanged);
        QVERIFY(aq::samePool(h.app().openPool, before));
        QVERIFY(!h.w.windowIcon().isNull());

        QCOMPARE(h.wrongTexts({{"cmdLstArchiveAll", "All"},
                               {"cmdLstArchiveAllDrifter", "DNA"},
                               {"cmdLstArchiveAllPool", "AQP"},
                               {"cmdLstArchiveAllPool:tip", "Click here to select or unselect all pool files"},
                               {"lblVsGeneValue", "Value"},
                               {"lblVsGeneRange", "Spread"}}),
                 QStringList());

        // Whole rows: no "...", the tooltip holds the text, every row as wide as the longest.
        h.app().openPool = h.app().defaultPool;
        h.app().poolLoaded = true;
        aq::showNewOpenPool(h.app());
        auto* view = h.get<QListView>("lstSpeciatePool");
        QCOMPARE(view->textElideMode(), Qt::ElideNone);
        int longest = 0;
        for (int r = 0; r < 49; ++r)
            if (h.row("lstSpeciatePool", r).size() > h.row("lstSpeciatePool", longest).size()) longest = r;
        QModelIndex first = h.rows("lstSpeciatePool")->index(0, 0), wide = h.rows("lstSpeciatePool")->index(longest, 0);
        QCOMPARE(first.data(Qt::ToolTipRole).toString(), h.row("lstSpeciatePool", 0));
        QVERIFY(view->sizeHintForIndex(first).width() >= view->fontMetrics().horizontalAdvance(wide.data().toString()));
        h.app().poolLoaded = false;
    }

    void theMapToggleAndSplitterOutliveTheWindow() {
        aqtest::Window<> h;
        h.get<QToolButton>("cmdShowMap")->setChecked(false);
        h.w.close();
        aqapp::MainWindow again(h.ui, h.clock, QString::fromStdString(h.dir.path()));
        QVERIFY(!again.findChild<QToolButton*>("cmdShowMap")->isChecked());
        again.close();
        SCRIPT_DONE(h);
    }
};

QTEST_MAIN(WindowPartsTest)
#include "WindowPartsTest.moc"
