#pragma once
// What an undo step holds: only what differs between the state on show and the state
// the step leads to, as that other state has it. Applying a difference swaps it with
// the state's own values, so it then leads back: an undone step is its own redo.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/CheckList.h"
#include "base/Controls.h"
#include "format/DnaFile.h"
#include "format/Records.h"
#include "state/DnaFolder.h"

namespace aq {

// The elements of one array that differ from the other state's, by index, and the
// other state's elements past the end of the shorter of the two. When most of them
// differ, the other state's whole array, which then swaps in at once.
template <class T>
class RecordDiff {
public:
    // Makes `base` equal to `now`, keeping what `base` held where they differ.
    void take(std::vector<T>& base, const std::vector<T>& now) {
        const std::size_t common = std::min(base.size(), now.size());
        std::vector<std::uint32_t> at;
        for (std::size_t i = 0; i < common; ++i)
            if (!same(base[i], now[i])) at.push_back(static_cast<std::uint32_t>(i));
        whole_ = at.size() * 4 > common * 3;
        if (whole_) {
            at_ = std::vector<std::uint32_t>();
            kept_ = std::exchange(base, now);
            tail_ = std::vector<T>();
            return;
        }
        at.shrink_to_fit();
        std::vector<T> kept;
        kept.reserve(at.size());
        for (std::uint32_t i : at) {
            kept.push_back(std::move(base[i]));
            base[i] = now[i];
        }
        at_ = std::move(at);
        kept_ = std::move(kept);
        otherSize_ = base.size();
        tail_ = std::vector<T>(std::make_move_iterator(base.begin() + static_cast<std::ptrdiff_t>(common)),
                               std::make_move_iterator(base.end()));
        base.erase(base.begin() + static_cast<std::ptrdiff_t>(common), base.end());
        base.insert(base.end(), now.begin() + static_cast<std::ptrdiff_t>(common), now.end());
    }

    // Swaps the kept elements with `state`'s: `state` becomes the other state.
    void swapWith(std::vector<T>& state) {
        if (whole_) {
            state.swap(kept_);
            return;
        }
        for (std::size_t k = 0; k < at_.size(); ++k) std::swap(state[at_[k]], kept_[k]);
        const auto common = static_cast<std::ptrdiff_t>(std::min(state.size(), otherSize_));
        std::vector<T> mine(std::make_move_iterator(state.begin() + common), std::make_move_iterator(state.end()));
        otherSize_ = state.size();
        state.erase(state.begin() + common, state.end());
        state.insert(state.end(), std::make_move_iterator(tail_.begin()), std::make_move_iterator(tail_.end()));
        tail_ = std::move(mine);
    }

    // The state this is a difference against went from `was` to `now` with no step.
    void follow(const std::vector<T>& was, const std::vector<T>& now) {
        std::vector<T> other = was;
        swapWith(other);
        take(other, now);
    }

    std::size_t bytes() const { return at_.capacity() * sizeof(std::uint32_t) + heldBytes(kept_) + heldBytes(tail_); }

private:
    static bool same(const T& a, const T& b) {
        if constexpr (std::is_trivially_copyable_v<T>)
            return std::memcmp(&a, &b, sizeof(T)) == 0;
        else
            return a == b;
    }
    static std::size_t heldBytes(const std::vector<T>& v) {
        std::size_t n = v.capacity() * sizeof(T);
        if constexpr (std::is_same_v<T, CheckRow>)
            for (const CheckRow& r : v) n += r.text.capacity();
        return n;
    }

    bool whole_ = false;
    std::size_t otherSize_ = 0;
    std::vector<std::uint32_t> at_;
    std::vector<T> kept_;
    std::vector<T> tail_;
};

// What the pool tabs show beside the records and the rows.
struct PoolView {
    bool poolLoaded = false;
    std::string path;
    int drifterCurrent = -1, foodCurrent = -1;
    bool drifterListEnabled = true, foodListEnabled = true;
    bool speciesPending = false;
    // What the rows' species numbers were worked out at.
    float tagsThreshold = 44.4f;
    std::int16_t tagsDepth = 100;
    SliderState drifterBox[4], foodBox[4];
    bool drifterLabels[4] = {}, foodLabels[4] = {};
};

struct PoolLists {
    std::vector<CheckRow> drifterRows, foodRows;
    PoolView view;
};

// The pool and everything the pool tabs show of it.
struct PoolSnapshot {
    Pool pool;
    PoolLists lists;
};

class PoolDiff {
public:
    // Makes `base` into the pool `now` with `lists`; `now` keeps its contents (its
    // arrays are only set aside while its other fields are copied).
    void take(PoolSnapshot& base, Pool& now, PoolLists lists);
    void swapWith(PoolSnapshot& state);
    // The lists of the state this is a difference against changed with no step.
    void follow(const PoolLists& was, const PoolLists& now);
    std::size_t bytes() const;

private:
    Pool fields_;  // the other pool's fields but its arrays, which stay empty
    RecordDiff<DrifterRec> drifters_;
    RecordDiff<FoodBit> food_;
    bool historyDiffers_ = false;
    std::vector<std::uint8_t> history_;  // the other pool's history block, if it differs
    RecordDiff<CheckRow> drifterRows_, foodRows_;
    PoolView view_;
};

// What the drifter files tab shows beside the genes and the rows.
struct DnaView {
    int current = -1;
    bool enabled = true;
    bool speciesPending = false;
    GenePanelState gene;
};

// The genes of the loaded DNA files and what the drifter files tab shows of them.
struct DnaSnapshot {
    std::vector<std::string> paths;
    std::string folder;
    std::vector<Genome> genes;
    std::vector<CheckRow> rows;
    DnaView view;
};

// The files and folder stay the same for a whole history, so a step leaves them out.
class DnaDiff {
public:
    void take(DnaSnapshot& base, const std::vector<Genome>& genes, std::vector<CheckRow> rows, DnaView view);
    void swapWith(DnaSnapshot& state);
    void follow(const std::vector<CheckRow>& was, const std::vector<CheckRow>& now) { rows_.follow(was, now); }
    std::size_t bytes() const;

private:
    RecordDiff<Genome> genes_;
    RecordDiff<CheckRow> rows_;
    DnaView view_;
};

}  // namespace aq
