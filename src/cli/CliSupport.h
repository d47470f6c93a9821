#pragma once
// Helpers the commands share.
#include <cstdint>
#include <string>

#include "pool/Records.h"

namespace aqcli {

class Args;

// Reads a pool file; on failure prints the program's message and returns 1.
int readPoolOrFail(const std::string& path, aq::Pool& pool);

// The --depth option of the species commands: the leading genes compared, 1 to 1000.
int depthOption(const Args& a, int fallback);

// The --threshold or --species option: a percentage, a finite number.
float thresholdOption(const Args& a, const std::string& name, float fallback);

// The --state option: the 24-bit random state in hexadecimal (default the state at start).
std::uint32_t stateOption(const Args& a);

}  // namespace aqcli
