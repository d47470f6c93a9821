// Writes the fuzzers' seed files, real files made by the program itself, so that the
// fuzzing starts from inputs the readers accept and goes on into the passes:
// OUT/pool (the default pool, a generated one, pools of 0, 1, 3 and 2000 drifters),
// OUT/dna (whole and short genomes), OUT/settings (an aqfm.ini) and OUT/paths.
#include <cstdio>
#include <filesystem>
#include <string>

#include "generator/Generator.h"
#include "format/DnaFile.h"
#include "format/PoolFile.h"
#include "files/PoolOps.h"
#include "base/FileIo.h"
#include "files/PathBoxes.h"
#include "base/QuietUi.h"
#include "shell/Settings.h"
#include "support/ManualClock.h"

namespace {

bool put(const std::string& path, std::string_view bytes) {
    std::string error = aq::writeFileAtomically(path, bytes);
    if (!error.empty()) std::fprintf(stderr, "make_seeds: %s: %s\n", path.c_str(), error.c_str());
    return error.empty();
}

// The default pool's drifters repeated or cut to `n`.
aq::Pool withDrifters(const aq::Pool& base, int n) {
    aq::Pool p = base;
    p.drifters.clear();
    for (int i = 0; i < n; ++i) {
        p.drifters.push_back(base.drifters[static_cast<std::size_t>(i % base.drifterCount)]);
        p.drifters.back().id = i;
    }
    p.drifterCount = n;
    return p;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_seeds OUT\n");
        return 2;
    }
    const std::string out = argv[1];
    for (const char* sub : {"pool", "dna", "settings", "paths"}) std::filesystem::create_directories(out + "/" + sub);
    aq::QuietUi ui;
    aqtest::ManualClock clock;
    aq::App app(ui, clock);
    aq::loadDefaultPool(app);
    const aq::Pool& def = app.defaultPool;
    if (def.drifterCount < 1) return 1;

    bool ok = put(out + "/pool/default.aqp", aq::poolBytes(def));
    for (int n : {0, 1, 3, 2000})
        ok = put(out + "/pool/drifters" + std::to_string(n) + ".aqp", aq::poolBytes(withDrifters(def, n))) && ok;
    aq::Pool generated;
    aq::StartupSettings settings;
    settings.poolType = 2;
    settings.extraDrifters = true;
    if (aq::buildStartupPool(def, settings, generated))
        ok = put(out + "/pool/generated.aqp", aq::poolBytes(generated)) && ok;

    const aq::DrifterRec& d = def.drifters[0];
    ok = put(out + "/dna/whole.dna", {reinterpret_cast<const char*>(d.genes), sizeof d.genes}) && ok;
    ok = put(out + "/dna/short.dna", {reinterpret_cast<const char*>(d.genes), 400}) && ok;

    aq::comboPoolPath_set(app, "/home/user/Aquarium/Pools");
    aq::comboDrifterPath_set(app, "C:\\Aquarium\\Drifters");
    aq::comboAquariumPath_set(app, "/home/user/Aquarium");
    aq::ini(app, "Set");
    ok = put(out + "/settings/aqfm.ini", app.settingsText) && ok;
    ok = put(out + "/paths/unix", "/home/user/Aquarium/Pools/Pool_1.AQP") && ok;
    ok = put(out + "/paths/windows", "C:\\Aquarium\\Drifters\\Drifter_3.0.DNA") && ok;
    return ok ? 0 : 1;
}
