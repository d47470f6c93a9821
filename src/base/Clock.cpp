#include "base/Clock.h"

#include <chrono>
#include <ctime>

namespace aq {

namespace {
std::tm localTime(std::time_t t) {
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &t);
#else
    localtime_r(&t, &local);
#endif
    return local;
}
}  // namespace

double SystemClock::secondsSinceMidnight() {
    using namespace std::chrono;
    auto now = system_clock::now();
    std::time_t t = system_clock::to_time_t(now);
    std::tm local = localTime(t);
    double frac = duration<double>(now.time_since_epoch()).count();
    frac -= static_cast<double>(static_cast<long long>(frac));
    return local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec + frac;
}

Clock::DateTime SystemClock::now() {
    std::time_t t = std::time(nullptr);
    std::tm local = localTime(t);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

double elapsedSeconds(double start, double now) {
    double d = now - start;
    return d < 0 ? d + 86400.0 : d;
}

}  // namespace aq
