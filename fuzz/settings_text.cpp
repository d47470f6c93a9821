// Feeds arbitrary text to the settings store as if aqfm.ini held it.
#include <cstddef>
#include <cstdint>

#include "shell/Settings.h"
#include "support/ManualClock.h"
#include "support/ScriptedUi.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    aqtest::ScriptedUi ui;
    aqtest::ManualClock clock;
    aq::App app(ui, clock);
    app.settingsText.assign(reinterpret_cast<const char*>(data), size);
    aq::ini(app, "Use");
    aq::ini(app, "Set");
    return 0;
}
