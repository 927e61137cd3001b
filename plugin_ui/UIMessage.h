// One window message on its way down the tree of components, and the messages that are this system's own.
#pragma once

#include "platform/types.h"

// A record on the stack for one delivery. Handlers take it together with a result word, which starts at 0 and becomes
// the message result of the dialog.
struct UIMessage {
    HWND window = nullptr; // the dialog or page, null when the tree is told without one
    UINT id = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0; // with WM_INITDIALOG the address of the dialog's working FeatureSettings
};

// Private messages, sent to the dialog's window or delivered by a direct call of processMessage().
inline constexpr UINT UIM_HIDE = 0x8001;
inline constexpr UINT UIM_SHOW = 0x8002;
inline constexpr UINT UIM_REFRESH = 0x8003; // the settings have changed
inline constexpr UINT UIM_ENABLE = 0x8004;
inline constexpr UINT UIM_DISABLE = 0x8005;
inline constexpr UINT UIM_VALIDATE_ENTRY = 0x8006; // before OK or apply; see validateEntries.h
inline constexpr UINT UIM_VALIDATE_SAVE = 0x8007;  // before a ticket is saved
inline constexpr UINT UIM_INTRODUCE = 0x8008; // wParam: an Introduction, lParam: the component that announces itself
inline constexpr UINT UIM_LOCK = 0x8009;      // read-only on
inline constexpr UINT UIM_UNLOCK = 0x800A;

// The result of the two validating messages.
inline constexpr LRESULT entriesValid = 1;
inline constexpr LRESULT entriesInvalid = 2;
