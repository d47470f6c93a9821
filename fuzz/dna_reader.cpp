// Feeds arbitrary file contents to the DNA reader: the genome is the file's first
// 1000 bytes with zeros after a short file's end, and it writes back unchanged.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "format/DnaFile.h"
#include "base/FileIo.h"
#include "ScratchFile.h"

namespace {

const std::string& scratchPath() {
    static const std::string path = aqfuzz::scratchPath("dna.dna");
    return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string& path = scratchPath();
    if (!aq::writeFileAtomically(path, {reinterpret_cast<const char*>(data), size}).empty()) return 0;
    aq::Genome genome;
    genome.fill(0xAA);
    if (!aq::readGenomeFile(path, genome).empty()) __builtin_trap();
    const std::size_t kept = size < genome.size() ? size : genome.size();
    if (kept && std::memcmp(genome.data(), data, kept) != 0) __builtin_trap();
    for (std::size_t i = kept; i < genome.size(); ++i)
        if (genome[i] != 0) __builtin_trap();
    aq::Genome again;
    if (!aq::writeGenomeFile(path, genome).empty()) __builtin_trap();
    if (!aq::readGenomeFile(path, again).empty() || again != genome) __builtin_trap();
    ::unlink(path.c_str());
    return 0;
}
