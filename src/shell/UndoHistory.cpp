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

std::size_t rowBytes(const std::vector<CheckRow>& rows) {
    std::size_t n = rows.size() * sizeof(CheckRow);
    for (const CheckRow& r : rows) n += r.text.capacity();
    return n;
}

void captureLists(const App& app, PoolSnapshot& s) {
    s.drifterRows = rowsOf(app.lstSpeciatePool);
    s.foodRows = rowsOf(app.lstPoolFood);
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
}

PoolSnapshot capturePool(const App& app) {
    PoolSnapshot s;
    s.pool = app.openPool;
    s.poolLoaded = app.poolLoaded;
    captureLists(app, s);
    return s;
}

// Species numbers worked out at another threshold or depth than the one now set are
// worked out again.
void restartStaleSpecies(App& app) {
    const bool stale = std::memcmp(&app.poolTagsThreshold, &app.poolThreshold, sizeof(float)) != 0 ||
                       app.poolTagsDepth != app.similarityDepth;
    if (!stale || app.poolSpeciesPending || !app.poolLoaded || app.openPool.drifterCount < 1) return;
    app.poolSpeciesPending = true;
    if (app.comboSpeciatePoolGroup0 == 2) app.lstSpeciatePool.setEnabled(false);
}

std::size_t bytesOf(const PoolSnapshot& s) {
    return sizeof(PoolSnapshot) + s.path.capacity() + s.pool.drifters.size() * sizeof(DrifterRec) +
           s.pool.food.size() * sizeof(FoodBit) + s.pool.historyBlock.size() + rowBytes(s.drifterRows) +
           rowBytes(s.foodRows);
}

void restorePool(App& app, const PoolSnapshot& s) {
    app.openPool = s.pool;
    app.poolLoaded = s.poolLoaded;
    app.openPoolPath = s.path;
    restoreRows(app.lstSpeciatePool, s.drifterRows, s.drifterCurrent, s.drifterListEnabled);
    restoreRows(app.lstPoolFood, s.foodRows, s.foodCurrent, s.foodListEnabled);
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
    return app.poolLoaded == current_.poolLoaded && samePool(app.openPool, current_.pool);
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
        captureLists(app, current_);
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
        current_.path = app.openPoolPath;
    } else {
        std::size_t size = bytesOf(current_);
        pushStep(name, std::move(current_), size);
        current_ = capturePool(app);
    }
    markPoolChanged(app);
    restartStaleSpecies(app);
}

bool PoolHistory::move(App& app, bool undo) {
    prepare(app);
    if (undo ? !canUndo() : !canRedo()) return false;
    std::size_t size = bytesOf(current_);
    Step s = swapStep(undo, std::move(current_), size);
    restorePool(app, s.snap);
    current_ = std::move(s.snap);
    markPoolChanged(app);
    app.stateChanged();
    return true;
}

bool PoolHistory::undo(App& app) { return move(app, true); }
bool PoolHistory::redo(App& app) { return move(app, false); }

namespace {

DnaSnapshot captureDna(const App& app) {
    DnaSnapshot s;
    s.paths = app.dna.dnaPaths;
    s.folder = app.dna.dnaFolder;
    s.genes = app.dna.dnaGenes;
    s.rows = rowsOf(app.lstSpeciateDrifters);
    s.current = app.lstSpeciateDrifters.currentIndex();
    s.enabled = app.lstSpeciateDrifters.enabled();
    s.speciesPending = app.speciesPending;
    s.gene = app.dna.gene;
    return s;
}

std::size_t bytesOf(const DnaSnapshot& s) {
    std::size_t n = sizeof(DnaSnapshot) + s.genes.size() * sizeof(Genome) + rowBytes(s.rows);
    for (const auto& p : s.paths) n += p.capacity() + sizeof(std::string);
    return n;
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
    DnaSnapshot fresh = captureDna(app);
    fresh.genes = std::move(current_.genes);
    current_ = std::move(fresh);
}

void DnaHistory::commit(App& app, const std::string& name) {
    if (!sameFiles(app, current_)) {
        reset(app);
        return;
    }
    noteSaves(app);
    if (sameBytes(app.dna.dnaGenes, current_.genes)) return;
    std::size_t size = bytesOf(current_);
    pushStep(name, std::move(current_), size);
    current_ = captureDna(app);
}

bool DnaHistory::move(App& app, bool undo) {
    prepare(app);
    if (undo ? !canUndo() : !canRedo()) return false;
    std::size_t size = bytesOf(current_);
    Step s = swapStep(undo, std::move(current_), size);
    DnaFolder& d = app.dna;
    d.dnaGenes = s.snap.genes;
    for (std::size_t i = 0; i < d.dnaGenes.size() && i < d.dnaChanged.size(); ++i)
        if (i < diskKnown_.size() && diskKnown_[i]) d.dnaChanged[i] = d.dnaGenes[i] != disk_[i] ? 1 : 0;
    restoreRows(app.lstSpeciateDrifters, s.snap.rows, s.snap.current, s.snap.enabled);
    d.gene = s.snap.gene;
    d.pass.passRunning = false;
    d.drifterProgressBar1.visible = false;
    app.speciesPending = s.snap.speciesPending;
    current_ = std::move(s.snap);
    app.stateChanged();
    return true;
}

bool DnaHistory::undo(App& app) { return move(app, true); }
bool DnaHistory::redo(App& app) { return move(app, false); }

}  // namespace aq
