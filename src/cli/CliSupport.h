#pragma once
// Helpers the commands share.
#include <cstdint>
#include <string>

#include "format/Records.h"
#include "base/Clock.h"
#include "base/QuietUi.h"

namespace aqcli {

class Args;

// Reads a pool file; on failure prints the program's message and returns 1.
int readPoolOrFail(const std::string& path, aq::Pool& pool);

// The Ui of a command line: messages go to stderr, questions are cancelled, dialogs
// give no file. `messages` counts what was shown, so a command can fail on it.
class CliUi : public aq::QuietUi {
public:
    int messages = 0;
    void ShowMessage(const std::string& text, const std::string& title) override;
};

// The --depth option of the species commands: the leading genes compared, 1 to 1000.
int depthOption(const Args& a, int fallback);

// The --threshold or --species option: a percentage, a finite number.
float thresholdOption(const Args& a, const std::string& name, float fallback);

// The --state option: the 24-bit random state in hexadecimal (default the state at start).
std::uint32_t stateOption(const Args& a);

}  // namespace aqcli
