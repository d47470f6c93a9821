#include "files/FileNames.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "base/Paths.h"

namespace aq {

namespace fs = std::filesystem;

std::string nowFileName(App& app) {
    Clock::DateTime t = app.clock.now();
    char buf[64];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d", t.year, t.month, t.day, t.hour, t.minute, t.second);
    std::string s = buf;
    for (char& c : s)
        if (c == ':') c = '\'';
    s = regexReplace(s, R"([\\|/])", "-");
    s = regexReplace(s, R"([*?"<>])", "_");
    return trimmed(s);
}

std::string nextNumberedName(App& app, const std::string& /*folder*/, const std::string& name,
                             const std::string& extension) {
    if (name.empty()) return {};
    std::string work = name.substr(0, name.find('.'));
    auto digits = work.find_last_not_of("0123456789");
    std::size_t runStart = digits == std::string::npos ? 0 : digits + 1;
    int n;
    if (runStart < work.size()) {
        // A number beyond the 16-bit range is held at its top.
        std::string run = work.substr(runStart);
        n = run.size() > 5 ? 32767 : std::min(std::stoi(run), 32767);
        work.erase(runStart);
    } else {
        n = static_cast<int>(std::min<std::size_t>(work.size(), 32767));
    }
    std::string prefix, rest = name, mid, ext = extension;
    if (work.size() > 1 && !(work == app.lastBase && n != 0)) {
        std::string low = lowered(name);
        if (low.rfind("pool", 0) == 0) {
            prefix = work;
            rest = name.substr(4);
        } else if (low.rfind("drifter", 0) == 0) {
            prefix = work;
            rest = name.substr(7);
        }
    }
    if (!prefix.empty() && prefix.back() == '_') prefix.pop_back();
    app.lastBase = work;
    if (!prefix.empty()) {
        rest = prefix + rest;
        prefix.clear();
    }
    if (ext.find('.') == std::string::npos) ext = "." + ext;
    if (ext.size() == 4) {
        std::string tail = rest.size() >= 4 ? lowered(rest.substr(rest.size() - 4)) : std::string();
        if (tail == ".aqp" || tail == ".dna")
            rest.erase(rest.size() - 4);
        else
            ext.clear();
    }
    auto lastDot = rest.rfind('.');
    if (lastDot != std::string::npos) {
        mid = rest.substr(lastDot);
        rest.erase(lastDot);
    }
    if (!rest.empty()) {
        std::string c(1, rest.back());
        if (c == std::to_string(n) || c == std::to_string(n + 4) || c == app.lastDigit)
            rest.replace(rest.size() - 1, 1, std::to_string(n + 1));
        app.lastDigit = c;
    }
    return prefix + rest + mid + ext;
}

namespace {

enum class DialogKind { Save, Open };

std::string runFileDialog(App& app, DialogKind kind, const std::string& folder, const std::string& name,
                          const std::string& extension, const std::string& description, const std::string& title) {
    std::string ext = dialogExtension(extension);
    std::string suggested = name;
    if (!name.empty() && name.find('.') == std::string::npos) suggested += "." + ext;
    FileDialogMemory& mem = kind == DialogKind::Save ? app.destDialog : app.sourceDialog;
    if (!mem.used) {
        mem.used = true;
        mem.folder = app.homeFolder.empty() ? app.programFolder : app.homeFolder;
    }
    // The dialog's own title and start folder are only lent to this call.
    std::string useTitle = title.empty() ? mem.title : title;
    std::string useFolder = folder.empty() ? mem.folder : folder;
    if (kind == DialogKind::Save && !folder.empty()) {
        std::error_code ec;
        if (!fs::is_directory(folder, ec)) {
            fs::create_directories(folder, ec);
            if (ec) {
                app.ui.ShowMessage(ec.message(), kAppTitle);
                return suggested;
            }
        }
    }
    if (kind == DialogKind::Save) return app.ui.ChooseSaveFile(useFolder, suggested, ext, description, useTitle);
    return app.ui.ChooseOpenFile(useFolder, suggested, ext, description, useTitle);
}

}  // namespace

std::string locateDestFile(App& app, const std::string& folder, const std::string& name, const std::string& extension,
                           const std::string& description, const std::string& title) {
    return runFileDialog(app, DialogKind::Save, folder, name, extension, description, title);
}

std::string locateSourceFile(App& app, const std::string& folder, const std::string& name, const std::string& extension,
                             const std::string& description, const std::string& title) {
    return runFileDialog(app, DialogKind::Open, folder, name, extension, description, title);
}

}  // namespace aq
