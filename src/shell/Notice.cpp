#include "shell/Notice.h"

#include "shell/App.h"

namespace aq {

bool noticeMayFade(App& app, double lastStir) {
    return elapsedSeconds(lastStir, app.clock.secondsSinceMidnight()) > 5.0 && app.lstSpeciatePool.enabled() &&
           app.lstSpeciateDrifters.enabled();
}

}  // namespace aq
