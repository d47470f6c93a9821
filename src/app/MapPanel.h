#pragma once
// The pool map beside the tabs: it shows openPool on the startup, drifter and food
// tabs, highlights the ticked rows of the tab's list, and turns a click on the map
// into the list's current row (Ctrl ticks it, as a tick in the list would).
#include <QWidget>
#include <string>

#include "app/PoolMap.h"

class QListView;

namespace aqapp {

class MainWindow;

class MapPanel : public QWidget {
    Q_OBJECT
public:
    explicit MapPanel(MainWindow& window);
    PoolMap* map() { return map_; }
    // Follows the selected tab: which list it serves, or hidden on the other tabs.
    void followTab(int tab);
    // Watches the lists and the sliders of the editing tabs, once they exist.
    void watchControls();
    bool wanted() const { return wanted_; }
    // Redraws; a pool that was loaded, generated or merged since is fitted anew.
    void poolChanged();
    void setWanted(bool on);

private:
    void pick(QListView* view, aq::CheckList& list, int index, bool ctrl);
    MainWindow& window_;
    PoolMap* map_;
    int tab_ = 1;
    bool wanted_ = true;
    std::string shownPool_;  // what identifies the pool last fitted
};

}  // namespace aqapp
