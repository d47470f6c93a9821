#include "base/FileIo.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <random>
#include <set>

#include "base/SysIo.h"

namespace aq {

namespace {

long long gFailAfter = -1;
std::string gRefusingFolder;

// The error an open or stat left, never 0 even where errno was not set.
int lastError() { return errno != 0 ? errno : EIO; }

// The folder part of `path` with its separator ("" for a bare name), the way this
// system splits it: Windows also takes "\\" and a drive's "C:" before a relative name.
std::string folderPart(const std::string& path) {
#ifdef _WIN32
    std::size_t cut = path.find_last_of("/\\");
    if (cut == std::string::npos && path.size() >= 2 && path[1] == ':') cut = 1;
#else
    std::size_t cut = path.rfind('/');
#endif
    return cut == std::string::npos ? std::string() : path.substr(0, cut + 1);
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

// Follows symbolic links to the file a save replaces, so a link stays a link. A device,
// FIFO or socket is refused: replacing it would break whatever uses it.
int resolveTarget(std::string& path) {
    namespace fs = std::filesystem;
    for (int hops = 0; hops < 40; ++hops) {
        std::error_code ec;
        const fs::file_status st = fs::symlink_status(path, ec);
        // A name that isn't there yet, or can't be looked at: creating it tells why.
        if (ec || st.type() == fs::file_type::not_found || st.type() == fs::file_type::regular) return 0;
        if (st.type() == fs::file_type::directory) return EISDIR;
        if (st.type() != fs::file_type::symlink) return kNotRegularFile;
        const fs::path link = fs::read_symlink(path, ec);
        if (ec) return ec.value();
        path = link.is_absolute() ? link.string() : folderPart(path) + link.string();
    }
    return ELOOP;
}

// Temporary names carry the saver's process id, so a later save can tell a killed
// save's leftover from one still being written.
std::string temporaryName() {
    static std::mt19937 names{std::random_device{}()};
    char name[32];
    std::snprintf(name, sizeof name, ".aq%lx-%04x", currentProcessId(), static_cast<unsigned>(names() & 0xffffu));
    return name;
}

// Removes the temporaries of saves that were killed: their process is gone (or an
// older version left them without an id) and a minute has passed. The unnamed file of
// a save on Linux leaves none; the named one elsewhere may.
void removeStaleTemporaries(const std::string& folder, const std::string& prefix) {
    namespace fs = std::filesystem;
    std::error_code ec;
    const auto old = fs::file_time_type::clock::now() - std::chrono::minutes(1);
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        const std::size_t dash = name.find('-');
        const std::size_t hex = name.find_first_not_of("0123456789abcdef", 3);
        const bool withId = dash != std::string::npos && dash > 3 && dash <= 11 && hex == dash &&
                            name.find_first_not_of("0123456789abcdef", dash + 1) == std::string::npos;
        const bool idless = hex == std::string::npos && name.size() == 11;
        if (name.rfind(".aq", 0) != 0 || !(withId || idless)) continue;
        if (withId && processAlive(std::stoul(name.substr(3, dash - 3), nullptr, 16))) continue;
        std::error_code e;
        if (it->is_regular_file(e) && it->last_write_time(e) < old && !e) fs::remove(prefix + name, e);
    }
}

#ifdef O_TMPFILE
constexpr int kUseNamed = -2;

// A file with no name until it is whole: a save killed before the link leaves nothing.
// Returns kUseNamed where the file system (or a missing /proc) cannot do it.
int writeUnnamed(const std::string& prefix, std::string_view bytes, int mode, std::string& tmp) {
    const int fd = ::open(prefix.empty() ? "." : prefix.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0644);
    if (fd < 0) return errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL ? kUseNamed : lastError();
    int err = writeAll(fd, bytes);
    if (!err && mode >= 0 && ::fchmod(fd, static_cast<mode_t>(mode)) != 0) err = lastError();
    if (!err && ::fsync(fd) != 0) err = lastError();
    char self[48];
    std::snprintf(self, sizeof self, "/proc/self/fd/%d", fd);
    for (int attempt = 0; attempt < 16 && !err && tmp.empty(); ++attempt) {
        const std::string name = prefix + temporaryName();
        if (::linkat(AT_FDCWD, self, AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0)
            tmp = name;
        else if (errno != EEXIST)
            break;
    }
    ::close(fd);
    return err ? err : tmp.empty() ? kUseNamed : 0;
}
#endif

// Writes a temporary file in `prefix`'s folder. Returns 0 with its name in `tmp`, else
// the error. `mode` is the replaced file's, or -1 for a new file.
int writeTemporary(const std::string& prefix, std::string_view bytes, int mode, std::string& tmp) {
#ifdef O_TMPFILE
    if (int err = writeUnnamed(prefix, bytes, mode, tmp); err != kUseNamed) return err;
#endif
    int fd = -1;
    for (int attempt = 0; attempt < 16 && fd < 0; ++attempt) {
        tmp = prefix + temporaryName();
        fd = ::open(tmp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        if (fd < 0 && errno != EEXIST) break;
    }
    if (fd < 0) return lastError();
    int err = writeAll(fd, bytes);
    if (!err && ::fsync(fd) != 0) err = lastError();
    if (::close(fd) != 0 && !err) err = lastError();
    if (!err && mode >= 0) ::chmod(tmp.c_str(), static_cast<mode_t>(mode));
    if (err) ::unlink(tmp.c_str());
    return err;
}

int replaceAtomically(const std::string& target, std::string_view bytes) {
    std::string path = target;
    if (int err = resolveTarget(path)) return err;
    // The temporary goes beside the file it replaces, so the rename stays in one folder.
    const std::string prefix = folderPart(path);
    const std::string folder = prefix.empty() ? "." : prefix;
    if (refused(folder)) return EACCES;
    struct stat st {};
    // Keep the mode of the file being replaced.
    const int mode = ::stat(path.c_str(), &st) == 0 ? static_cast<int>(st.st_mode & 07777) : -1;
    std::string tmp;
    int err = writeTemporary(prefix, bytes, mode, tmp);
    if (!err) {
        syncFolder(folder);
        err = replaceFile(tmp.c_str(), path.c_str());
        if (err)
            ::unlink(tmp.c_str());
        else
            syncFolder(folder);
    }
    // Once a run per folder is enough: a save killed since is this run's or a later one's.
    static std::set<std::string> cleaned;
    if (cleaned.insert(folder).second) removeStaleTemporaries(folder, prefix);
    return err;
}

// kNotRegularFile as an error code: EINVAL's number for the messages that show one,
// and words that say what is wrong.
const std::error_category& notRegularCategory() {
    static const struct : std::error_category {
        const char* name() const noexcept override { return "aq.file"; }
        std::string message(int) const override { return systemErrorText(kNotRegularFile); }
        bool equivalent(int, const std::error_condition& c) const noexcept override {
            return c == std::errc::invalid_argument;
        }
    } category;
    return category;
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
    if (err == kNotRegularFile) return {EINVAL, notRegularCategory()};
    return err ? std::error_code(err, std::generic_category()) : std::error_code();
}

bool sameFile(const std::string& a, const std::string& b) {
    std::error_code ec;
    return std::filesystem::equivalent(a, b, ec) && !ec;
}

std::string readWholeFile(const std::string& path, std::string& out, std::size_t maxSize) {
    const int err = readRegular(path, out, maxSize);
    return err ? systemErrorText(err) : std::string();
}

}  // namespace aq
