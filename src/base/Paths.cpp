#include "base/Paths.h"

#include <algorithm>
#include <cctype>

namespace aq {

bool isSlashPath(const std::string& path) {
    return !path.empty() && path[0] == '/' && path.find('\\') == std::string::npos;
}

std::string joinPath(const std::string& folder, const std::string& name) {
    if (!folder.empty() && folder.back() == ':') return folder + name;
    if (folder.find('\\') != std::string::npos) return folder + "\\" + name;
    // Folders without a backslash are this system's own: "/" separates, and a
    // folder that already ends in "/" (the root above all) takes the name as it is.
    if (!folder.empty() && folder.back() == '/') return folder + name;
    return folder + "/" + name;
}

std::string childPath(const std::string& folder, const std::string& name) {
    if (isSlashPath(folder)) return folder.back() == '/' ? folder + name : folder + "/" + name;
    return folder + "\\" + name;
}

namespace {
// 1-based positions, 0 when not found.
std::size_t pos1(std::size_t p) { return p == std::string::npos ? 0 : p + 1; }
}  // namespace

void SplitPath(const std::string& whole, std::string& folder, std::string& file) {
    std::size_t first, last;
    if (isSlashPath(whole)) {
        first = pos1(whole.find('/'));
        last = pos1(whole.rfind('/'));
    } else {
        first = pos1(whole.find('\\'));
        if (!first) first = pos1(whole.rfind('/'));
        if (!first) first = pos1(whole.rfind(':'));
        last = pos1(whole.rfind('\\'));
        if (!last) last = pos1(whole.rfind('/'));
        if (!last) last = pos1(whole.rfind(':'));
    }
    if (last == 0) {
        folder.clear();
        file = whole;
        return;
    }
    std::string rest = whole.substr(last);
    // The one separator of a drive's root stays with the folder.
    folder = last == first ? whole.substr(0, last) : whole.substr(0, last - 1);
    file = std::move(rest);
}

std::string fileNameOfPath(const std::string& path) {
    std::string folder, file;
    SplitPath(path, folder, file);
    return file;
}

std::string folderOfPath(const std::string& path) {
    std::string folder, file;
    SplitPath(path, folder, file);
    return folder;
}

std::string driveOfPath(const std::string& path) {
    bool slash = isSlashPath(path);
    if (!slash) {
        auto colon = path.find(':');
        if (colon != std::string::npos) return path.substr(0, colon + 1);
    }
    if (path.rfind("//", 0) == 0 || path.rfind("\\\\", 0) == 0) {
        auto p = path.find('\\', 2);
        if (p == std::string::npos) p = path.find('/', 2);
        return p == std::string::npos ? std::string() : path.substr(0, p);
    }
    return slash ? "/" : "";
}

std::string trimmed(const std::string& s) {
    auto b = s.find_first_not_of(" \t");
    if (b == std::string::npos) return {};
    auto e = s.find_last_not_of(" \t");
    return s.substr(b, e - b + 1);
}

std::string lowered(std::string s) {
    std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return s;
}

}  // namespace aq
