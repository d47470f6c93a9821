#include "series/Harvest.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "base/Paths.h"
#include "base/ThresholdText.h"
#include "files/PoolSave.h"
#include "foodeditor/FoodList.h"
#include "format/PoolFile.h"
#include "generator/Random.h"
#include "pooleditor/DrifterKey.h"
#include "pooleditor/DrifterList.h"
#include "series/Success.h"

namespace aq {

const char* const kHarvestWarning =
    "This feature can take a very long time, and the program will not respond until it is finished.  Would you like "
    "to continue anyway?";
const char* const kHarvestMaximumPrompt =
    "You can set the maximum number of drifters for the resulting pool anywhere from 1 to  2000.\r\nThe default is "
    "2000.  What is the maximum would you like to set?";

namespace {

constexpr int kMaxDrifters = 2000;
constexpr const char* kLoadTitle = "Aquarium File Manager - Load Drifter Files";

std::size_t at(int i) { return static_cast<std::size_t>(i); }

}  // namespace

HarvestList::HarvestList(const Pool& start, int maxN) : maxN_(std::clamp(maxN, 1, kMaxDrifters)), start_(start) {
    slots_.resize(at(maxN_ + 1));
    store_.reserve(slots_.size());
    for (int k = 0; k <= maxN_; ++k) slots_[at(k)].rec = -(k + 1);
}

const DrifterRec& HarvestList::record(int place) const {
    static const DrifterRec kEmpty{};
    const std::int32_t h = slots_[at(place)].rec;
    if (h >= 0) return store_[at(h)];
    // The places hold the start pool's records, and empty ones beyond its count.
    const int k = -h - 1;
    return k < start_.drifterCount && at(k) < start_.drifters.size() ? start_.drifters[at(k)] : kEmpty;
}

void HarvestList::tallySlot(const Slot& s, int delta) {
    if (s.line0 < 0) return;
    tally0_[at(s.line0)] += delta;
    tally1_[at(s.line1)] += delta;
}

void HarvestList::tallyRange(int from, int to, int delta) {
    for (int j = from; j < to; ++j) tallySlot(slots_[at(j)], delta);
}

void HarvestList::considerPool(const Pool& pool) { considerScored(pool, scorePool(pool)); }

void HarvestList::considerPool(const Pool& pool, float norm) {
    scorePool(pool);
    considerScored(pool, norm);
}

void HarvestList::considerScored(const Pool& pool, float norm) {
    for (int i = 0; i < static_cast<int>(scores_.size()); ++i) consider(pool, i, norm);
    keepLiveRecords(pool);
}

// The scores and the norm (SuccessNorm) in one pass over the records, which are read
// from memory once rather than twice.
float HarvestList::scorePool(const Pool& pool) {
    scores_.clear();
    float norm = 1.0f;
    bool noSegments = false;
    for (int i = 0; i < pool.drifterCount; ++i) {
        // Records lie 4016 bytes apart, too far for the processor to guess the next.
        if (i + 8 < pool.drifterCount) {
            __builtin_prefetch(&pool.drifters[at(i + 8)].age);
            __builtin_prefetch(&pool.drifters[at(i + 8)].velocityX);
        }
        const DrifterRec& d = pool.drifters[at(i)];
        if (d.segmentCount < 1) noSegments = true;
        if (!noSegments) norm = std::max(norm, SuccessNormFigure(d));
        scores_.push_back(SuccessScore(d));
    }
    return noSegments ? -1.0f : norm;
}

// The two key lines of `d` as numbers, with a tally place for each new one.
void HarvestList::numberKeys(const DrifterRec& d, std::int32_t& l0, std::int32_t& l1) {
    key0_.clear();
    appendDrifterKey(key0_, d, false, true, false);
    const std::uint32_t hash0 = lines0_.expect(key0_);
    key1_.clear();
    appendDrifterKey(key1_, d, false, true, true);
    const std::uint32_t hash1 = lines1_.expect(key1_);
    l0 = lines0_.number(key0_, hash0);
    l1 = lines1_.number(key1_, hash1);
    if (tally0_.size() < lines0_.size()) tally0_.push_back(0);
    if (tally1_.size() < lines1_.size()) tally1_.push_back(0);
}

// Copies the records that places still take from `pool` into store entries that no
// place uses any more, so the store never holds more records than there are places.
void HarvestList::keepLiveRecords(const Pool& pool) {
    // The start pool outlives the list: entries taken from it point into it as places
    // before any are taken do.
    if (&pool == &start_) {
        for (Slot& s : slots_)
            if (s.rec >= kLive) s.rec = -(s.rec - kLive + 1);
        return;
    }
    std::vector<char> used(store_.size(), 0);
    // One per drifter scored: a damaged file's negative count gives none.
    std::vector<std::int32_t> copied(scores_.size(), -1);
    for (const Slot& s : slots_)
        if (s.rec >= 0 && s.rec < kLive) used[at(s.rec)] = 1;
    std::size_t nextFree = 0;
    for (Slot& s : slots_) {
        if (s.rec < kLive) continue;
        std::int32_t& into = copied[at(s.rec - kLive)];
        if (into < 0) {
            while (nextFree < used.size() && used[nextFree]) ++nextFree;
            if (nextFree < used.size()) {
                store_[nextFree] = pool.drifters[at(s.rec - kLive)];
                used[nextFree] = 1;
                into = static_cast<std::int32_t>(nextFree);
            } else {
                store_.push_back(pool.drifters[at(s.rec - kLive)]);
                into = static_cast<std::int32_t>(store_.size() - 1);
            }
        }
        s.rec = into;
    }
}

void HarvestList::consider(const Pool& pool, int index, float norm) {
    const float score = scores_[at(index)] / norm;
    if (!(score > 0)) return;
    // A full list is sorted best first: a score no better than its last entry can't
    // replace that entry, nor any entry of its shape, which all score at least as much.
    if (count_ == maxN_ && score <= slots_[at(maxN_ - 1)].score) return;

    std::int32_t l0, l1;
    numberKeys(pool.drifters[at(index)], l0, l1);

    int pos = -1;
    if (tally0_[at(l0)] > 0 || tally1_[at(l1)] > 0)
        for (int j = 0; j < count_; ++j)
            if (same(slots_[at(j)], l0, l1)) {
                pos = j;
                break;
            }
    if (pos < 0) {
        pos = std::min(count_, maxN_ - 1);
        // Below the last place the entries are sorted best first, so the walk down to
        // the last one that scores at least as much is a binary search.
        if (slots_[at(pos)].score < score) {
            auto first = slots_.begin();
            auto stop = std::partition_point(first, first + pos, [&](const Slot& s) { return s.score >= score; });
            pos = std::max(static_cast<int>(stop - first) - 1, 0);
        }
    }
    if (slots_[at(pos)].score > score && !same(slots_[at(pos)], l0, l1)) ++pos;
    pos = std::min(pos, count_);
    pos = std::min(pos, maxN_ - 1);

    if (same(slots_[at(pos)], l0, l1) || pos == count_ || pos + 1 == maxN_) {
        if (slots_[at(pos)].score >= score) return;
        // A place past the end may still hold an old entry of this shape; then the list
        // does not grow, and the climb below can push a counted entry out of it, so the
        // tallies of the whole stretch are redone.
        Slot& s = slots_[at(pos)];
        const bool staleMate = pos >= count_ && same(s, l0, l1);
        int top = pos;
        if (staleMate) {
            while (top > 0 && score > slots_[at(top - 1)].score) --top;
            tallyRange(top, count_, -1);
        } else if (pos < count_) {
            tallySlot(s, -1);
        }
        s.rec = kLive + index;
        s.score = score;
        if (pos >= count_ && !staleMate) count_ = pos + 1;
        s.line0 = l0;
        s.line1 = l1;
        if (!staleMate) tallySlot(s, +1);
        for (; pos > 0 && slots_[at(pos)].score > slots_[at(pos - 1)].score; --pos)
            std::swap(slots_[at(pos)], slots_[at(pos - 1)]);
        // Entries of this shape below it go; the tallies say whether there are any.
        if (staleMate || tally0_[at(l0)] > 1 || tally1_[at(l1)] > 1) {
            for (int j = pos + 1; j < count_;) {
                if (same(slots_[at(j)], l0, l1)) {
                    if (!staleMate) tallySlot(slots_[at(j)], -1);
                    std::move(slots_.begin() + j + 1, slots_.begin() + count_, slots_.begin() + j);
                    --count_;
                } else {
                    ++j;
                }
            }
        }
        if (staleMate) tallyRange(top, count_, +1);
        return;
    }
    // A new shape inside the list pushes the rest down; the last entry falls away.
    if (slots_[at(pos)].score < score) {
        tallySlot(slots_[at(count_ - 1)], -1);
        std::move_backward(slots_.begin() + pos, slots_.begin() + count_ - 1, slots_.begin() + count_);
        Slot& s = slots_[at(pos)];
        s.rec = kLive + index;
        s.score = score;
        s.line0 = l0;
        s.line1 = l1;
        tallySlot(s, +1);
    }
}

namespace {

// The names of the pool files in `folder`, sorted as the file list shows them.
bool listPoolFiles(const std::string& folder, std::vector<std::string>& names, std::error_code& ec) {
    namespace fs = std::filesystem;
    fs::directory_iterator it(folder.empty() ? "." : folder, ec), end;
    for (; !ec && it != end; it.increment(ec)) {
        std::string name = it->path().filename().string();
        std::error_code typeError;
        if (name.size() > 4 && lowered(name.substr(name.size() - 4)) == ".aqp" && !it->is_directory(typeError))
            names.push_back(name);
    }
    if (ec) return false;
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        std::string la = lowered(a), lb = lowered(b);
        return la != lb ? la < lb : a < b;
    });
    return true;
}

}  // namespace

bool HarvestSuccessful(App& app, const std::string& folder, int, int maxCount, bool keepBest, bool drawAtRandom,
                       int* skipped) {
    int maxN = std::min(maxCount, kMaxDrifters);
    int reserve = 0;
    if (!keepBest) {
        reserve = kMaxDrifters - maxN;
        maxN = kMaxDrifters;
    }
    // The harvest starts from the open pool. Without a loaded pool the list starts
    // empty, in the embedded pool's world.
    Pool& startPool = app.poolLoaded || !app.defaultPoolUsable ? app.openPool : app.defaultPool;
    HarvestList list(startPool, maxN);
    if (app.poolLoaded) list.considerPool(app.openPool);

    std::vector<std::string> names;
    std::error_code ec;
    if (!listPoolFiles(folder, names, ec)) {
        app.ui.ShowMessage("Error reading " + folder + ", error: " + ec.message(), kLoadTitle);
        app.workPool = app.openPool;
        return false;
    }
    // Every file is read into the work pool's memory, which the result takes in the
    // end. The list copies what it keeps of a pool before the next file is read, and
    // it looks at a file only once it has been read whole, so a damaged file changes
    // nothing: it is skipped without considering any pool again.
    Pool& read = app.workPool;
    int skippedFiles = 0;
    {
        WaitCursor wait(app.ui);
        for (const std::string& name : names) {
            PoolReadResult r = readPool(joinPath(folder, name), read);
            if (r.status == PoolReadStatus::Ok) {
                list.considerPool(read);
                continue;
            }
            ++skippedFiles;
            if (r.status == PoolReadStatus::BadVersion)
                app.ui.ShowMessage("Not a Aquarium 4 or 5 data file");
            else
                app.ui.ShowMessage("Error opening " + name + ", error: " + r.error, kLoadTitle);
        }
    }
    if (skipped) *skipped = skippedFiles;
    app.poolLoaded = true;
    app.poolChanged = true;

    const int c = list.count();
    int n = drawAtRandom ? maxCount : c;
    if (n < maxN) {
        reserve -= maxN - n;
        maxN = n;
    }
    if (reserve < 0) reserve = 0;
    int finalCount = maxN - reserve;
    if (drawAtRandom) reserve = 0;
    // Nothing to draw from: the pool is left without drifters.
    if (drawAtRandom && c == 0) finalCount = 0;
    finalCount = std::max(finalCount, 0);
    // The picked records go into memory that is already in use, the files'.
    std::vector<DrifterRec> picked = std::move(read.drifters);
    picked.resize(at(finalCount));
    for (int k = 0; k < finalCount; ++k) {
        int p = k;
        if (drawAtRandom) {
            const float a = RandomNext();
            const float b = RandomNext();
            p = static_cast<int>(std::floor(static_cast<double>(a) * b * c));
            if (!keepBest) p = c - 1 - p;
        }
        picked[at(k)] = list.record(p + reserve);
    }
    // The result is the start pool's world with the picked drifters; the start pool's
    // own drifters are set aside rather than copied.
    std::vector<DrifterRec> startDrifters;
    startDrifters.swap(startPool.drifters);
    app.workPool = startPool;
    startDrifters.swap(startPool.drifters);
    app.workPool.drifterCount = finalCount;
    app.workPool.drifters = std::move(picked);

    // The lists show openPool, so it takes the result before they are filled.
    app.openPool = app.workPool;
    if (!app.uiBusy) {
        if (app.comboSpeciatePoolGroup0 == 2) app.lstSpeciatePool.setEnabled(false);
        app.lstSpeciatePool.clear();
        app.lstPoolFood.clear();
        populateSpeciatePoolList(app);
        populateFoodList(app);
        app.poolPassRunning = false;
        app.poolSpeciesPending = true;
        app.poolLoaded = true;
        app.openPoolPath.clear();
        app.stateChanged();
    }
    return true;
}

void GetSuccessfulCommand(App& app) {
    if (app.ui.AskYesNo(kHarvestWarning) != Answer::Yes) return;
    std::string answer = app.ui.AskText(kHarvestMaximumPrompt, "Set Maximum", " 2000");
    int max = 2000;
    double v = std::nearbyint(leadingNumber(trimmed(answer)));
    if (v >= -32768 && v <= 32767) max = static_cast<int>(v);
    if (max < 1) return;
    if (max > 2000) max = 2000;
    // The harvest replaces the pool on show, so its changes are offered a save first,
    // as generating a pool does.
    if (!saveChangesFirst(app, kUnsavedPoolQuestion)) return;
    HarvestSuccessful(app, app.comboPoolPath, 0, max, true, false);
}

}  // namespace aq
