// Feeds arbitrary text to the path and name helpers.
#include <cstddef>
#include <cstdint>
#include <string>

#include "files/FileNames.h"
#include "base/Paths.h"
#include "support/ManualClock.h"
#include "support/ScriptedUi.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    std::string a = text.substr(0, text.size() / 2), b = text.substr(text.size() / 2);
    (void)aq::joinPath(a, b);
    (void)aq::fileNameOfPath(text);
    (void)aq::folderOfPath(text);
    (void)aq::driveOfPath(text);
    aqtest::ScriptedUi ui;
    aqtest::ManualClock clock;
    aq::App app(ui, clock);
    (void)aq::nextNumberedName(app, "/nonexistent-folder", text, "aqp");
    return 0;
}
