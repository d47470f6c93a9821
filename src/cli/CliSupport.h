#pragma once
// Helpers the commands share.
#include <string>

#include "pool/Records.h"

namespace aqcli {

// Reads a pool file; on failure prints the program's message and returns 1.
int readPoolOrFail(const std::string& path, aq::Pool& pool);

}  // namespace aqcli
