#include "app/pictures/MapPanel.h"

#include <QAbstractItemModel>
#include <QAbstractSlider>
#include <QAction>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QStackedWidget>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <filesystem>

#include "app/pictures/PictureExport.h"
#include "app/window/MainWindow.h"
#include "dnaeditor/GenePanel.h"

namespace aqapp {

namespace {

// The box the four sliders move and stretch: around the positions of the ticked
// drifters or food bits.
std::optional<aq::WorldRect> tickedBox(const aq::Pool& pool, const aq::CheckList& list, bool drifters) {
    std::optional<aq::WorldRect> box;
    int n = std::min(list.count(), drifters ? pool.drifterCount : pool.foodCount);
    n = std::min(n, static_cast<int>(drifters ? pool.drifters.size() : pool.food.size()));
    for (int i = 0; i < n; ++i) {
        if (!list.checked(i)) continue;
        float x = drifters ? pool.drifters[std::size_t(i)].x : pool.food[std::size_t(i)].x;
        float y = drifters ? pool.drifters[std::size_t(i)].y : pool.food[std::size_t(i)].y;
        if (!box) box = aq::WorldRect{x, y, x, y};
        box->left = std::min(box->left, x);
        box->right = std::max(box->right, x);
        box->bottom = std::min(box->bottom, y);
        box->top = std::max(box->top, y);
    }
    return box;
}

QToolButton* toolButton(QWidget* parent, const char* name, const char* text, const char* tip) {
    auto* b = new QToolButton(parent);
    b->setObjectName(name);
    b->setText(text);
    b->setToolTip(tip);
    return b;
}

}  // namespace

MapPanel::MapPanel(MainWindow& window)
    : window_(window), map_(new PoolMap(this)), genes_(new GenomePicture(this)), stack_(new QStackedWidget(this)) {
    setObjectName("MapPanel");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* bar = new QHBoxLayout;
    fit_ = toolButton(this, "cmdFitMap", "Fit", "Show all the drifters and food (Home)");
    genesToggle_ =
        toolButton(this, "cmdShowGenes", "Genes", "Show the genes of the ticked drifters instead of the map");
    genesToggle_->setCheckable(true);
    bar->addWidget(fit_);
    bar->addWidget(genesToggle_);
    buildSeries(bar);
    bar->addStretch(1);
    layout->addLayout(bar);
    stack_->addWidget(map_);
    stack_->addWidget(genes_);
    stack_->addWidget(series_);
    layout->addWidget(stack_, 1);

    aq::App& app = window_.app();
    map_->setPool(nullptr);
    connect(fit_, &QToolButton::clicked, map_, &PoolMap::fit);
    connect(genesToggle_, &QToolButton::toggled, this, [this] { followTab(tab_); });
    connect(map_, &PoolMap::drifterPicked, this, [this](int i, bool ctrl) {
        pick(window_.findChild<QListView*>("lstSpeciatePool"), window_.app().lstSpeciatePool, i, ctrl);
    });
    connect(map_, &PoolMap::foodPicked, this, [this](int i, bool ctrl) {
        pick(window_.findChild<QListView*>("lstPoolFood"), window_.app().lstPoolFood, i, ctrl);
    });
    genes_->setSource([this] { return strips(); });
    genes_->setChosenGene([this, &app]() -> int {
        if (tab_ == 3) return poolGene_;
        return app.dna.gene.txtGene.empty() ? -1 : aq::chosenGene(app.dna.gene.txtGene);
    });
    connect(genes_, &GenomePicture::geneClicked, this, &MapPanel::geneClicked);
    for (QWidget* w : {static_cast<QWidget*>(map_), static_cast<QWidget*>(genes_), static_cast<QWidget*>(series_)}) {
        w->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(w, &QWidget::customContextMenuRequested, this, [this, w](QPoint at) {
            QMenu menu(this);
            menu.addAction("Save Picture as PNG...", this, [this] { savePicture("png"); });
            menu.addAction("Save Picture as SVG...", this, [this] { savePicture("svg"); });
            menu.exec(w->mapToGlobal(at));
        });
    }
}

bool MapPanel::showsGenes() const { return tab_ == 5 || (tab_ == 3 && genesToggle_->isChecked()); }

std::vector<GenomeStrip> MapPanel::strips() const {
    std::vector<GenomeStrip> out;
    aq::App& app = window_.app();
    if (tab_ == 5) {
        const aq::DnaFolder& d = app.dna;
        int n = std::min({app.lstSpeciateDrifters.count(), int(d.dnaGenes.size()), int(d.dnaPaths.size())});
        for (int i = 0; i < n; ++i)
            if (app.lstSpeciateDrifters.checked(i))
                out.push_back(
                    {QString::fromStdString(std::filesystem::path(d.dnaPaths[std::size_t(i)]).filename().string()),
                     d.dnaGenes[std::size_t(i)].data(), i});
    } else if (tab_ == 3 && map_->pool()) {
        const aq::Pool& p = app.openPool;
        int n = std::min({app.lstSpeciatePool.count(), p.drifterCount, int(p.drifters.size())});
        for (int i = 0; i < n; ++i)
            if (app.lstSpeciatePool.checked(i))
                out.push_back({QString::fromStdString(app.lstSpeciatePool.text(i)).trimmed(),
                               p.drifters[std::size_t(i)].genes, i});
    }
    return out;
}

void MapPanel::pick(QListView* view, aq::CheckList& list, int index, bool ctrl) {
    if (index >= list.count()) return;
    list.setCurrentIndex(index);
    if (view && view->model()) view->scrollTo(view->model()->index(index, 0), QAbstractItemView::PositionAtCenter);
    // The same path as a user's tick in the list, so group selection spreads it.
    if (ctrl && list.enabled() && !window_.app().uiBusy) list.userCheck(index, !list.checked(index));
    map_->update();
}

void MapPanel::geneClicked(int strip, int gene) {
    if (tab_ == 5) {
        // Through the gene box, so the gene panel follows as it does for typing.
        if (auto* box = window_.findChild<QLineEdit*>("txtGene")) box->setText(QString::number(gene));
    } else if (tab_ == 3) {
        poolGene_ = gene;
        std::vector<GenomeStrip> all = strips();
        if (strip >= 0 && strip < int(all.size()))
            pick(window_.findChild<QListView*>("lstSpeciatePool"), window_.app().lstSpeciatePool,
                 all[std::size_t(strip)].record, false);
    }
    genes_->update();
}

void MapPanel::followTab(int tab) {
    tab_ = tab;
    aq::App& app = window_.app();
    bool shows = tab >= 2 && tab <= 6;
    if (auto* toggle = window_.findChild<QToolButton*>("cmdShowMap")) toggle->setText(tab == 5 ? "Genes" : "Map");
    genesToggle_->setVisible(tab == 3);
    fit_->setVisible(!showsGenes() && tab != 6);
    seriesTools_->setVisible(tab == 6);
    genes_->setEmptyHint(tab == 5 ? "Tick drifter files in the list to see their genes here"
                                  : "Tick drifters in the list to see their genes here");
    stack_->setCurrentWidget(tab == 6       ? static_cast<QWidget*>(series_)
                             : showsGenes() ? static_cast<QWidget*>(genes_)
                                            : map_);
    setVisible(wanted_ && shows);
    map_->setTicks(tab == 3 ? &app.lstSpeciatePool : nullptr, tab == 4 ? &app.lstPoolFood : nullptr);
    map_->setPicks(tab == 3 ? PoolMap::Picks::Drifters : tab == 4 ? PoolMap::Picks::Food : PoolMap::Picks::None);
    map_->setBoxProvider([this, tab]() -> std::optional<aq::WorldRect> {
        aq::App& a = window_.app();
        if (tab == 3) return tickedBox(a.openPool, a.lstSpeciatePool, true);
        if (tab == 4) return tickedBox(a.openPool, a.lstPoolFood, false);
        return std::nullopt;
    });
    genes_->refresh();
}

void MapPanel::syncPool() {
    // A pool is on show once loaded or generated, until its lists are cleared (a load
    // that was cancelled leaves them so).
    const aq::App& app = window_.app();
    const aq::Pool& p = app.openPool;
    bool cleared =
        app.lstSpeciatePool.count() == 0 && app.lstPoolFood.count() == 0 && (p.drifterCount > 0 || p.foodCount > 0);
    map_->setPool(app.poolLoaded && !cleared ? &app.openPool : nullptr);
    fit_->setEnabled(map_->pool() != nullptr);
    genes_->refresh();
}

void MapPanel::poolChanged() {
    syncPool();
    const aq::App& app = window_.app();
    const aq::Pool& p = app.openPool;
    std::string id = app.openPoolPath + "|" + std::to_string(p.drifterCount) + "|" + std::to_string(p.foodCount) + "|" +
                     std::to_string(p.clock) + "|" + std::to_string(app.poolLoaded);
    if (id != shownPool_) {
        shownPool_ = id;
        map_->fit();
    }
    map_->update();
}

void MapPanel::setWanted(bool on) {
    wanted_ = on;
    followTab(tab_);
}

void MapPanel::keepBoxInView() {
    if (tab_ != 3 && tab_ != 4) return;
    aq::App& a = window_.app();
    auto box = tab_ == 3 ? tickedBox(a.openPool, a.lstSpeciatePool, true) : tickedBox(a.openPool, a.lstPoolFood, false);
    if (box) map_->keepInView(*box);
}

void MapPanel::savePicture(const std::string& extension) {
    aq::App& app = window_.app();
    if (tab_ == 6) {
        // Beside the series' files, named after its first.
        const std::filesystem::path first(seriesSource().file);
        std::error_code ec;
        savePictureAs(app.ui, std::filesystem::absolute(first, ec).parent_path().string(),
                      (first.empty() ? std::string("pool") : first.stem().string()) + "-series." + extension, extension,
                      series_->size(), [this](QPainter& p) { series_->paintSeries(p, PictureColors::light()); });
        return;
    }
    bool genes = showsGenes();
    const std::filesystem::path pool(app.openPoolPath);
    std::string base = pool.empty() ? "pool" : pool.stem().string();
    // A picture of the pool goes beside it by default; the DNA files' genes to their folder.
    std::error_code ec;
    std::string folder = pool.empty() ? app.comboPoolPath : std::filesystem::absolute(pool, ec).parent_path().string();
    if (tab_ == 5) base = "drifters", folder = app.comboDrifterPath;
    QWidget* shown = genes ? static_cast<QWidget*>(genes_) : map_;
    savePictureAs(app.ui, folder, base + (genes ? "-genes." : "-map.") + extension, extension, shown->size(),
                  [this, genes](QPainter& p) {
                      // Files keep one light look, whatever the desktop's colours.
                      if (genes)
                          genes_->paintPicture(p, genes_->size(), false, PictureColors::light());
                      else
                          map_->paintPool(p, PictureColors::light());
                  });
}

void MapPanel::watchControls() {
    // A group tick changes hundreds of rows one by one: redraw at once, but look at
    // the lists again only once they are done.
    auto refresh = [this] {
        map_->update();
        genes_->update();
        if (syncPending_) return;
        syncPending_ = true;
        QTimer::singleShot(0, this, [this] {
            syncPending_ = false;
            syncPool();
        });
    };
    for (const char* name : {"lstSpeciatePool", "lstPoolFood", "lstSpeciateDrifters"}) {
        auto* view = window_.findChild<QListView*>(name);
        if (!view || !view->model()) continue;
        QAbstractItemModel* m = view->model();
        connect(m, &QAbstractItemModel::dataChanged, this, refresh);
        connect(m, &QAbstractItemModel::modelReset, this, refresh);
        connect(m, &QAbstractItemModel::rowsInserted, this, refresh);
        connect(m, &QAbstractItemModel::rowsRemoved, this, refresh);
    }
    // Moving or stretching with the sliders redraws the map live, its view still unless
    // the box would leave it; the gene scrollbars change genes the picture shows.
    for (auto* slider : window_.findChildren<QAbstractSlider*>()) {
        bool box = slider->objectName().startsWith("Slider");
        connect(slider, &QAbstractSlider::valueChanged, this, [this, box] {
            if (box) keepBoxInView();
            map_->update();
            genes_->update();
        });
    }
    // An undone or redone move puts the box back where the view may not reach.
    for (const char* name : {"mUndo", "mRedo"})
        if (auto* item = window_.findChild<QAction*>(name))
            connect(item, &QAction::triggered, this, &MapPanel::keepBoxInView);
    if (auto* gene = window_.findChild<QLineEdit*>("txtGene"))
        connect(gene, &QLineEdit::textChanged, genes_, [this] { genes_->update(); });
}

}  // namespace aqapp
