#pragma once
// Controls whose state the core sets and the window only shows: a slider and a
// progress bar. The slider refuses an inverted range, as the original control did,
// rather than dragging its other end along as Qt's does.
#include <algorithm>

namespace aq {

struct SliderState {
    int min = 0;
    int max = 10;
    int value = 0;
    int tickFrequency = 1;
    bool visible = true;

    // False (and nothing changes) when the range would be inverted.
    bool setMin(int v) {
        if (v > max) return false;
        min = v;
        value = std::max(value, min);
        return true;
    }
    bool setMax(int v) {
        if (v < min) return false;
        max = v;
        value = std::min(value, max);
        return true;
    }
    // A position outside the range is cut to it.
    void setValue(int v) { value = std::clamp(v, min, max); }
};

struct ProgressBarState {
    int min = 0;
    int max = 100;
    int value = 0;
    bool visible = false;
};

}  // namespace aq
