#pragma once
// Where each pool of a series stands in its picture: one column per generation, and
// rows for the branches. A pool's continuing child keeps its row; the other child's
// subtree starts on the first row below everything the continuing one used, so lines
// from parent to child never cross a pool. Plain data in, plain data out.
#include <string>
#include <vector>

#include "series/SeriesTree.h"

namespace aqapp {

struct SeriesPlace {
    int column = 0;  // the generation
    int row = 0;
    int parent = -1;  // index of the parent pool, -1 for the chosen file
    int next = -1;    // index of the child that continues the row, -1 for none
};

struct SeriesLayout {
    std::vector<SeriesPlace> places;  // one per member, in the members' order
    int columns = 0;
    int rows = 0;
};

// The continuing child is the one whose suffix is as long as its parent's ("24" after
// "23"), else the only one ("230", or any child in a plain series).
SeriesLayout layoutSeries(const std::vector<aq::SeriesMember>& members);

// The pools from the chosen file down to `index`, then on along its row: the line of
// descent a chart of that pool follows. Empty for an index out of range.
std::vector<int> seriesBranch(const SeriesLayout& layout, int index);

}  // namespace aqapp
