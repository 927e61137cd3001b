// Controls that have a place in a range.
#include "tests/reference/sceneHands.h"

namespace reference {

namespace {

Scene trackbar() {
    return {"trackbar",
            {{u"msctls_trackbar32", TBS_HORZ | TBS_AUTOTICKS | WS_TABSTOP, first}, okItem},
            [](auto& hands) {
                hands.send(first, TBM_SETRANGE, TRUE, MAKELPARAM(0, 100));
                hands.send(first, TBM_SETPAGESIZE, 0, 20);
                hands.send(first, TBM_SETLINESIZE, 0, 5);
            },
            [](auto& hands) { return std::to_string(hands.send(first, TBM_GETPOS)) + " " + focusOf(hands); },
            {
                {"the program sets the place", [](auto& hands) { hands.send(first, TBM_SETPOS, TRUE, 50); }},
                {"Right", [](auto&) { key(VK_RIGHT); }},
                {"Left", [](auto&) { key(VK_LEFT); }},
                {"Up", [](auto&) { key(VK_UP); }},
                {"Down", [](auto&) { key(VK_DOWN); }},
                {"Page Up", [](auto&) { key(VK_PRIOR); }},
                {"Page Down", [](auto&) { key(VK_NEXT); }},
                {"Home", [](auto&) { key(VK_HOME); }},
                {"Left at the start", [](auto&) { key(VK_LEFT); }},
                {"End", [](auto&) { key(VK_END); }},
                {"the program narrows the range",
                 [](auto& hands) { hands.send(first, TBM_SETRANGE, TRUE, MAKELPARAM(0, 40)); }},
                {"the program sets a place outside", [](auto& hands) { hands.send(first, TBM_SETPOS, TRUE, 400); }},
            }};
}

Scene spinButton() {
    return {"spin button",
            {{u"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, first, u""},
             {u"msctls_updown32", UDS_AUTOBUDDY | UDS_SETBUDDYINT | UDS_ARROWKEYS | UDS_ALIGNRIGHT | UDS_NOTHOUSANDS,
              second},
             {u"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, third, u"7"},
             {u"msctls_updown32", UDS_ARROWKEYS, fourth},
             okItem},
            [](auto& hands) {
                hands.send(second, UDM_SETRANGE32, 1, 5);
                hands.send(second, UDM_SETPOS32, 0, 3);
                hands.send(fourth, UDM_SETRANGE32, 0, 99);
                hands.send(fourth, UDM_SETBUDDY, reinterpret_cast<WPARAM>(hands.item(third)));
            },
            [](auto& hands) {
                return plain(hands.text(first)) + " at " + std::to_string(hands.send(second, UDM_GETPOS32)) + " " +
                       plain(hands.text(third)) + " at " + std::to_string(hands.send(fourth, UDM_GETPOS32)) + " " +
                       focusOf(hands);
            },
            {
                {"the program sets the place", [](auto& hands) { hands.send(second, UDM_SETPOS32, 0, 4); }},
                {"the program sets the same place", [](auto& hands) { hands.send(second, UDM_SETPOS32, 0, 4); }},
                {"the program sets a place outside", [](auto& hands) { hands.send(second, UDM_SETPOS32, 0, 9); }},
                {"the program sets the field", [](auto& hands) { setText(hands, first, u"2"); }},
                {"Up in the field", [](auto& hands) { setFocus(hands, first), key(VK_UP); }},
                {"Down in the field", [](auto&) { key(VK_DOWN); }},
                {"the mouse on the upper half", [](auto& hands) { click(hands, second, inside); }},
                {"the mouse on the lower half",
                 [](auto& hands) {
                     RECT rect{};
                     GetClientRect(hands.item(second), &rect);
                     click(hands, second, POINT{6, rect.bottom - 3});
                 }},
                {"Up in the field of a button that writes nothing",
                 [](auto& hands) { setFocus(hands, third), key(VK_UP); }},
            }};
}

} // namespace

std::vector<Scene> rangeScenes() { return {trackbar(), spinButton()}; }

} // namespace reference
