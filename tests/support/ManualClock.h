#pragma once
// A clock the test moves by hand, so slices and waits run in virtual time.
#include "base/Clock.h"

namespace aqtest {

class ManualClock : public aq::Clock {
public:
    double seconds = 36000.0;  // 10:00:00
    DateTime when{2026, 11, 23, 10, 0, 0};
    double secondsSinceMidnight() override { return seconds; }
    DateTime now() override { return when; }
    void advance(double s) { seconds += s; }
};

// Every reading moves the clock on by `step`, so a slice of a long pass runs out of time
// after a few items.
class SteppingClock : public ManualClock {
public:
    double step = 0;
    double secondsSinceMidnight() override {
        double now = seconds;
        seconds += step;
        return now;
    }
};

}  // namespace aqtest
