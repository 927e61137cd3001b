// Bitmaps and icons, and how they get from one device context to another.
#include "platform/qt/DeviceContext.h"
#include "platform/qt/resourcePictures.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>
#include <QPixmap>

#include <array>
#include <cmath>
#include <functional>

namespace {

// On a screen of four times the density this is still a picture that fits into memory.
constexpr int longestSide = 8192;

struct Operation {
    DWORD code;
    QPainter::CompositionMode mode;
};

constexpr std::array operations = {
    Operation{SRCCOPY, QPainter::CompositionMode_Source},
    Operation{SRCPAINT, QPainter::RasterOp_SourceOrDestination},
    Operation{SRCAND, QPainter::RasterOp_SourceAndDestination},
    Operation{SRCINVERT, QPainter::RasterOp_SourceXorDestination},
    Operation{NOTSRCCOPY, QPainter::RasterOp_NotSource},
};

const Operation* operationOf(DWORD code) {
    for (const Operation& operation : operations)
        if (operation.code == code) return &operation;
    return nullptr;
}

// What is filled without a source.
std::optional<QBrush> filling(const DeviceContext& context, DWORD code) {
    switch (code) {
    case BLACKNESS:
        return QBrush(Qt::black);
    case WHITENESS:
        return QBrush(Qt::white);
    case PATCOPY:
        return context.brush();
    default:
        return std::nullopt;
    }
}

bool isDrawable(const QRect& area) {
    return area.width() > 0 && area.height() > 0 && area.width() <= longestSide && area.height() <= longestSide;
}

HBITMAP addBitmap(Bitmap bitmap) { return static_cast<HBITMAP>(addGdiObject({std::move(bitmap)})); }

HBITMAP newBitmap(int width, int height, qreal ratio) {
    if (isDrawable(QRect(0, 0, width, height))) return addBitmap(Bitmap(QSize(width, height), ratio));
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
}

using Scaler = std::function<QImage(const Bitmap&, const QRectF&, QSize)>;

// Draws `source` of one context's picture in `target` of another, in as many pixels as that has.
BOOL copyPicture(HDC to, const QRect& target, HDC from, const QRect& source, QPainter::CompositionMode mode,
                 const Scaler& scale) {
    auto destination = DeviceContext::of(to);
    auto origin = DeviceContext::of(from);
    if (destination == nullptr || origin == nullptr) return FALSE;
    auto picture = origin->picture();
    if (!picture || !isDrawable(target) || !isDrawable(source)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    QSize pixels = (QSizeF(target.size()) * destination->devicePixelRatio()).toSize();
    QImage image = scale(*picture, source, pixels);
    bool isDrawn = destination->draw([&](QPainter& painter) {
        painter.setCompositionMode(mode);
        painter.drawImage(QRectF(target), image);
    });
    return isDrawn ? TRUE : FALSE;
}

BOOL fill(HDC dc, const QRect& area, DWORD code) {
    auto context = DeviceContext::of(dc);
    auto brush = context == nullptr ? std::nullopt : filling(*context, code);
    if (!brush) {
        if (context != nullptr) SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    return context->draw([&](QPainter& painter) { painter.fillRect(area, *brush); }) ? TRUE : FALSE;
}

} // namespace

namespace qt {

HBITMAP LoadBitmapW(HINSTANCE hInstance, LPCWSTR lpBitmapName) {
    auto bitmap = loadBitmap(hInstance, lpBitmapName);
    return bitmap ? addBitmap(std::move(*bitmap)) : nullptr;
}

HBITMAP CreateCompatibleBitmap(HDC hdc, int cx, int cy) {
    auto context = DeviceContext::of(hdc);
    return context == nullptr ? nullptr : newBitmap(cx, cy, context->devicePixelRatio());
}

// REQUIRES: the screen's own depth, and no bits; nobody here makes bitmaps of other kinds.
HBITMAP CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitCount, const void* lpBits) {
    if (nPlanes == 1 && nBitCount == 32 && lpBits == nullptr) return newBitmap(nWidth, nHeight, 1);
    SetLastError(ERROR_NOT_SUPPORTED);
    return nullptr;
}

BOOL BitBlt(HDC hdc, int x, int y, int cx, int cy, HDC hdcSrc, int x1, int y1, DWORD rop) {
    return qt::StretchBlt(hdc, x, y, cx, cy, hdcSrc, x1, y1, cx, cy, rop);
}

BOOL StretchBlt(HDC hdcDest, int xDest, int yDest, int wDest, int hDest, HDC hdcSrc, int xSrc, int ySrc, int wSrc,
                int hSrc, DWORD rop) {
    QRect target(xDest, yDest, wDest, hDest);
    const Operation* operation = operationOf(rop);
    if (operation == nullptr) return fill(hdcDest, target, rop);
    return copyPicture(hdcDest, target, hdcSrc, QRect(xSrc, ySrc, wSrc, hSrc), operation->mode,
                       [](const Bitmap& bitmap, const QRectF& part, QSize size) { return bitmap.scaled(part, size); });
}

BOOL TransparentBlt(HDC hdcDest, int xoriginDest, int yoriginDest, int wDest, int hDest, HDC hdcSrc, int xoriginSrc,
                    int yoriginSrc, int wSrc, int hSrc, UINT crTransparent) {
    return copyPicture(hdcDest, QRect(xoriginDest, yoriginDest, wDest, hDest), hdcSrc,
                       QRect(xoriginSrc, yoriginSrc, wSrc, hSrc), QPainter::CompositionMode_SourceOver,
                       [&](const Bitmap& bitmap, const QRectF& part, QSize size) {
                           return bitmap.transparent(part, size, colourOf(crTransparent).rgb());
                       });
}

// A size of 0 stands for that of the system's icons.
BOOL DrawIconEx(HDC hdc, int xLeft, int yTop, HICON hIcon, int cxWidth, int cyWidth, UINT /*istepIfAniCur*/,
                HBRUSH /*hbrFlickerFreeDraw*/, UINT /*diFlags*/) {
    QIcon icon = iconOf(hIcon);
    auto context = DeviceContext::of(hdc);
    QRect area(xLeft, yTop, cxWidth == 0 ? GetSystemMetrics(SM_CXICON) : cxWidth,
               cyWidth == 0 ? GetSystemMetrics(SM_CYICON) : cyWidth);
    if (context == nullptr || icon.isNull() || !isDrawable(area)) return FALSE;
    return context->draw([&](QPainter& painter) { icon.paint(&painter, area); }) ? TRUE : FALSE;
}

} // namespace qt
