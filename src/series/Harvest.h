#pragma once
// The harvest: the best drifter of every body shape, gathered from the open pool and
// a folder of pool files into a new pool with the open pool's food and world.
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "shell/App.h"

namespace aq {

// The top list of a harvest, best first, each body shape once. It behaves entry for
// entry like arrays of scores, keys and records moved one by one, including what
// stays behind in the places past its end, but moves only small handles: the key
// lines become numbers, records are copied once, and a per-line tally of the list
// says at once whether a candidate's shape is in it.
class HarvestList {
public:
    // `start` gives the records that stand in the places before any are taken;
    // `maxN` (1 to 2000) is the list's capacity.
    HarvestList(const Pool& start, int maxN);

    // Scores drifter `index` of `pool` against the norm of its pool and takes it in
    // if it beats the entry its shape or rank competes with.
    void consider(const Pool& pool, int index, float norm);

    int count() const { return count_; }
    int capacity() const { return maxN_; }
    float score(int place) const { return slots_[static_cast<std::size_t>(place)].score; }
    const DrifterRec& record(int place) const;

private:
    struct Slot {
        float score = 0;
        std::int32_t line0 = -1, line1 = -1;  // -1: the empty key, which matches nothing
        std::int32_t rec = -1;                // >= 0 into store_, else -(k + 1) into start_
    };
    bool same(const Slot& s, std::int32_t l0, std::int32_t l1) const {
        return s.line0 >= 0 && (s.line0 == l0 || s.line1 == l1);
    }
    std::int32_t intern(std::unordered_map<std::string, std::int32_t>& ids, std::vector<int>& tally, std::string line);
    void tallyRange(int from, int to, int delta);
    std::int32_t storeRecord(const DrifterRec& d);
    void compactStore();

    int maxN_;
    int count_ = 0;
    std::vector<Slot> slots_;
    std::vector<DrifterRec> start_;
    std::vector<DrifterRec> store_;
    std::unordered_map<std::string, std::int32_t> ids0_, ids1_;
    std::vector<int> tally0_, tally1_;  // entries of the list per line number
};

// The harvest behind the menu command and the series. `reserved` is not used. False
// when the folder can't be listed: the message is shown and nothing is harvested.
bool HarvestSuccessful(App& app, const std::string& folder, int reserved, int maxCount, bool keepBest,
                       bool drawAtRandom);

// mGetSuc: the warning, the maximum, and the harvest of the pool folder.
void GetSuccessfulCommand(App& app);

extern const char* const kHarvestWarning;
extern const char* const kHarvestMaximumPrompt;

}  // namespace aq
