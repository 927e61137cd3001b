#include "host/conversation/expectations.h"

#include "host/conversation/ControlReader.h"
#include "host/conversation/PlayFailure.h"
#include "host/conversation/textPattern.h"
#include "host/conversation/windowTree.h"
#include "jtcore/Services/formatMessage.h"

#include <algorithm>

namespace {

std::u16string quoted(std::u16string_view text) { return u"\"" + std::u16string(text) + u"\""; }

template <typename Values, typename Show>
std::u16string listed(const Values& values, std::u16string_view separator, Show show) {
    std::u16string list;
    for (const auto& value : values) {
        if (!list.empty()) list += separator;
        list += show(value);
    }
    return list;
}

std::u16string show(const std::vector<std::u16string>& items) {
    return items.empty() ? std::u16string(u"no items") : listed(items, u" ", quoted);
}

std::u16string show(const std::vector<int>& rows) {
    return rows.empty() ? std::u16string(u"none")
                        : listed(rows, u",", [](int row) { return formatMessage(u"%d", row); });
}

void expectThat(bool isAsExpected, std::u16string_view found) {
    if (!isAsExpected) throw PlayFailure(std::u16string(found));
}

void expectNumber(int expected, int found) { expectThat(expected == found, formatMessage(u"%d", found)); }

void expectItems(const std::vector<std::u16string>& patterns, const ControlReader& reader) {
    const std::vector<std::u16string> items = reader.items();
    const bool isAsExpected = std::equal(
        patterns.begin(), patterns.end(), items.begin(), items.end(),
        [](const std::u16string& pattern, const std::u16string& item) { return matchesPattern(pattern, item); });
    expectThat(isAsExpected, show(items));
}

void expectItem(const std::u16string& pattern, bool isWanted, const ControlReader& reader) {
    const std::vector<std::u16string> items = reader.items();
    const bool isThere = std::any_of(items.begin(), items.end(),
                                     [&](const std::u16string& item) { return matchesPattern(pattern, item); });
    expectThat(isThere == isWanted, show(items));
}

void expectState(CheckState expected, const ControlReader& reader) {
    static constexpr std::u16string_view words[] = {u"unchecked", u"checked", u"mixed"};
    const CheckState found = reader.checkState();
    expectThat(found == expected, words[static_cast<std::size_t>(found)]);
}

// A control of a window that cannot be used cannot be used either, which IsWindowEnabled() alone does not tell.
bool isUsable(HWND control) {
    for (HWND window = control; window; window = GetParent(window))
        if (!IsWindowEnabled(window)) return false;
    return true;
}

[[noreturn]] void refuse(const ControlReader& reader, std::u16string_view lacking) {
    throw PlayFailure(formatMessage(u"%s, which has no %s", describeOne(reader.kind()), lacking));
}

// What a control cannot have is no expectation that it could fail.
void requireAspect(PlayAspect aspect, const ControlReader& reader) {
    const ControlKind kind = reader.kind();
    switch (aspect) {
    case PlayAspect::items_:
    case PlayAspect::item_:
    case PlayAspect::noitem_:
    case PlayAspect::count_:
    case PlayAspect::rows_:
        if (!reader.hasItems()) refuse(reader, u"rows");
        break;
    case PlayAspect::cell_:
        if (kind != ControlKind::listView) refuse(reader, u"cells");
        break;
    case PlayAspect::position_:
        if (kind != ControlKind::slider && kind != ControlKind::upDown) refuse(reader, u"position");
        break;
    case PlayAspect::checked_:
    case PlayAspect::unchecked_:
    case PlayAspect::mixed_:
        if (kind != ControlKind::checkBox && kind != ControlKind::radioButton) refuse(reader, u"such state");
        break;
    default:
        break;
    }
}

void expectCell(const PlayCommand& command, const ControlReader& reader) {
    const int row = command.numbers[0];
    if (row < 0 || row >= reader.countItems())
        throw PlayFailure(formatMessage(u"there are %d rows", reader.countItems()));
    expectText(command.text(), reader.cell(row, command.numbers[1]));
}

void expectOf(HWND control, const PlayCommand& command) {
    const ControlReader reader(control);
    requireAspect(command.aspect, reader);
    switch (command.aspect) {
    case PlayAspect::text_:
        return expectText(command.text(), reader.value());
    case PlayAspect::items_:
        return expectItems(command.texts, reader);
    case PlayAspect::item_:
        return expectItem(command.text(), true, reader);
    case PlayAspect::noitem_:
        return expectItem(command.text(), false, reader);
    case PlayAspect::count_:
        return expectNumber(command.numbers[0], reader.countItems());
    case PlayAspect::cell_:
        return expectCell(command, reader);
    case PlayAspect::rows_:
        return expectThat(reader.selectedRows() == command.numbers, show(reader.selectedRows()));
    case PlayAspect::position_:
        return expectNumber(command.numbers[0], reader.position());
    case PlayAspect::enabled_:
        return expectThat(isUsable(control), u"disabled");
    case PlayAspect::disabled_:
        return expectThat(!isUsable(control), u"enabled");
    case PlayAspect::checked_:
        return expectState(CheckState::on, reader);
    case PlayAspect::unchecked_:
        return expectState(CheckState::off, reader);
    case PlayAspect::mixed_:
        return expectState(CheckState::mixed, reader);
    case PlayAspect::visible_:
        return expectThat(IsWindowVisible(control), u"hidden");
    case PlayAspect::hidden_:
        return expectThat(!IsWindowVisible(control), u"visible");
    case PlayAspect::focused_:
        return expectThat(GetFocus() == control, u"not focused");
    default:
        return;
    }
}

} // namespace

void expectText(const std::u16string& pattern, const std::u16string& found) {
    expectThat(matchesPattern(pattern, found), quoted(found));
}

void expectOfControl(HWND window, const PlayCommand& command) {
    const HWND control = findControl(window, command.control);
    if (command.aspect == PlayAspect::missing_) return expectThat(!control, u"it is there");
    if (!control)
        throw PlayFailure(formatMessage(u"no control %s in \"%s\"", describe(command.control), textOf(window)));
    expectOf(control, command);
}
