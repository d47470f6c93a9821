#pragma once
// A list view that counts what it hears: bulk commands should reach it as one reset.
#include "base/CheckList.h"

namespace aqtest {

struct CountingView : aq::CheckListObserver {
    int rows = 0, resets = 0;
    void beginReset() override {}
    void endReset() override { ++resets; }
    void beginInsert(int) override {}
    void endInsert() override {}
    void beginRemove(int) override {}
    void endRemove() override {}
    void rowChanged(int) override { ++rows; }
    void stateChanged() override {}
};

}  // namespace aqtest
