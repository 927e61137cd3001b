// Which items of a list view are selected, which has the focus and which are checked: every change of it, by whom
// ever, goes through here, so that the parent is asked before and told afterwards.
#pragma once

#include "platform/qt/ListViewItems.h"

#include <QItemSelectionModel>
#include <QPersistentModelIndex>

#include <functional>

class ListViewStates {
public:
    // Sends the notification; its answer other than 0 to LVN_ITEMCHANGING refuses the change.
    using Notify = std::function<LRESULT(UINT code, NMLISTVIEW& note)>;

    ListViewStates(ListViewItems& items, QItemSelectionModel& selection, Notify notify);

    // One selected item at most; else any number.
    void setSingle(bool single) noexcept { single_ = single; }
    bool isSingle() const noexcept { return single_; }

    UINT state(int row) const;
    int focused() const { return selection_.currentIndex().row(); }
    int selectedCount() const { return static_cast<int>(selection_.selectedRows().size()); }
    // The first row behind `after` whose state has all of `wanted`, or -1.
    int next(int after, UINT wanted) const;

    // The bits of `mask` as in `state`. What must give way loses the focus, then the selection, before the item gets
    // them. False when the item is not there any more or the change was refused.
    bool set(int row, UINT state, UINT mask);
    // The same for all items.
    void setAll(UINT state, UINT mask);

    // What a click or a key does: the row gets the focus and is selected alone; with `extend` together with all from
    // the mark to it; with `toggle` it is selected or not any more, and the others stay.
    void choose(int row, bool extend, bool toggle);
    // Clear is turned to set and back, for all selected items when the row is one of them.
    void toggleCheck(int row);

    // Where `extend` begins; -1 for nowhere.
    int mark() const { return mark_.row(); }
    void setMark(int row) { mark_ = items_.index(row, 0); }

private:
    bool change(const QPersistentModelIndex& item, UINT state, UINT mask);
    void apply(const QModelIndex& item, UINT state, UINT mask);
    void takeFocusFrom(int row) { change(items_.index(row, 0), 0, LVIS_FOCUSED); }
    void deselectOthers(int first, int last);
    void selectRange(int from, int row, bool keepOthers);

    ListViewItems& items_;
    QItemSelectionModel& selection_;
    Notify notify_;
    QPersistentModelIndex mark_;
    bool single_ = false;
};
