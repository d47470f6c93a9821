#pragma once
// A scratch file per fuzzing process, in memory where it can be: every save flushes to
// the disk, which on a disk would slow each run down to a few dozen a second.
#include <sys/stat.h>
#include <unistd.h>

#include <string>

namespace aqfuzz {

inline std::string scratchPath(const std::string& name) {
    struct stat st {};
    const std::string folder = ::stat("/dev/shm", &st) == 0 && S_ISDIR(st.st_mode) ? "/dev/shm" : "/tmp";
    return folder + "/aq-fuzz-" + std::to_string(::getpid()) + "-" + name;
}

}  // namespace aqfuzz
