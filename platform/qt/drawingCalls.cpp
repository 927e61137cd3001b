// Shapes and pixels.
#include "platform/qt/DeviceContext.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>
#include <QRegion>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <utility>

namespace {

QRect rectOf(const RECT& rect) { return {QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1)}; }

// A brush, or in its place the number of a system colour plus 1.
std::optional<QBrush> brushOf(HBRUSH brush) {
    constexpr ULONG_PTR mostColours = 64;
    auto number = reinterpret_cast<ULONG_PTR>(brush);
    if (number == 0 || number > mostColours) return gdiObjectAs<QBrush>(brush);
    return QBrush(colourOf(qt::GetSysColor(static_cast<int>(number) - 1)));
}

template <typename Drawing>
BOOL draw(HDC dc, Drawing&& drawing) {
    auto context = DeviceContext::of(dc);
    return context != nullptr && context->draw(std::forward<Drawing>(drawing)) ? TRUE : FALSE;
}

} // namespace

namespace qt {

// The edge lies inside the area, and so does the pen; without a pen the area ends one pixel earlier.
BOOL Rectangle(HDC hdc, int left, int top, int right, int bottom) {
    return draw(hdc, [&](QPainter& painter) {
        QRect area = rectOf({left, top, right, bottom});
        QPen pen = painter.pen();
        if (pen.style() == Qt::NoPen) return painter.fillRect(area.adjusted(0, 0, -1, -1), painter.brush());
        int width = pen.width();
        QRect inner = area.adjusted(width, width, -width, -width);
        painter.fillRect(inner, painter.brush());
        for (const QRect& edge : QRegion(area).subtracted(inner))
            painter.fillRect(edge, pen.color());
    });
}

BOOL MoveToEx(HDC hdc, int x, int y, LPPOINT lppt) {
    auto context = DeviceContext::of(hdc);
    if (context == nullptr) return FALSE;
    QPoint before = std::exchange(context->state.position, QPoint(x, y));
    if (lppt != nullptr) *lppt = {before.x(), before.y()};
    return TRUE;
}

// A line runs through the middles of its pixels.
BOOL LineTo(HDC hdc, int x, int y) {
    constexpr QPointF middle(0.5, 0.5);
    auto context = DeviceContext::of(hdc);
    if (context == nullptr) return FALSE;
    QPoint from = std::exchange(context->state.position, QPoint(x, y));
    return context->draw([&](QPainter& painter) { painter.drawLine(QPointF(from) + middle, QPointF(x, y) + middle); })
               ? TRUE
               : FALSE;
}

int FillRect(HDC hDC, const RECT* lprc, HBRUSH hbr) {
    auto brush = brushOf(hbr);
    if (lprc == nullptr || !brush) return FALSE;
    return draw(hDC, [&](QPainter& painter) { painter.fillRect(rectOf(*lprc), *brush); });
}

BOOL DrawFocusRect(HDC hDC, const RECT* lprc) {
    if (lprc == nullptr) return FALSE;
    QStyleOptionFocusRect option;
    option.rect = rectOf(*lprc);
    option.palette = QApplication::palette();
    option.state = QStyle::State_Enabled | QStyle::State_KeyboardFocusChange;
    return draw(hDC, [&](QPainter& painter) {
        QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter);
    });
}

COLORREF GetPixel(HDC hdc, int x, int y) {
    auto context = DeviceContext::of(hdc);
    auto picture = context == nullptr ? std::nullopt : context->picture();
    if (!picture || !QRect(QPoint(), picture->size()).contains(x, y)) return CLR_INVALID;
    // Of the device pixels that it is made of, the one in the middle.
    qreal ratio = picture->pixels().devicePixelRatio();
    QPoint place(static_cast<int>((x + 0.5) * ratio), static_cast<int>((y + 0.5) * ratio));
    return colorrefOf(picture->pixels().pixelColor(place));
}

COLORREF SetPixel(HDC hdc, int x, int y, COLORREF color) {
    BOOL isDrawn = draw(hdc, [&](QPainter& painter) { painter.fillRect(x, y, 1, 1, colourOf(color)); });
    return isDrawn != FALSE ? color : CLR_INVALID;
}

} // namespace qt
