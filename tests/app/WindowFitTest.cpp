// The window on a small screen (1280x720, offscreen): its first and its remembered
// geometry fit, the tabs keep the width their controls need, the keys a desktop user
// tries (Delete, Ctrl+1..6, Ctrl+Alt+S, Alt letters), "Save Pool File As...", the
// recent list's "Clear List" and file dialogs that show each file's size and date.
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGroupBox>
#include <QHeaderView>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QTreeView>
#include <set>

#include "Window.h"
#include "app/window/QtUi.h"
#include "app/window/WindowParts.h"
#include "support/PoolFixtures.h"

namespace {

const QRect kScreen(0, 0, 1280, 720);

// The window's frame (the offscreen desktop draws one) lies on the screen.
bool onScreen(const QMainWindow& w) {
    return w.screen()->availableGeometry().contains(w.frameGeometry()) &&
           w.screen()->geometry().contains(w.statusBar()->mapToGlobal(w.statusBar()->rect().bottomRight()));
}

// Tab k, made current, shows its controls' whole width without a sideways scroll bar.
bool showsItsControls(aqapp::MainWindow& w, int k) {
    w.selectTab(k);
    QApplication::processEvents();
    auto* page = qobject_cast<QScrollArea*>(w.findChild<QTabWidget*>("TabStrip1")->currentWidget());
    return page->viewport()->width() >= page->widget()->minimumSizeHint().width() &&
           !page->horizontalScrollBar()->isVisible();
}

// The Alt letter of a caption, or 0.
QChar mnemonic(const QString& text) {
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != '&') continue;
        if (text[i + 1] != '&') return text[i + 1].toUpper();
        ++i;
    }
    return QChar();
}

}  // namespace

class WindowFitTest : public QObject {
    Q_OBJECT

    // The remembered geometry and splitter of a window that is closed, then a new window.
    static void remember(const QByteArray& geometry, const QByteArray& splitter) {
        auto s = aqapp::windowSettings();
        s->setValue("geometry", geometry);
        s->setValue("splitter", splitter);
    }

private slots:
    void firstAndRememberedGeometryFitTheScreen() {
        QCOMPARE(QApplication::primaryScreen()->geometry(), kScreen);
        aqtest::Window<> h;
        h.w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&h.w));
        QVERIFY(onScreen(h.w));
        // Kept from a bigger screen, off to the right and below: it comes back whole.
        h.w.setGeometry(300, 200, 1700, 1100);
        const QByteArray big = h.w.saveGeometry();
        h.w.hide();
        remember(big, {});
        aqapp::MainWindow again(h.ui, h.clock, QString::fromStdString(h.dir.path()));
        again.show();
        QVERIFY(QTest::qWaitForWindowExposed(&again));
        QVERIFY(onScreen(again));
        QVERIFY(again.width() > 1000 && again.height() > 600);  // as big as the screen lets it be
    }

    void theSplitterStopsAtTheTabsControls() {
        aqtest::Window<> h;
        auto* tabs = h.get<QTabWidget>("TabStrip1");
        auto* split = qobject_cast<QSplitter*>(tabs->parentWidget());
        h.w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&h.w));
        // Squeezed as far as the splitter goes, every tab shows its controls whole.
        split->setSizes({10, 5000});
        for (int k = 1; k <= 6; ++k) QVERIFY2(showsItsControls(h.w, k), qPrintable(QString("tab %1").arg(k)));
        // A window as narrow as it goes (a small screen at a large scale) still shows them.
        h.w.resize(100, h.w.height());
        QVERIFY(showsItsControls(h.w, 3) && showsItsControls(h.w, 2));
        // The tab bar's captions are never cut short.
        QCOMPARE(tabs->tabBar()->elideMode(), Qt::ElideNone);
    }

    void aSplitterRememberedTooNarrowOpensWideEnough() {
        aqtest::Window<> h;
        QByteArray state;
        {
            // As an older run kept it, the tabs collapsed.
            QSplitter old(Qt::Horizontal);
            old.addWidget(new QWidget);
            old.addWidget(new QWidget);
            old.resize(1200, 100);
            old.setSizes({0, 1200});
            state = old.saveState();
        }
        remember({}, state);
        aqapp::MainWindow again(h.ui, h.clock, QString::fromStdString(h.dir.path()));
        again.show();
        QVERIFY(QTest::qWaitForWindowExposed(&again));
        QVERIFY(showsItsControls(again, 3));  // where the map stands beside the tabs
    }

    void keysActOnTheirTabs() {
        aqtest::Window<> h;
        h.w.show();
        QVERIFY(QTest::qWaitForWindowActive(&h.w));
        // Ctrl+1..6 are the Mode menu's, which ticks the tab on show however it was chosen.
        for (int k = 1; k <= 6; ++k) {
            QTest::keyClick(&h.w, static_cast<Qt::Key>(Qt::Key_0 + k), Qt::ControlModifier);
            QCOMPARE(h.w.selectedTab(), k);
        }
        const char* modes[6] = {"mArchive",  "mStartup",          "mSpeciatePool",
                                "mEditFood", "mSpeciateDrifters", "mCreateSeries"};
        for (int k = 0; k < 6; ++k)
            QCOMPARE(h.w.menuItem(modes[k])->shortcut(), QKeySequence(QString("Ctrl+%1").arg(k + 1)));
        h.get<QTabWidget>("TabStrip1")->tabBar()->setCurrentIndex(3);
        QVERIFY(h.w.menuItem("mEditFood")->isChecked() && !h.w.menuItem("mCreateSeries")->isChecked());

        h.loadPool(aqtest::makePool(3, 3));
        SCRIPT_DONE(h);
        h.tick("lstSpeciatePool", 0);
        h.tick("lstPoolFood", 1);
        // Delete on a list asks the menu item's question; in a text box it edits the text.
        const struct {
            int tab;
            const char* control;
            const char* prompt;
        } rows[] = {
            {3, "lstSpeciatePool", "You are about to delete"},
            {3, "txtPoolSpeciesThreshold", nullptr},
            {3, "comboSpeciatePoolGroup0", "You are about to delete"},
            {4, "lstPoolFood", "You are about to delete the 1 selected food bits."},
            {4, "txtFoodThreshold", nullptr},
        };
        for (const auto& r : rows) {
            h.w.selectTab(r.tab);
            QWidget* c = h.get(r.control);
            c->setFocus();
            QApplication::processEvents();
            h.ui.seen.clear();
            QTest::keyClick(c, Qt::Key_Delete);
            h.ui.failures.clear();  // the question was not scripted: it counts as cancelled
            QVERIFY2(r.prompt ? h.ui.seen.size() == 1 && h.ui.seen[0].text.starts_with(r.prompt) : h.ui.seen.empty(),
                     r.control);
        }
        QCOMPARE(h.w.menuItem("mSelectPoolDelete")->shortcut(), QKeySequence(QKeySequence::Delete));
        // Elsewhere (the tab bar) Delete does nothing.
        h.w.selectTab(3);
        h.get<QTabWidget>("TabStrip1")->tabBar()->setFocus();
        h.ui.seen.clear();
        QTest::keyClick(h.get<QTabWidget>("TabStrip1")->tabBar(), Qt::Key_Delete);
        QVERIFY(h.ui.seen.empty());
    }

    void altLettersAreUniqueOnEachTabAndClearOfTheMenus() {
        aqtest::Window<> h;
        std::set<QChar> menus;
        for (QAction* a : h.w.menuBar()->actions())
            if (QChar m = mnemonic(a->text()); !m.isNull()) menus.insert(m);
        QCOMPARE(menus.size(), std::size_t(h.w.menuBar()->actions().size()));
        for (int k = 1; k <= 6; ++k) {
            // The tab's own controls and the folder frame under every tab.
            QList<QWidget*> controls;
            for (QWidget* root : {h.get(QString("FrmTa(%1)").arg(k)), h.get("FrmTa(0)")})
                for (QWidget* c : root->findChildren<QWidget*>())
                    if (qobject_cast<QAbstractButton*>(c) || qobject_cast<QGroupBox*>(c)) controls << c;
            std::set<QChar> used;
            for (QWidget* c : controls) {
                auto* b = qobject_cast<QAbstractButton*>(c);
                const QString text = b ? b->text() : static_cast<QGroupBox*>(c)->title();
                QChar m = mnemonic(text);
                // Every button and check box with a word on it has a letter (option buttons may
                // have their frame's instead).
                const bool worded = text.contains(QRegularExpression("[A-Za-z]"));
                QVERIFY2(!m.isNull() || !worded || !(qobject_cast<QPushButton*>(c) || qobject_cast<QCheckBox*>(c)),
                         qPrintable(c->objectName() + " has no letter"));
                if (m.isNull()) continue;
                QVERIFY2(!menus.count(m), qPrintable(c->objectName() + " uses a menu's letter " + m));
                QVERIFY2(used.insert(m).second, qPrintable(c->objectName() + " repeats " + m));
            }
        }
        // The copy button keeps its letter as its caption follows the check box; Alt+letter acts.
        h.w.show();
        QVERIFY(QTest::qWaitForWindowActive(&h.w));
        h.w.selectTab(1);
        auto* del = h.get<QCheckBox>("chkDeleteOriginal");
        del->setChecked(false);
        QCOMPARE(h.get<QAbstractButton>("cmdCopyToArchive")->text(), QString("Copy Selected Files &to Archive"));
        QTest::keyClick(&h.w, Qt::Key_G, Qt::AltModifier);
        QTRY_VERIFY(del->isChecked());  // a button's letter clicks it a moment later
        QCOMPARE(h.get<QAbstractButton>("cmdCopyToArchive")->text(), QString("Move Selected Files &to Archive"));
    }

    void saveAsGivesTheOpenPoolItsNewFile() {
        aqtest::Window<> h;
        h.w.show();
        QVERIFY(QTest::qWaitForWindowActive(&h.w));
        h.loadPool(aqtest::makePool(3, 3));
        // An edit outside any menu command, as a drag: the pool is changed.
        h.app().comboPoolPath = h.dir.path();
        h.tick("lstSpeciatePool", 0);
        h.get<QSlider>("SliderSpeciatePoolDrifterX")->setValue(100);
        QVERIFY(h.app().poolChanged && h.text("statusChanged") == "changed");
        const std::string details = h.dir.path() + "|pool.aqp|aqp|Pool Files";
        // Cancel changes nothing.
        h.ui.file("save", "Save Pool As", "", details);
        h.menu("mSavePoolAs");
        SCRIPT_DONE(h);
        QVERIFY(h.app().openPoolPath == h.file("pool.aqp") && h.app().poolChanged &&
                h.text("statusChanged") == "changed");
        // A new name, by the key: the file holds the pool, which now belongs to it, unchanged.
        QCOMPARE(h.w.menuItem("mSavePoolAs")->shortcut(), QKeySequence("Ctrl+Alt+S"));
        h.ui.file("save", "Save Pool As", h.file("copy.aqp"), details);
        QTest::keyClick(&h.w, Qt::Key_S, Qt::ControlModifier | Qt::AltModifier);
        SCRIPT_DONE(h);
        QCOMPARE(h.app().openPoolPath, h.file("copy.aqp"));
        QVERIFY(!h.app().poolChanged && h.text("statusChanged").isEmpty() && h.text("statusPool") == "copy.aqp");
        QCOMPARE(aqtest::readBytes(h.file("copy.aqp")), aq::poolBytes(h.app().openPool));
        QCOMPARE(h.w.menuItem("mRecentPool1")->text(), "&1 " + QString::fromStdString(h.file("copy.aqp")));
        // Undo goes back to the pool the first file holds.
        h.menu("mUndo");
        QVERIFY(h.app().openPoolPath == h.file("pool.aqp") && !h.app().poolChanged);
    }

    void theRecentListEndsInClearList() {
        aqtest::Window<> h;
        QVERIFY(!h.w.menuItem("mRecentPoolsClear")->isEnabled());
        h.loadPool(aqtest::makePool(2, 1));
        QList<QAction*> items = h.get<QMenu>("mRecentPools")->actions();
        QVERIFY(items.size() == 3 && items[1]->isSeparator() && items[2]->text() == "&Clear List");
        QVERIFY(items[2]->isEnabled());
        items[2]->trigger();
        items = h.get<QMenu>("mRecentPools")->actions();
        QVERIFY(items.size() == 2 && !items[1]->isEnabled());
        QVERIFY(!aqapp::windowSettings()->contains("recentPoolFiles"));
        SCRIPT_DONE(h);
    }

    void fileDialogsShowNameSizeAndDate() {
        aqtest::TempDir dir;
        aq::writePool(dir.file("pool.aqp"), aqtest::makePool(1, 1));
        // Qt's dialog remembers its columns in the user's settings: this one starts afresh.
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QString::fromStdString(dir.path()));
        aqapp::QtUi ui;
        QSize size;
        bool detail = false;
        int dateRight = -1, viewWidth = 0, dateWidth = 0;
        QTimer::singleShot(100, [&] {
            auto* dlg = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dlg) return;
            size = dlg->size();
            detail = dlg->viewMode() == QFileDialog::Detail;
            if (auto* tree = dlg->findChild<QTreeView*>("treeView")) {
                QHeaderView* head = tree->header();
                // Name, size, kind, date: the date column ends inside the view.
                dateRight = head->sectionViewportPosition(3) + head->sectionSize(3);
                viewWidth = tree->viewport()->width();
                dateWidth = head->sectionSize(3) -
                            tree->fontMetrics().horizontalAdvance(QLocale::system().toString(
                                QFileInfo(dlg->directory().filePath("pool.aqp")).lastModified(), QLocale::ShortFormat));
            }
            dlg->reject();
        });
        ui.ChooseOpenFile(dir.path(), "", "aqp", "Aquarium Files", "Select Pool File");
        QVERIFY(detail);
        QVERIFY2(size.width() >= 800 && size.height() >= 500 && QRect(kScreen).contains(QRect(QPoint(), size)),
                 qPrintable(QString("%1x%2").arg(size.width()).arg(size.height())));
        QVERIFY2(dateRight > 0 && dateRight <= viewWidth, qPrintable(QString("%1 %2").arg(dateRight).arg(viewWidth)));
        QVERIFY(dateWidth > 0);  // room for the date's text
    }
};

int main(int argc, char** argv) {
    // A small laptop's screen. The offscreen desktop draws a frame round each window.
    QDir().mkpath(QDir::tempPath());
    const QString config =
        QDir::temp().filePath(QString("aqfm-screen-%1.json").arg(QCoreApplication::applicationPid()));
    QFile f(config);
    if (!f.open(QIODevice::WriteOnly)) return 1;
    f.write(R"({"screens": [{"name": "laptop", "x": 0, "y": 0, "width": 1280, "height": 720, "logicalDpi": 96}]})");
    f.close();
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + config).toUtf8());
    int status;
    {
        QApplication app(argc, argv);
        WindowFitTest test;
        status = QTest::qExec(&test, argc, argv);
    }
    QFile::remove(config);
    return status;
}

#include "WindowFitTest.moc"
