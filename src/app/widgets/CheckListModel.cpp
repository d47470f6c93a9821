#include "app/widgets/CheckListModel.h"

#include <QStyledItemDelegate>
#include <QTimer>
#include <QScrollBar>
#include <memory>

namespace aqapp {

CheckListModel::CheckListModel(aq::CheckList& list, QObject* parent) : QAbstractListModel(parent), list_(list) {
    list_.setObserver(this);
}

CheckListModel::~CheckListModel() { list_.setObserver(nullptr); }

int CheckListModel::rowCount(const QModelIndex& parent) const {
    // While the list is hidden its rows are changing; the view sees them when it shows.
    return parent.isValid() || !list_.visible() ? 0 : list_.count();
}

QVariant CheckListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= list_.count()) return {};
    const aq::CheckRow& r = list_.row(index.row());
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return QString::fromStdString(r.text);
    if (role == Qt::CheckStateRole) return r.checked ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool CheckListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || !index.isValid() || index.row() >= list_.count() || !list_.enabled())
        return false;
    list_.userCheck(index.row(), value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags CheckListModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    // A disabled list greys and refuses its rows but keeps the view itself enabled: a
    // disabled view would hand the keyboard focus on, and the click that took it away
    // from a text box would be lost.
    if (!list_.enabled()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable;
}

void CheckListModel::rowChanged(int row) {
    QModelIndex i = index(row);
    emit dataChanged(i, i, {Qt::DisplayRole, Qt::CheckStateRole});
    // A row grown past the longest widens the view's scroll range, once per batch.
    if (longest_ >= 0 && longest_ < list_.count() && row < list_.count() &&
        list_.text(row).size() > list_.text(longest_).size()) {
        longest_ = row;
        if (!relayoutDue_) {
            relayoutDue_ = true;
            QTimer::singleShot(0, this, [this] {
                relayoutDue_ = false;
                emit layoutAboutToBeChanged();
                emit layoutChanged();
            });
        }
    }
}

int CheckListModel::longestRow() const {
    if (longest_ < 0 || longest_ >= list_.count()) {
        longest_ = -1;
        std::size_t most = 0;
        for (int i = 0; i < list_.count(); ++i)
            if (longest_ < 0 || list_.text(i).size() > most) {
                longest_ = i;
                most = list_.text(i).size();
            }
    }
    return longest_;
}

namespace {

// Every row as wide as the longest, so the list scrolls sideways to its end instead
// of cutting rows short; the view asks one row's size when its rows are uniform.
class LongestRowDelegate : public QStyledItemDelegate {
public:
    LongestRowDelegate(CheckListModel* model, QObject* parent) : QStyledItemDelegate(parent), model_(model) {}
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QSize own = QStyledItemDelegate::sizeHint(option, index);
        int longest = model_->longestRow();
        if (longest < 0 || longest == index.row()) return own;
        QSize wide = QStyledItemDelegate::sizeHint(option, model_->index(longest));
        return {std::max(own.width(), wide.width()), own.height()};
    }

private:
    CheckListModel* model_;
};

}  // namespace

CheckListModel* bindCheckList(QListView* view, aq::CheckList& list) {
    auto* model = new CheckListModel(list, view);
    view->setModel(model);
    view->setUniformItemSizes(true);  // keeps 2000-row lists quick
    view->setItemDelegate(new LongestRowDelegate(model, view));
    view->setTextElideMode(Qt::ElideNone);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    auto enabled = std::make_shared<bool>(list.enabled());
    auto sync = [view, model, enabled] {
        aq::CheckList& l = model->list();
        if (*enabled != l.enabled()) {
            *enabled = l.enabled();
            if (model->rowCount() > 0) emit model->dataChanged(model->index(0), model->index(model->rowCount() - 1));
        }
        int cur = l.currentIndex();
        QModelIndex want = cur >= 0 && cur < model->rowCount() ? model->index(cur) : QModelIndex();
        if (view->currentIndex() == want) return;
        // The program's own change of the current row leaves the view where the user
        // scrolled it; a caller that wants the row in sight scrolls to it.
        const bool autoScroll = view->hasAutoScroll();
        view->setAutoScroll(false);
        view->setCurrentIndex(want);
        view->setAutoScroll(autoScroll);
    };
    QObject::connect(model, &CheckListModel::listStateChanged, view, sync);
    // Rewriting the rows (a slider move, kill, revive, feed, species tags) resets the
    // model; the view keeps its scroll position across it.
    auto top = std::make_shared<int>(0);
    QObject::connect(model, &QAbstractItemModel::modelAboutToBeReset, view,
                     [view, top] { *top = view->verticalScrollBar()->value(); });
    QObject::connect(model, &QAbstractItemModel::modelReset, view, [view, top] {
        view->doItemsLayout();
        view->verticalScrollBar()->setValue(*top);
    });
    QObject::connect(view->selectionModel(), &QItemSelectionModel::currentChanged, view,
                     [model](const QModelIndex& now) {
                         aq::CheckList& l = model->list();
                         int row = now.isValid() ? now.row() : -1;
                         if (l.currentIndex() != row) l.setCurrentIndex(row);
                     });
    sync();
    return model;
}

}  // namespace aqapp
