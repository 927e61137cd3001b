// What kind of window a control is, told from its class and its styles.
#pragma once

#include "platform/windows.h"

#include <string>
#include <string_view>

enum class ControlKind {
    dialog,
    pushButton,
    checkBox,
    radioButton,
    groupBox,
    label,
    picture,
    edit,
    comboBox,
    listBox,
    listView,
    slider,
    upDown,
    tabs,
    toolTip,
    other,
};

ControlKind kindOf(HWND window);

// For a reader: "check box"; and "a check box".
std::u16string_view describe(ControlKind kind);
std::u16string describeOne(ControlKind kind);

// The class of the window, in lower case.
std::u16string classOf(HWND window);
