// The "Evolve a Series of Pools" tab: the run buttons, the run length and the
// series options. The series itself runs in the core; this tab copies the user's
// changes into app.series as they happen and shows what the series changes.
#include <QAction>
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QShowEvent>
#include <QSlider>
#include <QVBoxLayout>

#include "app/window/MainWindow.h"
#include "app/tabs/TabFrame.h"
#include "series/EvolveSeries.h"
#include "series/Feeding.h"
#include "series/Grouping.h"
#include "series/Harvest.h"

namespace aqapp {

namespace {

const char* const kHelpStart = "Click the Create Series Now button to evolve a series of pool files.";
const char* const kHelpNow =
    "Click the Create Series Now button to select a pool file and to create a series of pool files using that pool "
    "as a starting point.\nAquarium will be opened with the selected file, and periodically will be closed to save "
    "the state of the open pool and re-opened with a pool from the series to continue evolution from that point.";
const char* const kHelpStop = "Click the Stop button to terminate the pool series production.";
const char* const kHelpBranching =
    "If Branching Series is chosen, each pool will generate 1 or 2 offspring pools.  For example, pool_24 and "
    "pool_230 would be produced when pool_23 reaches it's time limit, and pool_990 would be produced when pool_99 "
    "reaches it's time limit.  If Branching Series is deselected, then each pool will produce a single numerically "
    "incremented pool upon it's completion.";
const char* const kCaution =
    "Caution: This is an advanced feature! Once started, the series will be evolved in Aquarium, which will be "
    "launched and closed as needed automatically.  Keep in mind that anything done in the instance of Aquarium that "
    "is processing the series will effect the series development.  For example, opening a new startup pool will "
    "cause that pool to be placed in the series at the current location.  It is therefore recommended that you "
    "leave the drifters in Aquarium evolve with little or no interference.";

// The Pool Series Options menu items and the option each one sets.
struct MenuOption {
    const char* name;
    bool aq::SeriesOptions::*field;
};
const MenuOption kMenuOptions[] = {
    {"mNoStill", &aq::SeriesOptions::mNoStill},
    {"mNoOld", &aq::SeriesOptions::mNoOld},
    {"mSeriesFeedAll", &aq::SeriesOptions::mSeriesFeedAll},
    {"mSeriesFeedHungry", &aq::SeriesOptions::mSeriesFeedHungry},
    {"mSeriesFeedFed", &aq::SeriesOptions::mSeriesFeedFed},
    {"mSeriesGatherFood", &aq::SeriesOptions::mSeriesGatherFood},
    {"mSeriesCloneSuccessful", &aq::SeriesOptions::mSeriesCloneSuccessful},
    {"mRestoreYouth", &aq::SeriesOptions::mRestoreYouth},
    {"mCloneWhenExtinct", &aq::SeriesOptions::mCloneWhenExtinct},
    {"mNoFoodEaten", &aq::SeriesOptions::mNoFoodEaten},
    {"mNoOffspring", &aq::SeriesOptions::mNoOffspring},
    {"mSeriesAddFood", &aq::SeriesOptions::mSeriesAddFood},
    {"mSeriesGravity", &aq::SeriesOptions::mSeriesGravity},
    {"mSeriesNoMutantsBySegmentCount", &aq::SeriesOptions::mSeriesNoMutantsBySegmentCount},
    {"mSeriesNoMutantsByBranching", &aq::SeriesOptions::mSeriesNoMutantsByBranching},
    {"mSeriesNoMutantsByColorOrder", &aq::SeriesOptions::mSeriesNoMutantsByColorOrder},
    {"mSeriesNoMutantsByColors", &aq::SeriesOptions::mSeriesNoMutantsByColors},
    {"mSeriesDeleteStarters", &aq::SeriesOptions::mSeriesDeleteStarters},
    {"mDrainEdge", &aq::SeriesOptions::mDrainEdge},
    {"mSeriesExtinction", &aq::SeriesOptions::mSeriesExtinction},
};

// "500 s (8:20)": seconds as the series counts them, minutes for reading.
QString runLengthText(int seconds) {
    return QString("%1 s (%2:%3)").arg(seconds).arg(seconds / 60).arg(seconds % 60, 2, 10, QChar('0'));
}

class SeriesTab : public TabFrame {
public:
    explicit SeriesTab(MainWindow& w) : TabFrame(w, 6, "Evolve a Series of Pools") {
        auto* layout = new QVBoxLayout(this);
        auto* caution = new QLabel(kCaution, this);
        caution->setObjectName("Label1");
        caution->setWordWrap(true);
        layout->addWidget(caution);

        auto* buttons = new QHBoxLayout;
        now_ = button("cmdCreateSeriesNow", "Create Series Now", buttons);
        stop_ = button("cmdCreateSeriesStop", "Stop", buttons);
        restart_ = button("cmdCreateSeriesRestart", "Restart Current Pool", buttons);
        next_ = button("cmdCreateSeriesNext", "Save and Continue", buttons);
        buttons->addStretch(1);
        layout->addLayout(buttons);

        auto* timing = new QHBoxLayout;
        auto* caption = new QLabel("Run length:", this);
        caption->setObjectName("lblTimeDelayCaption");
        timing->addWidget(caption);
        slider_ = new QSlider(Qt::Horizontal, this);
        slider_->setObjectName("sliderTimeDelay");
        slider_->setRange(aq::SeriesControls::kSliderMin, aq::SeriesControls::kSliderMax);
        slider_->setValue(500);
        slider_->setSingleStep(1);
        slider_->setPageStep(5);
        slider_->setTickInterval(60);
        slider_->setTickPosition(QSlider::TicksBelow);
        slider_->setToolTip("Number of seconds to run each pool in the series.");
        caption->setBuddy(slider_);
        timing->addWidget(slider_, 3);
        seconds_ = new QLabel(this);
        seconds_->setObjectName("lblTimeDelayValue");
        // Wide enough for the longest run, so the slider does not jump as the text grows.
        seconds_->setMinimumWidth(seconds_->fontMetrics().horizontalAdvance(runLengthText(1200)));
        timing->addWidget(seconds_);
        progress_ = new QProgressBar(this);
        progress_->setObjectName("sliderTimeDelaySelection");
        progress_->setFormat("%v s");
        progress_->setMaximumWidth(160);
        timing->addWidget(progress_, 1);
        layout->addLayout(timing);

        auto* checks = new QHBoxLayout;
        plague_ = check("chkPlague", "Allow Plagues", false, checks);
        getSuc_ = check("chkGetSuc", "Upon Extinction - Get Successful Drifters", false, checks);
        branching_ = check("chkBranchingSeries", "Branching Series", true, checks);
        checks->addStretch(1);
        layout->addLayout(checks);

        auto* exists = new QGroupBox("If the series already exists", this);
        exists->setObjectName("Frame1");
        auto* existsLayout = new QVBoxLayout(exists);
        prompt_ = option("optionCreateSeriesPrompt",
                         "Start series from the beginning and prompt before over-writing files.", existsLayout);
        continue_ =
            option("optionContinueSeries", "Continue evolving the series and don't over-write files", existsLayout);
        overwrite_ = option("optionCreateSeriesOverwrite",
                            "Start series from the beginning and over-write files without asking.", existsLayout);
        continue_->setChecked(true);
        layout->addWidget(exists);

        help_ = new QLabel(kHelpStart, this);
        help_->setObjectName("lblCreateSeriesHelp");
        help_->setWordWrap(true);
        layout->addWidget(help_);
        layout->addStretch(1);

        helpTexts_ = {{now_, kHelpNow}, {stop_, kHelpStop}, {branching_, kHelpBranching}};
        for (auto& [widget, text] : helpTexts_) widget->installEventFilter(this);

        connect(now_, &QPushButton::clicked, this, [this] { aq::cmdCreateSeriesNowClick(app_); });
        connect(stop_, &QPushButton::clicked, this, [this] { aq::cmdCreateSeriesStopClick(app_); });
        connect(restart_, &QPushButton::clicked, this, [this] { aq::cmdCreateSeriesRestartClick(app_); });
        connect(next_, &QPushButton::clicked, this, [this] { aq::cmdCreateSeriesNextClick(app_); });
        connect(slider_, &QSlider::sliderMoved, this, [this](int v) { seconds_->setText(runLengthText(v)); });
        connect(slider_, &QSlider::valueChanged, this, [this](int v) {
            app_.series.controls.sliderTimeDelay = v;
            showControls();
        });
        for (const MenuOption& m : kMenuOptions) {
            QAction* action = w.menuItem(m.name);
            if (!action) continue;
            app_.series.options.*m.field = action->isChecked();
            connect(action, &QAction::toggled, this,
                    [this, field = m.field](bool on) { app_.series.options.*field = on; });
        }
        // These two ask what to do; their check and caption follow the answer.
        promptItem(w, "mSeriesGroup", aq::mSeriesGroupClick, &aq::SeriesOptions::mSeriesGroup,
                   &aq::SeriesOptions::mSeriesGroupCaption);
        promptItem(w, "mFeedColor", aq::mFeedColorClick, &aq::SeriesOptions::mFeedColor,
                   &aq::SeriesOptions::mFeedColorCaption);
        w.onMenu("mGetSuc", [this, &w] {
            aq::GetSuccessfulCommand(app_);
            w.refreshAll();
        });
        readOptions();
        for (QAbstractButton* b : {static_cast<QAbstractButton*>(plague_), static_cast<QAbstractButton*>(getSuc_),
                                   static_cast<QAbstractButton*>(branching_), static_cast<QAbstractButton*>(prompt_),
                                   static_cast<QAbstractButton*>(continue_), static_cast<QAbstractButton*>(overwrite_)})
            connect(b, &QAbstractButton::toggled, this, [this] { readOptions(); });
        app_.series.onChange = [this] { showControls(); };
        w.installEventFilter(this);
        showControls();
    }

    void refresh() override { showControls(); }

protected:
    void showEvent(QShowEvent* e) override {
        TabFrame::showEvent(e);
        app_.series.controls.frameVisible = true;
    }
    void hideEvent(QHideEvent* e) override {
        TabFrame::hideEvent(e);
        // Minimising the window is not leaving the tab.
        if (!e->spontaneous() && !closing_) app_.series.controls.frameVisible = false;
    }
    bool eventFilter(QObject* watched, QEvent* e) override {
        // Closing the window ends a running series the way Stop does; the frame
        // counts as on show so the series sees the stop and closes the simulator.
        if (watched == &window_ && e->type() == QEvent::Close && !app_.series.controls.nowEnabled) {
            closing_ = true;
            aq::cmdCreateSeriesStopClick(app_);
            app_.series.controls.frameVisible = true;
        }
        if (e->type() == QEvent::Enter)
            for (auto& [widget, text] : helpTexts_)
                if (widget == watched) help_->setText(text);
        return TabFrame::eventFilter(watched, e);
    }

private:
    QPushButton* button(const char* name, const char* caption, QHBoxLayout* row) {
        auto* b = new QPushButton(caption, this);
        b->setObjectName(name);
        row->addWidget(b);
        return b;
    }
    QCheckBox* check(const char* name, const char* caption, bool on, QHBoxLayout* row) {
        auto* c = new QCheckBox(caption, this);
        c->setObjectName(name);
        c->setChecked(on);
        row->addWidget(c);
        return c;
    }
    QRadioButton* option(const char* name, const char* caption, QVBoxLayout* box) {
        auto* r = new QRadioButton(caption, this);
        r->setObjectName(name);
        box->addWidget(r);
        return r;
    }

    void promptItem(MainWindow& w, const char* name, void (*ask)(aq::App&), bool aq::SeriesOptions::*checked,
                    std::string aq::SeriesOptions::*caption) {
        QAction* action = w.menuItem(name);
        if (!action) return;
        auto show = [this, action, checked, caption] {
            action->setChecked(app_.series.options.*checked);
            action->setText(QString::fromStdString(app_.series.options.*caption));
        };
        show();
        connect(action, &QAction::triggered, this, [this, ask, show] {
            ask(app_);
            show();
        });
    }

    void readOptions() {
        aq::SeriesOptions& o = app_.series.options;
        o.chkPlague = plague_->isChecked();
        o.chkGetSuc = getSuc_->isChecked();
        o.chkBranchingSeries = branching_->isChecked();
        o.ifExists = prompt_->isChecked()      ? aq::SeriesOptions::IfExists::Prompt
                     : overwrite_->isChecked() ? aq::SeriesOptions::IfExists::Overwrite
                                               : aq::SeriesOptions::IfExists::Continue;
    }

    // Brings the buttons, the focus and the run's progress in step with the series.
    void showControls() {
        const aq::SeriesControls& c = app_.series.controls;
        now_->setEnabled(c.nowEnabled);
        stop_->setEnabled(c.stopEnabled);
        restart_->setEnabled(c.restartEnabled);
        next_->setEnabled(c.nextEnabled);
        if (c.focus != lastFocus_) {
            lastFocus_ = c.focus;
            if (auto* target = findChild<QWidget*>(QString::fromStdString(c.focus))) target->setFocus();
        }
        if (slider_->value() != c.sliderTimeDelay) slider_->setValue(c.sliderTimeDelay);
        seconds_->setText(runLengthText(c.sliderTimeDelay));
        // Once the series has ended, the Stop button's hint no longer applies.
        if (!c.stopEnabled && help_->text() == kHelpStop) help_->setText(kHelpStart);
        progress_->setVisible(c.selectRange);
        // The run's own seconds, not the slider's selection, which starts at its minimum.
        progress_->setRange(0, std::max(1, c.sliderTimeDelay));
        progress_->setValue(std::clamp(c.runSeconds, 0, progress_->maximum()));
    }

    QPushButton *now_, *stop_, *restart_, *next_;
    QSlider* slider_;
    QLabel* seconds_;
    QProgressBar* progress_;
    QCheckBox *plague_, *getSuc_, *branching_;
    QRadioButton *prompt_, *continue_, *overwrite_;
    QLabel* help_;
    std::vector<std::pair<QWidget*, const char*>> helpTexts_;
    std::string lastFocus_;
    bool closing_ = false;
};

}  // namespace

TabFrame* makeSeriesTab(MainWindow& w) { return new SeriesTab(w); }

}  // namespace aqapp
