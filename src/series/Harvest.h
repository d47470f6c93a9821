#pragma once
// The harvest: the best drifter of every body shape, gathered from the open pool and
// a folder of pool files into a new pool with the open pool's food and world.
#include <cstdint>
#include <string>
#include <vector>

#include "series/KeyLines.h"
#include "state/App.h"

namespace aq {

// The top list of a harvest, best first, each body shape once. It behaves entry for
// entry like arrays of scores, keys and records moved one by one, including what
// stays behind in the places past its end, but moves only small handles: the key
// lines become numbers, records are copied once, and a per-line tally of the list
// says at once whether a candidate's shape is in it.
class HarvestList {
public:
    // `start` gives the records that stand in the places before any are taken and
    // must outlive the list; `maxN` (1 to 2000) is the list's capacity.
    HarvestList(const Pool& start, int maxN);

    // Scores every drifter of `pool` against `norm`, the pool's own (SuccessNorm) when
    // not given, in order, and takes each in that beats the entry its shape or rank
    // competes with.
    void considerPool(const Pool& pool);
    void considerPool(const Pool& pool, float norm);

    int count() const { return count_; }
    int capacity() const { return maxN_; }
    float score(int place) const { return slots_[static_cast<std::size_t>(place)].score; }
    const DrifterRec& record(int place) const;

private:
    // While a pool is considered, entries point into it; its records are copied only
    // when it is done, for the entries still holding them.
    static constexpr std::int32_t kLive = 1 << 30;
    struct Slot {
        float score = 0;
        std::int32_t line0 = -1, line1 = -1;  // -1: the empty key, which matches nothing
        // >= kLive: drifter rec - kLive of the pool being considered; >= 0 into
        // store_; else -(k + 1), the start pool's drifter k.
        std::int32_t rec = -1;
    };
    bool same(const Slot& s, std::int32_t l0, std::int32_t l1) const {
        return s.line0 >= 0 && (s.line0 == l0 || s.line1 == l1);
    }
    float scorePool(const Pool& pool);
    void considerScored(const Pool& pool, float norm);
    void numberKeys(const DrifterRec& d, std::int32_t& l0, std::int32_t& l1);
    void consider(const Pool& pool, int index, float norm);
    void tallySlot(const Slot& s, int delta);
    void tallyRange(int from, int to, int delta);
    void keepLiveRecords(const Pool& pool);

    int maxN_;
    int count_ = 0;
    std::vector<Slot> slots_;
    const Pool& start_;
    std::vector<DrifterRec> store_;     // never more than one record per place
    KeyLines lines0_, lines1_;          // the key and the detailed key
    std::vector<int> tally0_, tally1_;  // entries of the list per line number
    std::string key0_, key1_;           // buffers for the candidate's keys
    std::vector<float> scores_;         // the pool's scores before the norm
};

// The harvest behind the menu command and the series. `reserved` is not used. False
// when the folder can't be listed: the message is shown and nothing is harvested.
// A file that can't be read is named in a message and skipped; `skipped` counts them.
bool HarvestSuccessful(App& app, const std::string& folder, int reserved, int maxCount, bool keepBest,
                       bool drawAtRandom, int* skipped = nullptr);

// mGetSuc: the warning, the maximum, and the harvest of the pool folder.
void GetSuccessfulCommand(App& app);

extern const char* const kHarvestWarning;
extern const char* const kHarvestMaximumPrompt;

}  // namespace aq
