#include "base/FileIo.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <random>

#include "base/SysIo.h"

namespace aq {

namespace {

long long gFailAfter = -1;
std::string gRefusingFolder;

// The error an open or stat left, never 0 even where errno was not set.
int lastError() { return errno != 0 ? errno : EIO; }

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool refused(const std::string& folder) {
    if (gRefusingFolder.empty()) return false;
    std::error_code ec;
    return std::filesystem::equivalent(folder, gRefusingFolder, ec);
}

// Flushes a folder's entries, so a rename in it survives a power cut.
void syncFolder(const std::string& folder) {
    int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

int writeAll(int fd, std::string_view bytes) {
    std::size_t limit = bytes.size();
    const bool failing = gFailAfter >= 0 && static_cast<unsigned long long>(gFailAfter) < bytes.size();
    if (failing) limit = static_cast<std::size_t>(gFailAfter);
    std::size_t done = 0;
    while (done < limit) {
        ssize_t n = ::write(fd, bytes.data() + done, limit - done);
        if (n < 0) {
            if (errno == EINTR) continue;
            return lastError();
        }
        done += static_cast<std::size_t>(n);
    }
    return failing ? ENOSPC : 0;
}

int replaceAtomically(const std::string& path, std::string_view bytes) {
    static std::mt19937_64 names{std::random_device{}()};
    const std::string folder = folderOf(path);
    if (refused(folder)) return EACCES;
    // The temporary name is short, so any name the folder allows still saves.
    const std::string prefix = path.find('/') == std::string::npos ? std::string() : folder + "/";
    std::string tmp;
    int fd = -1;
    for (int attempt = 0; attempt < 16 && fd < 0; ++attempt) {
        char name[16];
        std::snprintf(name, sizeof name, ".aq%08llx", static_cast<unsigned long long>(names() & 0xffffffffu));
        tmp = prefix + name;
        fd = ::open(tmp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        if (fd < 0 && errno != EEXIST) break;
    }
    if (fd < 0) return lastError();

    int err = writeAll(fd, bytes);
    if (!err && ::fsync(fd) != 0) err = lastError();
    if (::close(fd) != 0 && !err) err = lastError();
    if (!err) {
        // Keep the mode of the file being replaced.
        struct stat st {};
        if (::stat(path.c_str(), &st) == 0) ::chmod(tmp.c_str(), st.st_mode & 07777);
        syncFolder(folder);
        err = replaceFile(tmp.c_str(), path.c_str());
    }
    if (err)
        ::unlink(tmp.c_str());
    else
        syncFolder(folder);
    return err;
}

}  // namespace

void setWriteFailureAfter(long long bytes) { gFailAfter = bytes; }
void setRefusingFolder(const std::string& folder) { gRefusingFolder = folder; }

std::string systemErrorText(int err) {
    if (err == kNotRegularFile) return "Not a regular file";
    return std::error_code(err, std::generic_category()).message();
}

int openRegularFile(const std::string& path, int& fd, std::size_t& size) {
    fd = -1;
    size = 0;
    errno = 0;
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) return lastError();
    if (S_ISDIR(st.st_mode)) return EISDIR;
    if (!S_ISREG(st.st_mode)) return kNotRegularFile;
    // The file may have been swapped for a FIFO since: the open must not wait for a writer.
    fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) return lastError();
    int err = 0;
    if (::fstat(fd, &st) != 0)
        err = lastError();
    else if (!S_ISREG(st.st_mode))
        err = S_ISDIR(st.st_mode) ? EISDIR : kNotRegularFile;
    if (err) {
        ::close(fd);
        fd = -1;
        return err;
    }
    size = static_cast<std::size_t>(st.st_size);
    return 0;
}

namespace {

int readRegular(const std::string& path, std::string& out, std::size_t maxSize) {
    out.clear();
    int fd = -1;
    std::size_t want = 0;
    if (int err = openRegularFile(path, fd, want)) return err;
    want = std::min(want, maxSize);
    out.resize(want);
    std::size_t done = 0;
    int err = 0;
    while (done < want) {
        ssize_t n = ::read(fd, out.data() + done, want - done);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) err = lastError();
        if (n <= 0) break;
        done += static_cast<std::size_t>(n);
    }
    out.resize(done);
    ::close(fd);
    return err;
}

}  // namespace

std::string writeFileAtomically(const std::string& path, std::string_view bytes) {
    const int err = replaceAtomically(path, bytes);
    return err ? systemErrorText(err) : std::string();
}

std::error_code copyFileAtomically(const std::string& from, const std::string& to) {
    std::string bytes;
    int err = readRegular(from, bytes, static_cast<std::size_t>(-1));
    if (!err) err = replaceAtomically(to, bytes);
    if (err == kNotRegularFile) return std::make_error_code(std::errc::invalid_argument);
    return err ? std::error_code(err, std::generic_category()) : std::error_code();
}

std::string readWholeFile(const std::string& path, std::string& out, std::size_t maxSize) {
    const int err = readRegular(path, out, maxSize);
    return err ? systemErrorText(err) : std::string();
}

}  // namespace aq
