#include "platform/qt/ListViewStates.h"

#include <algorithm>
#include <vector>

namespace {

constexpr UINT chosen = LVIS_SELECTED | LVIS_FOCUSED;
constexpr UINT clearBox = INDEXTOSTATEIMAGEMASK(1);
constexpr UINT setBox = INDEXTOSTATEIMAGEMASK(2);

QItemSelectionModel::SelectionFlags rows(bool select) {
    return (select ? QItemSelectionModel::Select : QItemSelectionModel::Deselect) | QItemSelectionModel::Rows;
}

} // namespace

ListViewStates::ListViewStates(ListViewItems& items, QItemSelectionModel& selection, Notify notify)
    : items_(items), selection_(selection), notify_(std::move(notify)) {}

UINT ListViewStates::state(int row) const {
    QModelIndex item = items_.index(row, 0);
    if (!item.isValid()) return 0;
    UINT state = items_.marks(row);
    if (selection_.isSelected(item)) state |= LVIS_SELECTED;
    if (focused() == row) state |= LVIS_FOCUSED;
    return state;
}

int ListViewStates::next(int after, UINT wanted) const {
    for (int row = std::max(after, -1) + 1; row < items_.rowCount(); ++row)
        if ((state(row) & wanted) == wanted) return row;
    return -1;
}

bool ListViewStates::set(int row, UINT state, UINT mask) {
    QPersistentModelIndex item = items_.index(row, 0);
    if ((state & mask & LVIS_FOCUSED) != 0 && focused() >= 0 && focused() != row) takeFocusFrom(focused());
    if ((state & mask & LVIS_SELECTED) != 0 && single_ && item.isValid()) deselectOthers(item.row(), item.row());
    return change(item, state, mask);
}

void ListViewStates::setAll(UINT state, UINT mask) {
    std::vector<QPersistentModelIndex> all;
    for (int row = 0; row < items_.rowCount(); ++row)
        all.emplace_back(items_.index(row, 0));
    for (const QPersistentModelIndex& item : all)
        change(item, state, mask & ~LVIS_FOCUSED);
}

bool ListViewStates::change(const QPersistentModelIndex& item, UINT state, UINT mask) {
    if (!item.isValid()) return false;
    NMLISTVIEW note{};
    note.iItem = item.row();
    note.uOldState = this->state(item.row()) & mask;
    note.uNewState = state & mask;
    note.uChanged = LVIF_STATE;
    note.lParam = items_.parameter(item.row());
    if (note.uOldState == note.uNewState) return true;
    // The handler may do anything, also delete the item.
    if (notify_(LVN_ITEMCHANGING, note) != 0 || !item.isValid()) return false;
    apply(item, state, mask);
    note.iItem = item.row();
    notify_(LVN_ITEMCHANGED, note);
    return true;
}

void ListViewStates::apply(const QModelIndex& item, UINT state, UINT mask) {
    if (UINT marks = items_.marks(item.row()); (mask & ~chosen) != 0)
        items_.setMarks(item.row(), (marks & ~mask) | (state & mask & ~chosen));
    if ((mask & LVIS_SELECTED) != 0) selection_.select(item, rows((state & LVIS_SELECTED) != 0));
    if ((mask & LVIS_FOCUSED) == 0) return;
    if ((state & LVIS_FOCUSED) != 0)
        selection_.setCurrentIndex(item, QItemSelectionModel::NoUpdate);
    else if (focused() == item.row())
        selection_.clearCurrentIndex();
}

void ListViewStates::deselectOthers(int first, int last) {
    std::vector<QPersistentModelIndex> others;
    for (int row = next(-1, LVIS_SELECTED); row >= 0; row = next(row, LVIS_SELECTED))
        if (row < first || row > last) others.emplace_back(items_.index(row, 0));
    for (const QPersistentModelIndex& item : others)
        change(item, 0, LVIS_SELECTED);
}

void ListViewStates::selectRange(int from, int row, bool keepOthers) {
    int first = std::min(from, row);
    int last = std::max(from, row);
    if (!keepOthers) deselectOthers(first, last);
    for (int i = first; i <= last; ++i)
        if (i != row) change(items_.index(i, 0), LVIS_SELECTED, LVIS_SELECTED);
}

void ListViewStates::choose(int row, bool extend, bool toggle) {
    if (!items_.has(row)) return;
    if (single_) {
        setMark(row);
        set(row, chosen, chosen);
        return;
    }
    QPersistentModelIndex item = items_.index(row, 0);
    if (focused() >= 0 && focused() != row) takeFocusFrom(focused());
    if (extend) {
        if (!mark_.isValid()) setMark(0);
        selectRange(mark(), row, toggle);
    } else {
        setMark(row);
        if (!toggle) deselectOthers(row, row);
    }
    bool leaves = toggle && !extend && (state(item.row()) & LVIS_SELECTED) != 0;
    change(item, leaves ? LVIS_FOCUSED : chosen, chosen);
}

void ListViewStates::toggleCheck(int row) {
    UINT wanted = (state(row) & LVIS_STATEIMAGEMASK) == setBox ? clearBox : setBox;
    std::vector<QPersistentModelIndex> items{items_.index(row, 0)};
    if ((state(row) & LVIS_SELECTED) != 0)
        for (int other = next(-1, LVIS_SELECTED); other >= 0; other = next(other, LVIS_SELECTED))
            if (other != row) items.emplace_back(items_.index(other, 0));
    for (const QPersistentModelIndex& item : items)
        change(item, wanted, LVIS_STATEIMAGEMASK);
}
