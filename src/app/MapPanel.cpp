#include "app/MapPanel.h"

#include <QAbstractItemModel>
#include <QAbstractSlider>
#include <QListView>
#include <QVBoxLayout>
#include <algorithm>

#include "app/MainWindow.h"

namespace aqapp {

namespace {

// The box the four sliders move and stretch: around the positions of the ticked
// drifters or food bits.
std::optional<aq::WorldRect> tickedBox(const aq::Pool& pool, const aq::CheckList& list, bool drifters) {
    std::optional<aq::WorldRect> box;
    int n = std::min(list.count(), drifters ? pool.drifterCount : pool.foodCount);
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

}  // namespace

MapPanel::MapPanel(MainWindow& window) : window_(window), map_(new PoolMap(this)) {
    setObjectName("MapPanel");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(map_);
    aq::App& app = window_.app();
    map_->setPool(&app.openPool);
    connect(map_, &PoolMap::drifterPicked, this, [this](int i, bool ctrl) {
        pick(window_.findChild<QListView*>("lstSpeciatePool"), window_.app().lstSpeciatePool, i, ctrl);
    });
    connect(map_, &PoolMap::foodPicked, this, [this](int i, bool ctrl) {
        pick(window_.findChild<QListView*>("lstPoolFood"), window_.app().lstPoolFood, i, ctrl);
    });
}

void MapPanel::pick(QListView* view, aq::CheckList& list, int index, bool ctrl) {
    if (index >= list.count()) return;
    list.setCurrentIndex(index);
    if (view && view->model()) view->scrollTo(view->model()->index(index, 0), QAbstractItemView::PositionAtCenter);
    // The same path as a user's tick in the list, so group selection spreads it.
    if (ctrl && list.enabled() && !window_.app().uiBusy) list.userCheck(index, !list.checked(index));
    map_->update();
}

void MapPanel::followTab(int tab) {
    tab_ = tab;
    aq::App& app = window_.app();
    bool shows = tab == 2 || tab == 3 || tab == 4;
    setVisible(wanted_ && shows);
    map_->setTicks(tab == 3 ? &app.lstSpeciatePool : nullptr, tab == 4 ? &app.lstPoolFood : nullptr);
    map_->setPicks(tab == 3 ? PoolMap::Picks::Drifters : tab == 4 ? PoolMap::Picks::Food : PoolMap::Picks::None);
    map_->setBoxProvider([this, tab]() -> std::optional<aq::WorldRect> {
        aq::App& a = window_.app();
        if (tab == 3) return tickedBox(a.openPool, a.lstSpeciatePool, true);
        if (tab == 4) return tickedBox(a.openPool, a.lstPoolFood, false);
        return std::nullopt;
    });
}

void MapPanel::poolChanged() {
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

void MapPanel::watchControls() {
    for (const char* name : {"lstSpeciatePool", "lstPoolFood"}) {
        auto* view = window_.findChild<QListView*>(name);
        if (!view || !view->model()) continue;
        QAbstractItemModel* m = view->model();
        auto repaint = [this] {
            // The map shows what the lists show: once a load has cleared them, the pool
            // behind them is no longer on show.
            aq::App& a = window_.app();
            bool listed = a.lstSpeciatePool.count() > 0 || a.lstPoolFood.count() > 0 ||
                          (a.openPool.drifterCount <= 0 && a.openPool.foodCount <= 0);
            const aq::Pool* shown = listed ? &a.openPool : nullptr;
            if (map_->pool() != shown) map_->setPool(shown);
            map_->update();
        };
        connect(m, &QAbstractItemModel::dataChanged, map_, repaint);
        connect(m, &QAbstractItemModel::modelReset, map_, repaint);
        connect(m, &QAbstractItemModel::rowsInserted, map_, repaint);
        connect(m, &QAbstractItemModel::rowsRemoved, map_, repaint);
    }
    // Moving or stretching with the sliders redraws the map live.
    for (auto* slider : window_.findChildren<QAbstractSlider*>())
        connect(slider, &QAbstractSlider::valueChanged, map_, [this] { map_->update(); });
}

}  // namespace aqapp
