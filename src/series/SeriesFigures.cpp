#include "series/SeriesFigures.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <sstream>

#include "base/FileIo.h"
#include "format/PoolFile.h"
#include "pooleditor/SpeciesPass.h"
#include "series/Success.h"

namespace aq {

PoolFigures poolFigures(const Pool& pool) {
    PoolFigures f;
    const int n = std::clamp<int>(pool.drifterCount, 0, static_cast<int>(pool.drifters.size()));
    f.drifters = pool.drifterCount;
    f.food = pool.foodCount;
    f.clock = pool.clock;
    for (int i = 0; i < n; ++i) {
        if (pool.drifters[static_cast<std::size_t>(i)].alive) ++f.alive;
        float score = SuccessScore(pool, i);
        if (!f.bestScore || score > *f.bestScore) f.bestScore = score;
    }
    return f;
}

int speciesCount(const Pool& pool, const SpeciesRule& rule) {
    std::vector<std::int32_t> tags = poolSpeciesTags(pool, rule.threshold, rule.depth);
    std::int32_t top = -1;
    for (std::int32_t t : tags) top = std::max(top, t);
    return top + 1;
}

PoolFigures readPoolFigures(const std::string& path, const std::optional<SpeciesRule>& species, Pool& scratch) {
    PoolReadResult r = readPool(path, scratch);
    if (r.status != PoolReadStatus::Ok) {
        PoolFigures f;
        f.error = poolReadMessage(path, r);
        return f;
    }
    PoolFigures f = poolFigures(scratch);
    if (species) f.species = speciesCount(scratch, *species);
    return f;
}

// One line per file, fields split by tabs: path, size, time, drifters, alive, food, clock,
// best score ("" for none), species, threshold, depth, error. Floats are written so they
// read back exact.
namespace {

const char* const kStoreHeader = "aqfm-series-figures 1";

template <typename T>
bool parse(const std::string& text, T& value) {
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    return ec == std::errc() && end == text.data() + text.size();
}

template <typename T>
std::string text(T value) {
    char buf[64];
    auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value);
    return ec == std::errc() ? std::string(buf, end) : std::string();
}

bool clean(const std::string& s) { return s.find_first_of("\t\n\r") == std::string::npos; }

}  // namespace

FigureStore::FigureStore(std::string file) : file_(std::move(file)) {
    std::string bytes;
    if (file_.empty() || !readWholeFile(file_, bytes, 64u << 20).empty()) return;
    std::istringstream in(bytes);
    std::string line;
    if (!std::getline(in, line) || line != kStoreHeader) return;
    while (std::getline(in, line)) {
        std::vector<std::string> f;
        std::size_t start = 0;
        for (std::size_t tab; (tab = line.find('\t', start)) != std::string::npos; start = tab + 1)
            f.push_back(line.substr(start, tab - start));
        f.push_back(line.substr(start));
        if (f.size() != 12 || f[0].empty()) continue;
        Entry e;
        float best = 0;
        bool ok = parse(f[1], e.size) && parse(f[2], e.modified) && parse(f[3], e.figures.drifters) &&
                  parse(f[4], e.figures.alive) && parse(f[5], e.figures.food) && parse(f[6], e.figures.clock) &&
                  (f[7].empty() || parse(f[7], best)) && parse(f[8], e.figures.species) &&
                  parse(f[9], e.rule.threshold) && parse(f[10], e.rule.depth);
        if (!ok) continue;
        if (!f[7].empty()) e.figures.bestScore = best;
        e.figures.error = f[11];
        entries_[f[0]] = std::move(e);
    }
}

std::optional<PoolFigures> FigureStore::find(const SeriesMember& m, const std::optional<SpeciesRule>& rule) {
    auto it = entries_.find(m.path);
    if (it == entries_.end() || it->second.size != m.size || it->second.modified != m.modified) return std::nullopt;
    it->second.used = ++clock_;
    PoolFigures f = it->second.figures;
    if (!rule || !(it->second.rule == *rule)) f.species = -1;
    return f;
}

void FigureStore::put(const SeriesMember& m, const PoolFigures& f, const std::optional<SpeciesRule>& rule) {
    if (!clean(m.path) || !clean(f.error)) return;
    Entry& e = entries_[m.path];
    // A species count of the same file outlives a put without one.
    bool keepSpecies = !rule && e.size == m.size && e.modified == m.modified && e.figures.species >= 0;
    int species = keepSpecies ? e.figures.species : f.species;
    e.size = m.size;
    e.modified = m.modified;
    e.figures = f;
    e.figures.species = rule || keepSpecies ? species : -1;
    if (rule) e.rule = *rule;
    e.used = ++clock_;
    changed_ = true;
}

bool FigureStore::save() {
    if (!changed_ || file_.empty()) return true;
    std::vector<std::pair<const std::string*, const Entry*>> keep;
    for (const auto& [path, e] : entries_) keep.emplace_back(&path, &e);
    if (keep.size() > kMaxEntries) {
        std::nth_element(keep.begin(), keep.begin() + kMaxEntries, keep.end(),
                         [](const auto& a, const auto& b) { return a.second->used > b.second->used; });
        keep.resize(kMaxEntries);
    }
    std::string out = std::string(kStoreHeader) + "\n";
    for (const auto& [path, e] : keep) {
        const PoolFigures& f = e->figures;
        out += *path + '\t' + text(e->size) + '\t' + text(e->modified) + '\t' + text(f.drifters) + '\t' +
               text(f.alive) + '\t' + text(f.food) + '\t' + text(f.clock) + '\t' +
               (f.bestScore ? text(*f.bestScore) : "") + '\t' + text(f.species) + '\t' + text(e->rule.threshold) +
               '\t' + text(e->rule.depth) + '\t' + f.error + '\n';
    }
    std::error_code ec;
    std::filesystem::create_directories(std::filesystem::path(file_).parent_path(), ec);
    if (!writeFileAtomically(file_, out).empty()) return false;
    changed_ = false;
    return true;
}

}  // namespace aq
