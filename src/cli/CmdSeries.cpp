// aqfm series: one row per existing file of a series, as the tree of files goes.
#include <filesystem>
#include <iostream>

#include "base/NumberText.h"
#include "cli/Cli.h"
#include "cli/CliSupport.h"
#include "series/SeriesFigures.h"
#include "series/SeriesNames.h"
#include "series/SeriesTree.h"

using namespace aqcli;

namespace {

// A CSV field, quoted when it holds a comma, a quote or a line break.
std::string csvField(const std::string& s) {
    if (s.find_first_of(",\"\r\n") == std::string::npos) return s;
    std::string q = "\"";
    for (char c : s) (q += c) += c == '"' ? "\"" : "";
    return q + '"';
}

void printTable(const std::vector<std::vector<std::string>>& rows, bool csv) {
    std::vector<std::size_t> width(rows.front().size(), 0);
    for (const auto& row : rows)
        for (std::size_t c = 0; c < row.size(); ++c) width[c] = std::max(width[c], row[c].size());
    std::string out;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t c = 0; c < row.size(); ++c) {
            if (csv) {
                line += (c ? "," : "") + csvField(row[c]);
            } else if (c + 1 < row.size()) {
                line += row[c] + std::string(width[c] - row[c].size() + 2, ' ');
            } else {
                line += row[c];
            }
        }
        while (!csv && !line.empty() && line.back() == ' ') line.pop_back();
        (out += line) += '\n';
    }
    std::cout << out;
}

int runSeries(const Args& a) {
    a.expectPositional(1);
    std::optional<aq::SpeciesRule> rule;
    if (a.value("--species"))
        rule = aq::SpeciesRule{thresholdOption(a, "--species", 44.4f), depthOption(a, 100)};
    else if (a.value("--depth"))
        throw UsageError{"option --depth needs --species"};
    const bool branching = !a.flag("--plain");
    // The series' names are made by joining folder and name, so they need a folder.
    std::error_code ec;
    const std::string file = std::filesystem::absolute(a.positional()[0], ec).string();
    std::vector<aq::SeriesMember> members = aq::listSeries(file, branching);
    if (members.empty()) {
        aq::Pool pool;
        return readPoolOrFail(aq::seriesFileName(file, ""), pool);
    }
    std::vector<std::vector<std::string>> rows{
        {"file", "suffix", "parent", "generation", "drifters", "alive", "food", "clock", "best_score"}};
    if (rule) rows[0].push_back("species");
    aq::Pool scratch;
    int unreadable = 0;
    for (const aq::SeriesMember& m : members) {
        aq::PoolFigures f = aq::readPoolFigures(m.path, rule, scratch);
        std::vector<std::string> row{std::filesystem::path(m.path).filename().string(), m.suffix,
                                     m.suffix.empty() ? "" : m.parent, std::to_string(m.generation)};
        if (f.error.empty()) {
            for (int v : {f.drifters, f.alive, f.food, static_cast<int>(f.clock)}) row.push_back(std::to_string(v));
            row.push_back(f.bestScore ? aq::NumberText(*f.bestScore) : "");
            if (rule) row.push_back(std::to_string(f.species));
        } else {
            ++unreadable;
            row.resize(rows[0].size());
            row.push_back(f.error);
        }
        rows.push_back(std::move(row));
    }
    if (unreadable > 0) {
        rows[0].push_back("error");
        for (auto& row : rows) row.resize(rows[0].size());
    }
    printTable(rows, a.flag("--csv"));
    if (unreadable > 0) std::cerr << unreadable << (unreadable == 1 ? " file" : " files") << " could not be read.\n";
    return 0;
}

Register regSeries({"series",
                    "list the files of a series with how each pool did",
                    "aqfm series FILE [--plain] [--species T [--depth D]] [--csv]",
                    runSeries,
                    {"--species", "--depth"},
                    {"--plain", "--csv"},
                    "Prints one row per existing file of the series that FILE starts (branching unless --plain), in "
                    "the order the series takes them: file, suffix, parent (the suffix of the pool that made it), "
                    "generation (0 for FILE, one more per step down the tree), drifters, alive, food, clock, "
                    "best_score (empty without drifters) and, with --species, the species count of a complete pass. "
                    "Aligned columns, or CSV with a header line with --csv. A file that can't be read gets its message "
                    "in a last column, error; the count of such files goes to stderr and the status stays 0."});

}  // namespace
