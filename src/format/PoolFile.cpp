#include "format/PoolFile.h"

#include <cerrno>
#include <cstring>

#include "base/FileIo.h"
#include "base/SysIo.h"

namespace aq {

std::size_t Pool::fileSize() const {
    std::size_t n = drifterCount > 0 ? static_cast<std::size_t>(drifterCount) : 0;
    std::size_t m = foodCount > 0 ? static_cast<std::size_t>(foodCount) : 0;
    return 20 + n * sizeof(DrifterRec) + m * sizeof(FoodBit) + kPoolTrailerSize;
}

std::string poolReadMessage(const std::string& path, const PoolReadResult& r) {
    if (r.status == PoolReadStatus::Ok) return {};
    if (r.status == PoolReadStatus::BadVersion) return "Not a Aquarium 4 or 5 data file: " + path;
    return "Error opening " + path + ", error: " + r.error;
}

namespace {

// A byte source that knows how much remains, over memory or an open file.
class Source {
public:
    explicit Source(std::span<const std::uint8_t> bytes) : mem_(bytes), remaining_(bytes.size()) {}
    Source(int fd, std::size_t size) : fd_(fd), remaining_(size) {}

    std::size_t remaining() const { return remaining_; }

    // Copies n bytes; fails with a description when they are not there.
    bool take(void* dst, std::size_t n, std::string& error) {
        if (n > remaining_) {
            error = "file is truncated";
            return false;
        }
        if (fd_ < 0) {
            std::memcpy(dst, mem_.data() + pos_, n);
        } else {
            auto* out = static_cast<char*>(dst);
            std::size_t done = 0;
            while (done < n) {
                ssize_t got = ::read(fd_, out + done, n - done);
                if (got < 0 && errno == EINTR) continue;
                if (got < 0) {
                    error = systemErrorText(errno);
                    return false;
                }
                if (got == 0) {
                    error = "file is truncated";
                    return false;
                }
                done += static_cast<std::size_t>(got);
            }
        }
        pos_ += n;
        remaining_ -= n;
        return true;
    }

private:
    std::span<const std::uint8_t> mem_;
    int fd_ = -1;
    std::size_t pos_ = 0;
    std::size_t remaining_;
};

std::string truncatedText(const char* what, std::size_t need, std::size_t remain) {
    return "file is truncated: " + std::string(what) + " needs " + std::to_string(need) + " bytes, " +
           std::to_string(remain) + " remain";
}

// The program counts records in 16 bits: a larger count could never be walked, so it
// is refused before anything is allocated.
bool countFits(std::int32_t count, const char* noun, std::string& error) {
    if (count <= kMaxRecordCount) return true;
    error = "the file claims " + std::to_string(count) + " " + noun + ", more than the " +
            std::to_string(kMaxRecordCount) + " the program can hold";
    return false;
}

template <typename T>
bool takeArray(Source& src, std::int32_t count, std::vector<T>& out, const char* noun, std::string& error) {
    if (count <= 0) return true;
    std::size_t need = static_cast<std::size_t>(count) * sizeof(T);
    if (need > src.remaining()) {
        error = "file is truncated: " + std::to_string(count) + " " + noun + " need " + std::to_string(need) +
                " bytes, " + std::to_string(src.remaining()) + " remain";
        return false;
    }
    if (out.size() < static_cast<std::size_t>(count)) out.resize(static_cast<std::size_t>(count));
    return src.take(out.data(), need, error);
}

PoolReadResult parse(Source& src, Pool& pool) {
    PoolReadResult r;
    auto fail = [&](std::string text) {
        r.status = PoolReadStatus::Error;
        r.error = std::move(text);
        return r;
    };
    std::int32_t header[3];
    if (src.remaining() < kPoolHeaderSize) return fail(truncatedText("the header", kPoolHeaderSize, src.remaining()));
    if (!src.take(header, sizeof header, r.error)) return fail(r.error);
    if (header[0] != 4 && header[0] != 5) {
        r.status = PoolReadStatus::BadVersion;
        return r;
    }
    pool.version = header[0];
    pool.clock = header[1];
    pool.headerWord = header[2];

    std::int32_t count = 0;
    if (src.remaining() < 4) return fail(truncatedText("the drifter count", 4, src.remaining()));
    src.take(&count, 4, r.error);
    if (!countFits(count, "drifters", r.error)) return fail(r.error);
    pool.drifterCount = count;
    if (!takeArray(src, count, pool.drifters, "drifters", r.error)) return fail(r.error);

    if (src.remaining() < 4) return fail(truncatedText("the food count", 4, src.remaining()));
    src.take(&count, 4, r.error);
    if (!countFits(count, "food bits", r.error)) return fail(r.error);
    pool.foodCount = count;
    if (!takeArray(src, count, pool.food, "food bits", r.error)) return fail(r.error);

    if (src.remaining() < kPoolTrailerSize)
        return fail(truncatedText("the world block", kPoolTrailerSize, src.remaining()));
    bool ok = src.take(&pool.worldValueA, 4, r.error) && src.take(&pool.worldValueB, 4, r.error) &&
              src.take(pool.viewBlock.data(), kViewBlockSize, r.error) && src.take(&pool.minX, 4, r.error) &&
              src.take(&pool.minY, 4, r.error) && src.take(&pool.maxX, 4, r.error) &&
              src.take(&pool.maxY, 4, r.error) && src.take(pool.walls, sizeof pool.walls, r.error);
    pool.historyBlock.resize(kHistoryBlockSize);
    ok = ok && src.take(pool.historyBlock.data(), kHistoryBlockSize, r.error) && src.take(&pool.lastWord, 4, r.error);
    if (!ok) return fail(r.error);
    return r;
}

}  // namespace

PoolReadResult parsePool(std::span<const std::uint8_t> bytes, Pool& pool) {
    Source src(bytes);
    return parse(src, pool);
}

PoolReadResult readPool(const std::string& path, Pool& pool) {
    int fd = -1;
    std::size_t size = 0;
    if (int err = openRegularFile(path, fd, size))
        return {err == ENOENT ? PoolReadStatus::NotFound : PoolReadStatus::Error, systemErrorText(err)};
    Source src(fd, size);
    PoolReadResult r = parse(src, pool);
    ::close(fd);
    return r;
}

std::string poolBytes(const Pool& pool) {
    std::string out;
    out.reserve(pool.fileSize());
    auto put = [&](const void* p, std::size_t n) { out.append(static_cast<const char*>(p), n); };
    put(&pool.version, 4);
    put(&pool.clock, 4);
    put(&pool.headerWord, 4);
    put(&pool.drifterCount, 4);
    if (pool.drifterCount > 0)
        put(pool.drifters.data(), static_cast<std::size_t>(pool.drifterCount) * sizeof(DrifterRec));
    put(&pool.foodCount, 4);
    if (pool.foodCount > 0) put(pool.food.data(), static_cast<std::size_t>(pool.foodCount) * sizeof(FoodBit));
    put(&pool.worldValueA, 4);
    put(&pool.worldValueB, 4);
    put(pool.viewBlock.data(), kViewBlockSize);
    put(&pool.minX, 4);
    put(&pool.minY, 4);
    put(&pool.maxX, 4);
    put(&pool.maxY, 4);
    put(pool.walls, sizeof pool.walls);
    put(pool.historyBlock.data(), kHistoryBlockSize);
    put(&pool.lastWord, 4);
    return out;
}

std::string writePool(const std::string& path, const Pool& pool) {
    // A pool whose arrays are shorter than its counts cannot be written faithfully.
    if ((pool.drifterCount > 0 && pool.drifters.size() < static_cast<std::size_t>(pool.drifterCount)) ||
        (pool.foodCount > 0 && pool.food.size() < static_cast<std::size_t>(pool.foodCount)))
        return "the pool's counts exceed its records";
    return writeFileAtomically(path, poolBytes(pool));
}

namespace {

// The first `count` records, the ones a file holds; records kept beyond the count
// (left by a delete) don't count.
template <class T>
bool sameRecords(const std::vector<T>& a, const std::vector<T>& b, std::int32_t count) {
    const std::size_t n = count > 0 ? static_cast<std::size_t>(count) : 0;
    if (a.size() < n || b.size() < n)
        return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
    return n == 0 || std::memcmp(a.data(), b.data(), n * sizeof(T)) == 0;
}

bool sameFloat(float a, float b) { return std::memcmp(&a, &b, sizeof(float)) == 0; }

}  // namespace

bool samePool(const Pool& a, const Pool& b) {
    return a.version == b.version && a.clock == b.clock && a.headerWord == b.headerWord &&
           a.drifterCount == b.drifterCount && a.foodCount == b.foodCount && sameFloat(a.worldValueA, b.worldValueA) &&
           sameFloat(a.worldValueB, b.worldValueB) && a.viewBlock == b.viewBlock && sameFloat(a.minX, b.minX) &&
           sameFloat(a.minY, b.minY) && sameFloat(a.maxX, b.maxX) && sameFloat(a.maxY, b.maxY) &&
           std::memcmp(a.walls, b.walls, sizeof(a.walls)) == 0 && a.lastWord == b.lastWord &&
           sameRecords(a.drifters, b.drifters, a.drifterCount) && sameRecords(a.food, b.food, a.foodCount) &&
           a.historyBlock == b.historyBlock;
}

}  // namespace aq
