#include "pool/DnaFile.h"

#include <cerrno>

#include "shell/FileIo.h"
#include "shell/SysIo.h"

namespace aq {

std::string readGenomeFile(const std::string& path, Genome& genome) {
    genome.fill(0);
    int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return systemErrorText(errno);
    std::size_t done = 0;
    int err = 0;
    while (done < genome.size()) {
        ssize_t n = ::read(fd, genome.data() + done, genome.size() - done);
        if (n < 0) {
            if (errno == EINTR) continue;
            err = errno;
            break;
        }
        if (n == 0) break;  // a short file: the rest stays 0
        done += static_cast<std::size_t>(n);
    }
    ::close(fd);
    return err ? systemErrorText(err) : std::string();
}

std::string writeGenomeFile(const std::string& path, const Genome& genome) {
    return writeFileAtomically(path, {reinterpret_cast<const char*>(genome.data()), genome.size()});
}

}  // namespace aq
