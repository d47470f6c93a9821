// A stand-in for the Aquarium simulator, so the file manager's series can run here.
// It reads recent_pool_version_4.aqp from its current folder, evolves it with a toy
// model, says "ready" on its standard output once it runs, and on SIGTERM or when
// its window closes writes the pool back (temporary file and rename) and exits. With
// --never-ready it hangs as it starts instead, for the tests of ending such a simulator.
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>

#include "HandOver.h"
#include "PoolView.h"
#include "ToyModel.h"
#include "format/DefaultPool.h"
#include "format/PoolFile.h"

namespace {

using standin::saveHandOver;

volatile std::sig_atomic_t closeRequested = 0;

void onTerm(int) { closeRequested = 1; }

void sayReady() {
    std::printf("ready\n");
    std::fflush(stdout);
}

int runHeadless(aq::Pool& pool, int stepsPerSecond) {
    standin::ToyModel model(pool);
    sayReady();
    const auto tick = std::chrono::microseconds(1000000 / stepsPerSecond);
    while (!closeRequested) {
        model.step();
        std::this_thread::sleep_for(tick);
    }
    return saveHandOver(pool);
}

// The file manager starts the simulator with no arguments, so tests pick the mode
// through the environment the child inherits.
bool envFlag(const char* name) {
    const char* v = std::getenv(name);
    return v && *v && std::strcmp(v, "0") != 0;
}

void readEnvironment(bool& headless, bool& neverReady, int& stepsPerSecond) {
    headless = envFlag("AQUARIUM_STANDIN_HEADLESS");
    neverReady = envFlag("AQUARIUM_STANDIN_NEVER_READY");
    if (const char* s = std::getenv("AQUARIUM_STANDIN_STEPS")) {
        int v = std::atoi(s);
        if (v >= 1 && v <= 100000) stepsPerSecond = v;
    }
}

int usage() {
    std::fprintf(stderr, "usage: Aquarium [--headless] [--never-ready] [--steps-per-second N]\n");
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    bool headless = false, neverReady = false;
    int stepsPerSecond = 0;
    readEnvironment(headless, neverReady, stepsPerSecond);
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--headless") == 0) {
            headless = true;
        } else if (std::strcmp(argv[i], "--never-ready") == 0) {
            neverReady = true;
        } else if (std::strcmp(argv[i], "--steps-per-second") == 0 && i + 1 < argc) {
            stepsPerSecond = std::atoi(argv[++i]);
            if (stepsPerSecond < 1 || stepsPerSecond > 100000) return usage();
        } else {
            return usage();
        }
    }
    std::signal(SIGTERM, onTerm);
    std::signal(SIGINT, onTerm);
    // A simulator stuck while it starts: it never says ready, and its handler only notes a
    // SIGTERM it never gets round to.
    while (neverReady) ::pause();
    aq::Pool pool;
    if (!standin::loadHandOver(pool)) return 1;
    if (headless || !standin::guiAvailable()) return runHeadless(pool, stepsPerSecond ? stepsPerSecond : 200);
    return standin::runWindow(argc, argv, pool, stepsPerSecond ? stepsPerSecond : 30, closeRequested, sayReady,
                              [&pool] { return saveHandOver(pool); });
}
