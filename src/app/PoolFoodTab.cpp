// "Edit Food in Pool File": the food of openPool.
#include <QListView>
#include <QVBoxLayout>

#include "app/CheckListModel.h"
#include "app/LoadOnFocus.h"
#include "app/MainWindow.h"
#include "app/TabFrame.h"
#include "pooleditor/DrifterList.h"

namespace aqapp {

namespace {

class PoolFoodTab : public TabFrame {
public:
    explicit PoolFoodTab(MainWindow& w) : TabFrame(w, 4, "Manipulate Food") {
        auto* layout = new QVBoxLayout(this);
        auto* list = new QListView(this);
        list->setObjectName("lstPoolFood");
        bindCheckList(list, app_.lstPoolFood);
        layout->addWidget(list, 1);
        new LoadOnFocus(list, [this] {
            if (!app_.poolLoaded) aq::initiateLoadPoolFile(app_);
        });
    }
};

}  // namespace

TabFrame* makePoolFoodTab(MainWindow& w) { return new PoolFoodTab(w); }

}  // namespace aqapp
