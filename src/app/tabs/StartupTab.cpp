// The "Generate Startup Pool" tab: the seed, the generator's settings, and the
// help line that follows the pointer.
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QVBoxLayout>
#include <vector>

#include "app/window/MainWindow.h"
#include "app/tabs/TabFrame.h"
#include "generator/Generator.h"
#include "generator/StartupSettings.h"

namespace aqapp {

namespace {

QString helpFor(const QObject* control) {
    // The label shows plain line breaks; the program's texts carry CR LF.
    return QString::fromStdString(aq::startupHelpText(control->objectName().toStdString())).replace("\r\n", "\n");
}

// Puts a control's help into the help line whenever the pointer enters or moves over it.
class HelpOnHover : public QObject {
public:
    HelpOnHover(QLabel* line, QObject* parent) : QObject(parent), line_(line) {}

    void watch(QWidget* control) {
        control->setMouseTracking(true);
        control->installEventFilter(this);
        watched_.insert(control);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MouseMove) {
            // A move a watched child ignored reaches its frame too: the child's help stays.
            auto* w = static_cast<QWidget*>(watched);
            QWidget* c = w->childAt(static_cast<QMouseEvent*>(event)->position().toPoint());
            for (; c && c != w; c = c->parentWidget())
                if (watched_.contains(c)) return QObject::eventFilter(watched, event);
        }
        if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove) {
            QString text = helpFor(watched);
            if (!text.isEmpty() && line_->text() != text) line_->setText(text);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QLabel* line_;
    QSet<QObject*> watched_;
};

class StartupTab : public TabFrame {
public:
    explicit StartupTab(MainWindow& w) : TabFrame(w, 2, "Generate Startup Pool") {
        auto* layout = new QVBoxLayout(this);
        help_ = new QLabel(QString::fromUtf8(aq::kStartupHelpStart), this);
        help_->setObjectName("lblStartupPoolHelp");
        help_->setWordWrap(true);
        help_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        help_->setMinimumHeight(help_->fontMetrics().lineSpacing() * 7);
        hover_ = new HelpOnHover(help_, this);

        layout->addLayout(buildSeedRow());
        auto* groups = new QGridLayout;
        groupPoolType_ = addGroup(groups, 0, 0, "frStartupPoolType", "Select Pool Type", "optPoolType",
                                  {"Test Startup Pool", "Ordered Startup Pool", "Chaotic Startup Pool"}, 1);
        groupFood_ = addGroup(groups, 0, 1, "frStartupFoodPlace", "Food Placement", "optFoodPlace",
                              {"Gathered", "Centrally Scattered", "Spiral", "Evenly Distributed", "Peripheral"}, 2);
        groupDrifter_ = addGroup(groups, 1, 0, "frStartupDrifterPlace", "Drifter Placement", "optDrifterPlace",
                                 {"Random", "Central Ring", "Peripheral"}, 1);
        groupWall_ = addGroup(groups, 1, 1, "frStartupWallPlace", "Great Walls Configuration", "optWallPlace",
                              {"Double Vertical", "Default", "Double Horizontal"}, 1);
        layout->addLayout(groups);

        auto* checks = new QHBoxLayout;
        split_ = addCheck(checks, "chkStartupSplitPool", "Split Pool", "Divides the contents of the new Startup Pool",
                          false);
        extraFood_ = addCheck(checks, "chkStartupExtraFood", "Extra Food",
                              "This option doubles the number of food bits in a new Startup Pool", true);
        extraDrifters_ = addCheck(checks, "chkStartupExtraDrifters", "Extra Drifters",
                                  "This option doubles the number of drifters in a new Startup Pool", false);
        checks->addStretch(1);
        layout->addLayout(checks);

        auto* commands = new QHBoxLayout;
        auto* randomize = addButton(commands, "cmdStartupRnd", "Randomize Settings");
        auto* generate = addButton(commands, "cmdNewStartupPool", "Generate Pool Now");
        commands->addStretch(1);
        layout->addLayout(commands);
        layout->addWidget(help_);
        layout->addStretch(1);

        connect(randomize, &QPushButton::clicked, this, [this] { randomizeSettings(); });
        connect(generate, &QPushButton::clicked, this,
                [this] { aq::generateStartupPool(app_, readStartupSettings()); });
    }

    aq::StartupSettings readStartupSettings() const {
        aq::StartupSettings s;
        s.seed = aq::seedFromText(seed_->text().toStdString());
        s.poolType = selected(groupPoolType_);
        s.foodPlacement = selected(groupFood_);
        s.drifterPlacement = selected(groupDrifter_);
        s.wallPlacement = selected(groupWall_);
        s.splitPool = split_->isChecked();
        s.extraFood = extraFood_->isChecked();
        s.extraDrifters = extraDrifters_->isChecked();
        return s;
    }

private:
    QHBoxLayout* buildSeedRow() {
        auto* row = new QHBoxLayout;
        auto* label = new QLabel("Seed Number", this);
        label->setObjectName("Label2");
        seed_ = new QLineEdit("1", this);
        seed_->setObjectName("txtSeedNumber");
        seed_->setToolTip("The Seed Number selects a specific startup pool.");
        seed_->setMaximumWidth(160);
        hover_->watch(seed_);
        row->addWidget(label);
        row->addWidget(seed_);

        const int n = app_.defaultPool.drifterCount;
        addStepButton(row, "cmdRewSeed", "<<", "", -n);
        addStepButton(row, "cmdDecSeed", "<", "Click here to decrement seed number", -1);
        auto* zero = addButton(row, "cmdZeroSeed", "0");
        connect(zero, &QPushButton::clicked, this,
                [this] { seed_->setText(QString::fromStdString(zeroToggle_.click(seed_->text().toStdString()))); });
        addStepButton(row, "cmdIncSeed", ">", "Click here to increment seed number", 1);
        addStepButton(row, "cmdFfSeed", ">>", "", n);
        row->addStretch(1);
        return row;
    }

    QPushButton* addButton(QHBoxLayout* row, const char* name, const char* caption) {
        auto* b = new QPushButton(caption, this);
        b->setObjectName(name);
        hover_->watch(b);
        row->addWidget(b);
        return b;
    }

    void addStepButton(QHBoxLayout* row, const char* name, const char* caption, const char* tip, int step) {
        auto* b = addButton(row, name, caption);
        if (*tip) b->setToolTip(tip);
        b->setAutoRepeat(false);
        connect(b, &QPushButton::clicked, this, [this, step] {
            if (auto text = aq::steppedSeedText(seed_->text().toStdString(), step))
                seed_->setText(QString::fromStdString(*text));
        });
    }

    QCheckBox* addCheck(QHBoxLayout* row, const char* name, const char* caption, const char* tip, bool on) {
        auto* c = new QCheckBox(caption, this);
        c->setObjectName(name);
        c->setToolTip(tip);
        c->setChecked(on);
        hover_->watch(c);
        row->addWidget(c);
        return c;
    }

    std::vector<QRadioButton*> addGroup(QGridLayout* grid, int r, int c, const char* frameName, const char* caption,
                                        const char* optionName, std::initializer_list<const char*> options,
                                        int selectedIndex) {
        auto* frame = new QGroupBox(caption, this);
        frame->setObjectName(frameName);
        hover_->watch(frame);
        auto* box = new QVBoxLayout(frame);
        std::vector<QRadioButton*> buttons;
        int k = 0;
        for (const char* text : options) {
            auto* b = new QRadioButton(text, frame);
            b->setObjectName(QString("%1(%2)").arg(optionName).arg(k));
            b->setChecked(k == selectedIndex);
            hover_->watch(b);
            box->addWidget(b);
            buttons.push_back(b);
            ++k;
        }
        box->addStretch(1);
        grid->addWidget(frame, r, c);
        return buttons;
    }

    static std::int16_t selected(const std::vector<QRadioButton*>& group) {
        for (std::size_t k = 0; k < group.size(); ++k)
            if (group[k]->isChecked()) return static_cast<std::int16_t>(k);
        return 0;
    }

    static void select(const std::vector<QRadioButton*>& group, int k) {
        if (k >= 0 && static_cast<std::size_t>(k) < group.size()) group[static_cast<std::size_t>(k)]->setChecked(true);
    }

    void randomizeSettings() {
        aq::StartupSettings s =
            aq::randomizeStartupSettings(app_.clock.secondsSinceMidnight(), app_.defaultPool.drifterCount);
        select(groupPoolType_, s.poolType);
        select(groupFood_, s.foodPlacement);
        select(groupWall_, s.wallPlacement);
        select(groupDrifter_, s.drifterPlacement);
        seed_->setText(QString::number(s.seed));
        extraFood_->setChecked(s.extraFood);
        extraDrifters_->setChecked(s.extraDrifters);
        split_->setChecked(s.splitPool);
    }

    QLabel* help_ = nullptr;
    HelpOnHover* hover_ = nullptr;
    QLineEdit* seed_ = nullptr;
    std::vector<QRadioButton*> groupPoolType_, groupFood_, groupDrifter_, groupWall_;
    QCheckBox *split_ = nullptr, *extraFood_ = nullptr, *extraDrifters_ = nullptr;
    aq::ZeroSeedToggle zeroToggle_;
};

}  // namespace

TabFrame* makeStartupTab(MainWindow& w) { return new StartupTab(w); }

}  // namespace aqapp
