// The "Generate Startup Pool" tab.
#include <QVBoxLayout>

#include "app/MainWindow.h"
#include "app/TabFrame.h"

namespace aqapp {

namespace {

class StartupTab : public TabFrame {
public:
    explicit StartupTab(MainWindow& w) : TabFrame(w, 2, "Generate Startup Pool") { new QVBoxLayout(this); }
};

}  // namespace

TabFrame* makeStartupTab(MainWindow& w) { return new StartupTab(w); }

}  // namespace aqapp
