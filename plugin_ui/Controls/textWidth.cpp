#include "plugin_ui/Controls/textWidth.h"

#include "plugin_ui/Controls/WindowContext.h"

LONG measureText(HWND window, const std::u16string& text) {
    const WindowContext owner(window);
    const HDC context = owner.get();
    if (!context) return 0;
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0));
    const HGDIOBJ replaced = font ? SelectObject(context, font) : nullptr;
    SIZE size{};
    GetTextExtentPoint32W(context, toWide(text), static_cast<int>(text.size()), &size);
    if (replaced) SelectObject(context, replaced);
    return size.cx;
}
