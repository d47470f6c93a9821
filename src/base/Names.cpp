#include "base/Names.h"

#include <filesystem>
// GCC 12 reports std::regex's own std::function members as maybe uninitialized at -O1.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <regex>

#include "base/Paths.h"

namespace aq {

namespace fs = std::filesystem;

std::string regexReplace(const std::string& text, const std::string& pattern, const std::string& replacement,
                         bool ignoreCase) {
    try {
        auto flags = std::regex::ECMAScript | std::regex::multiline;
        if (ignoreCase) flags |= std::regex::icase;
        std::regex re(pattern, flags);
        return std::regex_replace(text, re, replacement);
    } catch (const std::regex_error&) {
        return text;
    }
}

std::string uniqueFileName(const std::string& folder, const std::string& name) {
    auto dot = name.rfind('.');
    std::string base = dot == std::string::npos ? name : name.substr(0, dot);
    std::string ext = dot == std::string::npos ? std::string() : name.substr(dot);
    for (long i = 0;; ++i) {
        std::string candidate = base + "." + std::to_string(i) + ext;
        std::error_code ec;
        if (!fs::exists(joinPath(folder, candidate), ec)) return candidate;
    }
}

int selectedCount(const CheckList& list) { return list.checkedCount(); }

std::string dialogExtension(const std::string& extension) {
    std::string ext = lowered(extension);
    if (!ext.empty() && ext[0] == '.') ext.erase(0, 1);
    return ext;
}

std::string fileDialogFilter(const std::string& extension, const std::string& description) {
    std::string ext = dialogExtension(extension);
    if (ext == "txt") return "All Files (*.*)|*.*|Text Files (*.txt)|*.txt|Batch Files (*.bat)|*.bat";
    if (ext.empty()) return "All Files (*.*)|*.*|Text Files (*.txt)|*.txt";
    return "All Files (*.*)|*.*|" + description + " (*." + ext + ")|*." + ext + "|Text Files (*.txt)|*.txt";
}

}  // namespace aq
