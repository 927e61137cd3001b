// Text: drawing and measuring.
#include "platform/qt/DeviceContext.h"
#include "platform/qt/windowCalls.h"

#include <QFontMetrics>

#include <array>
#include <utility>

namespace {

// A count below 0 means that the text ends with its zero.
QString textOf(LPCWSTR text, int count) {
    return text == nullptr ? QString() : QString::fromUtf16(fromWide(text), count < 0 ? -1 : count);
}

int flagsOf(UINT format) {
    constexpr std::array<std::pair<UINT, int>, 5> flags = {{{DT_CENTER, Qt::AlignHCenter},
                                                            {DT_RIGHT, Qt::AlignRight},
                                                            {DT_VCENTER, Qt::AlignVCenter},
                                                            {DT_WORDBREAK, Qt::TextWordWrap},
                                                            {DT_SINGLELINE, Qt::TextSingleLine}}};
    int result = (format & DT_NOPREFIX) != 0 ? 0 : Qt::TextShowMnemonic;
    for (auto [published, own] : flags)
        if ((format & published) != 0) result |= own;
    return result;
}

void writeText(DeviceContext& context, QPainter& painter, const QRect& area, int flags, const QString& text) {
    if (context.state.backMode == OPAQUE && context.state.backColour)
        painter.fillRect(painter.boundingRect(area, flags, text), *context.state.backColour);
    painter.setPen(context.textColour());
    painter.drawText(area, flags, text);
}

} // namespace

namespace qt {

BOOL TextOutW(HDC hdc, int x, int y, LPCWSTR lpString, int c) {
    auto context = DeviceContext::of(hdc);
    if (context == nullptr) return FALSE;
    QString text = textOf(lpString, c);
    QRect area(QPoint(x, y), QFontMetrics(context->font()).size(Qt::TextSingleLine, text));
    return context->draw([&](QPainter& painter) {
        writeText(*context, painter, area, Qt::TextSingleLine | Qt::TextDontClip, text);
    })
               ? TRUE
               : FALSE;
}

// The height of the text.
int DrawTextW(HDC hdc, LPCWSTR lpchText, int cchText, LPRECT lprc, UINT format) {
    auto context = DeviceContext::of(hdc);
    if (context == nullptr || lprc == nullptr) return 0;
    QString text = textOf(lpchText, cchText);
    int flags = flagsOf(format);
    QFontMetrics metrics(context->font());
    QRect area(lprc->left, lprc->top, lprc->right - lprc->left, lprc->bottom - lprc->top);
    QRect needed = metrics.boundingRect(area, flags, text);
    if ((format & DT_CALCRECT) != 0) {
        lprc->right = lprc->left + needed.width();
        lprc->bottom = lprc->top + needed.height();
        return needed.height();
    }
    if ((format & DT_END_ELLIPSIS) != 0) text = metrics.elidedText(text, Qt::ElideRight, area.width(), flags);
    context->draw([&](QPainter& painter) { writeText(*context, painter, area, flags, text); });
    return needed.height();
}

BOOL GetTextExtentPoint32W(HDC hdc, LPCWSTR lpString, int c, LPSIZE psizl) {
    auto context = DeviceContext::of(hdc);
    if (context == nullptr || psizl == nullptr || c < 0) return FALSE;
    QFontMetrics metrics(context->font());
    *psizl = {metrics.horizontalAdvance(textOf(lpString, c)), metrics.height()};
    return TRUE;
}

BOOL GetTextMetricsW(HDC hdc, LPTEXTMETRICW lptm) {
    auto context = DeviceContext::of(hdc);
    if (context == nullptr || lptm == nullptr) return FALSE;
    QFont font = context->font();
    QFontMetrics metrics(font);
    *lptm = {};
    lptm->tmHeight = metrics.height();
    lptm->tmAscent = metrics.ascent();
    lptm->tmDescent = metrics.descent();
    lptm->tmExternalLeading = metrics.leading();
    lptm->tmAveCharWidth = metrics.averageCharWidth();
    lptm->tmMaxCharWidth = metrics.maxWidth();
    lptm->tmWeight = font.weight();
    lptm->tmItalic = static_cast<BYTE>(font.italic());
    lptm->tmUnderlined = static_cast<BYTE>(font.underline());
    lptm->tmStruckOut = static_cast<BYTE>(font.strikeOut());
    return TRUE;
}

} // namespace qt
