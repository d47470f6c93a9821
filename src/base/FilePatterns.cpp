#include "base/FilePatterns.h"

#include <filesystem>

#include "base/Paths.h"

namespace aq {

namespace fs = std::filesystem;

bool wildcardMatch(const std::string& pattern, const std::string& name) {
    std::string p = lowered(pattern), n = lowered(name);
    std::size_t pi = 0, ni = 0, star = std::string::npos, mark = 0;
    while (ni < n.size()) {
        if (pi < p.size() && (p[pi] == '?' || p[pi] == n[ni])) {
            ++pi;
            ++ni;
        } else if (pi < p.size() && p[pi] == '*') {
            star = pi++;
            mark = ni;
        } else if (star != std::string::npos) {
            pi = star + 1;
            ni = ++mark;
        } else {
            return false;
        }
    }
    while (pi < p.size() && p[pi] == '*') ++pi;
    return pi == p.size();
}

bool filePatternExists(const std::string& folder, const std::string& pattern) {
    if (folder.empty()) return false;
    std::string bare;
    if (pattern.size() > 4 && lowered(pattern.substr(pattern.size() - 4)) == ".exe")
        bare = pattern.substr(0, pattern.size() - 4);
    std::error_code ec;
    fs::directory_iterator it(folder, ec), end;
    for (; !ec && it != end; it.increment(ec)) {
        std::error_code fileEc;
        if (!it->is_regular_file(fileEc)) continue;
        std::string name = it->path().filename().string();
        if (wildcardMatch(pattern, name)) return true;
        // Without its ".exe" a program is known by being one: "aquarium_notes.txt" is not.
        constexpr auto exec = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
        if (!bare.empty() && wildcardMatch(bare, name) && (it->status(fileEc).permissions() & exec) != fs::perms::none)
            return true;
    }
    return false;
}

}  // namespace aq
