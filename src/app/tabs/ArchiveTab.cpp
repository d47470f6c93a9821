// The "File archive operations, to backup or retreive Aquarium files." tab.
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "app/widgets/CheckListModel.h"
#include "app/window/MainWindow.h"
#include "app/window/WindowParts.h"
#include "app/tabs/TabFrame.h"
#include "archive/ArchiveChecks.h"
#include "archive/ArchiveHelp.h"
#include "archive/ArchiveTransfers.h"
#include "state/App.h"

namespace aqapp {

namespace {

class ArchiveTab : public TabFrame {
public:
    explicit ArchiveTab(MainWindow& w)
        : TabFrame(w, 1, "File archive operations, to backup or retreive Aquarium files.") {
        auto* grid = new QGridLayout(this);
        auto* all = button("cmdLstArchiveAll", "", "Click here to set or clear all selections");
        all->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
        auto* drifters = button("cmdLstArchiveAllDrifter", "", "Click here to select or unselect all drifter files");
        auto* pools = button("cmdLstArchiveAllPool", "", "Click here to select or unselect all pool files");
        // Short captions say what each button ticks; the tooltips tell the rest.
        const char* captions[3] = {"All", "DNA", "AQP"};
        QPushButton* three[3] = {all, drifters, pools};
        for (int k = 0; k < 3; ++k) {
            three[k]->setText(captions[k]);
            three[k]->setFixedWidth(three[k]->fontMetrics().horizontalAdvance(captions[k]) + 16);
        }
        list_ = new QListView(this);
        list_->setObjectName("lstArchive");
        bindCheckList(list_, app_.archive.lstArchive);
        grid->addWidget(all, 0, 0, 2, 1);
        grid->addWidget(drifters, 0, 1, Qt::AlignTop);
        grid->addWidget(pools, 1, 1, Qt::AlignBottom);
        grid->addWidget(list_, 0, 2, 2, 1);

        auto* right = new QVBoxLayout;
        copy_ = button("cmdCopyToArchive", "Move Selected Files to Archive", "");
        chkDeleteOriginal_ = check("chkDeleteOriginal", "Delete Original After Making Copy",
                                   "This causes the Copy function to essentially act as a Move function.");
        chkDeleteOriginal_->setTristate(true);
        chkAutoName_ =
            check("chkAutoName", "Auto-name Archive Copies.", "Saves you from having to specify a name for each file.");
        chkNowName_ = check("chkNowName", "Using Date and Time",
                            "If checkmarked, filenames will be automatically generated based on the current date and "
                            "time. Otherwise, a simple numbering scheme will be used.");
        auto* replace = button("cmdReplaceFromArchive", "Replace Selected Files from Archive",
                               "Click here to copy archived drifter files over the selected drifter files.");
        chkAutoBackup_ = check("chkAutoBackup", "Automatically backup selected files before over-writing.",
                               "If checkmarked, selected files will be copied to backup files with names based on the "
                               "current date and time.");
        right->addWidget(copy_);
        right->addWidget(chkDeleteOriginal_);
        right->addWidget(chkAutoName_);
        auto* indented = new QHBoxLayout;
        indented->addSpacing(20);
        indented->addWidget(chkNowName_);
        right->addLayout(indented);
        right->addSpacing(16);
        right->addWidget(replace);
        right->addWidget(chkAutoBackup_);
        right->addStretch();
        grid->addLayout(right, 0, 3, 2, 1);

        help_ = new QLabel(this);
        help_->setObjectName("lblArchiveInstruct");
        help_->setWordWrap(true);
        help_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        help_->setMinimumHeight(80);
        grid->addWidget(help_, 2, 0, 1, 4);
        grid->setColumnStretch(2, 1);
        grid->setColumnStretch(3, 1);

        connect(all, &QPushButton::clicked, this, [this] { run(aq::cmdLstArchiveAll); });
        connect(drifters, &QPushButton::clicked, this, [this] { run(aq::cmdLstArchiveAllDrifter); });
        connect(pools, &QPushButton::clicked, this, [this] { run(aq::cmdLstArchiveAllPool); });
        connect(copy_, &QPushButton::clicked, this, [this] { run(aq::cmdCopyToArchive); });
        connect(replace, &QPushButton::clicked, this, [this] { run(aq::cmdReplaceFromArchive); });
        int* values[4] = {&app_.archive.chkDeleteOriginal, &app_.archive.chkAutoName, &app_.archive.chkNowName,
                          &app_.archive.chkAutoBackup};
        QCheckBox* boxes[4] = {chkDeleteOriginal_, chkAutoName_, chkNowName_, chkAutoBackup_};
        for (int i = 0; i < 4; ++i) {
            int* value = values[i];
            connect(boxes[i], &QCheckBox::stateChanged, this, [this, value](int state) {
                if (syncing_) return;
                *value = state == Qt::Unchecked ? 0 : state == Qt::Checked ? 1 : 2;
                refresh();
            });
        }
        // A click walks off, on, and never back to the third state, as the box always did.
        connect(chkDeleteOriginal_, &QCheckBox::clicked, this, [this] {
            if (chkDeleteOriginal_->checkState() == Qt::PartiallyChecked)
                chkDeleteOriginal_->setCheckState(Qt::Checked);
        });
        if (auto* tabs = w.findChild<QTabWidget*>("TabStrip1")) {
            tabs->tabBar()->setMouseTracking(true);
            tabs->tabBar()->installEventFilter(this);
            tabBar_ = tabs->tabBar();
        }
        refresh();
    }

    void refresh() override {
        syncing_ = true;
        const aq::ArchiveOptions& o = app_.archive;
        auto state = [](int v) { return v == 0 ? Qt::Unchecked : v == 1 ? Qt::Checked : Qt::PartiallyChecked; };
        chkDeleteOriginal_->setCheckState(state(o.chkDeleteOriginal));
        chkAutoName_->setCheckState(state(o.chkAutoName));
        chkNowName_->setCheckState(state(o.chkNowName));
        chkAutoBackup_->setCheckState(state(o.chkAutoBackup));
        copy_->setText(withMnemonic(copy_->objectName(), QString::fromStdString(aq::copyToArchiveCaption(o))));
        help_->setText(QString::fromStdString(o.lblArchiveInstruct).replace("\r\n", "\n"));
        syncing_ = false;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MouseMove) {
            std::string name = watched == tabBar_ ? "TabStrip1" : watched->objectName().toStdString();
            aq::archiveHelpMove(app_, name);
            help_->setText(QString::fromStdString(app_.archive.lblArchiveInstruct).replace("\r\n", "\n"));
        }
        return TabFrame::eventFilter(watched, event);
    }

private:
    QPushButton* button(const char* name, const QString& caption, const QString& tip) {
        auto* b = new QPushButton(caption, this);
        b->setObjectName(name);
        if (!tip.isEmpty()) b->setToolTip(tip);
        followPointer(b);
        return b;
    }
    QCheckBox* check(const char* name, const QString& caption, const QString& tip) {
        auto* c = new QCheckBox(caption, this);
        c->setObjectName(name);
        c->setToolTip(tip);
        followPointer(c);
        return c;
    }
    void followPointer(QWidget* w) {
        w->setMouseTracking(true);
        w->installEventFilter(this);
    }
    void run(void (*command)(aq::App&)) {
        if (app_.uiBusy) return;
        command(app_);
        window_.refreshAll();
    }

    QListView* list_;
    QPushButton* copy_;
    QCheckBox *chkDeleteOriginal_, *chkAutoName_, *chkNowName_, *chkAutoBackup_;
    QLabel* help_;
    QObject* tabBar_ = nullptr;
    bool syncing_ = false;
};

}  // namespace

TabFrame* makeArchiveTab(MainWindow& w) { return new ArchiveTab(w); }

}  // namespace aqapp
