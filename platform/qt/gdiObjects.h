// The objects that programs draw with, behind checked handles: what is no handle of an object of the right kind is
// refused, and an object that is deleted while a device context still holds it lives until that lets it go.
#pragma once

#include "platform/gdi.h"
#include "platform/qt/Bitmap.h"

#include <QBrush>
#include <QFont>
#include <QPen>

#include <memory>
#include <optional>
#include <variant>

struct GdiObject {
    std::variant<QBrush, QPen, QFont, Bitmap> what;
    // The system's own: deleting it changes nothing.
    bool isStock = false;
};

inline QColor colourOf(COLORREF colour) {
    return {static_cast<int>(colour & 0xFFU), static_cast<int>(colour >> 8U & 0xFFU),
            static_cast<int>(colour >> 16U & 0xFFU)};
}
inline COLORREF colorrefOf(const QColor& colour) {
    return static_cast<COLORREF>(colour.red() | colour.green() << 8 | colour.blue() << 16);
}

// Null with ERROR_NOT_ENOUGH_MEMORY when a program has made so many that it must have forgotten to delete them.
HGDIOBJ addGdiObject(GdiObject object);
HGDIOBJ addStockObject(GdiObject object);
// Null, with ERROR_INVALID_HANDLE, for what is no object.
std::shared_ptr<GdiObject> gdiObject(HGDIOBJ handle);

// A copy, or nothing (and ERROR_INVALID_HANDLE) for what is no object of that kind.
template <typename Kind>
std::optional<Kind> gdiObjectAs(HGDIOBJ handle) {
    auto object = gdiObject(handle);
    const Kind* kind = object == nullptr ? nullptr : std::get_if<Kind>(&object->what);
    if (kind != nullptr) return *kind;
    SetLastError(ERROR_INVALID_HANDLE);
    return std::nullopt;
}

// The font that a program gave to a window; the application's own for null and for what is no font.
QFont fontOf(HFONT font);
