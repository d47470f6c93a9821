#include "HandOver.h"

#include <cstdio>
#include <string>

#include "format/PoolFile.h"
#include "format/DefaultPool.h"

namespace standin {

bool loadHandOver(aq::Pool& pool) {
    aq::PoolReadResult r = aq::readPool(kHandOver, pool);
    if (r.status == aq::PoolReadStatus::NotFound) {
        std::fprintf(stderr, "Aquarium: no %s here; starting from the default pool\n", kHandOver);
        pool = aq::Pool{};
        return aq::parsePool(aq::defaultPoolBytes(), pool).status == aq::PoolReadStatus::Ok;
    }
    if (r.status != aq::PoolReadStatus::Ok) {
        std::fprintf(stderr, "Aquarium: cannot read %s: %s\n", kHandOver,
                     r.status == aq::PoolReadStatus::BadVersion ? "not a version 4 or 5 pool" : r.error.c_str());
        return false;
    }
    return true;
}

int saveHandOver(const aq::Pool& pool) {
    std::string error = aq::writePool(kHandOver, pool);
    if (!error.empty()) {
        std::fprintf(stderr, "Aquarium: cannot write %s: %s\n", kHandOver, error.c_str());
        return 1;
    }
    return 0;
}

}  // namespace standin
