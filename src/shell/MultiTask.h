#pragma once
// The background timer's schedule: one phase a tick, five phases a sweep.
#include "state/App.h"

namespace aq {

struct MultiTask {
    int phase = -1;
    int sweep = 0;
    bool restart = true;
};

// Which tab frames are on show; phases of hidden frames run every fourth sweep.
struct FramesShown {
    bool frame3 = false;
    bool frame4 = false;
};

void tmrMultiTaskTick(App& app, MultiTask& task, FramesShown shown);

// True when a notice last stirred at `lastStir` may go: more than 5 seconds ago, and
// both lstSpeciatePool and lstSpeciateDrifters are enabled again.
bool noticeMayFade(App& app, double lastStir);

}  // namespace aq
