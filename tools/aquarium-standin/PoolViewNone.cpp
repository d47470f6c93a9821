// Built without Qt: the stand-in runs headless only.
#include "PoolView.h"

namespace standin {

bool guiAvailable() { return false; }

int runWindow(int, char**, aq::Pool&, int, volatile std::sig_atomic_t&, const std::function<void()>&,
              const std::function<int()>& save) {
    return save();
}

}  // namespace standin
