#pragma once
// The bounding box of a selection and the four sliders that move and stretch it.
// The drifter list and the food list share it: what differs is only how one selected
// thing is carried to a new coordinate (a drifter takes its whole body along, a food
// bit is a point).
#include "base/Controls.h"

namespace aq {

enum class Axis { X, Y };

// The pool's bounds on both axes, fixed for the box whatever the pool says.
constexpr float kBoxBound = 4000.0f;

struct BoxLimits {
    // Nothing selected leaves a box of size -8000.
    float minX = kBoxBound, maxX = -kBoxBound, minY = kBoxBound, maxY = -kBoxBound;
    float width() const { return maxX - minX; }
    float height() const { return maxY - minY; }
};

// The selected things of one list.
class BoxContents {
public:
    virtual ~BoxContents() = default;
    virtual int count() const = 0;
    virtual bool selected(int i) const = 0;
    virtual float coordinate(int i, Axis axis) const = 0;
    // Carries thing `i` to `value` on `axis`.
    virtual void moveTo(int i, Axis axis, float value) = 0;
};

// The four sliders and their captions.
struct BoxControls {
    SliderState& x;
    SliderState& y;
    SliderState& width;
    SliderState& height;
    bool& lblX;
    bool& lblY;
    bool& lblWidth;
    bool& lblHeight;
};

BoxLimits selectionLimits(const BoxContents& contents);

// Range, position and visibility of the sliders for the present selection.
void setBoxSliders(const BoxContents& contents, BoxControls controls);

// Puts the box's centre on `axis` at `position`. Returns whether anything moved.
bool moveBox(BoxContents& contents, Axis axis, int position);

// Scales the distances from the box's centre so its size on `axis` becomes `position`.
// Returns whether anything moved.
bool stretchBox(BoxContents& contents, Axis axis, int position);

}  // namespace aq
