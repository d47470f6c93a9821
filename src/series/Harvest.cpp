#include "series/Harvest.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "foodeditor/FoodList.h"
#include "generator/Random.h"
#include "pool/PoolFile.h"
#include "pooleditor/DrifterKey.h"
#include "pooleditor/DrifterList.h"
#include "series/Success.h"
#include "shell/Paths.h"
#include "shell/ThresholdText.h"

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

HarvestList::HarvestList(const Pool& start, int maxN) : maxN_(std::clamp(maxN, 1, kMaxDrifters)) {
    slots_.resize(at(maxN_ + 1));
    // A folder of evolved pools brings thousands of distinct key lines.
    ids0_.reserve(1 << 14);
    ids1_.reserve(1 << 14);
    tally0_.reserve(1 << 14);
    tally1_.reserve(1 << 14);
    // The places hold the start pool's records, and empty ones beyond its count.
    start_.assign(slots_.size(), DrifterRec{});
    for (int k = 0; k <= maxN_; ++k) {
        if (k < start.drifterCount && at(k) < start.drifters.size()) start_[at(k)] = start.drifters[at(k)];
        slots_[at(k)].rec = -(k + 1);
    }
}

const DrifterRec& HarvestList::record(int place) const {
    std::int32_t h = slots_[at(place)].rec;
    return h >= 0 ? store_[at(h)] : start_[at(-h - 1)];
}

std::int32_t HarvestList::intern(std::unordered_map<std::string, std::int32_t>& ids, std::vector<int>& tally,
                                 std::string line) {
    auto [it, added] = ids.try_emplace(std::move(line), static_cast<std::int32_t>(ids.size()));
    if (added) tally.push_back(0);
    return it->second;
}

void HarvestList::tallyRange(int from, int to, int delta) {
    for (int j = from; j < to; ++j) {
        const Slot& s = slots_[at(j)];
        if (s.line0 < 0) continue;
        tally0_[at(s.line0)] += delta;
        tally1_[at(s.line1)] += delta;
    }
}

std::int32_t HarvestList::storeRecord(const DrifterRec& d) {
    if (store_.size() >= 4 * slots_.size() + 64) compactStore();
    store_.push_back(d);
    return static_cast<std::int32_t>(store_.size() - 1);
}

// Records that no place refers to any more are dropped.
void HarvestList::compactStore() {
    std::vector<std::int32_t> moved(store_.size(), -1);
    std::vector<DrifterRec> kept;
    kept.reserve(slots_.size());
    for (Slot& s : slots_) {
        if (s.rec < 0) continue;
        std::int32_t& m = moved[at(s.rec)];
        if (m < 0) {
            m = static_cast<std::int32_t>(kept.size());
            kept.push_back(store_[at(s.rec)]);
        }
        s.rec = m;
    }
    store_ = std::move(kept);
}

void HarvestList::consider(const Pool& pool, int index, float norm) {
    const float score = SuccessScore(pool, index) / norm;
    if (!(score > 0)) return;

    // The key pair is two lines: the key and its detailed form.
    std::string pair = DrifterKeyPair(pool, index);
    std::size_t cut = pair.find("\r\n");
    const std::int32_t l0 = intern(ids0_, tally0_, pair.substr(0, cut));
    const std::int32_t l1 = intern(ids1_, tally1_, pair.substr(cut + 2));

    int pos = -1;
    if (tally0_[at(l0)] > 0 || tally1_[at(l1)] > 0)
        for (int j = 0; j < count_; ++j)
            if (same(slots_[at(j)], l0, l1)) {
                pos = j;
                break;
            }
    if (pos < 0) {
        pos = std::min(count_, maxN_ - 1);
        while (slots_[at(pos)].score < score && pos > 0) --pos;
    }
    if (slots_[at(pos)].score > score && !same(slots_[at(pos)], l0, l1)) ++pos;
    pos = std::min(pos, count_);
    pos = std::min(pos, maxN_ - 1);

    if (same(slots_[at(pos)], l0, l1) || pos == count_ || pos + 1 == maxN_) {
        if (slots_[at(pos)].score >= score) return;
        // The new entry climbs past every lower score above it; nothing above that changes.
        int top = pos;
        while (top > 0 && score > slots_[at(top - 1)].score) --top;
        const int countBefore = count_;
        tallyRange(top, countBefore, -1);

        Slot& s = slots_[at(pos)];
        s.rec = storeRecord(pool.drifters[at(index)]);
        s.score = score;
        if (pos >= count_ && !same(s, l0, l1)) count_ = pos + 1;
        s.line0 = l0;
        s.line1 = l1;
        for (; pos > 0 && slots_[at(pos)].score > slots_[at(pos - 1)].score; --pos)
            std::swap(slots_[at(pos)], slots_[at(pos - 1)]);
        for (int j = pos + 1; j < count_;) {
            if (same(slots_[at(j)], l0, l1)) {
                std::move(slots_.begin() + j + 1, slots_.begin() + count_, slots_.begin() + j);
                --count_;
            } else {
                ++j;
            }
        }
        tallyRange(top, count_, +1);
        return;
    }
    // A new shape inside the list pushes the rest down; the last entry falls away.
    if (slots_[at(pos)].score < score) {
        tallyRange(pos, count_, -1);
        std::move_backward(slots_.begin() + pos, slots_.begin() + count_ - 1, slots_.begin() + count_);
        Slot& s = slots_[at(pos)];
        s.rec = storeRecord(pool.drifters[at(index)]);
        s.score = score;
        s.line0 = l0;
        s.line1 = l1;
        tallyRange(pos, count_, +1);
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

void considerAll(HarvestList& list, const Pool& pool) {
    const float norm = SuccessNorm(pool);
    for (int i = 0; i < pool.drifterCount; ++i) list.consider(pool, i, norm);
}

}  // namespace

bool HarvestSuccessful(App& app, const std::string& folder, int, int maxCount, bool keepBest, bool drawAtRandom) {
    int maxN = std::min(maxCount, kMaxDrifters);
    int reserve = 0;
    app.workPool = app.openPool;
    if (!keepBest) {
        reserve = kMaxDrifters - maxN;
        maxN = kMaxDrifters;
    }
    // Without a loaded pool the list starts empty, in the embedded pool's world.
    Pool harvestPool = app.poolLoaded || !app.defaultPoolUsable ? app.workPool : app.defaultPool;
    HarvestList list(harvestPool, maxN);
    if (app.poolLoaded) considerAll(list, app.workPool);

    std::vector<std::string> names;
    std::error_code ec;
    if (!listPoolFiles(folder, names, ec)) {
        app.ui.ShowMessage("Error reading " + folder + ", error: " + ec.message(), kLoadTitle);
        app.openPool = app.workPool;
        return false;
    }
    {
        WaitCursor wait(app.ui);
        for (const std::string& name : names) {
            Pool fresh;
            PoolReadResult r = readPool(joinPath(folder, name), fresh);
            if (r.status == PoolReadStatus::NotFound || r.status == PoolReadStatus::Error) {
                app.ui.ShowMessage("Error opening " + name + ", error: " + r.error, kLoadTitle);
                continue;
            }
            // A file of another kind leaves the previous pool, whose drifters come again.
            if (r.status == PoolReadStatus::BadVersion)
                app.ui.ShowMessage("Not a Aquarium 4 or 5 data file");
            else
                app.workPool = std::move(fresh);
            app.poolLoaded = true;
            considerAll(list, app.workPool);
        }
    }
    app.poolLoaded = true;
    app.poolChanged = true;

    Pool& w = app.workPool;
    w = std::move(harvestPool);
    const int c = list.count();
    w.drifterCount = c;
    if (drawAtRandom) w.drifterCount = maxCount;
    if (w.drifterCount < maxN) {
        reserve -= maxN - w.drifterCount;
        maxN = w.drifterCount;
    }
    if (reserve < 0) reserve = 0;
    int finalCount = maxN - reserve;
    if (drawAtRandom) reserve = 0;
    // Nothing to draw from: the pool is left without drifters.
    if (drawAtRandom && c == 0) finalCount = 0;
    finalCount = std::max(finalCount, 0);
    w.drifterCount = finalCount;
    w.drifters.assign(at(finalCount), DrifterRec{});
    for (int k = 0; k < finalCount; ++k) {
        int p = k;
        if (drawAtRandom) {
            const float a = RandomNext();
            const float b = RandomNext();
            p = static_cast<int>(std::floor(static_cast<double>(a) * b * c));
            if (!keepBest) p = c - 1 - p;
        }
        w.drifters[at(k)] = list.record(p + reserve);
    }

    // The lists show openPool, so it takes the result before they are filled.
    app.openPool = app.workPool;
    if (!app.uiBusy) {
        if (app.comboSpeciatePoolGroup0 == 2) app.lstSpeciatePool.setEnabled(false);
        app.lstSpeciatePool.clear();
        app.lstPoolFood.clear();
        populateSpeciatePoolList(app);
        populateFoodList(app);
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
    HarvestSuccessful(app, app.comboPoolPath, 0, max, true, false);
}

}  // namespace aq
