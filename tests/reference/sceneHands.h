// What the scenes have in common: how their controls are called, and the hands that work on them.
#pragma once

#include "tests/reference/Recorder.h"

#include <string>

namespace reference {

enum Id : std::uint16_t { first = 101, second, third, fourth, fifth, sixth, okId = IDOK, cancelId = IDCANCEL };

inline constexpr POINT inside{6, 6};
inline constexpr POINT outside{600, 600};
inline constexpr POINT secondRow{20, 30};

inline std::string plain(const std::u16string& text) {
    std::string ascii;
    for (const char16_t letter : text)
        ascii += letter >= 32 && letter < 128 ? static_cast<char>(letter) : letter == u'\n' ? '/' : '?';
    return "'" + ascii + "'";
}

inline std::string focusOf(const DialogHands& hands) {
    HWND focused = GetFocus();
    while (focused != nullptr && GetParent(focused) != hands.window() && GetParent(focused) != nullptr)
        focused = GetParent(focused);
    return "focus " +
           (focused == nullptr || focused == hands.window() ? "none" : std::to_string(GetDlgCtrlID(focused)));
}

inline std::string ticks(const DialogHands& hands, std::uint16_t from, std::uint16_t to) {
    std::string text;
    for (std::uint16_t id = from; id <= to; ++id)
        text += std::to_string(IsDlgButtonChecked(hands.window(), id));
    return text;
}

// What is selected in a field that has the focus; others may keep it or not, nobody sees it.
inline std::string selection(const DialogHands& hands, std::uint16_t id) {
    if (GetFocus() != hands.item(id)) return "";
    const auto ends = static_cast<DWORD>(hands.send(id, EM_GETSEL));
    return std::to_string(LOWORD(ends)) + "-" + std::to_string(HIWORD(ends)) + " ";
}

inline void setText(const DialogHands& hands, std::uint16_t id, const std::u16string& text) { hands.paste(id, text); }
inline void setFocus(const DialogHands& hands, std::uint16_t id) { SetFocus(hands.item(id)); }
inline void add(const DialogHands& hands, std::uint16_t id, UINT message, const std::u16string& text) {
    hands.send(id, message, 0, reinterpret_cast<LPARAM>(toWide(text)));
}
inline void size(const DialogHands& hands, std::uint16_t id, int height) {
    MoveWindow(hands.item(id), 10, 10, 200, height, TRUE);
}
inline void click(const DialogHands& hands, std::uint16_t id, POINT at) {
    press(hands.item(id), at);
    release(hands.item(id), at);
}
// As the mouse does it: press, release, the second press told as a double click, release.
inline void clickTwice(const DialogHands& hands, std::uint16_t id, POINT at) {
    click(hands, id, at);
    doubleClick(hands.item(id), at);
    release(hands.item(id), at);
}

inline const DialogItem okItem{u"BUTTON", BS_DEFPUSHBUTTON | WS_TABSTOP, okId, u"OK"};
inline const DialogItem edit{u"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, first, u"one"};

} // namespace reference
