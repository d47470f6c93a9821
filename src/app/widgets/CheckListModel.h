#pragma once
// Shows a core CheckList in a QListView: one model reset for a batch of changes,
// the user's ticks passed to the list's handler.
#include <QAbstractListModel>
#include <QListView>

#include "base/CheckList.h"

namespace aqapp {

class CheckListModel : public QAbstractListModel, public aq::CheckListObserver {
    Q_OBJECT
public:
    CheckListModel(aq::CheckList& list, QObject* parent);
    ~CheckListModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    aq::CheckList& list() { return list_; }
    // The row with the longest text, which sets the width the view scrolls to.
    int longestRow() const;

    void beginReset() override { beginResetModel(); }
    void endReset() override {
        longest_ = -1;
        endResetModel();
    }
    void beginInsert(int row) override { beginInsertRows({}, row, row); }
    void endInsert() override {
        longest_ = -1;
        endInsertRows();
    }
    void beginRemove(int row) override { beginRemoveRows({}, row, row); }
    void endRemove() override {
        longest_ = -1;
        endRemoveRows();
    }
    void rowChanged(int row) override;
    void stateChanged() override { emit listStateChanged(); }

signals:
    void listStateChanged();

private:
    aq::CheckList& list_;
    mutable int longest_ = -1;  // -1: to be found again
    bool relayoutDue_ = false;
};

// Makes `view` show `list`, following its current row, enabled and visible states.
CheckListModel* bindCheckList(QListView* view, aq::CheckList& list);

}  // namespace aqapp
