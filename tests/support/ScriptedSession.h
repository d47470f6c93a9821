#pragma once
// The program's state with a scripted Ui, a hand-moved clock and a fresh folder: where
// most core tests start.
#include "state/App.h"
#include "support/ManualClock.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

// Every prompt of the script shown, and nothing else.
#define EXPECT_SCRIPT_DONE(ui) EXPECT_TRUE((ui).done()) << (ui).report()

namespace aqtest {

struct Session {
    ScriptedUi ui;
    ManualClock clock;
    aq::App app{ui, clock};
    TempDir dir;
};

}  // namespace aqtest
