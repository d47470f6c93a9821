#pragma once
// Small file helpers shared by every writer: atomic replacement and the
// system's description of an error.
#include <string>
#include <string_view>

namespace aq {

// Writes `bytes` to `path` through a temporary file in the same folder and a
// rename. Returns "" on success, else the system's description of the error.
std::string writeFileAtomically(const std::string& path, std::string_view bytes);

// Reads a whole file of at most `maxSize` bytes. Returns "" on success.
std::string readWholeFile(const std::string& path, std::string& out, std::size_t maxSize);

// The system's description of errno's current value.
std::string systemErrorText(int err);

// Test hook: when set, the next writes fail after this many bytes, as a full disk would.
void setWriteFailureAfter(long long bytes);

}  // namespace aq
