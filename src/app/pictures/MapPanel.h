#pragma once
// The picture beside the tabs. On the startup, drifter and food tabs it is the pool
// map of openPool: the ticked rows of the tab's list highlighted, a click on the map
// making the list's current row (Ctrl ticks it, as a tick in the list would). On the
// drifter tab a toggle shows the ticked drifters' genomes instead, and on the drifter
// files tab it shows the ticked files' genomes. On the series tab it shows the series
// that ran last, or one chosen with "Series...". A right-click saves any of them.
#include <QWidget>
#include <string>

#include "app/pictures/GenomePicture.h"
#include "app/pictures/PoolMap.h"
#include "app/pictures/SeriesView.h"

class QHBoxLayout;
class QListView;
class QStackedWidget;
class QToolButton;

namespace aqapp {

class MainWindow;

class MapPanel : public QWidget {
    Q_OBJECT
public:
    explicit MapPanel(MainWindow& window);
    PoolMap* map() { return map_; }
    GenomePicture* genes() { return genes_; }
    SeriesView* series() { return series_; }
    // Follows the selected tab: which list it serves, or hidden on the other tabs.
    void followTab(int tab);
    // Watches the lists, the sliders and the gene box of the tabs, once they exist.
    void watchControls();
    bool wanted() const { return wanted_; }
    // Redraws; a pool that was loaded, generated or merged since is fitted anew.
    void poolChanged();
    void setWanted(bool on);
    bool showsGenes() const;
    // The right-click menu's command: saves what is on show as "png" or "svg".
    void savePicture(const std::string& extension);

private:
    void pick(QListView* view, aq::CheckList& list, int index, bool ctrl);
    void syncPool();
    void geneClicked(int strip, int gene);
    void keepBoxInView();
    std::vector<GenomeStrip> strips() const;
    void buildSeries(QHBoxLayout* bar);
    void chooseSeries();
    void remember(const std::string& seriesFile);
    SeriesView::Source seriesSource();
    void seriesPoolClicked(const QString& path);
    MainWindow& window_;
    PoolMap* map_;
    GenomePicture* genes_;
    QStackedWidget* stack_;
    QToolButton* fit_;
    QToolButton* genesToggle_;
    SeriesView* series_ = nullptr;
    QWidget* seriesTools_ = nullptr;
    std::string seriesFile_;  // chosen with "Series...", or the last series run
    std::string lastRun_;     // the series file the program ran last, as last seen
    int tab_ = 1;
    int poolGene_ = -1;  // the gene last clicked in the drifters' genomes
    bool wanted_ = true;
    bool syncPending_ = false;
    std::string shownPool_;  // what identifies the pool last fitted
};

}  // namespace aqapp
