#pragma once
// The figures that tell how one pool of a series did, and a store that keeps them between
// sessions so a long series is read once.
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "format/Records.h"
#include "series/SeriesTree.h"

namespace aq {

// How the extended species are counted: the threshold in percent and the genes compared.
struct SpeciesRule {
    float threshold = 44.4f;
    int depth = 100;
    bool operator==(const SpeciesRule&) const = default;
};

struct PoolFigures {
    int drifters = 0;
    int alive = 0;
    int food = 0;
    std::int32_t clock = 0;
    std::optional<float> bestScore;  // none without drifters
    int species = -1;                // extended species of a complete pass; -1 not counted
    std::string error;               // the reader's message when the file could not be read
};

PoolFigures poolFigures(const Pool& pool);
// The number of extended species a complete pass finds.
int speciesCount(const Pool& pool, const SpeciesRule& rule);
// Reads `path` into `scratch` (kept by the caller, so a long series reuses its memory)
// and gives its figures, the species too when a rule is given.
PoolFigures readPoolFigures(const std::string& path, const std::optional<SpeciesRule>& species, Pool& scratch);

// Figures by file, valid while the file keeps its size and time. Species counts are kept
// with the rule they were counted by. Saved as a text file; one that can't be read is
// an empty store.
class FigureStore {
public:
    explicit FigureStore(std::string file);
    // The figures kept for that file; `species` is -1 unless counted by `rule`.
    std::optional<PoolFigures> find(const SeriesMember& m, const std::optional<SpeciesRule>& rule = {});
    void put(const SeriesMember& m, const PoolFigures& f, const std::optional<SpeciesRule>& rule = {});
    // Writes the store if it changed; the entries used longest ago go past kMaxEntries.
    bool save();
    std::size_t size() const { return entries_.size(); }
    static constexpr std::size_t kMaxEntries = 50000;

private:
    struct Entry {
        std::uintmax_t size = 0;
        std::int64_t modified = 0;
        PoolFigures figures;
        SpeciesRule rule;
        std::uint64_t used = 0;
    };
    std::string file_;
    std::unordered_map<std::string, Entry> entries_;
    std::uint64_t clock_ = 0;
    bool changed_ = false;
};

}  // namespace aq
