#include "cli/CliSupport.h"

#include "cli/Cli.h"
#include "pool/PoolFile.h"

namespace aqcli {

int readPoolOrFail(const std::string& path, aq::Pool& pool) {
    aq::PoolReadResult r = aq::readPool(path, pool);
    switch (r.status) {
        case aq::PoolReadStatus::Ok: return 0;
        case aq::PoolReadStatus::NotFound: return fail("Error opening " + path + ", error: No such file or directory");
        case aq::PoolReadStatus::BadVersion: return fail("Not a Aquarium 4 or 5 data file: " + path);
        case aq::PoolReadStatus::Error: break;
    }
    return fail("Error opening " + path + ", error: " + r.error);
}

}  // namespace aqcli
