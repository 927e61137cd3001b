#include "plugin_ui/Controls/windowProperties.h"

void setProperty(HWND window, const char16_t* name, std::uint32_t value) {
    SetPropW(window, toWide(name), reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(value)));
}

std::uint32_t getProperty(HWND window, const char16_t* name) {
    return static_cast<std::uint32_t>(reinterpret_cast<UINT_PTR>(GetPropW(window, toWide(name))));
}

void removeProperty(HWND window, const char16_t* name) { RemovePropW(window, toWide(name)); }
