#include "series/SeriesNames.h"

#include <cstdint>
#include <filesystem>

#include "series/SeriesLinks.h"

namespace aq {

namespace {

struct NameParts {
    std::string folder, base, ext;
};

NameParts partsOf(const std::string& seriesFile) {
    std::string name = series::fileNameOfPath(seriesFile);
    auto dot = name.find_last_of('.');
    if (dot == std::string::npos) return {series::folderOfPath(seriesFile), name, ".aqp"};
    return {series::folderOfPath(seriesFile), name.substr(0, dot), name.substr(dot)};
}

bool endsInNine(const std::string& suffix) { return !suffix.empty() && suffix.back() == '9'; }

}  // namespace

std::string seriesFileName(const std::string& seriesFile, const std::string& suffix) {
    NameParts p = partsOf(seriesFile);
    return series::joinPath(p.folder, p.base + suffix + p.ext);
}

std::string getNextParent(const std::string& suffix, bool branching) {
    if (!branching) {
        std::uint64_t n = 0;
        for (char c : suffix) {
            if (c < '0' || c > '9') break;
            if (n < 1000000000000000000ull) n = n * 10 + static_cast<std::uint64_t>(c - '0');
        }
        return std::to_string(n + 1);
    }
    std::string head = suffix, tail;
    while (endsInNine(head)) {
        head.pop_back();
        tail += '0';
    }
    if (head.empty())
        tail += '0';
    else
        head.back() = static_cast<char>(head.back() + 1);
    return head + tail;
}

std::string getOffspringSpec(const std::string& seriesFile, const std::string& suffix, int child, bool branching) {
    if (!branching) return child == 0 ? seriesFileName(seriesFile, getNextParent(suffix, false)) : "";
    if (child == 0) return seriesFileName(seriesFile, suffix + "0");
    if (suffix.empty() || endsInNine(suffix)) return "";
    std::string raised = suffix;
    raised.back() = static_cast<char>(raised.back() + 1);
    return seriesFileName(seriesFile, raised);
}

bool isOffspringMissing(const std::string& seriesFile, const std::string& suffix, int child, bool branching) {
    if (child != 0 && (suffix.empty() || endsInNine(suffix))) return false;
    std::string path = getOffspringSpec(seriesFile, suffix, child, branching);
    if (path.empty()) return false;
    std::error_code ec;
    return !std::filesystem::exists(path, ec);
}

}  // namespace aq
