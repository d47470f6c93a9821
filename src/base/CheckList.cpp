#include "base/CheckList.h"

#include <algorithm>

namespace aq {

void CheckList::setText(int i, std::string text) {
    rows_[static_cast<std::size_t>(i)].text = std::move(text);
    if (observer_ && !batching()) observer_->rowChanged(i);
}

void CheckList::setChecked(int i, bool on) {
    auto& r = rows_[static_cast<std::size_t>(i)];
    if (r.checked == on) return;
    r.checked = on;
    if (observer_ && !batching()) observer_->rowChanged(i);
}

void CheckList::setTag(int i, std::int32_t tag) { rows_[static_cast<std::size_t>(i)].tag = tag; }

void CheckList::insert(int at, std::string text) {
    at = std::clamp(at, 0, count());
    if (observer_ && !batching()) observer_->beginInsert(at);
    rows_.insert(rows_.begin() + at, CheckRow{std::move(text), false, -1});
    if (observer_ && !batching()) observer_->endInsert();
}

void CheckList::remove(int i) {
    if (i < 0 || i >= count()) return;
    if (observer_ && !batching()) observer_->beginRemove(i);
    rows_.erase(rows_.begin() + i);
    if (current_ >= count()) current_ = count() - 1;
    if (observer_ && !batching()) observer_->endRemove();
}

void CheckList::clear() { assign({}); }

void CheckList::assign(std::vector<CheckRow> rows) {
    if (observer_ && !batching()) observer_->beginReset();
    rows_ = std::move(rows);
    current_ = -1;
    top_ = 0;
    if (observer_ && !batching()) observer_->endReset();
}

void CheckList::setCurrentIndex(int i) {
    current_ = (i >= 0 && i < count()) ? i : -1;
    if (observer_ && !batching()) observer_->stateChanged();
}

void CheckList::setEnabled(bool on) {
    if (enabled_ == on) return;
    enabled_ = on;
    if (observer_) observer_->stateChanged();
}

void CheckList::setVisible(bool on) {
    if (visible_ == on) return;
    if (observer_ && !on) observer_->beginReset();
    visible_ = on;
    if (observer_ && on) {
        observer_->endReset();
        observer_->stateChanged();
    }
}

int CheckList::checkedCount() const {
    return static_cast<int>(std::count_if(rows_.begin(), rows_.end(), [](const CheckRow& r) { return r.checked; }));
}

void CheckList::userCheck(int row, bool on) {
    if (row < 0 || row >= count()) return;
    setChecked(row, on);
    if (onUserCheck) onUserCheck(row, on);
}

}  // namespace aq
