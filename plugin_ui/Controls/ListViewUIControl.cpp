#include "plugin_ui/Controls/ListViewUIControl.h"

#include "jtcore/Services/quietly.h"
#include "platform/list_view.h"
#include "plugin_ui/Controls/subclassing.h"
#include "plugin_ui/Controls/windowProperties.h"

#include <array>

namespace {

constexpr DWORD tableStyle = LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT;
constexpr UINT rowParts = LVIF_TEXT | LVIF_PARAM | LVIF_STATE;
constexpr UINT unchecked = 1;
constexpr UINT checked = 2;

constexpr UINT choices = LVIS_SELECTED | LVIS_STATEIMAGEMASK;

constexpr UINT checkState(UINT image) { return image << 12; }

LVITEMW itemAt(int row, int column) {
    LVITEMW item{};
    item.iItem = row;
    item.iSubItem = column;
    return item;
}

} // namespace

ListViewUIControl::ListViewUIControl(std::uint16_t listId) : UIControl(listId), listId_(listId) {
    addControlId(listId);
}

ListViewUIControl::~ListViewUIControl() {
    quietly([this] { release(); });
}

int ListViewUIControl::addRow(LPARAM data) {
    LVITEMW item = itemAt(static_cast<int>(send(LVM_GETITEMCOUNT)), 0);
    std::u16string empty;
    item.mask = rowParts;
    item.pszText = toWide(empty.data());
    item.lParam = data;
    const auto row = static_cast<int>(send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    send(LVM_UPDATE, static_cast<WPARAM>(row));
    return row;
}

void ListViewUIControl::setCellText(int row, int column, const std::u16string& text) {
    LVITEMW item = itemAt(row, column);
    std::u16string copy = text;
    item.pszText = toWide(copy.data());
    send(LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    send(LVM_UPDATE, static_cast<WPARAM>(row));
}

std::u16string ListViewUIControl::getCellText(int row, int column) const {
    std::array<char16_t, 1024> buffer{};
    LVITEMW item = itemAt(row, column);
    item.mask = rowParts;
    item.pszText = toWide(buffer.data());
    item.cchTextMax = static_cast<int>(buffer.size());
    if (send(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) == FALSE || !item.pszText) return {};
    return fromWide(item.pszText);
}

void ListViewUIControl::addColumn(int index, int width, const std::u16string& text) {
    const bool fits = width == -1;
    LVCOLUMNW column{};
    std::u16string copy = text;
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
    column.fmt = LVCFMT_LEFT;
    column.cx = fits ? 1 : width;
    column.pszText = toWide(copy.data());
    column.iSubItem = index;
    send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
    if (fits) send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(index), LVSCW_AUTOSIZE_USEHEADER);
}

void ListViewUIControl::deleteRow(int row) { send(LVM_DELETEITEM, static_cast<WPARAM>(row)); }

void ListViewUIControl::deleteAllRows() { send(LVM_DELETEALLITEMS); }

int ListViewUIControl::getSelectedCount() const { return static_cast<int>(send(LVM_GETSELECTEDCOUNT)); }

int ListViewUIControl::nextSelectedRow(int from) const { return nextRow(from, LVNI_SELECTED); }

std::optional<LPARAM> ListViewUIControl::nextSelectedData(int from) const {
    LVITEMW item = itemAt(nextSelectedRow(from), 0);
    item.mask = LVIF_PARAM;
    if (item.iItem < 0 || send(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) == FALSE) return std::nullopt;
    return item.lParam;
}

void ListViewUIControl::selectRow(int row) {
    send(LVM_SETSELECTIONMARK, 0, row);
    setRowState(row, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
}

void ListViewUIControl::ensureVisible(int row, bool partly) {
    send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), partly ? TRUE : FALSE);
}

void ListViewUIControl::setCheckBoxes(bool on) {
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, on ? tableStyle | LVS_EX_CHECKBOXES : tableStyle);
}

void ListViewUIControl::setRowChecked(int row, bool value) {
    setRowState(row, LVIS_STATEIMAGEMASK, checkState(value ? checked : unchecked));
}

bool ListViewUIControl::isRowChecked(int row) const {
    const LRESULT state = send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK);
    return state == static_cast<LRESULT>(checkState(checked));
}

void ListViewUIControl::displayControl() { ensureVisible(currentRow_, false); }

void ListViewUIControl::initializeControl() {
    listWindow_ = getItem(listId_);
    if (subclassWindow(listWindow_, windowProc)) SetPropW(listWindow_, toWide(property::control), this);
    setCheckBoxes(false);
    deleteAllRows();
}

bool ListViewUIControl::handleControlMessage(const UIMessage& message, LRESULT&) {
    doubleClicked_ = false;
    if (message.wParam != listId_) return false;
    if (message.id == WM_NOTIFY) handleNotification(*reinterpret_cast<const NMHDR*>(message.lParam));
    return true;
}

bool ListViewUIControl::onDestroy(const UIMessage& message, LRESULT& result) {
    release();
    return UIControl::onDestroy(message, result);
}

bool ListViewUIControl::onLock(const UIMessage&, LRESULT&) { return false; }

LRESULT CALLBACK ListViewUIControl::windowProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam) {
    return runInWindowProcedure(list, u"ListViewUIControl::windowProc()", [&] {
        ListViewUIControl* const control = controlOf(list);
        const bool isKey = control && (message == WM_KEYDOWN || message == WM_CHAR);
        if (isKey) control->beginKey();
        const LRESULT result = callReplacedProcedure(list, message, wParam, lParam);
        if (isKey && controlOf(list) == control) control->endKey();
        return result;
    });
}

ListViewUIControl* ListViewUIControl::controlOf(HWND list) {
    return static_cast<ListViewUIControl*>(GetPropW(list, toWide(property::control)));
}

void ListViewUIControl::beginKey() {
    isKeyDown_ = true;
    isChangedByKey_ = false;
}

// A key changes several rows one after the other; observers hear of it once, when it has done.
void ListViewUIControl::endKey() {
    isKeyDown_ = false;
    if (!isChangedByKey_) return;
    doubleClicked_ = false;
    if (const int row = chosenRow(); row >= 0) currentRow_ = static_cast<std::uint16_t>(row);
    notifyObservers();
}

void ListViewUIControl::release() {
    if (!listWindow_) return;
    removeProperty(listWindow_, property::control);
    unsubclassWindow(listWindow_);
    listWindow_ = nullptr;
}

LRESULT ListViewUIControl::send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(listWindow_, message, wParam, lParam);
}

int ListViewUIControl::nextRow(int from, WPARAM states) const {
    if (!listWindow_) return -1;
    return static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(from - 1), static_cast<LPARAM>(states)));
}

// A row that has the focus and is not selected was not chosen by the user: a table gives its first row the focus.
int ListViewUIControl::chosenRow() const { return nextRow(0, LVNI_FOCUSED | LVNI_SELECTED); }

// The mouse that rests and the focus come without a row.
int ListViewUIControl::rowOf(const NMHDR& header) const {
    if (header.code == NM_CLICK || header.code == NM_DBLCLK)
        return reinterpret_cast<const NMITEMACTIVATE&>(header).iItem;
    return chosenRow();
}

void ListViewUIControl::handleNotification(const NMHDR& header) {
    if (isKeyDown_ && header.code == LVN_ITEMCHANGED) {
        const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
        if (((change.uOldState ^ change.uNewState) & choices) != 0) isChangedByKey_ = true;
        return;
    }
    const bool selects = header.code == NM_CLICK || header.code == NM_HOVER || header.code == NM_SETFOCUS;
    doubleClicked_ = header.code == NM_DBLCLK;
    if (!selects && !doubleClicked_) return;
    const int row = rowOf(header);
    if (row < 0) {
        doubleClicked_ = false;
        return;
    }
    if (selects) currentRow_ = static_cast<std::uint16_t>(row);
    notifyObservers();
}

void ListViewUIControl::setRowState(int row, UINT mask, UINT state) {
    LVITEMW item{};
    item.stateMask = mask;
    item.state = state;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}
