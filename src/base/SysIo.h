#pragma once
// The POSIX file calls the readers and writers use (open, read, write, close, fstat, fsync),
// made to work the same on Windows: files open in binary mode there and are not handed
// to child processes, and a rename replaces an existing file as it does on POSIX.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>

#ifdef _WIN32
#include <io.h>
#ifndef O_CLOEXEC
#define O_CLOEXEC (O_BINARY | O_NOINHERIT)
#endif
// No FIFOs, terminals or folder handles to guard against there.
#ifndef O_NONBLOCK
#define O_NONBLOCK 0
#endif
#ifndef O_NOCTTY
#define O_NOCTTY 0
#endif
#ifndef O_DIRECTORY
#define O_DIRECTORY 0
#endif
inline int fsync(int fd) { return _commit(fd); }
#else
#include <unistd.h>
#endif

namespace aq {

// Renames `from` over `to`, replacing it. Returns 0, or the errno value of the failure.
int replaceFile(const char* from, const char* to);

unsigned long currentProcessId();
// False only when no process of that id runs: a process we may not signal is alive.
bool processAlive(unsigned long pid);

}  // namespace aq
