#pragma once
// A notice window that only records what it was asked to show.
#include <string>
#include <vector>

#include "base/Notice.h"

namespace aqtest {

struct RecordingNotice : aq::Notice {
    std::vector<std::string> shown;
    void show(const std::string& text) override { shown.push_back(text); }
};

}  // namespace aqtest
