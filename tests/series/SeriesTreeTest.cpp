#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <random>
#include <sstream>

#include "SeriesFakes.h"
#include "series/SeriesFigures.h"
#include "series/SeriesNames.h"
#include "series/SeriesTree.h"
#include "support/RunCli.h"
#include "support/TempDir.h"

using namespace aqtest;

TEST(SeriesTree, ParentAndGenerationOfEverySuffix) {
    // suffix, parent and generation in a branching series, then in a plain one ("-" none).
    const std::tuple<std::string, std::string, int, std::string, int> cases[] = {
        {"", "-", 0, "-", 0},       {"0", "", 1, "-", -1},        {"9", "8", 10, "8", 9},    {"00", "0", 2, "-", -1},
        {"99", "98", 20, "98", 99}, {"230", "23", 8, "229", 230}, {"24", "23", 8, "23", 24}, {"1", "0", 2, "", 1},
        {"10", "1", 3, "9", 10},    {"007", "006", 10, "-", -1},  {"x1", "-", -1, "-", -1},
    };
    for (const auto& [suffix, branchParent, branchGen, plainParent, plainGen] : cases) {
        EXPECT_EQ(aq::seriesParent(suffix, true).value_or("-"), branchParent) << suffix;
        EXPECT_EQ(aq::seriesGeneration(suffix, true), branchGen) << suffix;
        EXPECT_EQ(aq::seriesParent(suffix, false).value_or("-"), plainParent) << suffix;
        EXPECT_EQ(aq::seriesGeneration(suffix, false), plainGen) << suffix;
    }
    // The parent is the pool whose children, as the series names them, include the suffix,
    // one generation up.
    const unsigned seed = std::random_device{}();
    std::mt19937 rng(seed);
    for (int k = 0; k < 500; ++k) {
        std::string s(1 + rng() % 6, '0');
        for (char& c : s) c = static_cast<char>('0' + rng() % 10);
        for (bool branching : {true, false}) {
            auto parent = aq::seriesParent(s, branching);
            if (!parent) continue;
            std::string path = aq::seriesFileName("/d/p.aqp", s);
            EXPECT_TRUE(aq::getOffspringSpec("/d/p.aqp", *parent, 0, branching) == path ||
                        aq::getOffspringSpec("/d/p.aqp", *parent, 1, branching) == path)
                << s << " seed " << seed;
            EXPECT_EQ(aq::seriesGeneration(s, branching), aq::seriesGeneration(*parent, branching) + 1)
                << s << " seed " << seed;
        }
    }
}

namespace {

// A pool whose size, food, clock and dead drifters tell it from the others.
aq::Pool distinctPool(int k) {
    aq::Pool p = makePool(3 + k, 2 * k);
    p.clock = 1000 * k + 7;
    for (int i = 0; i < p.drifterCount; ++i) p.drifters[std::size_t(i)].alive = (i + k) % 3 != 0;
    return p;
}

// The lines of a tool's output, without the CR a Windows console adds.
std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

std::map<std::string, std::string> infoOf(const std::string& path) {
    std::map<std::string, std::string> fields;
    for (const std::string& line : linesOf(runCli("info \"" + path + "\"").out))
        if (auto colon = line.find(": "); colon != std::string::npos)
            fields[line.substr(0, colon)] = line.substr(colon + 2);
    return fields;
}

std::vector<std::vector<std::string>> csvRows(const std::string& text) {
    std::vector<std::vector<std::string>> rows;
    for (const std::string& line : linesOf(text)) {
        std::vector<std::string> row(1);
        bool quoted = false;
        for (char c : line) {
            if (c == '"')
                quoted = !quoted;
            else if (c == ',' && !quoted)
                row.emplace_back();
            else
                row.back() += c;
        }
        rows.push_back(row);
    }
    return rows;
}

}  // namespace

TEST(SeriesTree, TableListsTheFilesAsTheyStand) {
    TempDir dir;
    // A branching tree with one unreadable pool (its children still count), an orphan whose
    // parent is missing, and names that only look like the series.
    const std::vector<std::string> tree = {"", "0", "00", "1", "01", "10", "2", "000", "20", "11"};
    for (std::size_t k = 0; k < tree.size(); ++k)
        ASSERT_EQ(aq::writePool(dir.file("pool" + tree[k] + ".aqp"), distinctPool(int(k))), "");
    writeBytes(dir.file("pool1.aqp"), "not a pool");
    ASSERT_EQ(aq::writePool(dir.file("pool5.aqp"), distinctPool(1)), "");  // 4 is missing
    writeBytes(dir.file("pool0x.aqp"), "x");
    std::filesystem::create_directory(dir.file("pool3.aqp"));

    CliResult r = runCli("series --csv \"" + dir.file("pool.aqp") + "\"", true);
    ASSERT_EQ(r.status, 0) << r.out;
    auto rows = csvRows(r.out);
    // The count of unreadable files comes on stderr, wherever the pipes put it.
    const std::vector<std::string> note{"1 file could not be read."};
    EXPECT_EQ(std::count(rows.begin(), rows.end(), note), 1) << r.out;
    rows.erase(std::remove(rows.begin(), rows.end(), note), rows.end());
    ASSERT_FALSE(rows.empty());
    const std::vector<std::string> header = {"file",  "suffix", "parent", "generation", "drifters",
                                             "alive", "food",   "clock",  "best_score", "error"};
    ASSERT_EQ(rows.front(), header);
    const std::vector<std::string> order = {"", "0", "1", "2", "00", "01", "10", "11", "20", "000"};
    ASSERT_EQ(rows.size(), order.size() + 1) << r.out;
    for (std::size_t k = 0; k < order.size(); ++k) {
        const auto& row = rows[k + 1];
        const std::string path = dir.file("pool" + order[k] + ".aqp");
        ASSERT_EQ(row.size(), header.size()) << r.out;
        EXPECT_EQ(row[0], "pool" + order[k] + ".aqp");
        EXPECT_EQ(row[1], order[k]);
        EXPECT_EQ(row[2], aq::seriesParent(order[k], true).value_or(""));
        EXPECT_EQ(row[3], std::to_string(aq::seriesGeneration(order[k], true)));
        if (order[k] == "1") {
            EXPECT_EQ(row[4] + row[5] + row[6] + row[7] + row[8], "");
            EXPECT_NE(row[9].find("Error opening " + path), std::string::npos) << row[9];
            continue;
        }
        auto info = infoOf(path);
        EXPECT_EQ(row[4], info["drifterCount"]);
        EXPECT_EQ(row[6], info["foodCount"]);
        EXPECT_EQ(row[7], info["clock"]);
        aq::Pool pool;
        ASSERT_EQ(aq::readPool(path, pool).status, aq::PoolReadStatus::Ok);
        int alive = 0;
        for (const auto& d : pool.drifters) alive += d.alive != 0;
        EXPECT_EQ(row[5], std::to_string(alive));
        // The best of the scores aqfm gives each drifter.
        std::vector<std::string> scores = linesOf(runCli("scores \"" + path + "\"").out);
        std::string best;
        double top = -1e30;
        for (std::size_t k = 1; k < scores.size(); ++k)
            if (std::stod(scores[k]) > top) top = std::stod(scores[k]), best = scores[k];
        EXPECT_EQ(row[8], best);
        EXPECT_EQ(row[9], "");
    }

    // Plain: 1, 2, 3 follow the chosen file; "0" and "00" are not its pools. Species on request.
    std::filesystem::remove(dir.file("pool3.aqp"));
    for (const char* s : {"3", "002"})
        ASSERT_EQ(aq::writePool(dir.file(std::string("pool") + s + ".aqp"), distinctPool(2)), "");
    r = runCli("series --plain --species 44.4 \"" + dir.file("pool.aqp") + "\"");
    EXPECT_EQ(r.status, 0);
    std::vector<std::string> lines = linesOf(r.out);
    ASSERT_EQ(lines.size(), 5u) << r.out;  // "", 1 (unreadable, yet 2 and 3 hang on it), 2, 3
    EXPECT_EQ(lines[0].substr(0, 4), "file");
    EXPECT_NE(lines[0].find("best_score  species  error"), std::string::npos) << lines[0];
    EXPECT_EQ(runCli("series \"" + dir.file("none.aqp") + "\"").status, 1);
    EXPECT_EQ(runCli("series --depth 5 \"" + dir.file("pool.aqp") + "\"").status, 2);
}

TEST(SeriesTree, StoreKeepsFiguresWhileTheFileStaysTheSame) {
    TempDir dir;
    const std::string storeFile = dir.file("cache/figures.txt");
    aq::SeriesMember m{"0", "", dir.file("a\u00e9 b.aqp"), 1, 4096, 123456789012345};
    aq::PoolFigures f{10, 7, 3, -5, 1.0f / 3.0f, 4, ""};
    aq::PoolFigures broken;
    broken.error = "Error opening x, error: it is broken";
    aq::SeriesMember other = m;
    other.path = dir.file("b.aqp");
    const aq::SpeciesRule rule{44.4f, 100};
    {
        aq::FigureStore store(storeFile);
        store.put(m, f, rule);
        store.put(other, broken);
        ASSERT_TRUE(store.save());
    }
    aq::FigureStore store(storeFile);
    auto found = store.find(m, rule);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->alive, 7);
    EXPECT_EQ(found->clock, -5);
    EXPECT_EQ(found->bestScore, 1.0f / 3.0f);  // exact through the text
    EXPECT_EQ(found->species, 4);
    EXPECT_EQ(store.find(m, aq::SpeciesRule{50.0f, 100})->species, -1);  // counted by another rule
    EXPECT_EQ(store.find(other)->error, broken.error);
    EXPECT_FALSE(store.find(other)->bestScore);
    // A rewritten file (new size or time) is read again.
    aq::SeriesMember rewritten = m;
    rewritten.modified += 1;
    EXPECT_FALSE(store.find(rewritten));
    rewritten = m;
    rewritten.size += 1;
    EXPECT_FALSE(store.find(rewritten));
    // Figures put again without species keep the count the same file had.
    store.put(m, f);
    EXPECT_EQ(store.find(m, rule)->species, 4);
    // A damaged store is an empty one, and is replaced whole on the next save.
    writeBytes(storeFile, "aqfm-series-figures 1\nbroken\tline\n\x01\x02");
    aq::FigureStore damaged(storeFile);
    EXPECT_EQ(damaged.size(), 0u);
    damaged.put(m, f, rule);
    EXPECT_TRUE(damaged.save());
    EXPECT_EQ(aq::FigureStore(storeFile).size(), 1u);
}
