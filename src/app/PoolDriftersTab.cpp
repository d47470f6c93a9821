// "Edit Drifters in Pool File": the drifters of openPool, one line each.
#include <QListView>
#include <QVBoxLayout>

#include "app/CheckListModel.h"
#include "app/LoadOnFocus.h"
#include "app/MainWindow.h"
#include "app/TabFrame.h"
#include "pooleditor/DrifterList.h"

namespace aqapp {

namespace {

class PoolDriftersTab : public TabFrame {
public:
    explicit PoolDriftersTab(MainWindow& w)
        : TabFrame(w, 3, "Categorize and Process Drifters in a Pool File") {
        auto* layout = new QVBoxLayout(this);
        list_ = new QListView(this);
        list_->setObjectName("lstSpeciatePool");
        bindCheckList(list_, app_.lstSpeciatePool);
        layout->addWidget(list_, 1);
        new LoadOnFocus(list_, [this] {
            if (!app_.poolLoaded) aq::initiateLoadPoolFile(app_);
        });
        w.onMenu("mLoadPool", [this] { aq::initiateLoadPoolFile(app_); });
    }

private:
    QListView* list_;
};

}  // namespace

TabFrame* makePoolDriftersTab(MainWindow& w) { return new PoolDriftersTab(w); }

}  // namespace aqapp
