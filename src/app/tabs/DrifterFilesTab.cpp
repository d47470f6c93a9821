// "Edit Drifter Files": a folder of DNA files as one population, with the species
// threshold and the gene panel.
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

#include "app/widgets/CheckListModel.h"
#include "app/widgets/ClickLabel.h"
#include "app/widgets/LiveProgressBar.h"
#include "app/widgets/LoadOnFocus.h"
#include "app/window/MainWindow.h"
#include "app/tabs/TabFrame.h"
#include "dnaeditor/DrifterFiles.h"
#include "dnaeditor/GenePanel.h"

namespace aqapp {

namespace {

// Tells when a control gains or loses the focus; a popup opening over it is neither.
class FocusHint : public QObject {
public:
    FocusHint(QWidget* target, std::function<void(bool)> fn) : QObject(target), fn_(std::move(fn)) {
        target->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* e) override {
        const bool popup = (e->type() == QEvent::FocusIn || e->type() == QEvent::FocusOut) &&
                           static_cast<QFocusEvent*>(e)->reason() == Qt::PopupFocusReason;
        if (e->type() == QEvent::FocusIn && !popup) fn_(true);
        if (e->type() == QEvent::FocusOut && !popup) fn_(false);
        return QObject::eventFilter(watched, e);
    }

private:
    std::function<void(bool)> fn_;
};

const char* const kGroupModes[7] = {
    "Click selects individual drifter.",         "Click selects entire local species.",
    "Click selects entire extended species.",    "Click selects drifters of same color.",
    "Click selects drifters of same age-group.", "Click selects drifters of similar length.",
    "Click selects drifters of similar mass."};

class DrifterFilesTab : public TabFrame {
public:
    explicit DrifterFilesTab(MainWindow& w) : TabFrame(w, 5, "Edit Drifter Files") {
        auto* layout = new QHBoxLayout(this);
        auto* left = new QVBoxLayout;
        layout->addLayout(left, 1);
        layout->addLayout(buildGenePanel());

        group_ = new QComboBox(this);
        group_->setObjectName("comboSpeciateDrifterGroup");
        for (const char* mode : kGroupModes) group_->addItem(mode);
        group_->setCurrentIndex(app_.dna.comboSpeciateDrifterGroup);
        group_->setToolTip(
            "Select or deselect the group of drifters indicated here by clicking the checkbox for a drifter in the "
            "desired group in the list below.");
        connect(group_, &QComboBox::currentIndexChanged, this, [this](int mode) {
            if (mode >= 0) aq::setDrifterGroupMode(app_, mode);
        });
        left->addWidget(group_);

        list_ = new QListView(this);
        list_->setObjectName("lstSpeciateDrifters");
        bindCheckList(list_, app_.lstSpeciateDrifters);
        left->addWidget(list_, 1);
        new LoadOnFocus(list_, [this] {
            if (!app_.dnaLoaded) aq::initiateLoadDrifterArchive(app_);
            aq::setGeneSliders(app_);
        });
        app_.lstSpeciateDrifters.onUserCheck = [this](int row, bool) {
            app_.lstSpeciateDrifters.setCurrentIndex(row);
            aq::ApplyDrifterGroup(app_);
        };

        bar_ = new QProgressBar(this);
        bar_->setObjectName("drifterProgressBar1");
        bar_->setTextVisible(false);
        bar_->setVisible(false);
        left->addWidget(bar_);
        paintProgressLive(bar_, app_.dna.drifterProgressBar1);
        left->addLayout(buildThresholdRow());

        w.onMenu("mLoadDrifter", [this] { aq::initiateLoadDrifterArchive(app_); });
        w.onMenu("mImportDrifters", [this] { aq::importDrifters(app_); });
        w.onMenu("mSaveDrifter", [this] { aq::saveChangedDrifterFiles(app_, false, false); });
        w.onMenu("mSaveSelectedDrifters", [this] { aq::saveChangedDrifterFiles(app_, false, true); });
        w.onMenu("mSelectDrifterInvert", [this] { aq::InvertDrifterSelection(app_); });
        w.onMenu("mSelectDrifterMove", [this] { aq::MoveDrifterFilesCommand(app_); });
        w.onMenu("mSelectDrifterDelete", [this] { aq::deleteSelectedDrifterSpecies(app_); });
        // Picks up what the timer's species slices changed.
        connect(
            &w.multiTaskTimer(), &QTimer::timeout, this, [this] { refresh(); }, Qt::QueuedConnection);
        refresh();
    }

    void refresh() override {
        const aq::DnaFolder& d = app_.dna;
        {
            QSignalBlocker b1(scroll_), b2(threshold_);
            scroll_->setRange(d.scrollDrifterSpeciesThreshold.min, d.scrollDrifterSpeciesThreshold.max);
            if (!scroll_->isSliderDown()) scroll_->setValue(d.scrollDrifterSpeciesThreshold.pos);
            QStringList items;
            for (const auto& item : d.thresholdItems) items << QString::fromStdString(item);
            if (items != itemsShown_) {
                threshold_->clear();
                threshold_->addItems(items);
                itemsShown_ = items;
            }
            QString text = QString::fromStdString(d.thresholdText);
            if (threshold_->currentText() != text) {
                threshold_->setEditText(text);
                threshold_->lineEdit()->setCursorPosition(d.thresholdCaret);
            }
        }
        showProgressBar(bar_, d.drifterProgressBar1);
        if (group_->currentIndex() != d.comboSpeciateDrifterGroup) {
            QSignalBlocker b(group_);
            group_->setCurrentIndex(d.comboSpeciateDrifterGroup);
        }

        const aq::GenePanelState& g = d.gene;
        QSignalBlocker b3(geneText_), b4(value_), b5(range_);
        QString geneText = QString::fromStdString(g.txtGene);
        if (geneText_->text() != geneText) geneText_->setText(geneText);
        showBar(value_, g.VsGeneValue);
        showBar(range_, g.VsGeneRange);
        const aq::ScrollBarState* states[2] = {&g.VsGeneValue, &g.VsGeneRange};
        for (int k = 0; k < 2; ++k) {
            barCaptions_[k]->setVisible(states[k]->visible);
            barNumbers_[k]->setVisible(states[k]->visible);
            showBarNumber(k);
        }
        geneRange_->setText(QString::fromStdString(g.lblGeneRange).replace("\r\n", "\n"));
        zeroGene_->setEnabled(g.cmdZeroGeneEnabled);
    }

private:
    QGridLayout* buildThresholdRow() {
        auto* row = new QGridLayout;
        auto* caption = new QLabel("Similarity Threshold", this);
        caption->setObjectName("lblDrifterThreshold");
        scroll_ = new QScrollBar(Qt::Horizontal, this);
        scroll_->setObjectName("scrollDrifterSpeciesThreshold");
        scroll_->setSingleStep(5);
        scroll_->setPageStep(50);
        // A drag runs the handler once, on release; arrows and page steps run it at each step.
        scroll_->setTracking(false);
        connect(scroll_, &QScrollBar::valueChanged, this, [this](int v) {
            aq::setDrifterThresholdPosition(app_, v);
            refresh();
        });
        threshold_ = new QComboBox(this);
        threshold_->setObjectName("comboDrifterSpeciesThreshold");
        threshold_->setEditable(true);
        threshold_->setInsertPolicy(QComboBox::NoInsert);
        threshold_->setMinimumWidth(90);
        auto typed = [this] {
            aq::typeDrifterSpeciesThreshold(app_, threshold_->currentText().toStdString(),
                                            threshold_->lineEdit()->cursorPosition());
        };
        connect(threshold_, &QComboBox::editTextChanged, this, typed);
        connect(threshold_, &QComboBox::textActivated, this, typed);
        // Leaving the box applies its text at once, also when the timer has read it already.
        new FocusHint(threshold_, [this](bool in) {
            if (in) return;
            aq::validateDrifterSpeciesThreshold(app_);
            aq::scrollDrifterSpeciesThresholdChange(app_);
            refresh();
        });
        auto* per = new ClickLabel("%", this, [this] {
            aq::findDrifterThresholdRange(app_);
            refresh();
        });
        per->setObjectName("lblDrifterPer");
        per->setToolTip("Click here to calculate Species Threshold range");
        row->addWidget(caption, 0, 0);
        row->addWidget(scroll_, 0, 1);
        row->addWidget(threshold_, 0, 2);
        row->addWidget(per, 0, 3);
        row->setColumnStretch(1, 1);
        return row;
    }

    QVBoxLayout* buildGenePanel() {
        auto* panel = new QVBoxLayout;
        auto* caption = new QLabel("Gene Number", this);
        caption->setObjectName("lblGene");
        caption->setToolTip(
            "The gene identification numbers represented here are for exploration purposes only.  Have fun "
            "exploring.  :)");
        panel->addWidget(caption);

        auto* row = new QHBoxLayout;
        geneText_ = new QLineEdit("0", this);
        geneText_->setObjectName("txtGene");
        geneText_->setMaximumWidth(70);
        connect(geneText_, &QLineEdit::textChanged, this, [this](const QString& t) {
            app_.dna.gene.txtGene = t.toStdString();
            aq::setGeneSliders(app_);
        });
        auto button = [&](const char* name, const char* text, const char* tip) {
            auto* b = new QPushButton(text, this);
            b->setObjectName(name);
            b->setToolTip(tip);
            b->setMaximumWidth(32);
            return b;
        };
        auto* dec = button("cmdDecGene", "<", "Decrement to next lower Gene Number");
        zeroGene_ = button("cmdZeroGene", "0", "Return to Gene Number 0");
        auto* inc = button("cmdIncGene", ">", "Increment to next higher Gene Number");
        auto step = [this](int delta) {
            if (auto t = aq::steppedGeneText(geneText_->text().toStdString(), delta))
                geneText_->setText(QString::fromStdString(*t));
        };
        connect(dec, &QPushButton::clicked, this, [step] { step(-1); });
        connect(inc, &QPushButton::clicked, this, [step] { step(1); });
        connect(zeroGene_, &QPushButton::clicked, this, [this] { geneText_->setText("0"); });
        row->addWidget(dec);
        row->addWidget(geneText_);
        row->addWidget(zeroGene_);
        row->addWidget(inc);
        panel->addLayout(row);

        auto* bars = new QGridLayout;
        value_ = geneBar("VsGeneValue");
        range_ = geneBar("VsGeneRange");
        // Captions over the two bars; they hide with their bar.
        const char* barNames[2][2] = {{"lblVsGeneValue", "Value"}, {"lblVsGeneRange", "Spread"}};
        QScrollBar* both[2] = {value_, range_};
        for (int k = 0; k < 2; ++k) {
            auto* l = new QLabel(barNames[k][1], this);
            l->setObjectName(barNames[k][0]);
            l->setBuddy(both[k]);
            bars->addWidget(l, 0, k, Qt::AlignHCenter);
            barCaptions_[k] = l;
            // The bar's position as a number under it, live while the thumb is dragged.
            barNumbers_[k] = new QLabel(this);
            barNumbers_[k]->setObjectName(QString(barNames[k][0]) + "Number");
            barNumbers_[k]->setAlignment(Qt::AlignHCenter);
            bars->addWidget(barNumbers_[k], 2, k, Qt::AlignHCenter);
            connect(both[k], &QScrollBar::sliderMoved, this, [this, k](int v) { showBarNumber(k, v); });
            connect(both[k], &QScrollBar::valueChanged, this, [this, k] { showBarNumber(k); });
        }
        connect(value_, &QScrollBar::valueChanged, this, [this](int v) {
            app_.dna.gene.VsGeneValue.pos = v;
            aq::ShiftGeneValues(app_);
        });
        connect(range_, &QScrollBar::valueChanged, this, [this](int v) {
            app_.dna.gene.VsGeneRange.pos = v;
            aq::ScaleGeneSpread(app_);
        });
        new FocusHint(value_, [this](bool in) { aq::geneScrollFocus(app_, false, in); });
        new FocusHint(range_, [this](bool in) { aq::geneScrollFocus(app_, true, in); });
        bars->addWidget(value_, 1, 0, Qt::AlignHCenter);
        bars->addWidget(range_, 1, 1, Qt::AlignHCenter);
        bars->setRowStretch(1, 1);
        panel->addLayout(bars, 1);

        geneRange_ = new QLabel(this);
        geneRange_->setObjectName("lblGeneRange");
        geneRange_->setWordWrap(true);
        geneRange_->setMaximumWidth(220);
        geneRange_->setMinimumHeight(geneRange_->fontMetrics().lineSpacing() * 5);
        geneRange_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        panel->addWidget(geneRange_);
        return panel;
    }

    QScrollBar* geneBar(const char* name) {
        auto* bar = new QScrollBar(Qt::Vertical, this);
        bar->setObjectName(name);
        // Up means a higher value.
        bar->setInvertedAppearance(true);
        bar->setInvertedControls(true);
        bar->setFocusPolicy(Qt::StrongFocus);
        bar->setMinimumHeight(160);
        // A drag changes the genes once, on release: every step of it would rescale or
        // shift them from the last step's values, and mark unchanged files as changed.
        bar->setTracking(false);
        return bar;
    }

    void showBarNumber(int k, int value = -1) {
        QScrollBar* bar = k == 0 ? value_ : range_;
        barNumbers_[k]->setNum(value < 0 ? bar->value() : value);
    }

    static void showBar(QScrollBar* bar, const aq::ScrollBarState& s) {
        bar->setVisible(s.visible);
        if (bar->isSliderDown()) return;  // the user's drag is not undone under the pointer
        bar->setRange(s.min, std::max(s.min, s.max));
        bar->setValue(s.pos);
    }

    QComboBox* group_ = nullptr;
    QListView* list_ = nullptr;
    QProgressBar* bar_ = nullptr;
    QScrollBar* scroll_ = nullptr;
    QComboBox* threshold_ = nullptr;
    QStringList itemsShown_;
    QLineEdit* geneText_ = nullptr;
    QPushButton* zeroGene_ = nullptr;
    QScrollBar *value_ = nullptr, *range_ = nullptr;
    QLabel* geneRange_ = nullptr;
    QLabel* barCaptions_[2] = {};
    QLabel* barNumbers_[2] = {};
};

}  // namespace

TabFrame* makeDrifterFilesTab(MainWindow& w) { return new DrifterFilesTab(w); }

}  // namespace aqapp
