#pragma once
// Path text as the drifter file commands compare and build it.
#include <string>

namespace aq::dnapaths {

inline std::string lowerCase(std::string s) {
    for (char& c : s)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return s;
}

// A separator between folder and name unless the folder ends in one (or in ":").
inline std::string joinFolder(const std::string& folder, const std::string& name) {
    if (folder.empty() || folder.back() == '/' || folder.back() == ':') return folder + name;
    return folder + "/" + name;
}

// Splits at the last separator; without one, `folder` stays as it was.
inline void splitPath(const std::string& path, std::string& folder, std::string& name) {
    auto slash = path.find_last_of('/');
    if (slash == std::string::npos) {
        name = path;
        return;
    }
    folder = slash == 0 ? "/" : path.substr(0, slash);
    name = path.substr(slash + 1);
}

inline std::string fileNameOf(const std::string& path) {
    auto slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

// Folders compared as the user sees them: any case, a trailing separator or not.
inline bool sameFolder(std::string a, std::string b) {
    while (a.size() > 1 && a.back() == '/') a.pop_back();
    while (b.size() > 1 && b.back() == '/') b.pop_back();
    return lowerCase(a) == lowerCase(b);
}

}  // namespace aq::dnapaths
