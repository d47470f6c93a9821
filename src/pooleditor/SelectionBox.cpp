#include "pooleditor/SelectionBox.h"

#include <algorithm>
#include <cmath>

namespace aq {

namespace {

int rounded(float v) { return static_cast<int>(std::nearbyint(v)); }

// The size slider may stretch the box only as far as the nearer bound allows.
void setSizeRange(SliderState& s, float centre) {
    s.setMax(s.min + 1);
    s.setMax(rounded((centre + kBoxBound) * 2));
    if (centre + kBoxBound > kBoxBound - centre) s.setMax(rounded((kBoxBound - centre) * 2));
    s.tickFrequency = static_cast<int>(std::nearbyint((s.max - s.min) / 20.0));
}

// The centre may move only as far as keeps the whole box inside. A range the slider
// refuses collapses to one step, which hides the slider and its caption below.
void setCentreRange(SliderState& s, float size) {
    if (!s.setMin(rounded(size / 2 - kBoxBound))) s.setMax(s.min + 1);
    if (!s.setMax(rounded(kBoxBound - size / 2))) s.setMax(s.min + 1);
}

}  // namespace

BoxLimits selectionLimits(const BoxContents& contents) {
    BoxLimits b;
    for (int i = 0; i < contents.count(); ++i) {
        if (!contents.selected(i)) continue;
        float x = contents.coordinate(i, Axis::X), y = contents.coordinate(i, Axis::Y);
        if (x < b.minX) b.minX = x;
        if (x > b.maxX) b.maxX = x;
        if (y < b.minY) b.minY = y;
        if (y > b.maxY) b.maxY = y;
    }
    return b;
}

void setBoxSliders(const BoxContents& contents, BoxControls c) {
    BoxLimits b = selectionLimits(contents);
    b.maxX = std::min(b.maxX, kBoxBound);
    b.maxY = std::min(b.maxY, kBoxBound);
    b.minX = std::max(b.minX, -kBoxBound);
    b.minY = std::max(b.minY, -kBoxBound);
    float w = b.width(), h = b.height();
    float cX = (b.maxX + b.minX) / 2, cY = (b.maxY + b.minY) / 2;

    setSizeRange(c.width, cX);
    setSizeRange(c.height, cY);
    c.width.setValue(rounded(w));
    c.height.setValue(rounded(h));

    setCentreRange(c.x, w);
    setCentreRange(c.y, h);
    c.x.tickFrequency = static_cast<int>(std::nearbyint((c.x.max - c.x.min) / 20.0));
    c.y.tickFrequency = static_cast<int>(std::nearbyint((c.y.max - c.y.min) / 20.0));
    c.x.setValue(rounded(w / 2 + b.minX));
    c.y.setValue(rounded(h / 2 + b.minY));

    // A box narrower than 19 has no size slider, so a stretch never divides by 0.
    c.width.visible = w + 1 >= static_cast<float>(c.width.min);
    c.height.visible = h + 1 >= static_cast<float>(c.height.min);
    c.lblWidth = w >= static_cast<float>(c.width.min);
    c.lblHeight = h >= static_cast<float>(c.height.min);
    c.x.visible = c.lblX = c.x.max - c.x.min >= 20;
    c.y.visible = c.lblY = c.y.max - c.y.min >= 20;
}

bool moveBox(BoxContents& contents, Axis axis, int position) {
    BoxLimits b = selectionLimits(contents);
    float low = axis == Axis::X ? b.minX : b.minY;
    float size = axis == Axis::X ? b.width() : b.height();
    float offset = static_cast<float>(position) - (size / 2 + low);
    bool moved = false;
    for (int i = 0; i < contents.count(); ++i)
        if (contents.selected(i)) {
            contents.moveTo(i, axis, offset + contents.coordinate(i, axis));
            moved = true;
        }
    return moved;
}

bool stretchBox(BoxContents& contents, Axis axis, int position) {
    BoxLimits b = selectionLimits(contents);
    float low = axis == Axis::X ? b.minX : b.minY;
    float high = axis == Axis::X ? b.maxX : b.maxY;
    float size = high - low;
    // The size slider is hidden for such boxes; a stray call must not spread NaNs.
    if (!(size > 0)) return false;
    float centre = (low + high) / 2;
    float scale = static_cast<float>(position) / size;
    for (int i = 0; i < contents.count(); ++i)
        if (contents.selected(i)) contents.moveTo(i, axis, (contents.coordinate(i, axis) - centre) * scale + centre);
    return true;
}

}  // namespace aq
