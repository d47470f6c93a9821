#pragma once
// A check-list box as plain data: rows of text, a tick and a 32-bit tag, a current
// row, enabled and visible. Row i stands for record i of the pool or folder it shows.
// A view observes it; changes the program makes never raise the user's tick event.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace aq {

struct CheckRow {
    std::string text;
    bool checked = false;
    std::int32_t tag = -1;
    bool operator==(const CheckRow&) const = default;
};

class CheckListObserver {
public:
    virtual ~CheckListObserver() = default;
    virtual void beginReset() = 0;  // the rows are about to change wholesale
    virtual void endReset() = 0;
    virtual void beginInsert(int row) = 0;
    virtual void endInsert() = 0;
    virtual void beginRemove(int row) = 0;
    virtual void endRemove() = 0;
    virtual void rowChanged(int row) = 0;
    virtual void stateChanged() = 0;  // current row, enabled or visible
};

class CheckList {
public:
    int count() const { return static_cast<int>(rows_.size()); }
    const CheckRow& row(int i) const { return rows_[static_cast<std::size_t>(i)]; }
    const std::string& text(int i) const { return row(i).text; }
    bool checked(int i) const { return row(i).checked; }
    std::int32_t tag(int i) const { return row(i).tag; }

    void setText(int i, std::string text);
    void setChecked(int i, bool on);
    void setTag(int i, std::int32_t tag);
    // Inserts a row at `at` (0..count) with tag -1 and no tick.
    void insert(int at, std::string text);
    void add(std::string text) { insert(count(), std::move(text)); }
    void remove(int i);
    void clear();
    // Replaces every row at once (one reset for the view).
    void assign(std::vector<CheckRow> rows);

    int currentIndex() const { return current_; }
    void setCurrentIndex(int i);
    int topIndex() const { return top_; }
    void setTopIndex(int i) { top_ = i; }
    bool enabled() const { return enabled_; }
    void setEnabled(bool on);
    // Hiding the list batches its changes: the view sees one reset when it is shown again.
    bool visible() const { return visible_; }
    void setVisible(bool on);

    int checkedCount() const;

    void setObserver(CheckListObserver* o) { observer_ = o; }
    // The user's tick (from the view). The program's own setChecked never calls it.
    std::function<void(int row, bool checked)> onUserCheck;
    void userCheck(int row, bool on);

private:
    bool batching() const { return !visible_; }
    std::vector<CheckRow> rows_;
    int current_ = -1;
    int top_ = 0;
    bool enabled_ = true;
    bool visible_ = true;
    CheckListObserver* observer_ = nullptr;
};

}  // namespace aq
