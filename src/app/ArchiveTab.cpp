// The "File archive operations, to backup or retreive Aquarium files." tab.
#include <QVBoxLayout>

#include "app/MainWindow.h"
#include "app/TabFrame.h"

namespace aqapp {

namespace {

class ArchiveTab : public TabFrame {
public:
    explicit ArchiveTab(MainWindow& w) : TabFrame(w, 1, "File archive operations, to backup or retreive Aquarium files.") { new QVBoxLayout(this); }
};

}  // namespace

TabFrame* makeArchiveTab(MainWindow& w) { return new ArchiveTab(w); }

}  // namespace aqapp
