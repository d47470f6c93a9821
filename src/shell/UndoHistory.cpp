#include "shell/UndoHistory.h"

#include <algorithm>
#include <cstring>

#include "format/PoolFile.h"

namespace aq {

namespace {

template <class T>
bool sameBytes(const std::vector<T>& a, const std::vector<T>& b) {
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

std::vector<CheckRow> rowsOf(const CheckList& list) {
    std::vector<CheckRow> rows;
    rows.reserve(static_cast<std::size_t>(list.count()));
    for (int i = 0; i < list.count(); ++i) rows.push_back(list.row(i));
    return rows;
}

void restoreRows(CheckList& list, const std::vector<CheckRow>& rows, int current, bool enabled) {
    list.assign(rows);
    list.setVisible(true);
    list.setCurrentIndex(current < list.count() ? current : -1);
    list.setEnabled(enabled);
}

PoolLists captureLists(const App& app) {
    PoolLists l;
    l.drifterRows = rowsOf(app.lstSpeciatePool);
    l.foodRows = rowsOf(app.lstPoolFood);
    PoolView& s = l.view;
    s.poolLoaded = app.poolLoaded;
    s.drifterCurrent = app.lstSpeciatePool.currentIndex();
    s.foodCurrent = app.lstPoolFood.currentIndex();
    s.drifterListEnabled = app.lstSpeciatePool.enabled();
    s.foodListEnabled = app.lstPoolFood.enabled();
    s.speciesPending = app.poolSpeciesPending;
    s.path = app.openPoolPath;
    s.tagsThreshold = app.poolTagsThreshold;
    s.tagsDepth = app.poolTagsDepth;
    const SliderState* d[4] = {&app.SliderSpeciatePoolDrifterX, &app.SliderSpeciatePoolDrifterY,
                               &app.SliderSpeciatePoolDrifterWidth, &app.SliderSpeciatePoolDrifterHeight};
    const SliderState* f[4] = {&app.SliderFoodX, &app.SliderFoodY, &app.SliderFoodWidth, &app.SliderFoodHeight};
    const bool dl[4] = {app.lblSpeciatePoolDrifterX, app.lblSpeciatePoolDrifterY, app.lblSpeciatePoolDrifterWidth,
                        app.lblSpeciatePoolDrifterHeight};
    const bool fl[4] = {app.lblFoodX, app.lblFoodY, app.lblFoodWidth, app.lblFoodHeight};
    for (int k = 0; k < 4; ++k) {
        s.drifterBox[k] = *d[k];
        s.foodBox[k] = *f[k];
        s.drifterLabels[k] = dl[k];
        s.foodLabels[k] = fl[k];
    }
    return l;
}

PoolSnapshot capturePool(const App& app) { return {app.openPool, captureLists(app)}; }

// Species numbers worked out at another threshold or depth than the one now set are
// worked out again.
void restartStaleSpecies(App& app) {
    const bool stale = std::memcmp(&app.poolTagsThreshold, &app.poolThreshold, sizeof(float)) != 0 ||
                       app.poolTagsDepth != app.similarityDepth;
    if (!stale || app.poolSpeciesPending || !app.poolLoaded || app.openPool.drifterCount < 1) return;
    app.poolSpeciesPending = true;
    if (app.comboSpeciatePoolGroup0 == 2) app.lstSpeciatePool.setEnabled(false);
}

void restorePool(App& app, const PoolSnapshot& snap) {
    const PoolView& s = snap.lists.view;
    app.openPool = snap.pool;
    app.poolLoaded = s.poolLoaded;
    app.openPoolPath = s.path;
    restoreRows(app.lstSpeciatePool, snap.lists.drifterRows, s.drifterCurrent, s.drifterListEnabled);
    restoreRows(app.lstPoolFood, snap.lists.foodRows, s.foodCurrent, s.foodListEnabled);
    SliderState* d[4] = {&app.SliderSpeciatePoolDrifterX, &app.SliderSpeciatePoolDrifterY,
                         &app.SliderSpeciatePoolDrifterWidth, &app.SliderSpeciatePoolDrifterHeight};
    SliderState* f[4] = {&app.SliderFoodX, &app.SliderFoodY, &app.SliderFoodWidth, &app.SliderFoodHeight};
    bool* dl[4] = {&app.lblSpeciatePoolDrifterX, &app.lblSpeciatePoolDrifterY, &app.lblSpeciatePoolDrifterWidth,
                   &app.lblSpeciatePoolDrifterHeight};
    bool* fl[4] = {&app.lblFoodX, &app.lblFoodY, &app.lblFoodWidth, &app.lblFoodHeight};
    for (int k = 0; k < 4; ++k) {
        *d[k] = s.drifterBox[k];
        *f[k] = s.foodBox[k];
        *dl[k] = s.drifterLabels[k];
        *fl[k] = s.foodLabels[k];
    }
    // A species pass under way worked on the pool being replaced: it starts over if
    // the restored lists were still waiting for their numbers, or if their numbers were
    // worked out at another threshold or depth than the one now set.
    app.poolPassRunning = false;
    app.PoolProgressBar1.visible = false;
    app.poolTagsThreshold = s.tagsThreshold;
    app.poolTagsDepth = s.tagsDepth;
    app.poolSpeciesPending = s.speciesPending;
    restartStaleSpecies(app);
}

// poolChanged is true exactly while a pool is on show that its file does not hold (or
// that has no file yet), as far as the files this run read or wrote tell.
void markPoolChanged(App& app) {
    app.poolChanged =
        app.poolLoaded && (app.openPoolPath.empty() || !app.poolFiles.holds(app.openPoolPath, app.openPool));
}

}  // namespace

bool PoolHistory::sameState(const App& app) const {
    return app.poolLoaded == current_.lists.view.poolLoaded && samePool(app.openPool, current_.pool);
}

void PoolHistory::reset(App& app) {
    clearSteps();
    current_ = capturePool(app);
    started_ = true;
    reads_ = app.poolReads;
    markPoolChanged(app);
}

void PoolHistory::prepare(App& app) {
    if (started_ && app.poolReads == reads_ && sameState(app)) {
        // Ticks and the like make no step; the steps next to this state follow it.
        PoolLists now = captureLists(app);
        const PoolLists& was = current_.lists;
        if (now.drifterRows != was.drifterRows || now.foodRows != was.foodRows)
            followState([&](PoolDiff& d) { d.follow(was, now); });
        current_.lists = std::move(now);
        return;
    }
    // Changed where no step watched: read from a file, or edited by a running command.
    commit(app, "Edit");
}

void PoolHistory::commit(App& app, const std::string& name) {
    // Another file read into the editor starts a new history.
    if (!started_ || app.poolReads != reads_) {
        reset(app);
        return;
    }
    if (sameState(app)) {
        // A save or "save as" changes no records, only the file the pool belongs to.
        current_.lists.view.path = app.openPoolPath;
    } else {
        PoolDiff d;
        d.take(current_, app.openPool, captureLists(app));
        pushStep(name, std::move(d));
    }
    markPoolChanged(app);
    restartStaleSpecies(app);
}

bool PoolHistory::move(App& app, bool undo) {
    prepare(app);
    if (undo ? !canUndo() : !canRedo()) return false;
    turnStep(undo, [&](PoolDiff& d) { d.swapWith(current_); });
    restorePool(app, current_);
    markPoolChanged(app);
    app.stateChanged();
    return true;
}

bool PoolHistory::undo(App& app) { return move(app, true); }
bool PoolHistory::redo(App& app) { return move(app, false); }

namespace {

DnaView dnaViewOf(const App& app) {
    return {app.lstSpeciateDrifters.currentIndex(), app.lstSpeciateDrifters.enabled(), app.speciesPending,
            app.dna.gene};
}

DnaSnapshot captureDna(const App& app) {
    return {app.dna.dnaPaths, app.dna.dnaFolder, app.dna.dnaGenes, rowsOf(app.lstSpeciateDrifters), dnaViewOf(app)};
}

bool sameFiles(const App& app, const DnaSnapshot& s) {
    return app.dna.dnaFolder == s.folder && app.dna.dnaPaths == s.paths;
}

}  // namespace

void DnaHistory::noteSaves(const App& app) {
    const auto& genes = app.dna.dnaGenes;
    const auto& changed = app.dna.dnaChanged;
    disk_.resize(genes.size());
    diskKnown_.resize(genes.size(), 0);
    for (std::size_t i = 0; i < genes.size() && i < changed.size(); ++i)
        if (!changed[i]) {
            disk_[i] = genes[i];
            diskKnown_[i] = 1;
        }
}

void DnaHistory::reset(App& app) {
    clearSteps();
    current_ = captureDna(app);
    disk_.clear();
    diskKnown_.clear();
    noteSaves(app);
}

void DnaHistory::prepare(App& app) {
    if (!sameFiles(app, current_)) {
        reset(app);
        return;
    }
    noteSaves(app);
    if (!sameBytes(app.dna.dnaGenes, current_.genes)) {
        commit(app, "Edit");
        return;
    }
    std::vector<CheckRow> rows = rowsOf(app.lstSpeciateDrifters);
    if (rows != current_.rows) followState([&](DnaDiff& d) { d.follow(current_.rows, rows); });
    current_.rows = std::move(rows);
    current_.view = dnaViewOf(app);
}

void DnaHistory::commit(App& app, const std::string& name) {
    if (!sameFiles(app, current_)) {
        reset(app);
        return;
    }
    noteSaves(app);
    if (sameBytes(app.dna.dnaGenes, current_.genes)) return;
    DnaDiff d;
    d.take(current_, app.dna.dnaGenes, rowsOf(app.lstSpeciateDrifters), dnaViewOf(app));
    pushStep(name, std::move(d));
}

bool DnaHistory::move(App& app, bool undo) {
    prepare(app);
    if (undo ? !canUndo() : !canRedo()) return false;
    turnStep(undo, [&](DnaDiff& d) { d.swapWith(current_); });
    DnaFolder& d = app.dna;
    d.dnaGenes = current_.genes;
    for (std::size_t i = 0; i < d.dnaGenes.size() && i < d.dnaChanged.size(); ++i)
        if (i < diskKnown_.size() && diskKnown_[i]) d.dnaChanged[i] = d.dnaGenes[i] != disk_[i] ? 1 : 0;
    const DnaView& v = current_.view;
    restoreRows(app.lstSpeciateDrifters, current_.rows, v.current, v.enabled);
    d.gene = v.gene;
    d.pass.passRunning = false;
    d.drifterProgressBar1.visible = false;
    app.speciesPending = v.speciesPending;
    app.stateChanged();
    return true;
}

bool DnaHistory::undo(App& app) { return move(app, true); }
bool DnaHistory::redo(App& app) { return move(app, false); }

}  // namespace aq
