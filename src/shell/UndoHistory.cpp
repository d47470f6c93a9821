#include "shell/UndoHistory.h"

#include <algorithm>
#include <cstring>

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
    s.changed = app.poolChanged;
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

std::size_t bytesOf(const PoolSnapshot& s) {
    return sizeof(PoolSnapshot) + s.path.capacity() + s.pool.drifters.size() * sizeof(DrifterRec) +
           s.pool.food.size() * sizeof(FoodBit) + s.pool.historyBlock.size() + rowBytes(s.drifterRows) +
           rowBytes(s.foodRows);
}

void restorePool(App& app, const PoolSnapshot& s) {
    app.openPool = s.pool;
    app.poolLoaded = s.poolLoaded;
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
    // the restored lists were still waiting for their numbers.
    app.poolPassRunning = false;
    app.PoolProgressBar1.visible = false;
    app.poolSpeciesPending = s.speciesPending;
}

}  // namespace

bool samePool(const Pool& a, const Pool& b) {
    return a.version == b.version && a.clock == b.clock && a.headerWord == b.headerWord &&
           a.drifterCount == b.drifterCount && a.foodCount == b.foodCount &&
           std::memcmp(&a.worldValueA, &b.worldValueA, sizeof(float)) == 0 &&
           std::memcmp(&a.worldValueB, &b.worldValueB, sizeof(float)) == 0 && a.viewBlock == b.viewBlock &&
           std::memcmp(&a.minX, &b.minX, sizeof(float)) == 0 && std::memcmp(&a.minY, &b.minY, sizeof(float)) == 0 &&
           std::memcmp(&a.maxX, &b.maxX, sizeof(float)) == 0 && std::memcmp(&a.maxY, &b.maxY, sizeof(float)) == 0 &&
           std::memcmp(a.walls, b.walls, sizeof(a.walls)) == 0 && a.lastWord == b.lastWord &&
           sameBytes(a.drifters, b.drifters) && sameBytes(a.food, b.food) && a.historyBlock == b.historyBlock;
}

void PoolHistory::reset(App& app) {
    clearSteps();
    current_ = capturePool(app);
    currentId_ = ++nextId_;
    savedId_ = app.poolChanged ? 0 : currentId_;
    started_ = true;
}

// A save clears the changed flag of an unchanged pool: every other state now differs
// from the file, even one that matched the file read before.
void PoolHistory::noteSave(const App& app) {
    if (!current_.changed || app.poolChanged) return;
    savedId_ = currentId_;
    forEachSnapshot([](PoolSnapshot& s) { s.changed = true; });
}

void PoolHistory::prepare(App& app) {
    if (started_ && samePool(app.openPool, current_.pool) && app.poolLoaded == current_.poolLoaded) {
        noteSave(app);
        captureLists(app, current_);
        return;
    }
    // Changed where no step watched: read from a file, or edited by a running command.
    commit(app, "Edit");
}

void PoolHistory::commit(App& app, const std::string& name) {
    if (!started_) {
        reset(app);
        return;
    }
    if (samePool(app.openPool, current_.pool) && app.poolLoaded == current_.poolLoaded) {
        noteSave(app);
        current_.changed = app.poolChanged;
        current_.path = app.openPoolPath;
        return;
    }
    // Another file read into the editor; moving drifters changes the pool and leaves
    // the flag clear, so the flag alone doesn't tell a load.
    if (!app.poolChanged && (app.openPoolPath != current_.path || app.poolLoaded != current_.poolLoaded)) {
        reset(app);
        return;
    }
    std::size_t size = bytesOf(current_);
    pushStep(name, std::move(current_), currentId_, size);
    currentId_ = ++nextId_;
    current_ = capturePool(app);
}

bool PoolHistory::move(App& app, bool undo) {
    prepare(app);
    if (undo ? !canUndo() : !canRedo()) return false;
    std::size_t size = bytesOf(current_);
    Step s = swapStep(undo, std::move(current_), currentId_, size);
    restorePool(app, s.snap);
    current_ = std::move(s.snap);
    currentId_ = s.id;
    // The file's own state is unchanged; others keep the flag they had.
    app.poolChanged = currentId_ != savedId_ && current_.changed;
    current_.changed = app.poolChanged;
    current_.path = app.openPoolPath;
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
    pushStep(name, std::move(current_), 0, size);
    current_ = captureDna(app);
}

bool DnaHistory::move(App& app, bool undo) {
    prepare(app);
    if (undo ? !canUndo() : !canRedo()) return false;
    std::size_t size = bytesOf(current_);
    Step s = swapStep(undo, std::move(current_), 0, size);
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
