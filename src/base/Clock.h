#pragma once
// Time as the program sees it: seconds since midnight and the date and time as text.
#include <string>

namespace aq {

class Clock {
public:
    virtual ~Clock() = default;
    virtual double secondsSinceMidnight() = 0;
    // Local date and time; the pieces the name helpers need.
    struct DateTime {
        int year, month, day, hour, minute, second;
    };
    virtual DateTime now() = 0;
};

class SystemClock : public Clock {
public:
    double secondsSinceMidnight() override;
    DateTime now() override;
};

// Seconds elapsed from `start` to `now`, across midnight.
double elapsedSeconds(double start, double now);

}  // namespace aq
