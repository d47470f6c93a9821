#pragma once
// Undo and redo of the open pool's edits and of the gene edits of the loaded DNA files.
// A history keeps the state as it was after its last step; a step that changed the
// pool (or the genes) pushes that state, so undoing restores it whole: records, ticks,
// species numbers, the list rows, the box sliders and the file the pool belongs to.
// The changed mark is never stored: it is worked out from what the files hold.
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "state/App.h"

namespace aq {

// The steps of one history, newest last, with their names and the state before each.
template <class Snap>
class StepStack {
public:
    struct Step {
        std::string name;
        Snap snap;
        std::size_t bytes = 0;
    };
    static constexpr std::size_t kMaxSteps = 500;
    static constexpr std::size_t kMaxBytes = std::size_t{256} << 20;

    bool canUndo() const { return !undo_.empty(); }
    bool canRedo() const { return !redo_.empty(); }
    std::string undoName() const { return undo_.empty() ? std::string() : undo_.back().name; }
    std::string redoName() const { return redo_.empty() ? std::string() : redo_.back().name; }
    std::size_t undoCount() const { return undo_.size(); }
    std::size_t bytes() const { return bytes_; }

protected:
    void clearSteps() {
        undo_.clear();
        redo_.clear();
        bytes_ = 0;
    }
    // A new step makes the steps undone before it unreachable.
    void pushStep(std::string name, Snap before, std::size_t size) {
        for (const Step& s : redo_) bytes_ -= s.bytes;
        redo_.clear();
        bytes_ += size;
        undo_.push_back({std::move(name), std::move(before), size});
        while (undo_.size() > 1 && (undo_.size() > kMaxSteps || bytes_ > kMaxBytes)) {
            bytes_ -= undo_.front().bytes;
            undo_.pop_front();
        }
    }
    // Moves the newest step of one stack to the other, holding `now` instead; gives back
    // the snapshot to restore.
    Step swapStep(bool undo, Snap now, std::size_t nowBytes) {
        auto& from = undo ? undo_ : redo_;
        auto& to = undo ? redo_ : undo_;
        Step s = std::move(from.back());
        from.pop_back();
        bytes_ = bytes_ - s.bytes + nowBytes;
        to.push_back({s.name, std::move(now), nowBytes});
        return s;
    }

private:
    std::deque<Step> undo_, redo_;
    std::size_t bytes_ = 0;
};

// The pool and everything the pool tabs show of it.
struct PoolSnapshot {
    Pool pool;
    bool poolLoaded = false;
    std::string path;
    std::vector<CheckRow> drifterRows, foodRows;
    int drifterCurrent = -1, foodCurrent = -1;
    bool drifterListEnabled = true, foodListEnabled = true;
    bool speciesPending = false;
    // What the rows' species numbers were worked out at.
    float tagsThreshold = 44.4f;
    std::int16_t tagsDepth = 100;
    SliderState drifterBox[4], foodBox[4];
    bool drifterLabels[4] = {}, foodLabels[4] = {};
};

class PoolHistory : public StepStack<PoolSnapshot> {
public:
    // Before a user's action: takes in what happened since the last step (a pool read
    // from a file starts a new history) and the ticks as they are now.
    void prepare(App& app);
    // After a user's action: a changed pool becomes a step named `name`; another pool
    // read from a file starts a new history.
    void commit(App& app, const std::string& name);
    // Clears the steps; the state on show becomes the history's start.
    void reset(App& app);
    bool undo(App& app);
    bool redo(App& app);

private:
    bool move(App& app, bool undo);
    bool sameState(const App& app) const;
    PoolSnapshot current_;
    bool started_ = false;
    std::uint64_t reads_ = 0;
};

// The genes of the loaded DNA files and what the drifter files tab shows of them.
struct DnaSnapshot {
    std::vector<std::string> paths;
    std::string folder;
    std::vector<Genome> genes;
    std::vector<CheckRow> rows;
    int current = -1;
    bool enabled = true;
    bool speciesPending = false;
    GenePanelState gene;
};

class DnaHistory : public StepStack<DnaSnapshot> {
public:
    void prepare(App& app);
    void commit(App& app, const std::string& name);
    void reset(App& app);
    bool undo(App& app);
    bool redo(App& app);

private:
    bool move(App& app, bool undo);
    void noteSaves(const App& app);
    DnaSnapshot current_;
    // The genomes the files on disk hold, where known: a restored genome is changed
    // exactly when it differs from its file.
    std::vector<Genome> disk_;
    std::vector<std::uint8_t> diskKnown_;
};

}  // namespace aq
