#pragma once
// DNA files: one genome of 1000 gene bytes, nothing else.
#include <array>
#include <cstdint>
#include <string>

#include "format/Records.h"

namespace aq {

using Genome = std::array<std::uint8_t, kGeneCount>;

// Reads the first 1000 bytes of `path` into `genome`; a shorter file leaves the
// remaining genes 0. Returns "" on success, else the system's description.
std::string readGenomeFile(const std::string& path, Genome& genome);

// Writes the 1000 bytes through a temporary file and a rename, so a failed write
// leaves the old file whole. Returns "" on success, else the error text.
std::string writeGenomeFile(const std::string& path, const Genome& genome);

}  // namespace aq
