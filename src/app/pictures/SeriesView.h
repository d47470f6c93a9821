#pragma once
// The series beside the "Create Series" tab: its pools as a tree by generation, with a
// chart of the branch under the pointer. It follows the folder each second while on
// show; the figures come from the figure store at once and from a background reader
// otherwise, so the window never waits for a pool to be read. A click asks to load a pool.
#include <QThreadPool>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/pictures/SeriesDrawing.h"

namespace aqapp {

class SeriesView : public QWidget {
    Q_OBJECT
public:
    // What to show, asked each second: the series' first file ("" for none), whether it
    // branches, the suffix of the pool a running series works on, and how species are counted.
    struct Source {
        std::string file;
        bool branching = true;
        std::optional<std::string> running;
        aq::SpeciesRule rule;
    };

    // `storeFile` keeps the figures between sessions ("" keeps them for this view only).
    explicit SeriesView(std::string storeFile, QWidget* parent = nullptr);
    ~SeriesView() override;

    void setSource(std::function<Source()> source) { source_ = std::move(source); }
    void setColoring(SeriesColoring coloring);
    // Looks at the source and the folder now rather than at the next second.
    void refresh();

    const SeriesScene& scene() const { return scene_; }
    QPointF poolCentre(const std::string& suffix) const;  // (-1, -1) for a pool not shown
    QString tipAt(QPoint p) const;
    int poolsRead() const { return reads_; }
    void paintSeries(QPainter& painter, const PictureColors& colors) const;

signals:
    void poolClicked(const QString& path);

protected:
    void paintEvent(QPaintEvent*) override;
    void showEvent(QShowEvent*) override;
    void hideEvent(QHideEvent*) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void leaveEvent(QEvent*) override;
    bool event(QEvent* e) override;

private:
    struct Worker;
    void storeLoaded(std::shared_ptr<aq::FigureStore> store);
    void lookUpFigures();
    void readNext();
    void took(const aq::SeriesMember& m, const std::optional<aq::SpeciesRule>& rule, const aq::PoolFigures& f);
    void saveStore();
    int poolAt(QPointF p) const;

    std::function<Source()> source_;
    SeriesScene scene_;
    Source shown_;
    bool listed_ = false;  // the folder was looked at for shown_
    std::string storeFile_;
    std::unique_ptr<aq::FigureStore> store_;  // the GUI thread's, once loaded
    bool storeAsked_ = false;
    bool storeDirty_ = false;
    QTimer follow_;
    QTimer saveLater_;
    // One background thread; jobs hold the worker, never the view beyond its lifetime:
    // the destructor waits for the one job that may be running.
    QThreadPool pool_;
    std::shared_ptr<Worker> worker_;
    bool reading_ = false;
    int reads_ = 0;
};

}  // namespace aqapp
