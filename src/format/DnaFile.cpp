#include "format/DnaFile.h"

#include <cerrno>

#include "base/FileIo.h"
#include "base/SysIo.h"

namespace aq {

std::string readGenomeFile(const std::string& path, Genome& genome) {
    genome.fill(0);
    int fd = -1;
    std::size_t size = 0;
    if (int err = openRegularFile(path, fd, size)) return systemErrorText(err);
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
