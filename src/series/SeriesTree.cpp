#include "series/SeriesTree.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <map>

#include "series/SeriesLinks.h"
#include "series/SeriesNames.h"

namespace aq {

namespace {

bool allDigits(const std::string& s) {
    return std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// A number as a plain series writes it: no leading zero, at least 1, and small enough to count.
bool plainNumber(const std::string& s) { return !s.empty() && s.size() <= 9 && s[0] != '0' && allDigits(s); }

// The suffixes a pool's children would have.
std::vector<std::string> childSuffixes(const std::string& suffix, bool branching) {
    if (!branching) return {getNextParent(suffix, false)};
    std::vector<std::string> children{suffix + "0"};
    if (!suffix.empty() && suffix.back() != '9') {
        std::string raised = suffix;
        ++raised.back();
        children.push_back(raised);
    }
    return children;
}

}  // namespace

std::optional<std::string> seriesParent(const std::string& suffix, bool branching) {
    if (suffix.empty() || !allDigits(suffix)) return std::nullopt;
    if (!branching) {
        if (!plainNumber(suffix)) return std::nullopt;
        return suffix == "1" ? std::string() : std::to_string(std::stol(suffix) - 1);
    }
    std::string parent = suffix;
    if (parent.back() == '0')
        parent.pop_back();
    else
        --parent.back();
    return parent;
}

int seriesGeneration(const std::string& suffix, bool branching) {
    if (suffix.empty()) return 0;
    if (!seriesParent(suffix, branching)) return -1;
    if (!branching) return static_cast<int>(std::stol(suffix));
    if (suffix.size() > 100000000) return -1;
    int steps = static_cast<int>(suffix.size());
    for (char c : suffix) steps += c - '0';
    return steps;
}

bool seriesWalkBefore(const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

std::vector<SeriesMember> listSeries(const std::string& seriesFile, bool branching) {
    namespace fs = std::filesystem;
    const std::string root = seriesFileName(seriesFile, "");
    const std::string rootName = series::fileNameOfPath(root);
    const std::string folder = series::folderOfPath(root);
    const auto dot = rootName.find_last_of('.');
    const std::string base = rootName.substr(0, dot), ext = rootName.substr(dot);

    // One look at the folder finds every file that could belong, with its size and time.
    std::map<std::string, SeriesMember> found;
    std::error_code ec;
    for (fs::directory_iterator it(folder.empty() ? fs::path(".") : fs::path(folder), ec), end; !ec && it != end;
         it.increment(ec)) {
        std::string name = it->path().filename().string();
        if (name.size() < base.size() + ext.size() || name.compare(0, base.size(), base) != 0 ||
            name.compare(name.size() - ext.size(), ext.size(), ext) != 0)
            continue;
        std::string suffix = name.substr(base.size(), name.size() - base.size() - ext.size());
        std::error_code e;
        if (!allDigits(suffix) || it->is_directory(e)) continue;  // a FIFO or device is listed, and its read refused
        SeriesMember m;
        m.suffix = suffix;
        m.size = it->file_size(e);
        m.modified =
            std::chrono::duration_cast<std::chrono::nanoseconds>(it->last_write_time(e).time_since_epoch()).count();
        found.emplace(suffix, std::move(m));
    }

    std::vector<SeriesMember> members;
    auto take = [&](const std::string& suffix, const std::string& parent, int generation) {
        auto f = found.find(suffix);
        if (f == found.end()) return;
        SeriesMember m = std::move(f->second);
        found.erase(f);  // each suffix once, whatever a malformed name might suggest
        m.parent = parent;
        m.generation = generation;
        m.path = seriesFileName(seriesFile, suffix);
        members.push_back(std::move(m));
    };
    take("", "", 0);
    for (std::size_t k = 0; k < members.size(); ++k) {
        const std::string suffix = members[k].suffix;
        const int generation = members[k].generation + 1;
        for (const std::string& child : childSuffixes(suffix, branching)) take(child, suffix, generation);
    }
    std::stable_sort(members.begin(), members.end(),
                     [](const SeriesMember& a, const SeriesMember& b) { return seriesWalkBefore(a.suffix, b.suffix); });
    return members;
}

}  // namespace aq
