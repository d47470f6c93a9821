#include "shell/FileIo.h"

#include <cerrno>
#include <cstdio>
#include <random>
#include <system_error>

#include "shell/SysIo.h"

namespace aq {

namespace {
long long gFailAfter = -1;
}

void setWriteFailureAfter(long long bytes) { gFailAfter = bytes; }

std::string systemErrorText(int err) { return std::error_code(err, std::generic_category()).message(); }

std::string writeFileAtomically(const std::string& path, std::string_view bytes) {
    static std::mt19937_64 names{std::random_device{}()};
    std::string tmp;
    int fd = -1;
    for (int attempt = 0; attempt < 16 && fd < 0; ++attempt) {
        char suffix[32];
        std::snprintf(suffix, sizeof suffix, ".aqtmp%08llx", static_cast<unsigned long long>(names() & 0xffffffffu));
        tmp = path + suffix;
        fd = ::open(tmp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        if (fd < 0 && errno != EEXIST) break;
    }
    if (fd < 0) return systemErrorText(errno);

    std::size_t limit = bytes.size();
    bool failing = gFailAfter >= 0 && static_cast<unsigned long long>(gFailAfter) < bytes.size();
    if (failing) limit = static_cast<std::size_t>(gFailAfter);
    std::size_t done = 0;
    int err = 0;
    while (done < limit) {
        ssize_t n = ::write(fd, bytes.data() + done, limit - done);
        if (n < 0) {
            if (errno == EINTR) continue;
            err = errno;
            break;
        }
        done += static_cast<std::size_t>(n);
    }
    if (!err && failing) err = ENOSPC;
    if (::close(fd) != 0 && !err) err = errno;
    if (!err) {
        // Keep the mode of the file being replaced.
        struct stat st {};
        if (::stat(path.c_str(), &st) == 0) ::chmod(tmp.c_str(), st.st_mode & 07777);
        err = replaceFile(tmp.c_str(), path.c_str());
    }
    if (err) {
        ::unlink(tmp.c_str());
        return systemErrorText(err);
    }
    return {};
}

std::string readWholeFile(const std::string& path, std::string& out, std::size_t maxSize) {
    out.clear();
    int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return systemErrorText(errno);
    struct stat st {};
    if (::fstat(fd, &st) != 0) {
        int e = errno;
        ::close(fd);
        return systemErrorText(e);
    }
    if (S_ISDIR(st.st_mode)) {
        ::close(fd);
        return systemErrorText(EISDIR);
    }
    std::size_t want = static_cast<std::size_t>(st.st_size);
    if (want > maxSize) want = maxSize;
    out.resize(want);
    std::size_t done = 0;
    while (done < want) {
        ssize_t n = ::read(fd, out.data() + done, want - done);
        if (n < 0) {
            if (errno == EINTR) continue;
            int e = errno;
            ::close(fd);
            return systemErrorText(e);
        }
        if (n == 0) break;
        done += static_cast<std::size_t>(n);
    }
    out.resize(done);
    ::close(fd);
    return {};
}

}  // namespace aq
