#include "cli/CliSupport.h"

#include <charconv>
#include <cmath>
#include <iostream>
#include <string_view>

#include "cli/Cli.h"
#include "generator/Random.h"
#include "format/PoolFile.h"

namespace aqcli {

int readPoolOrFail(const std::string& path, aq::Pool& pool) {
    aq::PoolReadResult r = aq::readPool(path, pool);
    if (r.status == aq::PoolReadStatus::Ok) return 0;
    return fail(aq::poolReadMessage(path, r));
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

std::uint32_t stateOption(const Args& a) {
    auto text = a.value("--state");
    if (!text) return aq::kRandomStartState;
    std::string_view s = *text;
    if (s.rfind("0x", 0) == 0 || s.rfind("0X", 0) == 0) s.remove_prefix(2);
    std::uint32_t v = 0;
    auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), v, 16);
    if (s.empty() || ec != std::errc() || end != s.data() + s.size() || v > 0xFFFFFF)
        throw UsageError{"option --state needs a hexadecimal number up to FFFFFF, got \"" + *text + "\""};
    return v;
}

}  // namespace aqcli
