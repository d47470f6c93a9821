#include "shell/FolderDiscovery.h"

#include <algorithm>
#include <filesystem>

#include "base/FilePatterns.h"
#include "base/Paths.h"
#include "files/PathBoxes.h"

namespace aq {

namespace fs = std::filesystem;

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
    const std::string home = app.homeFolder.empty() ? app.programFolder : app.homeFolder;
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
