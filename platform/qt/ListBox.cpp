// The list box class: with one selected row, with any number (LBS_MULTIPLESEL: each click turns one round;
// LBS_EXTENDEDSEL: with Shift and Ctrl), or with none.
#include "platform/controls.h"
#include "platform/qt/ItemViewWindow.h"
#include "platform/qt/controlClasses.h"
#include "platform/qt/listText.h"

#include <QListWidget>
#include <QSignalBlocker>

#include <algorithm>

namespace {

using Command = QItemSelectionModel::SelectionFlags;

class RowList : public QListWidget {
public:
    explicit RowList(QWidget* parent) : QListWidget(parent) {
        makeShowOnly(*this);
        setUniformItemSizes(true);
    }
    int neighbour(RowStep step) { return moveCursor(static_cast<CursorAction>(step), Qt::NoModifier).row(); }

protected:
    // The base class would give the focus to a row of its choice.
    void focusInEvent(QFocusEvent* /*event*/) override { viewport()->update(); }
    void focusOutEvent(QFocusEvent* /*event*/) override { viewport()->update(); }
};

class ListBox : public ItemViewWindow {
public:
    ListBox(std::unique_ptr<RowList> list, const WindowTraits& traits);

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT answerRows(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT answerSelection(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT answerPlaces(UINT message, WPARAM wParam, LPARAM lParam);

    bool has(WPARAM row) const { return row < static_cast<WPARAM>(list_.count()); }
    bool isStyle(DWORD bit) const { return (style() & bit) != 0; }
    bool isMultiple() const { return isStyle(LBS_MULTIPLESEL | LBS_EXTENDEDSEL); }
    QString text(int row) const { return list_.item(row)->text(); }
    TextOfRow textOfRow() const {
        return [this](int row) { return text(row); };
    }
    QModelIndex index(int row) const { return list_.model()->index(row, 0); }

    LRESULT insert(int row, const QString& text);
    LRESULT remove(WPARAM row);
    LRESULT rowText(WPARAM row, LPARAM buffer);
    LRESULT setData(WPARAM row, LPARAM data);
    LRESULT find(WPARAM after, LPARAM text, bool whole) const;
    LRESULT selected() const;
    LRESULT select(int row);
    LRESULT setSelected(bool isSelected, int row);
    LRESULT selectedRows(WPARAM room, int* rows) const;
    LRESULT reveal(WPARAM row);
    LRESULT rectangle(WPARAM row, RECT* rectangle) const;

    LRESULT press(WPARAM keys, LPARAM position);
    LRESULT drag(WPARAM keys, LPARAM position);
    LRESULT doublePress(LPARAM position);
    LRESULT pressKey(WPARAM key, LPARAM lParam);
    LRESULT type(WPARAM unit);
    int rowAt(LPARAM position) const;
    void choose(int row, bool extend, bool toggle);
    void extendTo(int row, bool keepOthers);
    void tell(WORD code);

    RowList& list_;
    TypedSearch search_;
    // Where a range begins that Shift extends.
    QPersistentModelIndex anchor_;
};

ListBox::ListBox(std::unique_ptr<RowList> list, const WindowTraits& traits)
    : ItemViewWindow(std::unique_ptr<QWidget>(list.release()), traits), list_(static_cast<RowList&>(*widget())) {
    watch(list_);
    bool hasFrame = (traits.style & WS_BORDER) != 0 || (traits.extendedStyle & WS_EX_CLIENTEDGE) != 0;
    list_.setFrameShape(hasFrame ? QFrame::StyledPanel : QFrame::NoFrame);
}

LRESULT ListBox::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_LBUTTONDOWN:
        return press(wParam, lParam);
    case WM_LBUTTONUP:
        return 0;
    case WM_MOUSEMOVE:
        return drag(wParam, lParam);
    case WM_LBUTTONDBLCLK:
        return doublePress(lParam);
    case WM_KEYDOWN:
        return pressKey(wParam, lParam);
    case WM_CHAR:
        return type(wParam);
    case WM_SETFOCUS:
        Window::answer(message, wParam, lParam);
        return tell(LBN_SETFOCUS), 0;
    case WM_KILLFOCUS:
        Window::answer(message, wParam, lParam);
        return tell(LBN_KILLFOCUS), 0;
    default:
        return answerRows(message, wParam, lParam);
    }
}

LRESULT ListBox::answerRows(UINT message, WPARAM wParam, LPARAM lParam) {
    int row = static_cast<int>(wParam);
    switch (message) {
    case LB_GETCOUNT:
        return list_.count();
    case LB_ADDSTRING: {
        QString text = textFrom(lParam);
        return insert(isStyle(LBS_SORT) ? sortedPlace(text, list_.count(), textOfRow()) : list_.count(), text);
    }
    case LB_INSERTSTRING:
        return insert(row, textFrom(lParam));
    case LB_DELETESTRING:
        return remove(wParam);
    case LB_RESETCONTENT:
        return list_.clear(), LB_OKAY;
    case LB_GETTEXT:
        return rowText(wParam, lParam);
    case LB_GETTEXTLEN:
        return has(wParam) ? text(row).size() : LB_ERR;
    case LB_GETITEMDATA:
        return has(wParam) ? static_cast<LRESULT>(list_.item(row)->data(Qt::UserRole).toLongLong()) : LB_ERR;
    case LB_SETITEMDATA:
        return setData(wParam, lParam);
    case LB_FINDSTRING:
        return find(wParam, lParam, false);
    case LB_FINDSTRINGEXACT:
        return find(wParam, lParam, true);
    default:
        return answerSelection(message, wParam, lParam);
    }
}

LRESULT ListBox::answerSelection(UINT message, WPARAM wParam, LPARAM lParam) {
    int row = static_cast<int>(wParam);
    switch (message) {
    case LB_GETCURSEL:
        return selected();
    case LB_SETCURSEL:
        return select(row);
    case LB_SELECTSTRING: {
        LRESULT found = find(wParam, lParam, false);
        return found < 0 ? LB_ERR : select(static_cast<int>(found));
    }
    case LB_SETSEL:
        return setSelected(wParam != 0, static_cast<int>(lParam));
    case LB_GETSEL:
        return has(wParam) ? static_cast<LRESULT>(list_.item(row)->isSelected()) : LB_ERR;
    case LB_GETSELCOUNT:
        return isMultiple() ? list_.selectedItems().size() : LB_ERR;
    case LB_GETSELITEMS:
        return selectedRows(wParam, reinterpret_cast<int*>(lParam)); // NOLINT
    case LB_GETCARETINDEX:
        return list_.currentRow();
    case LB_SETCARETINDEX:
        if (!has(wParam)) return LB_ERR;
        return list_.setCurrentRow(row, QItemSelectionModel::NoUpdate), LB_OKAY;
    default:
        return answerPlaces(message, wParam, lParam);
    }
}

LRESULT ListBox::answerPlaces(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case LB_GETTOPINDEX:
        return std::max(list_.indexAt({1, 1}).row(), 0);
    case LB_SETTOPINDEX:
        return reveal(wParam);
    case LB_GETITEMRECT:
        return rectangle(wParam, reinterpret_cast<RECT*>(lParam)); // NOLINT
    case LB_SETHORIZONTALEXTENT:
        return 0;
    default:
        return Window::answer(message, wParam, lParam);
    }
}

// -1 means the end.
LRESULT ListBox::insert(int row, const QString& text) {
    int at = row == -1 ? list_.count() : row;
    if (at < 0 || at > list_.count()) return LB_ERR;
    list_.insertItem(at, text);
    return at;
}

LRESULT ListBox::remove(WPARAM row) {
    if (!has(row)) return LB_ERR;
    delete list_.takeItem(static_cast<int>(row));
    return list_.count();
}

LRESULT ListBox::rowText(WPARAM row, LPARAM buffer) {
    if (!has(row)) return LB_ERR;
    QString of = text(static_cast<int>(row));
    return copyText(of, static_cast<WPARAM>(of.size()) + 1, buffer);
}

LRESULT ListBox::setData(WPARAM row, LPARAM data) {
    if (!has(row)) return LB_ERR;
    list_.item(static_cast<int>(row))->setData(Qt::UserRole, static_cast<qlonglong>(data));
    return LB_OKAY;
}

LRESULT ListBox::find(WPARAM after, LPARAM text, bool whole) const {
    int row = findText({textFrom(text), static_cast<int>(after), whole}, list_.count(), textOfRow());
    return row < 0 ? LB_ERR : row;
}

LRESULT ListBox::selected() const {
    int row = list_.currentRow();
    if (isMultiple()) return row;
    return row >= 0 && list_.item(row)->isSelected() ? row : LB_ERR;
}

LRESULT ListBox::select(int row) {
    if (isMultiple()) return LB_ERR;
    bool isThere = has(static_cast<WPARAM>(row));
    list_.selectionModel()->setCurrentIndex(isThere ? index(row) : QModelIndex(), QItemSelectionModel::ClearAndSelect);
    if (!isThere) return list_.clearSelection(), LB_ERR;
    list_.scrollToItem(list_.item(row));
    return row;
}

// Row -1 means all of them.
LRESULT ListBox::setSelected(bool isSelected, int row) {
    if (!isMultiple() || (row != -1 && !has(static_cast<WPARAM>(row)))) return LB_ERR;
    for (int i = 0; i < list_.count(); ++i)
        if (row == -1 || row == i) list_.item(i)->setSelected(isSelected);
    return LB_OKAY;
}

LRESULT ListBox::selectedRows(WPARAM room, int* rows) const {
    if (!isMultiple() || rows == nullptr) return LB_ERR;
    WPARAM count = 0;
    for (int i = 0; i < list_.count() && count < room; ++i)
        if (list_.item(i)->isSelected()) rows[count++] = i;
    return static_cast<LRESULT>(count);
}

LRESULT ListBox::reveal(WPARAM row) {
    if (!has(row)) return LB_ERR;
    list_.scrollToItem(list_.item(static_cast<int>(row)), QAbstractItemView::PositionAtTop);
    return LB_OKAY;
}

LRESULT ListBox::rectangle(WPARAM row, RECT* rectangle) const {
    if (!has(row) || rectangle == nullptr) return LB_ERR;
    QRect area = list_.visualItemRect(list_.item(static_cast<int>(row)));
    area.translate(list_.viewport()->mapTo(&list_, QPoint(0, 0)));
    *rectangle = {area.left(), area.top(), area.left() + area.width(), area.top() + area.height()};
    return LB_OKAY;
}

int ListBox::rowAt(LPARAM position) const {
    POINT at = pointOfMouse(position);
    return list_.indexAt(list_.viewport()->mapFrom(&list_, QPoint(at.x, at.y))).row();
}

LRESULT ListBox::press(WPARAM keys, LPARAM position) {
    if (!list_.hasFocus()) list_.setFocus(Qt::MouseFocusReason);
    choose(rowAt(position), (keys & MK_SHIFT) != 0, (keys & MK_CONTROL) != 0);
    return 0;
}

LRESULT ListBox::drag(WPARAM keys, LPARAM position) {
    int row = rowAt(position);
    if ((keys & MK_LBUTTON) != 0 && !isMultiple() && row != list_.currentRow()) choose(row, false, false);
    return 0;
}

// The press before it has chosen the row.
LRESULT ListBox::doublePress(LPARAM position) {
    if (rowAt(position) >= 0) tell(LBN_DBLCLK);
    return 0;
}

LRESULT ListBox::pressKey(WPARAM key, LPARAM lParam) {
    if (auto step = stepOfKey(key)) {
        int row = list_.neighbour(*step);
        if (isStyle(LBS_MULTIPLESEL))
            list_.setCurrentRow(row, QItemSelectionModel::NoUpdate);
        else
            choose(row, isKeyHeld(VK_SHIFT), false);
        return 0;
    }
    if (key != VK_SPACE) return Window::answer(WM_KEYDOWN, key, lParam);
    if (isMultiple()) choose(list_.currentRow(), false, isStyle(LBS_MULTIPLESEL) || isKeyHeld(VK_CONTROL));
    return 0;
}

LRESULT ListBox::type(WPARAM unit) {
    if (unit <= VK_SPACE) return 0;
    choose(search_.type(QChar(static_cast<char16_t>(unit)), list_.currentRow(), list_.count(), textOfRow()), false,
           false);
    return 0;
}

void ListBox::choose(int row, bool extend, bool toggle) {
    if (!has(static_cast<WPARAM>(row)) || isStyle(LBS_NOSEL)) return;
    bool isToggled = isStyle(LBS_MULTIPLESEL) || (toggle && isStyle(LBS_EXTENDEDSEL));
    if (extend && isStyle(LBS_EXTENDEDSEL)) {
        extendTo(row, toggle);
    } else {
        anchor_ = index(row);
        list_.setCurrentRow(row, isToggled ? Command(QItemSelectionModel::Toggle)
                                           : Command(QItemSelectionModel::ClearAndSelect));
    }
    list_.scrollToItem(list_.item(row));
    tell(LBN_SELCHANGE);
}

void ListBox::extendTo(int row, bool keepOthers) {
    int from = anchor_.isValid() ? anchor_.row() : std::max(list_.currentRow(), 0);
    QItemSelection range(index(std::min(from, row)), index(std::max(from, row)));
    list_.selectionModel()->select(range, keepOthers ? Command(QItemSelectionModel::Select)
                                                     : Command(QItemSelectionModel::ClearAndSelect));
    list_.setCurrentRow(row, QItemSelectionModel::NoUpdate);
}

void ListBox::tell(WORD code) {
    if (isStyle(LBS_NOTIFY)) notifyCommand(code);
}

} // namespace

std::unique_ptr<Window> makeListBox(const WindowTraits& traits, QWidget* parent) {
    return std::make_unique<ListBox>(std::make_unique<RowList>(parent), traits);
}
