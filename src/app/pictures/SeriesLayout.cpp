#include "app/pictures/SeriesLayout.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace aqapp {

SeriesLayout layoutSeries(const std::vector<aq::SeriesMember>& members) {
    SeriesLayout out;
    const int n = static_cast<int>(members.size());
    out.places.resize(std::size_t(n));
    std::unordered_map<std::string, int> bySuffix;
    for (int i = 0; i < n; ++i) bySuffix.emplace(members[std::size_t(i)].suffix, i);

    std::vector<int> other(std::size_t(n), -1);  // the child that starts a row of its own
    std::vector<int> roots;
    for (int i = 0; i < n; ++i) {
        const aq::SeriesMember& m = members[std::size_t(i)];
        SeriesPlace& p = out.places[std::size_t(i)];
        p.column = std::max(0, m.generation);
        out.columns = std::max(out.columns, p.column + 1);
        auto parent = m.suffix.empty() ? bySuffix.end() : bySuffix.find(m.parent);
        if (parent == bySuffix.end() || parent->second == i) {
            roots.push_back(i);
            continue;
        }
        p.parent = parent->second;
        SeriesPlace& up = out.places[std::size_t(p.parent)];
        int& first = up.next;
        if (first < 0) {
            first = i;
            continue;
        }
        // Two children: the one as long as the parent continues its row.
        const std::size_t length = members[std::size_t(p.parent)].suffix.size();
        bool mineContinues = m.suffix.size() == length && members[std::size_t(first)].suffix.size() != length;
        other[std::size_t(p.parent)] = mineContinues ? std::exchange(first, i) : i;
    }

    // Depth first, the continuing child before the other, without recursion: a plain
    // series of thousands of generations is one long chain. Every row used before a
    // subtree starts lies at or above its first pool, so "below everything the
    // continuing subtree used" is one more than the deepest row so far.
    int deepest = -1;
    std::vector<std::pair<int, int>> stack;  // index, row (-1: the next free row)
    for (auto it = roots.rbegin(); it != roots.rend(); ++it) stack.emplace_back(*it, -1);
    while (!stack.empty()) {
        auto [i, row] = stack.back();
        stack.pop_back();
        if (row < 0) row = deepest + 1;
        deepest = std::max(deepest, row);
        SeriesPlace& p = out.places[std::size_t(i)];
        p.row = row;
        if (other[std::size_t(i)] >= 0) stack.emplace_back(other[std::size_t(i)], -1);
        if (p.next >= 0) stack.emplace_back(p.next, row);
    }
    out.rows = deepest + 1;
    return out;
}

std::vector<int> seriesBranch(const SeriesLayout& layout, int index) {
    const int n = static_cast<int>(layout.places.size());
    if (index < 0 || index >= n) return {};
    std::vector<int> branch;
    for (int i = index; i >= 0 && int(branch.size()) <= n; i = layout.places[std::size_t(i)].parent)
        branch.push_back(i);
    std::reverse(branch.begin(), branch.end());
    for (int i = layout.places[std::size_t(index)].next; i >= 0 && int(branch.size()) <= n;
         i = layout.places[std::size_t(i)].next)
        branch.push_back(i);
    return branch;
}

}  // namespace aqapp
