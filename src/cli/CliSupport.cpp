#include "cli/CliSupport.h"

#include <cmath>
#include <iostream>

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

void CliUi::ShowMessage(const std::string& text, const std::string& title) {
    ++messages;
    std::cerr << (title == aq::kAppTitle ? "" : title + ": ") << text << "\n";
}

int depthOption(const Args& a, int fallback) {
    int d = intOption(a, "--depth", fallback);
    if (d < 1 || d > 1000) throw UsageError{"option --depth needs a whole number from 1 to 1000"};
    return d;
}

float thresholdOption(const Args& a, const std::string& name, float fallback) {
    double t = numberOption(a, name, fallback);
    if (!std::isfinite(t) || std::fabs(t) > 1e6) throw UsageError{"option " + name + " needs a percentage"};
    return static_cast<float>(t);
}

}  // namespace aqcli
