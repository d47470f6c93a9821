#include "shell/Settings.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unordered_set>

#include "archive/ArchiveChecks.h"
#include "base/FileIo.h"
#include "base/Paths.h"
#include "files/FileNames.h"
#include "files/PathBoxes.h"

namespace aq {

namespace fs = std::filesystem;

std::string settingsFilePath(const App& app) { return joinPath(app.programFolder, "aqfm.ini"); }

std::string readTextFile(App& app, const std::string& path) {
    std::error_code ec;
    if (!fs::exists(path, ec)) return {};
    WaitCursor wait(app.ui);
    std::string text;
    // A settings file is a few hundred bytes; anything past a megabyte is not one.
    std::string err = readWholeFile(path, text, 1 << 20);
    if (!err.empty()) {
        app.ui.ShowMessage("Error opening " + path + ", error: " + err, "Aquarium File Manager - Load File");
        return {};
    }
    return text;
}

bool writeTextFile(App& app, const std::string& text, const std::string& path) {
    WaitCursor wait(app.ui);
    std::string err = writeFileAtomically(path, text);
    if (!err.empty()) {
        app.ui.ShowMessage("Error opening " + path + ", error: " + err, "Aquarium File Manager - Save Text File");
        return false;
    }
    return true;
}

namespace {

const char* const kBoxKeys[3] = {"comboAquariumPath", "comboDrifterPath", "comboPoolPath"};

std::string buildSettingsText(App& app) {
    std::string t;
    auto line = [&](const std::string& key, const std::string& value) { t += key + " = " + value + "\r\n"; };
    const CheckList& list = app.archive.lstArchive;
    for (int i = 0; i < list.count(); ++i)
        line("lstArchive.Selected(" + std::to_string(i) + ")", list.checked(i) ? "True" : "False");
    line("chkAutoName.Value", std::to_string(app.archive.chkAutoName));
    line("chkNowName.Value", std::to_string(app.archive.chkNowName));
    line("chkDeleteOriginal.Value", std::to_string(app.archive.chkDeleteOriginal));
    line("chkAutoBackup.Value", std::to_string(app.archive.chkAutoBackup));
    const std::vector<std::string>* items[3] = {&app.comboAquariumPathItems, &app.comboDrifterPathItems,
                                                &app.comboPoolPathItems};
    for (int b = 0; b < 3; ++b)
        for (const auto& item : *items[b]) line(std::string(kBoxKeys[b]) + ".ListItem", item);
    const std::string* texts[3] = {&app.comboAquariumPath, &app.comboDrifterPath, &app.comboPoolPath};
    for (int b = 0; b < 3; ++b) line(std::string(kBoxKeys[b]) + ".Text", *texts[b]);
    return t;
}

// "True"/"False" in any capitals, or a number (0 is false).
bool parseBool(const std::string& v, bool& out) {
    std::string low = lowered(v);
    if (low == "true") return out = true, true;
    if (low == "false") return out = false, true;
    char* end = nullptr;
    double d = std::strtod(v.c_str(), &end);
    if (v.empty() || *end != '\0') return false;
    out = d != 0;
    return true;
}

// The number at the start of the value; a check box takes 0, 1 or 2.
bool parseCheckValue(const std::string& v, int& out) {
    std::size_t i = 0;
    if (i < v.size() && (v[i] == '+' || v[i] == '-')) ++i;
    std::size_t digits = i;
    while (digits < v.size() && std::isdigit(static_cast<unsigned char>(v[digits]))) ++digits;
    if (digits == i || digits - i > 6) return false;
    int n = std::stoi(v.substr(0, digits));
    if (n < 0 || n > 2) return false;
    out = n;
    return true;
}

void applyLine(App& app, const std::string& key, const std::string& value, std::unordered_set<std::string> known[3]) {
    static const std::string kSelected = "lstArchive.Selected(";
    if (key.rfind(kSelected, 0) == 0 && key.size() > kSelected.size() + 1 && key.back() == ')') {
        std::string num = key.substr(kSelected.size(), key.size() - kSelected.size() - 1);
        if (num.empty() || num.size() > 4 || num.find_first_not_of("0123456789") != std::string::npos) return;
        int i = std::stoi(num);
        bool on;
        if (i < app.archive.lstArchive.count() && parseBool(value, on)) app.archive.lstArchive.setChecked(i, on);
        return;
    }
    int* boxes[4] = {&app.archive.chkAutoName, &app.archive.chkNowName, &app.archive.chkDeleteOriginal,
                     &app.archive.chkAutoBackup};
    const char* boxKeys[4] = {"chkAutoName.Value", "chkNowName.Value", "chkDeleteOriginal.Value",
                              "chkAutoBackup.Value"};
    for (int b = 0; b < 4; ++b)
        if (key == boxKeys[b]) {
            parseCheckValue(value, *boxes[b]);
            return;
        }
    std::string* texts[3] = {&app.comboAquariumPath, &app.comboDrifterPath, &app.comboPoolPath};
    for (int b = 0; b < 3; ++b) {
        if (key == std::string(kBoxKeys[b]) + ".ListItem") return pathBoxAppend(app, b, value, known[b]);
        if (key == std::string(kBoxKeys[b]) + ".Text") {
            *texts[b] = value;
            return;
        }
    }
}

// Any line break (CR LF, CR or LF) ends a line; the key and the value lose their blanks
// and tabs where they are used. Split by hand: a regular expression recurses per
// character and a long line in a damaged file would overflow the stack.
void applySettingsText(App& app) {
    const std::string& t = app.settingsText;
    std::unordered_set<std::string> known[3];
    for (std::size_t start = 0; start <= t.size();) {
        std::size_t end = std::min(t.find_first_of("\r\n", start), t.size());
        std::string line = t.substr(start, end - start);
        auto eq = line.find('=');
        if (eq != std::string::npos) {
            auto eq2 = line.find('=', eq + 1);
            std::string value = line.substr(eq + 1, eq2 == std::string::npos ? std::string::npos : eq2 - eq - 1);
            applyLine(app, trimmed(line.substr(0, eq)), trimmed(value), known);
        }
        start = end + 1;
    }
}

}  // namespace

void ini(App& app, const std::string& verb) {
    if (app.uiBusy) return;
    std::string v = lowered(trimmed(verb));
    {
        BusyScope busy(app);
        if (v == "store" || v == "set") {
            app.settingsText = buildSettingsText(app);
        } else if (v == "load") {
            std::string text = readTextFile(app, settingsFilePath(app));
            if (text.find('=') != std::string::npos) app.settingsText = text;
        } else if (v == "save") {
            writeTextFile(app, app.settingsText, settingsFilePath(app));
        } else if (v == "use" || v == "get") {
            applySettingsText(app);
        }
        app.ui.YieldToUi();
    }
    if (v == "use" || v == "get") app.stateChanged();
}

void startupSettings(App& app) {
    {
        BusyScope busy(app);
        app.archive.lstArchive.setCurrentIndex(-1);
    }
    cmdLstArchiveAll(app);
    // The rescaling of the placed window captures the controls; without a file
    // that capture is what "Use" gives back.
    ini(app, "set");
    ini(app, "Load");
    app.archive.chkDeleteOriginal = 2;
    ini(app, "Use");
}

}  // namespace aq
