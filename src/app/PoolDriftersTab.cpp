// "Edit Drifters in Pool File": the drifters of openPool, their species threshold and
// the four sliders of the selection box.
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QProgressBar>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>
#include <QTimer>
#include <QVBoxLayout>

#include "app/CheckListModel.h"
#include "app/LoadOnFocus.h"
#include "app/MainWindow.h"
#include "app/TabFrame.h"
#include "pooleditor/BulkEdits.h"
#include "pooleditor/DrifterList.h"
#include "pooleditor/SpeciesPass.h"

namespace aqapp {

namespace {

// A caption that answers a click.
class ClickLabel : public QLabel {
public:
    ClickLabel(const QString& text, QWidget* parent, std::function<void()> onClick)
        : QLabel(text, parent), onClick_(std::move(onClick)) {}

protected:
    void mouseReleaseEvent(QMouseEvent* e) override {
        if (e->button() == Qt::LeftButton && rect().contains(e->position().toPoint())) onClick_();
    }

private:
    std::function<void()> onClick_;
};

class PoolDriftersTab : public TabFrame {
public:
    explicit PoolDriftersTab(MainWindow& w) : TabFrame(w, 3, "Categorize and Process Drifters in a Pool File") {
        auto* layout = new QVBoxLayout(this);
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

        layout->addLayout(buildThresholdRow());
        layout->addLayout(buildSliders());

        w.onMenu("mLoadPool", [this] { aq::initiateLoadPoolFile(app_); });
        w.onMenu("mSelectKill", [this] { run(aq::mSelectKill); });
        w.onMenu("mSelectRevive", [this] { run(aq::mSelectRevive); });
        w.onMenu("mSelectPoolFeed", [this] { run(aq::mSelectPoolFeed); });
        w.onMenu("mSelectPoolMove", [this] { run(aq::mSelectPoolMove); });
        w.onMenu("mSelectPoolDelete", [this] { run(aq::mSelectPoolDelete); });

        // Every change of the ticks shows the box of the new selection.
        app_.lstSpeciatePool.onUserCheck = [this](int, bool) {
            if (app_.uiBusy) return;
            aq::setSpeciatePoolSliders(app_);
            refresh();
        };
        // Picks up what the timer's background phases changed, once they have run.
        connect(&w.multiTaskTimer(), &QTimer::timeout, this, [this] { refresh(); }, Qt::QueuedConnection);
        refresh();
    }

    void refresh() override {
        QSignalBlocker b1(scroll_), b2(text_);
        scroll_->setValue(app_.scrollPoolSpeciesThreshold);
        QString t = QString::fromStdString(app_.txtPoolSpeciesThreshold);
        if (text_->text() != t) text_->setText(t);
        const aq::ProgressBarState& bar = app_.PoolProgressBar1;
        bar_->setRange(bar.min, std::max(bar.min, bar.max));
        bar_->setValue(bar.value);
        bar_->setVisible(bar.visible);
        showSlider(sliderX_, app_.SliderSpeciatePoolDrifterX, lblX_, app_.lblSpeciatePoolDrifterX);
        showSlider(sliderY_, app_.SliderSpeciatePoolDrifterY, lblY_, app_.lblSpeciatePoolDrifterY);
        showSlider(sliderW_, app_.SliderSpeciatePoolDrifterWidth, lblW_, app_.lblSpeciatePoolDrifterWidth);
        showSlider(sliderH_, app_.SliderSpeciatePoolDrifterHeight, lblH_, app_.lblSpeciatePoolDrifterHeight);
    }

private:
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
        auto* grid = new QGridLayout;
        auto make = [&](const char* name, const char* label, const char* caption, int row, QLabel*& lbl) {
            lbl = new QLabel(caption, this);
            lbl->setObjectName(label);
            auto* s = new QSlider(Qt::Horizontal, this);
            s->setObjectName(name);
            s->setTickPosition(QSlider::TicksBelow);
            grid->addWidget(lbl, row, 0);
            grid->addWidget(s, row, 1);
            return s;
        };
        sliderX_ = make("SliderSpeciatePoolDrifterX", "lblSpeciatePoolDrifterX", "X", 0, lblX_);
        sliderY_ = make("SliderSpeciatePoolDrifterY", "lblSpeciatePoolDrifterY", "Y", 1, lblY_);
        sliderW_ = make("SliderSpeciatePoolDrifterWidth", "lblSpeciatePoolDrifterWidth", "Width", 2, lblW_);
        sliderH_ = make("SliderSpeciatePoolDrifterHeight", "lblSpeciatePoolDrifterHeight", "Height", 3, lblH_);
        connect(sliderX_, &QSlider::valueChanged, this, [this](int v) { slid(aq::MoveDrifterBox, aq::Axis::X, v); });
        connect(sliderY_, &QSlider::valueChanged, this, [this](int v) { slid(aq::MoveDrifterBox, aq::Axis::Y, v); });
        connect(sliderW_, &QSlider::valueChanged, this,
                [this](int v) { slid(aq::StretchDrifterBox, aq::Axis::X, v); });
        connect(sliderH_, &QSlider::valueChanged, this,
                [this](int v) { slid(aq::StretchDrifterBox, aq::Axis::Y, v); });
        return grid;
    }

    void slid(void (*handler)(aq::App&, aq::Axis, int), aq::Axis axis, int position) {
        handler(app_, axis, position);
        refresh();
    }

    // The core keeps the slider's state; the widget only shows it.
    static void showSlider(QSlider* s, const aq::SliderState& state, QLabel* label, bool labelShown) {
        QSignalBlocker block(s);
        s->setRange(state.min, state.max);
        s->setValue(state.value);
        s->setTickInterval(std::max(state.tickFrequency, 1));
        s->setSingleStep(std::max((state.max - state.min) / 100, 1));
        s->setPageStep(std::max(state.tickFrequency, 1));
        s->setVisible(state.visible);
        label->setVisible(labelShown);
    }

    void run(void (*command)(aq::App&)) {
        command(app_);
        refresh();
    }

    QListView* list_;
    QProgressBar* bar_;
    QScrollBar* scroll_ = nullptr;
    QLineEdit* text_ = nullptr;
    QSlider *sliderX_ = nullptr, *sliderY_ = nullptr, *sliderW_ = nullptr, *sliderH_ = nullptr;
    QLabel *lblX_ = nullptr, *lblY_ = nullptr, *lblW_ = nullptr, *lblH_ = nullptr;
};

}  // namespace

TabFrame* makePoolDriftersTab(MainWindow& w) { return new PoolDriftersTab(w); }

}  // namespace aqapp
