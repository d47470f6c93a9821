#pragma once
// Small file helpers shared by every reader and writer: opening without ever
// blocking, atomic and durable replacement, and the system's description of an error.
#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

namespace aq {

// What openRegularFile reports for a FIFO, a device or a socket: reading one could
// wait for ever or never end.
constexpr int kNotRegularFile = -1;

// Opens `path` for reading without waiting on anything. Returns 0 with `fd` and the
// file's `size`, else an errno value or kNotRegularFile (a directory gives EISDIR).
int openRegularFile(const std::string& path, int& fd, std::size_t& size);

// Writes `bytes` to `path` through a short-named temporary file in the same folder
// and a rename, each flushed to the disk, so a failure or a power cut leaves the old
// file or the new one. A symbolic link stays, and the file it names is replaced; a
// device, FIFO or socket is refused ("Not a regular file"). Returns "" on success,
// else the system's description.
std::string writeFileAtomically(const std::string& path, std::string_view bytes);

// Copies a regular file the same way. Returns the error, or none.
std::error_code copyFileAtomically(const std::string& from, const std::string& to);

// True when both names lead to one file (same device and inode): a symlinked folder,
// "/a/./x", a hard link. A move between them must neither copy nor delete.
bool sameFile(const std::string& a, const std::string& b);

// Reads a whole regular file of at most `maxSize` bytes. Returns "" on success.
std::string readWholeFile(const std::string& path, std::string& out, std::size_t maxSize);

// The system's description of an errno value (or of kNotRegularFile).
std::string systemErrorText(int err);

// Test hooks: the next writes fail after this many bytes, as a full disk would (-1:
// never); writes into this folder are refused, as a read-only folder would ("": none).
void setWriteFailureAfter(long long bytes);
void setRefusingFolder(const std::string& folder);

}  // namespace aq
