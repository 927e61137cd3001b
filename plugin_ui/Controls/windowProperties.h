// What a control keeps on a window whose messages it has taken over. The window procedures are shared and have no
// object: all they know stands in these properties.
#pragma once

#include "platform/windows.h"

#include <cstdint>

namespace property {
inline constexpr const char16_t* bitmap = u"SC_ID"; // for a button: in the up state
inline constexpr const char16_t* pressedBitmap = u"SC_DN_ID";
inline constexpr const char16_t* disabledBitmap = u"SC_DSBL_ID";
inline constexpr const char16_t* replacedProcedure = u"SC_WND";
inline constexpr const char16_t* control = u"SC_THS";
inline constexpr const char16_t* maximumLength = u"SC_MAX";
inline constexpr const char16_t* entryType = u"SC_TYPE";
} // namespace property

void setProperty(HWND window, const char16_t* name, std::uint32_t value);
// 0 when the window has no such property.
std::uint32_t getProperty(HWND window, const char16_t* name);
void removeProperty(HWND window, const char16_t* name);
