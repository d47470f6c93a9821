// Loading and saving a 2000-drifter pool, next to a plain copy of the same bytes.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "base/FileIo.h"
#include "format/PoolFile.h"
#include "support/PoolFixtures.h"
#include "support/TempDir.h"

namespace {

struct Files {
    aqtest::TempDir dir;
    std::string path = dir.file("big.aqp");
    Files() { aqtest::writeBytes(path, aq::poolBytes(aqtest::makePool(2000, 2000))); }
};

Files& files() {
    static Files f;
    return f;
}

void LoadPool2000(benchmark::State& state) {
    aq::Pool pool;
    for (auto _ : state) {
        auto r = aq::readPool(files().path, pool);
        benchmark::DoNotOptimize(r.status);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<long long>(pool.fileSize()));
}

void SavePool2000(benchmark::State& state) {
    aq::Pool pool;
    aq::readPool(files().path, pool);
    std::string out = files().dir.file("out.aqp");
    for (auto _ : state) benchmark::DoNotOptimize(aq::writePool(out, pool));
    state.SetBytesProcessed(state.iterations() * static_cast<long long>(pool.fileSize()));
}

// The floor: read the file's bytes and write them elsewhere, as a plain copy does.
void PlainCopy2000(benchmark::State& state) {
    std::string out = files().dir.file("copy.aqp");
    for (auto _ : state) {
        std::filesystem::copy_file(files().path, out, std::filesystem::copy_options::overwrite_existing);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<long long>(std::filesystem::file_size(files().path)));
}

void PlainRead2000(benchmark::State& state) {
    std::string bytes;
    for (auto _ : state) aq::readWholeFile(files().path, bytes, 1u << 30);
    state.SetBytesProcessed(state.iterations() * static_cast<long long>(bytes.size()));
}

}  // namespace

BENCHMARK(LoadPool2000);
BENCHMARK(PlainRead2000);
BENCHMARK(SavePool2000);
BENCHMARK(PlainCopy2000);
BENCHMARK_MAIN();
