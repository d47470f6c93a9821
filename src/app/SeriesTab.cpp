// The "Evolve a Series of Pools" tab.
#include <QVBoxLayout>

#include "app/MainWindow.h"
#include "app/TabFrame.h"

namespace aqapp {

namespace {

class SeriesTab : public TabFrame {
public:
    explicit SeriesTab(MainWindow& w) : TabFrame(w, 6, "Evolve a Series of Pools") { new QVBoxLayout(this); }
};

}  // namespace

TabFrame* makeSeriesTab(MainWindow& w) { return new SeriesTab(w); }

}  // namespace aqapp
