#pragma once
// The stand-in's window: the pool drawn as walls, food and drifter bodies.
#include <csignal>
#include <functional>

#include "format/Records.h"

namespace standin {

// Whether a window can be shown (Qt built in and a display at hand).
bool guiAvailable();

// Shows the pool and steps the model until the window closes or `closeRequested`
// is set; then calls `save` and returns its result as the exit status.
int runWindow(int argc, char** argv, aq::Pool& pool, int stepsPerSecond, volatile std::sig_atomic_t& closeRequested,
              const std::function<void()>& ready, const std::function<int()>& save);

}  // namespace standin
