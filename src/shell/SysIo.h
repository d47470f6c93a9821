#pragma once
// The POSIX file calls the readers and writers use (open, read, write, close, fstat),
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
#else
#include <unistd.h>
#endif

namespace aq {

// Renames `from` over `to`, replacing it. Returns 0, or the errno value of the failure.
int replaceFile(const char* from, const char* to);

}  // namespace aq
