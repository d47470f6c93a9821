#include "base/SysIo.h"

#include <cerrno>
#include <cstdio>

#ifdef _WIN32
#include <windows.h>
#else
#include <signal.h>
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

unsigned long currentProcessId() {
#ifdef _WIN32
    return ::GetCurrentProcessId();
#else
    return static_cast<unsigned long>(::getpid());
#endif
}

bool processAlive(unsigned long pid) {
#ifdef _WIN32
    HANDLE h = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(pid));
    if (!h) return ::GetLastError() != ERROR_INVALID_PARAMETER;
    DWORD code = 0;
    const bool running = !::GetExitCodeProcess(h, &code) || code == STILL_ACTIVE;
    ::CloseHandle(h);
    return running;
#else
    if (pid == 0 || pid > 0x7fffffffUL) return true;  // not a process id kill() could test
    return ::kill(static_cast<pid_t>(pid), 0) == 0 || errno != ESRCH;
#endif
}

}  // namespace aq
