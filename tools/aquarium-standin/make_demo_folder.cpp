// Lays out a demo simulator folder beside the program, where the folder discovery
// finds it: the stand-in simulator, a drifter archive, a pool archive and the
// simulator's eight working files. A folder that is already there is left alone.
#include <cstdio>
#include <filesystem>
#include <string>

#include "ToyModel.h"
#include "generator/Generator.h"
#include "format/PoolFile.h"
#include "files/PoolOps.h"
#include "base/FileIo.h"

namespace fs = std::filesystem;

namespace {

std::string genesOf(const aq::Pool& pool, int i) {
    const auto& d = pool.drifters[static_cast<std::size_t>(i % pool.drifterCount)];
    return std::string(reinterpret_cast<const char*>(d.genes), aq::kGeneCount);
}

bool write(const fs::path& path, const std::string& bytes) {
    std::string error = aq::writeFileAtomically(path.string(), bytes);
    if (!error.empty()) std::fprintf(stderr, "make_demo_folder: %s: %s\n", path.c_str(), error.c_str());
    return error.empty();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_demo_folder FOLDER STANDIN\n");
        return 2;
    }
    fs::path folder = argv[1], standin = argv[2];
    std::error_code ec;
    if (fs::exists(folder, ec)) return 0;
    aq::Pool pool;
    if (aq::parsePool(aq::defaultPoolBytes(), pool).status != aq::PoolReadStatus::Ok || pool.drifterCount < 1) {
        std::fprintf(stderr, "make_demo_folder: the default pool does not parse\n");
        return 1;
    }
    fs::create_directories(folder / "Drifters", ec);
    fs::create_directories(folder / "Pools", ec);
    if (ec) {
        std::fprintf(stderr, "make_demo_folder: %s: %s\n", folder.c_str(), ec.message().c_str());
        return 1;
    }
    fs::create_symlink(fs::absolute(standin), folder / "Aquarium", ec);
    if (ec) fs::copy_file(standin, folder / "Aquarium", ec);

    bool ok = true;
    for (int i = 0; i < 6; ++i)
        ok &= write(folder / "Drifters" / ("Default_" + std::to_string(i) + ".DNA"), genesOf(pool, i));
    ok &= write(folder / "Pools" / "Default.aqp", aq::poolBytes(pool));
    aq::StartupSettings settings;
    settings.seed = 2024;
    aq::Pool generated;
    if (aq::buildStartupPool(pool, settings, generated))
        ok &= write(folder / "Pools" / "Seed_2024.aqp", aq::poolBytes(generated));
    aq::Pool evolved = pool;
    standin::ToyModel model(evolved);
    for (int step = 0; step < 2000; ++step) model.step();
    ok &= write(folder / "Pools" / "Evolved.aqp", aq::poolBytes(evolved));
    for (int k = 1; k <= 4; ++k) {
        ok &= write(folder / ("Drifter_" + std::to_string(k) + ".DNA"), genesOf(pool, 6 + k));
        ok &= write(folder / ("Pool_" + std::to_string(k) + ".AQP"), aq::poolBytes(k % 2 ? pool : evolved));
    }
    return ok ? 0 : 1;
}
