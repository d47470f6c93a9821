#include "base/SysIo.h"

#include <cerrno>
#include <cstdio>

#ifdef _WIN32
#include <windows.h>
#endif

namespace aq {

int replaceFile(const char* from, const char* to) {
#ifdef _WIN32
    // The C library's rename refuses an existing target on Windows.
    if (::MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) return 0;
    switch (::GetLastError()) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return ENOENT;
        case ERROR_DISK_FULL:
            return ENOSPC;
        case ERROR_NOT_SAME_DEVICE:
            return EXDEV;
        default:
            return EACCES;
    }
#else
    return std::rename(from, to) == 0 ? 0 : errno;
#endif
}

}  // namespace aq
