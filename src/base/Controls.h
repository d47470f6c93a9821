#pragma once
// Controls whose state the core sets and the window only shows: a slider and a
// progress bar. The slider refuses an inverted range, as the original control did,
// rather than dragging its other end along as Qt's does.
#include <algorithm>
#include <cstdlib>
#include <functional>

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

// Work that moves a bar holds the thread until it returns, so the window could show
// the bar only after it is hidden again: `paint` lets it show the bar on the way, about
// a hundred times over a whole range.
struct ProgressBarState {
    int min = 0;
    int max = 100;
    int value = 0;
    bool visible = false;
    std::function<void(const ProgressBarState&)> paint;

    void show(int lo, int hi) {
        min = lo;
        max = hi;
        value = painted_ = lo;
        visible = true;
        if (paint) paint(*this);
    }
    void setValue(int v) {
        value = v;
        if (paint && std::abs(v - painted_) * 100L >= std::max(1, max - min)) {
            painted_ = v;
            paint(*this);
        }
    }
    void hide() {
        visible = false;
        if (paint) paint(*this);
    }

private:
    int painted_ = 0;
};

}  // namespace aq
