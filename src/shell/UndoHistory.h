#pragma once
// Undo and redo of the open pool's edits and of the gene edits of the loaded DNA files.
// A history keeps the state as it was after its last step whole; each step keeps only
// what differs from the state next to it (StepDiff.h), so undoing swaps that back in
// and restores the records, ticks, species numbers, the list rows, the box sliders and
// the file the pool belongs to. The changed mark is never stored: it is worked out
// from what the files hold.
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "shell/StepDiff.h"
#include "state/App.h"

namespace aq {

// The steps of one history, newest last, each with its name and its difference from
// the step after it (the newest from the history's state).
template <class Diff>
class StepStack {
public:
    struct Step {
        std::string name;
        Diff diff;
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
    void pushStep(std::string name, Diff diff) {
        for (const Step& s : redo_) bytes_ -= s.bytes;
        redo_.clear();
        undo_.push_back({std::move(name), std::move(diff), 0});
        weigh(undo_.back());
        while (undo_.size() > 1 && (undo_.size() > kMaxSteps || bytes_ > kMaxBytes)) {
            bytes_ -= undo_.front().bytes;
            undo_.pop_front();
        }
    }
    // Moves the newest step of one stack to the other once `apply` has swapped its
    // difference into the history's state.
    template <class Apply>
    void turnStep(bool undo, Apply apply) {
        auto& from = undo ? undo_ : redo_;
        auto& to = undo ? redo_ : undo_;
        to.push_back(std::move(from.back()));
        from.pop_back();
        apply(to.back().diff);
        weigh(to.back());
    }
    // The history's state changed with no step: the steps next to it follow.
    template <class Follow>
    void followState(Follow follow) {
        for (auto* stack : {&undo_, &redo_}) {
            if (stack->empty()) continue;
            follow(stack->back().diff);
            weigh(stack->back());
        }
    }

private:
    void weigh(Step& s) {
        bytes_ -= s.bytes;
        s.bytes = sizeof(Step) + s.name.capacity() + s.diff.bytes();
        bytes_ += s.bytes;
    }
    std::deque<Step> undo_, redo_;
    std::size_t bytes_ = 0;
};

class PoolHistory : public StepStack<PoolDiff> {
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

class DnaHistory : public StepStack<DnaDiff> {
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
