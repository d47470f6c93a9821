// The status bar: which pool is open and whether it changed, its counts, the ticks,
// and how far the species pass has come while it runs.
#include <QLabel>
#include <QStatusBar>
#include <QTimer>

#include "app/window/EditMenu.h"
#include "app/window/MainWindow.h"
#include "app/window/WindowParts.h"
#include "base/Paths.h"

namespace aqapp {

namespace {

class StatusLine : public QObject {
public:
    explicit StatusLine(MainWindow& w) : QObject(&w), w_(w) {
        QStatusBar* bar = w.statusBar();
        bar->setObjectName("statusBar");
        const char* names[5] = {"statusPool", "statusChanged", "statusCounts", "statusTicked", "statusSpecies"};
        for (int k = 0; k < 5; ++k) {
            labels_[k] = new QLabel(bar);
            labels_[k]->setObjectName(names[k]);
            bar->addWidget(labels_[k], k == 0 ? 1 : 0);
        }
        labels_[1]->setToolTip("The open pool has changes no file holds");
        // The timer's phases and every command end with the window refreshed; a short
        // timer of its own keeps the bar in step with clicks on the lists too.
        timer_.setInterval(250);
        connect(&timer_, &QTimer::timeout, this, &StatusLine::update);
        timer_.start();
        connect(&w.editMenu(), &EditMenu::stepped, this, &StatusLine::update);
        connect(bar, &QStatusBar::messageChanged, this, &StatusLine::update);
        update();
    }

    void update() {
        const aq::App& app = w_.app();
        QString file = app.openPoolPath.empty() ? QString("new pool")
                                                : QString::fromStdString(aq::fileNameOfPath(app.openPoolPath));
        set(0, file, QString::fromStdString(app.openPoolPath));
        set(1, app.poolChanged ? "changed" : "");
        set(2, QString("%1 drifters, %2 food bits")
                   .arg(std::max(app.openPool.drifterCount, 0))
                   .arg(std::max(app.openPool.foodCount, 0)));
        set(3, QString("ticked: %1 drifters, %2 food bits")
                   .arg(app.lstSpeciatePool.checkedCount())
                   .arg(app.lstPoolFood.checkedCount()));
        const aq::ProgressBarState& b = app.PoolProgressBar1;
        QString species;
        if (app.poolPassRunning && b.max > b.min)
            species = QString("species: %1%").arg(100 * (b.value - b.min) / (b.max - b.min));
        else if (app.poolSpeciesPending && app.poolLoaded)
            species = "species: waiting";
        set(4, species);
    }

private:
    void set(int k, const QString& text, const QString& tip = {}) {
        if (labels_[k]->text() != text) labels_[k]->setText(text);
        // A passing message has the bar to itself while it shows.
        labels_[k]->setVisible(!text.isEmpty() && w_.statusBar()->currentMessage().isEmpty());
        if (!tip.isEmpty()) labels_[k]->setToolTip(tip);
    }

    MainWindow& w_;
    QLabel* labels_[5] = {};
    QTimer timer_;
};

}  // namespace

void installStatusLine(MainWindow& w) { new StatusLine(w); }

}  // namespace aqapp
