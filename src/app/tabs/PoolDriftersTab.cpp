// "Edit Drifters in Pool File": the drifters of openPool, their species threshold and
// the four sliders of the selection box.
#include <QAction>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QProgressBar>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>

#include "app/widgets/BoxSliders.h"
#include "app/widgets/CheckListModel.h"
#include "app/widgets/ClickLabel.h"
#include "app/widgets/LiveProgressBar.h"
#include "app/widgets/LoadOnFocus.h"
#include "app/window/MainWindow.h"
#include "app/tabs/TabFrame.h"
#include "files/PoolMerge.h"
#include "files/PoolSave.h"
#include "pooleditor/BulkEdits.h"
#include "pooleditor/DrifterList.h"
#include "pooleditor/GroupSelection.h"
#include "pooleditor/Minorities.h"
#include "pooleditor/SelectionCommands.h"
#include "pooleditor/SpeciesPass.h"

namespace aqapp {

namespace {

class PoolDriftersTab : public TabFrame {
public:
    explicit PoolDriftersTab(MainWindow& w) : TabFrame(w, 3, "Categorize and Process Drifters in a Pool File") {
        auto* layout = new QVBoxLayout(this);
        layout->addLayout(buildSentence());
        list_ = new QListView(this);
        list_->setObjectName("lstSpeciatePool");
        bindCheckList(list_, app_.lstSpeciatePool);
        layout->addWidget(list_, 1);
        new LoadOnFocus(list_, [this] {
            if (!app_.poolLoaded) aq::initiateLoadPoolFile(app_);
        });

        bar_ = new QProgressBar(this);
        bar_->setObjectName("PoolProgressBar1");
        bar_->setTextVisible(false);
        bar_->hide();
        layout->addWidget(bar_);
        paintProgressLive(bar_, app_.PoolProgressBar1);

        layout->addLayout(buildThresholdRow());
        layout->addLayout(buildSliders());

        w.onMenu("mLoadPool", [this] { aq::initiateLoadPoolFile(app_); });
        w.onMenu("mMergePool", [this] { run(aq::mMergePool); });
        w.onMenu("mMergeFood", [this] { run(aq::mMergeFood); });
        w.onMenu("mSavePool", [this] { run(aq::mSavePool); });
        w.onMenu("mSavePoolAs", [this] { run(aq::mSavePoolAs); });
        w.onMenu("mSelectKill", [this] { run(aq::mSelectKill); });
        w.onMenu("mSelectRevive", [this] { run(aq::mSelectRevive); });
        w.onMenu("mSelectPoolFeed", [this] { run(aq::mSelectPoolFeed); });
        w.onMenu("mSelectPoolMove", [this] { run(aq::mSelectPoolMove); });
        w.onMenu("mSelectPoolDelete", [this] { run(aq::mSelectPoolDelete); });

        // A user's tick spreads to its group; the sliders then show the new selection.
        app_.lstSpeciatePool.onUserCheck = [this](int row, bool) {
            aq::poolTickedByUser(app_, row);
            refresh();
        };
        w.onMenu("mSelectAll", [this] { run(aq::SelectAllDrifters); });
        w.onMenu("mSelectPoolInvert", [this] { run(aq::InvertPoolDrifterSelection); });
        w.onMenu("mSelectOldest", [this] { run(aq::mSelectOldest); });
        w.onMenu("mSelectMostProlithic", [this] { run(aq::mSelectMostProlithic); });
        w.onMenu("mSelectMaternal", [this] { run(aq::mSelectMaternal); });
        w.onMenu("mSelectPaternal", [this] { run(aq::mSelectPaternal); });
        w.onMenu("mSelectBiggestEater", [this] { run(aq::mSelectBiggestEater); });
        w.onMenu("mSelectHeaviest", [this] { run(aq::mSelectHeaviest); });
        w.onMenu("mSelectMutantsBySegmentCount", [this] { run(aq::mSelectMutantsBySegmentCount); });
        w.onMenu("mSelectMutantsByBranching", [this] { run(aq::mSelectMutantsByBranching); });
        w.onMenu("mSelectMutantsByColorOrder", [this] { run(aq::mSelectMutantsByColorOrder); });
        w.onMenu("mSelectMutantsByColors", [this] { run(aq::mSelectMutantsByColors); });
        w.onMenu("mDeSelectMutants", [this] { run(aq::mDeSelectMutants); });
        w.onMenu("mQuickSpec", [this, &w] {
            aq::ToggleQuickSpeciate(app_);
            w.menuItem("mQuickSpec")->setChecked(app_.quickSpeciate);
            refresh();
        });
        // Picks up what the timer's background phases changed, once they have run.
        connect(
            &w.multiTaskTimer(), &QTimer::timeout, this, [this] { refresh(); }, Qt::QueuedConnection);
        refresh();
    }

    void refresh() override {
        for (int k = 0; k < 7; ++k) {
            QSignalBlocker block(sentence_[k]);
            sentence_[k]->setCurrentIndex(aq::poolSentenceIndex(app_, k));
            sentence_[k]->setEnabled(app_.poolSentenceEnabled[k]);
        }
        QSignalBlocker b1(scroll_), b2(text_);
        if (!scroll_->isSliderDown()) scroll_->setValue(app_.scrollPoolSpeciesThreshold);
        QString t = QString::fromStdString(app_.txtPoolSpeciesThreshold);
        if (text_->text() != t) text_->setText(t);
        showProgressBar(bar_, app_.PoolProgressBar1);
        sliders_->show(controls());
    }

private:
    // The sentence above the list: Group0 Bool0 Group1 Bool1 Group2 Bool2 Group3.
    QHBoxLayout* buildSentence() {
        auto* row = new QHBoxLayout;
        const char* names[7] = {"comboSpeciatePoolGroup0", "comboSpeciatePoolBool0",  "comboSpeciatePoolGroup1",
                                "comboSpeciatePoolBool1",  "comboSpeciatePoolGroup2", "comboSpeciatePoolBool2",
                                "comboSpeciatePoolGroup3"};
        for (int k = 0; k < 7; ++k) {
            auto* box = new QComboBox(this);
            box->setObjectName(names[k]);
            // Long item texts must not widen the tab: the boxes share the row.
            box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
            box->setMinimumContentsLength(k % 2 == 1 ? 3 : 8);
            const auto& items = k == 0       ? aq::poolGroup0Items()
                                : k % 2 == 1 ? aq::poolBoolItems()
                                             : aq::poolGroupSlotItems();
            for (const auto& item : items) box->addItem(QString::fromStdString(item));
            box->setCurrentIndex(aq::poolSentenceIndex(app_, k));
            connect(box, &QComboBox::currentIndexChanged, this, [this, k](int index) {
                aq::setPoolSentenceIndex(app_, k, index);
                aq::UpdatePoolGroupControls(app_, k == 0);
                refresh();
            });
            row->addWidget(box, k % 2 == 0 ? 3 : 1);
            sentence_[k] = box;
        }
        sentence_[0]->setToolTip(
            "Select or deselect the group of drifters indicated here by clicking the checkbox for a drifter in the "
            "desired group in the list below.");
        aq::UpdatePoolGroupControls(app_, false);
        return row;
    }

    QGridLayout* buildThresholdRow() {
        auto* row = new QGridLayout;
        auto* caption = new QLabel("Threshold", this);
        caption->setObjectName("lblPoolThreshold");
        scroll_ = new QScrollBar(Qt::Horizontal, this);
        scroll_->setObjectName("scrollPoolSpeciesThreshold");
        scroll_->setRange(0, 1000);
        scroll_->setSingleStep(5);
        scroll_->setPageStep(50);
        scroll_->setValue(app_.scrollPoolSpeciesThreshold);
        // A drag runs the handler once, on release; arrows and page steps run it at each step.
        scroll_->setTracking(false);
        connect(scroll_, &QScrollBar::valueChanged, this, [this](int v) {
            aq::setPoolSpeciesThresholdPosition(app_, v);
            refresh();
        });
        text_ = new QLineEdit(this);
        text_->setObjectName("txtPoolSpeciesThreshold");
        text_->setMaximumWidth(70);
        connect(text_, &QLineEdit::textEdited, this,
                [this](const QString& t) { aq::typePoolSpeciesThreshold(app_, t.toStdString()); });
        auto* per = new ClickLabel("%", this, [this] {
            aq::findPoolThresholdRange(app_);
            refresh();
        });
        per->setObjectName("lblPoolPer");
        per->setToolTip("Click here to calculate Species Threshold range");
        row->addWidget(caption, 0, 0);
        row->addWidget(scroll_, 0, 1);
        row->addWidget(text_, 0, 2);
        row->addWidget(per, 0, 3);
        row->setColumnStretch(1, 1);
        return row;
    }

    QGridLayout* buildSliders() {
        sliders_ = std::make_unique<BoxSliders>(this, "SliderSpeciatePoolDrifter", "lblSpeciatePoolDrifter",
                                                [this](int k, int v) {
                                                    aq::Axis axis = k % 2 == 0 ? aq::Axis::X : aq::Axis::Y;
                                                    if (k < 2)
                                                        aq::MoveDrifterBox(app_, axis, v);
                                                    else
                                                        aq::StretchDrifterBox(app_, axis, v);
                                                    refresh();
                                                });
        return sliders_->layout();
    }

    aq::BoxControls controls() {
        return {app_.SliderSpeciatePoolDrifterX,     app_.SliderSpeciatePoolDrifterY,
                app_.SliderSpeciatePoolDrifterWidth, app_.SliderSpeciatePoolDrifterHeight,
                app_.lblSpeciatePoolDrifterX,        app_.lblSpeciatePoolDrifterY,
                app_.lblSpeciatePoolDrifterWidth,    app_.lblSpeciatePoolDrifterHeight};
    }

    void run(void (*command)(aq::App&)) {
        command(app_);
        refresh();
    }

    QListView* list_;
    QProgressBar* bar_;
    QScrollBar* scroll_ = nullptr;
    QLineEdit* text_ = nullptr;
    std::unique_ptr<BoxSliders> sliders_;
    QComboBox* sentence_[7] = {};
};

}  // namespace

TabFrame* makePoolDriftersTab(MainWindow& w) { return new PoolDriftersTab(w); }

}  // namespace aqapp
