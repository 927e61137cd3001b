#include "host/conversation/ControlKind.h"

#include "platform/controls.h"

#include <algorithm>

namespace {

struct ClassRow {
    std::u16string_view className;
    ControlKind kind;
};
constexpr ClassRow classes[] = {
    {u"#32770", ControlKind::dialog},
    {u"button", ControlKind::pushButton},
    {u"static", ControlKind::label},
    {u"edit", ControlKind::edit},
    {u"combobox", ControlKind::comboBox},
    {u"listbox", ControlKind::listBox},
    {u"syslistview32", ControlKind::listView},
    {u"msctls_trackbar32", ControlKind::slider},
    {u"msctls_updown32", ControlKind::upDown},
    {u"systabcontrol32", ControlKind::tabs},
    {u"tooltips_class32", ControlKind::toolTip},
};

constexpr std::u16string_view words[] = {
    u"dialog",    u"button",   u"check box", u"radio button", u"group box", u"label", u"picture",  u"edit box",
    u"combo box", u"list box", u"list view", u"slider",       u"up-down",   u"tabs",  u"tool tip", u"window",
};
static_assert(std::size(words) == static_cast<std::size_t>(ControlKind::other) + 1);

ControlKind kindOfButton(DWORD style) {
    switch (style & BS_TYPEMASK) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_3STATE:
    case BS_AUTO3STATE:
        return ControlKind::checkBox;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        return ControlKind::radioButton;
    case BS_GROUPBOX:
        return ControlKind::groupBox;
    default:
        return ControlKind::pushButton;
    }
}

ControlKind kindOfStatic(DWORD style) {
    switch (style & SS_TYPEMASK) {
    case SS_LEFT:
    case SS_CENTER:
    case SS_RIGHT:
    case SS_SIMPLE:
    case SS_LEFTNOWORDWRAP:
        return ControlKind::label;
    default:
        return ControlKind::picture;
    }
}

} // namespace

std::u16string classOf(HWND window) {
    WCHAR name[64] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    std::u16string lower = fromWide(name);
    for (char16_t& c : lower)
        if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c - u'A' + u'a');
    return lower;
}

ControlKind kindOf(HWND window) {
    const std::u16string name = classOf(window);
    const auto* row =
        std::find_if(std::begin(classes), std::end(classes), [&](const ClassRow& r) { return r.className == name; });
    if (row == std::end(classes)) return ControlKind::other;
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    if (row->kind == ControlKind::pushButton) return kindOfButton(style);
    if (row->kind == ControlKind::label) return kindOfStatic(style);
    return row->kind;
}

std::u16string_view describe(ControlKind kind) { return words[static_cast<std::size_t>(kind)]; }

std::u16string describeOne(ControlKind kind) {
    const std::u16string_view word = describe(kind);
    const bool isVowel = std::u16string_view(u"aeiou").find(word.front()) != std::u16string_view::npos;
    return std::u16string(isVowel ? u"an " : u"a ").append(word);
}
