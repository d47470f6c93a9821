// "Edit Food in Pool File": the food of openPool, how far a tick spreads, and the
// four sliders of the food selection box.
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>

#include "app/widgets/BoxSliders.h"
#include "app/widgets/CheckListModel.h"
#include "app/widgets/LoadOnFocus.h"
#include "app/window/MainWindow.h"
#include "app/tabs/TabFrame.h"
#include "foodeditor/FoodEdits.h"
#include "foodeditor/FoodThreshold.h"
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
        app_.lstPoolFood.onUserCheck = [this](int row, bool) {
            aq::foodTickedByUser(app_, row);
            refresh();
        };

        auto* row = new QGridLayout;
        group_ = new QComboBox(this);
        group_->setObjectName("comboFoodGroup");
        group_->addItems({"Select Individual Food Bits", "Select by  Family", "Select by Proximity"});
        group_->setCurrentIndex(app_.comboFoodGroup);
        connect(group_, &QComboBox::currentIndexChanged, this, [this](int i) {
            app_.comboFoodGroup = i;
            refresh();
        });
        caption_ = new QLabel("Threshold", this);
        caption_->setObjectName("lblFoodThreshold");
        scroll_ = new QScrollBar(Qt::Horizontal, this);
        scroll_->setObjectName("scrollFoodThreshold");
        scroll_->setRange(0, 1000);
        scroll_->setSingleStep(5);
        scroll_->setPageStep(50);
        // A drag runs the handler once, on release; arrows and page steps run it at each step.
        scroll_->setTracking(false);
        connect(scroll_, &QScrollBar::valueChanged, this, [this](int v) {
            aq::setFoodThresholdPosition(app_, v);
            refresh();
        });
        text_ = new QLineEdit(this);
        text_->setObjectName("txtFoodThreshold");
        text_->setMaximumWidth(70);
        connect(text_, &QLineEdit::textEdited, this,
                [this](const QString& t) { aq::typeFoodThreshold(app_, t.toStdString()); });
        row->addWidget(group_, 0, 0);
        row->addWidget(caption_, 0, 1);
        row->addWidget(scroll_, 0, 2);
        row->addWidget(text_, 0, 3);
        row->setColumnStretch(2, 1);
        layout->addLayout(row);

        sliders_ = std::make_unique<BoxSliders>(this, "SliderFood", "lblFood", [this](int k, int v) {
            aq::Axis axis = k % 2 == 0 ? aq::Axis::X : aq::Axis::Y;
            if (k < 2)
                aq::MoveFoodBox(app_, axis, v);
            else
                aq::StretchFoodBox(app_, axis, v);
            refresh();
        });
        layout->addLayout(sliders_->layout());

        w.onMenu("mSelectFoodInvert", [this] {
            aq::InvertFoodSelection(app_);
            refresh();
        });
        w.onMenu("mSelectFoodDelete", [this] {
            aq::mSelectFoodDelete(app_);
            refresh();
        });
        connect(
            &w.multiTaskTimer(), &QTimer::timeout, this, [this] { refresh(); }, Qt::QueuedConnection);
        refresh();
    }

    void refresh() override {
        QSignalBlocker b1(scroll_), b2(text_), b3(group_);
        group_->setCurrentIndex(app_.comboFoodGroup);
        if (!scroll_->isSliderDown()) scroll_->setValue(app_.scrollFoodThreshold);
        QString t = QString::fromStdString(app_.txtFoodThreshold);
        if (text_->text() != t) text_->setText(t);
        // The threshold belongs to the proximity mode alone.
        bool shown = aq::foodThresholdShown(app_);
        caption_->setVisible(shown);
        scroll_->setVisible(shown);
        text_->setVisible(shown);
        sliders_->show({app_.SliderFoodX, app_.SliderFoodY, app_.SliderFoodWidth, app_.SliderFoodHeight, app_.lblFoodX,
                        app_.lblFoodY, app_.lblFoodWidth, app_.lblFoodHeight});
    }

private:
    QComboBox* group_;
    QLabel* caption_;
    QScrollBar* scroll_;
    QLineEdit* text_;
    std::unique_ptr<BoxSliders> sliders_;
};

}  // namespace

TabFrame* makePoolFoodTab(MainWindow& w) { return new PoolFoodTab(w); }

}  // namespace aqapp
