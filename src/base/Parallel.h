#pragma once
// Long passes over many genomes share their blocks of rows out among the processor's
// cores. The calling thread takes part, and it alone reports progress.
#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace aq {

// How many threads a long pass may use.
inline int parallelWorkers() {
    static const int workers = static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1u, 8u));
    return workers;
}

// Runs work(block, worker) once for every block 0..blocks-1, taken in order by up to
// parallelWorkers() threads; `worker` tells them apart (0 is the caller's thread).
// tick(block) runs on the calling thread as it takes a block. `workers` caps the threads.
template <class Work, class Tick>
void forEachBlock(int blocks, int workers, Work work, Tick tick) {
    workers = std::clamp(std::min(workers, parallelWorkers()), 1, std::max(blocks, 1));
    std::atomic<int> next{0};
    auto run = [&](int worker) {
        for (int block; (block = next.fetch_add(1)) < blocks;) {
            if (worker == 0) tick(block);
            work(block, worker);
        }
    };
    std::vector<std::jthread> helpers;
    for (int w = 1; w < workers; ++w) helpers.emplace_back(run, w);
    run(0);
}

}  // namespace aq
