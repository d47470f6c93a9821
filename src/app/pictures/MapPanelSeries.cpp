// The map panel on the series tab: which series it shows, the bar's buttons for it and
// what a click on one of its pools does.
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QSettings>
#include <QStandardPaths>
#include <QStatusBar>
#include <QToolButton>
#include <filesystem>

#include "app/pictures/MapPanel.h"
#include "app/window/MainWindow.h"
#include "app/window/WindowParts.h"

namespace aqapp {

void MapPanel::buildSeries(QHBoxLayout* bar) {
    series_ = new SeriesView(
        QStandardPaths::writableLocation(QStandardPaths::CacheLocation).toStdString() + "/series-figures.txt", this);
    seriesFile_ = windowSettings()->value("seriesViewFile").toString().toStdString();
    series_->setSource([this] { return seriesSource(); });
    connect(series_, &SeriesView::poolClicked, this, &MapPanel::seriesPoolClicked);

    seriesTools_ = new QWidget(this);
    auto* tools = new QHBoxLayout(seriesTools_);
    tools->setContentsMargins(0, 0, 0, 0);
    auto add = [&](const char* name, const char* text, const char* tip) {
        auto* b = new QToolButton(seriesTools_);
        b->setObjectName(name);
        b->setText(text);
        b->setToolTip(tip);
        tools->addWidget(b);
        return b;
    };
    QToolButton* choose = add("cmdChooseSeries", "Series...",
                              "Choose the first pool of a series to see (the last series run shows by itself)");
    QToolButton* species = add("cmdSeriesBySpecies", "Species", "Colour each pool by its number of species");
    QToolButton* score = add("cmdSeriesByScore", "Score", "Colour each pool by its best drifter's score");
    auto* group = new QButtonGroup(seriesTools_);
    for (QToolButton* b : {species, score}) {
        b->setCheckable(true);
        group->addButton(b);
    }
    species->setChecked(true);
    connect(choose, &QToolButton::clicked, this, &MapPanel::chooseSeries);
    connect(species, &QToolButton::toggled, this,
            [this](bool on) { series_->setColoring(on ? SeriesColoring::Species : SeriesColoring::Score); });
    bar->addWidget(seriesTools_);
}

// The next start shows the same series.
void MapPanel::remember(const std::string& seriesFile) {
    seriesFile_ = seriesFile;
    windowSettings()->setValue("seriesViewFile", QString::fromStdString(seriesFile));
}

SeriesView::Source MapPanel::seriesSource() {
    const aq::App& app = window_.app();
    // A series started since takes the view over; a file chosen after it, back again.
    if (app.series.run.seriesFile != lastRun_) {
        lastRun_ = app.series.run.seriesFile;
        if (!lastRun_.empty()) remember(lastRun_);
    }
    SeriesView::Source s;
    s.file = seriesFile_;
    s.branching = app.series.options.chkBranchingSeries;
    if (app.series.run.seriesRunning && s.file == app.series.run.seriesFile) s.running = app.series.run.runningSuffix;
    s.rule = aq::SpeciesRule{app.poolThreshold, 100};
    return s;
}

void MapPanel::chooseSeries() {
    aq::App& app = window_.app();
    std::error_code ec;
    std::string folder =
        seriesFile_.empty() ? app.comboPoolPath : std::filesystem::absolute(seriesFile_, ec).parent_path().string();
    std::string chosen =
        app.ui.ChooseOpenFile(folder, "", "aqp", "Aquarium Files", "Select the First Pool of a Series");
    if (chosen.empty()) return;
    remember(std::filesystem::absolute(chosen, ec).string());
    series_->refresh();
}

void MapPanel::seriesPoolClicked(const QString& path) {
    if (window_.app().series.run.seriesRunning) {
        window_.statusBar()->showMessage("The series is running: its pools are its own until it stops.", 5000);
        return;
    }
    openFiles(window_, {path});
}

}  // namespace aqapp
