#include "series/Feeding.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <string>
#include <vector>

#include "series/PrepareSteps.h"
#include "base/Paths.h"
#include "base/ThresholdText.h"

namespace aq {

const char* const kFeedColorPrompt =
    "Feed drifters containing what color?\r\n(enter one of... red, orange, yellow, green, blue, purple, or none to "
    "turn off.)";
const char* const kFeedCaptionOff = "Feed D&rifters by Color";

namespace {

const char* const kColorNames[] = {"Red", "Orange", "Yellow", "Green", "Blue", "Purple"};
// The two pieces around the colour's name: in the prompt, and in the menu caption.
const char* const kModeLabels[][2] = {
    {"Feed Completely ", " Drifters"},
    {"Feed ", " Headed Drifters"},
    {"Feed Drifters with ", " Parts"},
    {"Feed Partially ", " Drifters"},
};
const char* const kModeCaptions[][2] = {
    {"Feed Completely ", " D&rifters"},
    {"Feed ", " Headed D&rifters"},
    {"Feed D&rifters with ", " Parts"},
    {"Feed Partially ", " D&rifters"},
};

std::size_t at(int i) { return static_cast<std::size_t>(i); }

int colorOfAnswer(char c) {
    const char* letters = "roygbp";
    for (int k = 0; k < 6; ++k)
        if (c == letters[k] || c == '0' + k) return k;
    return -1;
}

// The gift shrinks near the edge; only the positive edges count.
float colorGift(const DrifterRec& d) {
    float gift = 50;
    if (std::sqrt(static_cast<double>(d.x) * d.x + static_cast<double>(d.y) * d.y) > 4100) gift = 25;
    if (d.x > 3870 || d.y > 3870) gift = 10;
    return gift;
}

float poolGift(const DrifterRec& d) {
    float gift = 50;
    if (d.x > 3850 || d.y > 3850) gift = 30;
    if (d.x > 3900 || d.y > 3900) gift = 10;
    return gift;
}

float sign(float v) { return v > 0 ? 1.0f : v < 0 ? -1.0f : 0.0f; }

void switchOff(App& app) {
    app.series.options.mFeedColor = false;
    app.series.options.mFeedColorCaption = kFeedCaptionOff;
}

}  // namespace

void mFeedColorClick(App& app) {
    std::string answer = app.ui.AskText(kFeedColorPrompt, "Choose Color", "None");
    if (answer.empty()) answer = "N";
    answer = trimmed(answer);
    const char first = answer.empty() ? ' ' : static_cast<char>(std::tolower(static_cast<unsigned char>(answer[0])));
    const int color = colorOfAnswer(first);
    if (color < 0) {
        app.feedColor = -1;
        switchOff(app);
        return;
    }
    app.feedColor = color;
    std::string prompt = "Please select one of the following options, and enter the corresponding number.";
    for (int m = 0; m < 4; ++m)
        prompt += "\r\n" + std::to_string(m + 1) + " = " + kModeLabels[m][0] + kColorNames[color] + kModeLabels[m][1];
    std::string reply =
        trimmed(app.ui.AskText(prompt, "Select Color Feeding Mode", std::to_string(std::abs(app.feedMode) + 1)));
    int mode = static_cast<int>(std::nearbyint(leadingNumber(reply) - 1));
    if (mode > 3) mode = -1;
    if (mode >= 0) {
        app.series.options.mFeedColor = true;
        app.series.options.mFeedColorCaption =
            std::string(kModeCaptions[mode][0]) + kColorNames[color] + kModeCaptions[mode][1];
        app.feedMode = mode;
    } else {
        switchOff(app);
        app.feedMode = -1;
    }
}

void feedByColor(Pool& pool, int color, int mode) {
    if (color < 0 || color > 5 || mode < 0) return;
    for (int i = 0; i < pool.drifterCount; ++i) {
        DrifterRec& d = pool.drifters[at(i)];
        float e = d.energy;
        if (e < 100) e += colorGift(d);
        bool all = true, any = false;
        for (int s = 0; s < usedSegmentCount(d); ++s) {
            if (d.segments[s].color == color) {
                any = true;
                if (mode == 2) break;
            } else {
                all = false;
            }
            if (!all && any) break;
        }
        bool feed = false;
        switch (mode) {
            case 0:
                feed = all;
                break;
            case 1:  // the head alone isn't looked at: any segment of the colour will do
            case 2:
                feed = any;
                break;
            case 3:
                feed = any && !all;
                break;
            default:
                break;
        }
        if (feed) d.energy = e;
    }
}

void feedPool(Pool& pool, bool hungry, bool fed, bool addFood, bool graded) {
    if (addFood || graded) sortDrifters(pool);
    if (addFood) {
        if (pool.foodCount < 1) {
            pool.food.assign(1, FoodBit{});
            pool.foodCount = 1;
        }
        const int old = pool.foodCount;
        const int total = std::clamp(old + 50, 100, 2000);
        std::vector<FoodBit> food(at(total));
        for (int k = 0; k < total; ++k) {
            FoodBit& b = food[at(k)] = pool.food[at(k % old)];
            if (k >= old && pool.drifterCount > 0) {
                // 40 closer to the axes than the drifter it stands beside.
                const DrifterRec& d = pool.drifters[at((k - old) % pool.drifterCount)];
                b.x = d.x - 40 * sign(d.x);
                b.y = d.y - 40 * sign(d.y);
            }
        }
        pool.food = std::move(food);
        pool.foodCount = total;
    }
    const int n = std::max(pool.drifterCount, 0);
    const double allot = 2000.0 / (n + 1);
    const int half = static_cast<int>(std::nearbyint(n / 2.0));
    for (int i = 0; i < n; ++i) {
        DrifterRec& d = pool.drifters[at(i)];
        const float e0 = d.energy;
        double e = e0;
        if (hungry && e0 < 50) e += poolGift(d);
        if (fed && e0 < 2000 && d.mealsEaten >= 1) e += poolGift(d);
        if (graded && i < half && e0 < 3000) e += allot - (allot / half) * i;
        if (e != e0) d.energy = static_cast<float>(e);
    }
}

}  // namespace aq
