#include "host/conversation/ControlReader.h"

#include "host/conversation/playNumbers.h"
#include "host/conversation/windowTree.h"
#include "jtcore/Services/formatMessage.h"
#include "platform/controls.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

using TextBuffer = std::array<WCHAR, 4096>;

// The field whose number the arrows change: not every up-down is told of it.
HWND fieldOf(HWND upDown) {
    const auto buddy = reinterpret_cast<HWND>(SendMessageW(upDown, UDM_GETBUDDY, 0, 0)); // NOLINT
    HWND before = buddy ? buddy : GetWindow(upDown, GW_HWNDPREV);
    return before && kindOf(before) == ControlKind::edit ? before : nullptr;
}

} // namespace

bool isMultiple(HWND listBox) {
    const auto style = static_cast<DWORD>(GetWindowLongW(listBox, GWL_STYLE));
    return (style & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0;
}

bool ControlReader::hasItems() const noexcept {
    return kind_ == ControlKind::comboBox || kind_ == ControlKind::listBox || kind_ == ControlKind::listView ||
           kind_ == ControlKind::tabs;
}

std::u16string ControlReader::value() const {
    if (kind_ == ControlKind::slider || kind_ == ControlKind::upDown) return formatMessage(u"%d", position());
    if (!hasItems() || (kind_ == ControlKind::comboBox && keepsTexts())) return textOf(control_);
    std::u16string value;
    for (const int row : selectedRows())
        value.append(value.empty() ? u"" : u", ").append(itemText(row));
    return value;
}

int ControlReader::countItems() const {
    switch (kind_) {
    case ControlKind::comboBox:
        return static_cast<int>(SendMessageW(control_, CB_GETCOUNT, 0, 0));
    case ControlKind::listBox:
        return static_cast<int>(SendMessageW(control_, LB_GETCOUNT, 0, 0));
    case ControlKind::listView:
        return static_cast<int>(SendMessageW(control_, LVM_GETITEMCOUNT, 0, 0));
    case ControlKind::tabs:
        return static_cast<int>(SendMessageW(control_, TCM_GETITEMCOUNT, 0, 0));
    default:
        return 0;
    }
}

std::vector<std::u16string> ControlReader::items() const {
    std::vector<std::u16string> texts;
    const int count = countItems();
    texts.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (int row = 0; row < count; ++row)
        texts.push_back(itemText(row));
    return texts;
}

// A list that draws its entries itself may have numbers in the place of texts.
bool ControlReader::keepsTexts() const {
    const auto style = static_cast<DWORD>(GetWindowLongW(control_, GWL_STYLE));
    return kind_ != ControlKind::comboBox || (style & CBS_OWNERDRAWFIXED) == 0 || (style & CBS_HASSTRINGS) != 0;
}

std::u16string ControlReader::itemText(int row) const {
    if (!keepsTexts()) return formatMessage(u"(%d)", row);
    if (kind_ == ControlKind::comboBox) return entryText(CB_GETLBTEXTLEN, CB_GETLBTEXT, row);
    if (kind_ == ControlKind::listBox) return entryText(LB_GETTEXTLEN, LB_GETTEXT, row);
    return kind_ == ControlKind::tabs ? tabTitle(row) : cell(row, 0);
}

std::u16string ControlReader::entryText(UINT lengthMessage, UINT textMessage, int row) const {
    const LRESULT length = SendMessageW(control_, lengthMessage, static_cast<WPARAM>(row), 0);
    if (length < 0) return {};
    std::u16string text(static_cast<std::size_t>(length) + 1, u'\0');
    SendMessageW(control_, textMessage, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(toWide(text.data())));
    text.pop_back();
    return text;
}

std::u16string ControlReader::cell(int row, int column) const {
    TextBuffer buffer{};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = buffer.data();
    item.cchTextMax = static_cast<int>(buffer.size());
    SendMessageW(control_, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return item.pszText ? fromWide(item.pszText) : std::u16string();
}

std::u16string ControlReader::tabTitle(int index) const {
    TextBuffer buffer{};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = buffer.data();
    item.cchTextMax = static_cast<int>(buffer.size());
    SendMessageW(control_, TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    return item.pszText ? fromWide(item.pszText) : std::u16string();
}

std::vector<int> ControlReader::selectedRows() const {
    std::vector<int> rows;
    const auto addOne = [&](UINT message) {
        const auto row = static_cast<int>(SendMessageW(control_, message, 0, 0));
        if (row >= 0) rows.push_back(row);
    };
    if (kind_ == ControlKind::comboBox) addOne(CB_GETCURSEL);
    if (kind_ == ControlKind::tabs) addOne(TCM_GETCURSEL);
    if (kind_ == ControlKind::listBox && !isMultiple(control_)) addOne(LB_GETCURSEL);
    const int count = rows.empty() ? countItems() : 0;
    for (int row = 0; row < count; ++row) {
        const auto index = static_cast<WPARAM>(row);
        const bool isSelected =
            kind_ == ControlKind::listView
                ? (SendMessageW(control_, LVM_GETITEMSTATE, index, LVIS_SELECTED) & LVIS_SELECTED) != 0
                : kind_ == ControlKind::listBox && SendMessageW(control_, LB_GETSEL, index, 0) > 0;
        if (isSelected) rows.push_back(row);
    }
    return rows;
}

int ControlReader::position() const {
    if (kind_ == ControlKind::slider) return static_cast<int>(SendMessageW(control_, TBM_GETPOS, 0, 0));
    const HWND field = fieldOf(control_);
    const std::optional<int> number = field ? readPlayNumber(textOf(field)) : std::nullopt;
    return number ? *number : static_cast<int>(SendMessageW(control_, UDM_GETPOS32, 0, 0));
}

CheckState ControlReader::checkState() const {
    switch (SendMessageW(control_, BM_GETCHECK, 0, 0)) {
    case BST_CHECKED:
        return CheckState::on;
    case BST_INDETERMINATE:
        return CheckState::mixed;
    default:
        return CheckState::off;
    }
}
