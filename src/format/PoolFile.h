#pragma once
// Reading and writing pool files. The plain readers and writers report through a
// result; the App-level operations show the program's messages.
#include <cstdint>
#include <span>
#include <string>

#include "format/Records.h"

namespace aq {

enum class PoolReadStatus { Ok, NotFound, BadVersion, Error };

struct PoolReadResult {
    PoolReadStatus status = PoolReadStatus::Ok;
    std::string error;  // the system's or the reader's description, for Error
};

// Reads a whole pool. Every count is checked against the bytes that remain before
// anything is allocated; on an error `pool` may hold a partly read pool.
PoolReadResult readPool(const std::string& path, Pool& pool);
PoolReadResult parsePool(std::span<const std::uint8_t> bytes, Pool& pool);
// What a tool says about a file that could not be read: "Not a Aquarium 4 or 5 data
// file: PATH" or "Error opening PATH, error: ..."; "" when it was read.
std::string poolReadMessage(const std::string& path, const PoolReadResult& r);

// Writes through a temporary file in the same folder and a rename, so a failed
// write leaves the old file whole. Returns "" on success, else the error text.
std::string writePool(const std::string& path, const Pool& pool);

// The bytes of a pool as a file.
std::string poolBytes(const Pool& pool);

// Whether two pools are the same to the byte, as far as a file holds them.
bool samePool(const Pool& a, const Pool& b);

}  // namespace aq
