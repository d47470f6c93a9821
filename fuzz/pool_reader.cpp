// Feeds arbitrary bytes to the pool reader: it must report, never crash or
// allocate more than the bytes could hold. A pool it accepts then goes through the
// passes that read every body field as the file has it: the keys, the plague and
// the harvest list.
#include <cstddef>
#include <cstdint>

#include "format/PoolFile.h"
#include "pooleditor/DrifterKey.h"
#include "series/Harvest.h"
#include "series/PrepareSteps.h"
#include "series/Success.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    aq::Pool pool;
    aq::PoolReadResult r = aq::parsePool({data, size}, pool);
    if (r.status == aq::PoolReadStatus::Ok) {
        // What was read writes back as the same bytes (up to any trailing junk).
        std::string again = aq::poolBytes(pool);
        if (again.size() > size) __builtin_trap();
        for (std::size_t i = 0; i < again.size(); ++i)
            if (static_cast<std::uint8_t>(again[i]) != data[i]) __builtin_trap();
        for (int i = 0; i < pool.drifterCount; ++i) aq::DrifterKeyPair(pool, i);
        aq::HarvestList list(pool, 3);
        list.considerPool(pool, aq::SuccessNorm(pool));
        list.considerPool(pool, 1.0f);
        aq::applyPlague(pool);
    }
    return 0;
}
