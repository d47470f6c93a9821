#pragma once
// The pool the stand-ins take up and leave behind: recent_pool_version_4.aqp in their
// current folder.
#include "format/Records.h"

namespace standin {

inline constexpr const char* kHandOver = "recent_pool_version_4.aqp";

// Reads the hand-over pool, or the default pool when there is none; false (with a line
// on stderr) when the file cannot be read.
bool loadHandOver(aq::Pool& pool);
// Writes the pool back through a temporary file and a rename; the exit status.
int saveHandOver(const aq::Pool& pool);

}  // namespace standin
