#pragma once
// Names of the files of a series and how its pools follow one another. A series is
// the chosen file's base name with a suffix of digits; the suffix is text, so "0" and
// "00" are different pools.
#include <string>

#include "state/App.h"

namespace aq {

// Folder, base name + suffix + extension of `seriesFile` (".aqp" when it has none).
std::string seriesFileName(const std::string& seriesFile, const std::string& suffix);

// The suffix of the pool the series takes after `suffix`: plain series count up
// (9 gives 10); branching series go through all suffixes of one length, then one longer
// ("", 0 .. 9, 00 .. 99, 000 ...).
std::string getNextParent(const std::string& suffix, bool branching);

// The path of child 0 or 1 of pool `suffix`, or "" when the series has no such child.
// Branching: suffix 23 has children 230 and 24; plain: only child 0, the next parent.
std::string getOffspringSpec(const std::string& seriesFile, const std::string& suffix, int child, bool branching);

// Whether that child can exist and has no file yet.
bool isOffspringMissing(const std::string& seriesFile, const std::string& suffix, int child, bool branching);

// Stores workPool as the child or children of pool `suffix`, split into two
// genetically distant halves where the pool has two children; workPool becomes a copy
// of openPool afterwards.
void saveoffspring(App& app, const std::string& seriesFile, const std::string& suffix);

// The two halves of a population: [0] nearer the seed with the larger gene sum, [1]
// nearer the other; each half at least two drifters. Public for tests.
void splitPopulation(const Pool& pool, int depth, Pool& half0, Pool& half1);

}  // namespace aq
