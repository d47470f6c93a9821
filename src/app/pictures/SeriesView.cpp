#include "app/pictures/SeriesView.h"

#include <QCursor>
#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <atomic>
#include <filesystem>

#include "app/widgets/PointTips.h"

namespace aqapp {

struct SeriesView::Worker {
    std::atomic<bool> stop{false};
    aq::Pool scratch;  // touched by the pool's one thread only
};

namespace {

constexpr int kFollowMs = 1000;
constexpr int kSaveMs = 3000;

bool sameFiles(const std::vector<aq::SeriesMember>& a, const std::vector<aq::SeriesMember>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
        return x.suffix == y.suffix && x.size == y.size && x.modified == y.modified;
    });
}

bool sameFile(const aq::SeriesMember& a, const aq::SeriesMember& b) {
    return a.path == b.path && a.size == b.size && a.modified == b.modified;
}

}  // namespace

SeriesView::SeriesView(std::string storeFile, QWidget* parent)
    : QWidget(parent), storeFile_(std::move(storeFile)), worker_(std::make_shared<Worker>()) {
    setObjectName("SeriesView");
    setMouseTracking(true);
    pool_.setMaxThreadCount(1);
    follow_.setInterval(kFollowMs);
    connect(&follow_, &QTimer::timeout, this, &SeriesView::refresh);
    saveLater_.setSingleShot(true);
    saveLater_.setInterval(kSaveMs);
    connect(&saveLater_, &QTimer::timeout, this, &SeriesView::saveStore);
}

SeriesView::~SeriesView() {
    // Waiting reads give up at once; only a read under way and the saves finish.
    worker_->stop = true;
    pool_.waitForDone();
    if (store_ && storeDirty_) store_->save();
}

void SeriesView::setColoring(SeriesColoring coloring) {
    scene_.coloring = coloring;
    update();
}

void SeriesView::refresh() {
    Source s = source_ ? source_() : Source{};
    const bool sameSeries = listed_ && s.file == shown_.file && s.branching == shown_.branching;
    const bool sameRule = listed_ && s.rule == shown_.rule;
    std::vector<aq::SeriesMember> members;
    if (!s.file.empty()) members = aq::listSeries(s.file, s.branching);
    const bool changed = !sameSeries || !sameFiles(members, scene_.members);
    if (changed) {
        scene_.setMembers(std::move(members));
        if (underMouse()) scene_.hover = poolAt(mapFromGlobal(QCursor::pos()));
    }
    int running = -1;
    for (int i = 0; s.running && i < int(scene_.members.size()) && running < 0; ++i)
        if (scene_.members[std::size_t(i)].suffix == *s.running) running = i;
    const bool moved = running != scene_.running;
    scene_.running = running;
    scene_.hint = s.file.empty() ? QString("Create a series, or choose its first pool with Series..., to see it here")
                                 : QString(
                                       "No file %1 yet: create a series from it, or choose the first pool of another "
                                       "with Series...")
                                       .arg(QString::fromStdString(s.file));
    shown_ = std::move(s);
    listed_ = true;
    if (changed || !sameRule) lookUpFigures();
    if (changed || !sameRule || moved) update();
    readNext();
}

void SeriesView::lookUpFigures() {
    if (!store_) {
        if (storeAsked_ || !isVisible()) return;
        // A store of many series takes a while to parse: not on the window's thread.
        storeAsked_ = true;
        pool_.start([this, w = worker_, file = storeFile_] {
            auto store = std::make_shared<aq::FigureStore>(file);
            if (w->stop) return;
            QMetaObject::invokeMethod(
                this, [this, store] { storeLoaded(store); }, Qt::QueuedConnection);
        });
        return;
    }
    for (std::size_t i = 0; i < scene_.members.size(); ++i)
        scene_.figures[i] = store_->find(scene_.members[i], shown_.rule);
}

void SeriesView::storeLoaded(std::shared_ptr<aq::FigureStore> store) {
    store_ = std::make_unique<aq::FigureStore>(std::move(*store));
    lookUpFigures();
    update();
    readNext();
}

// One read at a time, chosen afresh each time: the first figures of every pool before
// any species count, and a pool that appeared meanwhile before those counts.
void SeriesView::readNext() {
    if (reading_ || !store_ || !isVisible()) return;
    int pick = -1;
    bool species = false;
    const int n = int(scene_.members.size());
    for (int i = 0; i < n && pick < 0; ++i)
        if (!scene_.figures[std::size_t(i)]) pick = i;
    for (int i = 0; i < n && pick < 0; ++i) {
        const aq::PoolFigures& f = *scene_.figures[std::size_t(i)];
        if (f.error.empty() && f.species < 0) pick = i, species = true;
    }
    if (pick < 0) return;
    reading_ = true;
    std::optional<aq::SpeciesRule> rule;
    if (species) rule = shown_.rule;
    pool_.start([this, w = worker_, m = scene_.members[std::size_t(pick)], rule] {
        if (w->stop) return;
        aq::PoolFigures f = aq::readPoolFigures(m.path, rule, w->scratch);
        if (w->stop) return;
        QMetaObject::invokeMethod(
            this, [this, m, rule, f] { took(m, rule, f); }, Qt::QueuedConnection);
    });
}

void SeriesView::took(const aq::SeriesMember& m, const std::optional<aq::SpeciesRule>& rule, const aq::PoolFigures& f) {
    reading_ = false;
    ++reads_;
    store_->put(m, f, rule);
    storeDirty_ = true;
    if (!saveLater_.isActive()) saveLater_.start();
    for (std::size_t i = 0; i < scene_.members.size(); ++i) {
        if (!sameFile(scene_.members[i], m)) continue;
        aq::PoolFigures shown = f;
        // A count by a threshold changed meanwhile is counted again.
        if (!rule || !(*rule == shown_.rule))
            shown.species = scene_.figures[i] && !rule ? scene_.figures[i]->species : -1;
        scene_.figures[i] = shown;
        update();
    }
    readNext();
}

void SeriesView::saveStore() {
    if (!store_ || !storeDirty_) return;
    storeDirty_ = false;
    // The copy is the thread's alone; the write may wait on the disk.
    auto copy = std::make_shared<aq::FigureStore>(*store_);
    pool_.start([copy] { copy->save(); });
}

int SeriesView::poolAt(QPointF p) const {
    return seriesPoolAt(scene_, seriesGeometry(scene_, size(), QFontMetricsF(font())), p);
}

QPointF SeriesView::poolCentre(const std::string& suffix) const {
    const SeriesGeometry g = seriesGeometry(scene_, size(), QFontMetricsF(font()));
    for (std::size_t i = 0; i < scene_.members.size(); ++i)
        if (scene_.members[i].suffix == suffix) return g.centre(scene_.layout.places[i]);
    return {-1, -1};
}

QString SeriesView::tipAt(QPoint p) const { return seriesTip(scene_, poolAt(p)); }

void SeriesView::paintSeries(QPainter& painter, const PictureColors& colors) const {
    aqapp::paintSeries(painter, size(), scene_, colors);
}

void SeriesView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSeries(painter, PictureColors::of(palette()));
}

void SeriesView::showEvent(QShowEvent*) {
    follow_.start();
    refresh();
}

void SeriesView::hideEvent(QHideEvent*) {
    follow_.stop();
    saveStore();
}

void SeriesView::mouseMoveEvent(QMouseEvent* e) {
    const int i = poolAt(e->position());
    if (i == scene_.hover) return;
    scene_.hover = i;
    update();
}

void SeriesView::leaveEvent(QEvent*) {
    if (scene_.hover < 0) return;
    scene_.hover = -1;
    update();
}

void SeriesView::mousePressEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton) return;
    const int i = poolAt(e->position());
    if (i >= 0) emit poolClicked(QString::fromStdString(scene_.members[std::size_t(i)].path));
}

bool SeriesView::event(QEvent* e) {
    return showPointTip(this, e, [this](QPoint p) { return tipAt(p); }) || QWidget::event(e);
}

}  // namespace aqapp
