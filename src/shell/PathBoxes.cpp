#include "shell/PathBoxes.h"

#include <algorithm>
#include <filesystem>

#include "shell/Paths.h"

namespace aq {

namespace fs = std::filesystem;

namespace {

// The pool box compares trimmed and in any capitals; the other two compare exactly.
void setBox(std::string& text, std::vector<std::string>& items, const std::string& path, std::int16_t position,
            bool looseText, std::unordered_set<std::string>* known = nullptr) {
    std::string t = trimmed(path);
    if (t.empty()) return;
    if (looseText) {
        if (lowered(trimmed(text)) != lowered(t)) text = t;
    } else if (text != path) {
        text = path;
    }
    std::string key = lowered(t);
    if (known) {
        if (!known->insert(key).second) return;
    } else {
        for (const auto& item : items)
            if (lowered(trimmed(item)) == key) return;
    }
    if (position > 0 && static_cast<std::size_t>(position) <= items.size())
        items.insert(items.begin() + position, t);
    else
        items.push_back(t);
}

}  // namespace

void comboAquariumPath_set(App& app, const std::string& path, std::int16_t position) {
    setBox(app.comboAquariumPath, app.comboAquariumPathItems, path, position, false);
}
void comboDrifterPath_set(App& app, const std::string& path, std::int16_t position) {
    setBox(app.comboDrifterPath, app.comboDrifterPathItems, path, position, false);
}
void comboPoolPath_set(App& app, const std::string& path, std::int16_t position) {
    setBox(app.comboPoolPath, app.comboPoolPathItems, path, position, true);
}

void pathBoxAppend(App& app, int box, const std::string& path, std::unordered_set<std::string>& known) {
    if (known.empty()) {
        const auto& items = box == 0   ? app.comboAquariumPathItems
                            : box == 1 ? app.comboDrifterPathItems
                                       : app.comboPoolPathItems;
        for (const auto& item : items) known.insert(lowered(trimmed(item)));
    }
    if (box == 0) setBox(app.comboAquariumPath, app.comboAquariumPathItems, path, -1, false, &known);
    if (box == 1) setBox(app.comboDrifterPath, app.comboDrifterPathItems, path, -1, false, &known);
    if (box == 2) setBox(app.comboPoolPath, app.comboPoolPathItems, path, -1, true, &known);
}

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
        if (wildcardMatch(pattern, name) || (!bare.empty() && wildcardMatch(bare, name))) return true;
    }
    return false;
}

namespace {

void probe(App& app, const std::string& home, std::string candidate) {
    if (!candidate.empty() && candidate.back() == ':') return;
    if (candidate == "/") return;  // a Linux root is a bare drive too
    if (candidate.empty()) candidate = home;
    BusyScope busy(app);
    comboAquariumPath_set(app, candidate, -1);
    struct Pair {
        const char* drifter;
        const char* pool;
        bool poolTested;
    };
    const Pair pairs[4] = {{"Drifters", "Pools", true},
                           {"Drifter", "Pool", true},
                           {"Drifts", "Aquariums", true},
                           {"Drift", "Pool", false}};
    for (const Pair& pair : pairs) {
        std::string drifters = childPath(candidate, pair.drifter);
        std::string pools = childPath(candidate, pair.pool);
        if (filePatternExists(drifters, "*.dna") || (pair.poolTested && filePatternExists(pools, "*.aqp"))) {
            comboDrifterPath_set(app, drifters, -1);
            comboPoolPath_set(app, pools, -1);
        }
    }
    if (filePatternExists(home, "Aquarium*.exe")) {
        comboDrifterPath_set(app, childPath(home, "Drifters"), -1);
        comboPoolPath_set(app, childPath(home, "Pools"), -1);
    } else if (filePatternExists(home, "*.dna")) {
        comboDrifterPath_set(app, home, -1);
        comboPoolPath_set(app, home, -1);
    } else {
        comboDrifterPath_set(app, childPath(candidate, "Drifters"), -1);
        comboPoolPath_set(app, childPath(candidate, "Pools"), -1);
    }
}

// One step up from `base`; returns false when the walk is over.
bool climb(std::string& base) {
    std::size_t p;
    if (isSlashPath(base)) {
        if (base == "/") return false;
        p = base.rfind('/');
        if (base.rfind("//", 0) == 0) p = base.substr(0, 3).rfind('/');
        base = p == 0 ? std::string("/") : base.substr(0, p);
        return true;
    }
    p = base.rfind('\\');
    p = p == std::string::npos ? 0 : p + 1;
    if (base.rfind("\\\\", 0) == 0) {
        auto q = base.substr(0, 3).rfind('\\');
        p = q == std::string::npos ? 0 : q + 1;
    }
    if (p > 0) base = base.substr(0, p - 1);
    return !base.empty() && p != 0;
}

}  // namespace

void AttemptAqQuickFind(App& app) {
    {
        BusyScope busy(app);
        std::string a = app.comboAquariumPath, d = app.comboDrifterPath, p = app.comboPoolPath;
        if (filePatternExists(a, "aquarium*.exe")) comboAquariumPath_set(app, a, -1);
        if (filePatternExists(d, "*.dna")) comboDrifterPath_set(app, d, -1);
        if (filePatternExists(p, "*.aqp")) comboPoolPath_set(app, p, -1);
    }
    const std::string home = app.programFolder;
    const std::string root = driveOfPath(home);
    std::string base = home;
    probe(app, home, "");
    do {
        struct Candidate {
            const std::string& folder;
            const char* name;
            const char* pattern;
        };
        const Candidate candidates[8] = {{base, "Aquarium", "Aquarium5*.exe"}, {base, "Aquarium5", "Aquarium*.exe"},
                                         {base, "Aquarium4", "Aquarium*.exe"}, {base, "Aquarium4.1", "Aquarium*.exe"},
                                         {root, "Aquarium", "Aquarium*.exe"},  {root, "Aquarium5", "Aquarium*.exe"},
                                         {root, "Aquarium4", "Aquarium*.exe"}, {root, "Aquarium4.1", "Aquarium*.exe"}};
        for (const Candidate& c : candidates) {
            std::string path = childPath(c.folder, c.name);
            if (filePatternExists(path, c.pattern)) probe(app, home, path);
        }
        if (filePatternExists(base, "Aquarium5*.exe")) probe(app, home, base);
        if (filePatternExists(base, "Aquarium4*.exe")) probe(app, home, base);
    } while (climb(base));
}

}  // namespace aq
