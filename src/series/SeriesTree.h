#pragma once
// A series as a whole: which of its files exist and how they hang together. Each pool
// has one parent, the pool that made it, so the files form a tree under the chosen file.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace aq {

// The suffix of the pool that made `suffix`, or nothing for the chosen file ("") and for
// a suffix the series never makes (a plain series makes "1", "2" ... but never "0" or "07").
// Branching: "230" comes from "23", "24" from "23", "0" from "".
std::optional<std::string> seriesParent(const std::string& suffix, bool branching);

// Steps down the tree from the chosen file, -1 for a suffix the series never makes.
// Branching: the number of digits plus their sum ("24" is 8: "", 0, 1, 2, 20 ... 24);
// plain: the number itself.
int seriesGeneration(const std::string& suffix, bool branching);

// The order in which the series takes its pools: shorter suffixes first, then by digits.
bool seriesWalkBefore(const std::string& a, const std::string& b);

struct SeriesMember {
    std::string suffix;
    std::string parent;  // the parent's suffix; "" for the chosen file as for its children
    std::string path;
    int generation = 0;
    std::uintmax_t size = 0;
    std::int64_t modified = 0;  // the file's time in nanoseconds, to tell a rewritten file
};

// Every existing file of the series `seriesFile` starts, in the order the series takes
// them. The tree stops under a missing file; nothing is listed when the chosen file is missing.
std::vector<SeriesMember> listSeries(const std::string& seriesFile, bool branching);

}  // namespace aq
