#include "app/window/MainWindow.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "app/window/EditMenu.h"
#include "app/window/HelpWindows.h"
#include "app/pictures/MapPanel.h"
#include "app/window/MenuTree.h"
#include "app/widgets/PathFrame.h"
#include "app/tabs/TabFrame.h"
#include "app/window/WindowParts.h"
#include "files/PathBoxes.h"
#include "shell/FolderDiscovery.h"
#include "files/PoolOps.h"
#include "shell/MenuState.h"
#include "shell/Settings.h"
#include "shell/Shutdown.h"

namespace aqapp {

const char* const MainWindow::kCaption = "Aquarium File Manager - v.3.1.0.1";

namespace {
const char* const kTabCaptions[6] = {
    "Archive",      "Startup Pool", "Edit Drifters in Pool File", "Edit Food in Pool File", "Edit Drifter Files",
    "Create Series"};
const char* const kModeItems[6] = {"mArchive",  "mStartup",          "mSpeciatePool",
                                   "mEditFood", "mSpeciateDrifters", "mCreateSeries"};

// A tab's page scrolls up and down, but is never narrower than its controls: the
// splitter and the window stop there instead of cutting them or scrolling sideways.
class TabPage : public QScrollArea {
public:
    QSize minimumSizeHint() const override {
        QSize s = QScrollArea::minimumSizeHint();
        if (widget())
            s.setWidth(std::max(s.width(), widget()->minimumSizeHint().width() +
                                               verticalScrollBar()->sizeHint().width() + 2 * frameWidth()));
        return s;
    }
};
}  // namespace

MainWindow::MainWindow(aq::Ui& ui, aq::Clock& clock, const QString& programFolder, QWidget* parent,
                       const QString& homeFolder)
    : QMainWindow(parent), app_(std::make_unique<aq::App>(ui, clock)) {
    setObjectName("frmAqFile");
    aq::App& app = *app_;
    app.programFolder = programFolder.toStdString();
    app.homeFolder = homeFolder.toStdString();

    // Start-up, in the program's order: the default pool, the shared flags, the menus.
    aq::loadDefaultPool(app);
    app.feedColor = app.feedMode = app.groupMode = -1;
    app.poolLoaded = false;
    app.dnaLoaded = false;
    buildMenuTree(this);
    edits_ = new EditMenu(*this);
    app.quickSpeciate = menuItem("mQuickSpec")->isChecked();
    app.similarityDepth = 1000;
    if (app.quickSpeciate) app.similarityDepth = 100;
    app.openPoolPath.clear();
    app.poolChanged = false;
    app.uiBusy = false;
    aq::AttemptAqQuickFind(app);

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    tabs_ = new QTabWidget(central);
    tabs_->setObjectName("TabStrip1");
    // Whole captions; a tab bar wider than the tabs' side scrolls.
    tabs_->setElideMode(Qt::ElideNone);
    tabs_->setUsesScrollButtons(true);
    TabFrame* (*makers[6])(MainWindow&) = {makeArchiveTab,  makeStartupTab,      makePoolDriftersTab,
                                           makePoolFoodTab, makeDrifterFilesTab, makeSeriesTab};
    for (int k = 0; k < 6; ++k) {
        TabFrame* f = makers[k](*this);
        frames_.push_back(f);
        // A scroll area lets the window shrink well below its design size.
        auto* scroll = new TabPage;
        scroll->setWidgetResizable(true);
        scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        scroll->setFrameShape(QFrame::NoFrame);
        scroll->setWidget(f);
        tabs_->addTab(scroll, kTabCaptions[k]);
    }
    // The pool map stands beside the tabs; the corner button hides it.
    auto* splitter = new QSplitter(Qt::Horizontal, central);
    splitter->addWidget(tabs_);
    mapPanel_ = new MapPanel(*this);
    // The map yields first: where the window is narrow the tabs keep their width and the
    // map has what is left (its button hides it).
    mapPanel_->setMinimumWidth(1);
    splitter->addWidget(mapPanel_);
    splitter->setCollapsible(0, false);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setSizes({760, 500});
    auto* mapToggle = new QToolButton(tabs_);
    mapToggle->setObjectName("cmdShowMap");
    mapToggle->setText("Map");
    mapToggle->setToolTip("Show or hide the map of the open pool");
    mapToggle->setCheckable(true);
    mapToggle->setChecked(true);
    connect(mapToggle, &QToolButton::toggled, mapPanel_, &MapPanel::setWanted);
    tabs_->setCornerWidget(mapToggle);
    layout->addWidget(splitter, 1);
    pathFrame_ = new PathFrame(app, central);
    layout->addWidget(pathFrame_);
    setCentralWidget(central);
    setWindowTitle(kCaption);
    resize(1280, 760);
    // No narrower than the tabs' controls (the layout's minimum, well above 0.4 of the
    // design width); no lower than 0.4 of the design height.
    setMinimumHeight(static_cast<int>(760 * 0.4));

    // The Mode menu ticks the tab on show, however it was chosen; Ctrl+1..6 are its keys.
    auto* modes = new QActionGroup(this);
    for (int k = 0; k < 6; ++k) {
        QAction* item = menuItem(kModeItems[k]);
        item->setCheckable(true);
        item->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + k)));
        modes->addAction(item);
        onMenu(kModeItems[k], [this, k] { selectTab(k + 1); });
    }
    auto showMode = [this] { menuItem(kModeItems[selectedTab() - 1])->setChecked(true); };
    connect(tabs_, &QTabWidget::currentChanged, this, [this, showMode] {
        showMode();
        updateMenuState();
        mapPanel_->followTab(selectedTab());
    });
    showMode();
    mapPanel_->watchControls();
    mapPanel_->followTab(selectedTab());
    onMenu("mSelectSwitchPool", [this] { selectTab(3); });
    onMenu("mSelectSwitchFood", [this] { selectTab(4); });
    onMenu("mSelectSwitchDrifter", [this] { selectTab(5); });
    onMenu("mEnable", [this] { updateMenuState(); });
    updateMenuState();

    app.onStateChanged = [this] { refreshAll(); };
    tmrMultiTask_.setObjectName("tmrMultiTask");
    tmrMultiTask_.setInterval(200);
    connect(&tmrMultiTask_, &QTimer::timeout, this, &MainWindow::tick);
    tmrMultiTask_.start();

    installHelpWindows(*this);
    // The archive list's ticks and boxes, then the settings file over them.
    aq::startupSettings(app);
    refreshAll();
    edits_->watchControls();
    installWindowParts(*this);
}

MainWindow::~MainWindow() { app_->onStateChanged = nullptr; }

QAction* MainWindow::menuItem(const QString& name) const {
    if (auto* a = findChild<QAction*>(name)) return a;
    return findChild<QAction*>(name + "Action");
}

void MainWindow::onMenu(const QString& name, std::function<void()> fn) {
    // Each menu command is one step of the undo history, named by its caption.
    if (QAction* a = menuItem(name))
        connect(a, &QAction::triggered, this, [this, a, fn = std::move(fn)] { edits_->step(a->text(), fn); });
}

int MainWindow::selectedTab() const { return tabs_->currentIndex() + 1; }

void MainWindow::selectTab(int tab) { tabs_->setCurrentIndex(tab - 1); }

bool MainWindow::frameShown(int index) const { return index == 0 || selectedTab() == index; }

void MainWindow::updateMenuState() {
    bool all = menuItem("mEnable")->isChecked();
    for (const auto& [name, on] : aq::updateMenu(selectedTab(), all))
        if (QAction* a = menuItem(QString::fromStdString(name))) a->setEnabled(on);
}

void MainWindow::refreshAll() {
    for (TabFrame* f : frames_) f->refresh();
    mapPanel_->poolChanged();
    if (pathFrame_) pathFrame_->refresh();
}

void MainWindow::tick() { aq::tmrMultiTaskTick(*app_, task_, {frameShown(3), frameShown(4)}); }

void MainWindow::closeEvent(QCloseEvent* e) {
    tmrMultiTask_.stop();
    if (!aq::closeProgram(*app_)) {
        e->ignore();
        tmrMultiTask_.start();
        return;
    }
    e->accept();
}

}  // namespace aqapp
