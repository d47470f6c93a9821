#pragma once
// The records of a pool array whose rows are ticked (or not), in list order.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "base/CheckList.h"

namespace aq {

// Row i of `list` stands for records[i]; only rows that have a record count.
template <class Record>
std::vector<Record> recordsTicked(const std::vector<Record>& records, int count, const CheckList& list, bool ticked) {
    std::vector<Record> out;
    int n = std::min({count, list.count(), static_cast<int>(records.size())});
    for (int i = 0; i < n; ++i)
        if (list.checked(i) == ticked) out.push_back(records[static_cast<std::size_t>(i)]);
    return out;
}

// Keeps only the unticked records of one array (count and records alike), as the
// delete commands of both lists do; `ticked` is how many rows are ticked.
template <class Record>
void dropTickedRecords(std::vector<Record>& records, std::int32_t& count, const CheckList& list, int ticked) {
    std::vector<Record> kept = recordsTicked(records, count, list, false);
    count = std::max(list.count() - ticked, 0);
    if (count > 0) {
        kept.resize(static_cast<std::size_t>(count));
        records = std::move(kept);
    }
}

// Removes the ticked rows from the last to the first, so the rows left stay in step
// with the records left.
inline void removeTickedRows(CheckList& list) {
    for (int i = list.count() - 1; i >= 0; --i)
        if (list.checked(i)) list.remove(i);
}

}  // namespace aq
