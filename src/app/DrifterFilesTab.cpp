// The "Edit Drifter Files" tab.
#include <QVBoxLayout>

#include "app/MainWindow.h"
#include "app/TabFrame.h"

namespace aqapp {

namespace {

class DrifterFilesTab : public TabFrame {
public:
    explicit DrifterFilesTab(MainWindow& w) : TabFrame(w, 5, "Edit Drifter Files") { new QVBoxLayout(this); }
};

}  // namespace

TabFrame* makeDrifterFilesTab(MainWindow& w) { return new DrifterFilesTab(w); }

}  // namespace aqapp
