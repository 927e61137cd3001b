#include "platform/gdi.h"
#include "platform/qt/DeviceContext.h"
#include "platform/qt/gdiObjects.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetrics>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int tallestFont = 2048;
constexpr int leastWeight = 1;
constexpr int mostWeight = 1000;

QString faceName(const WCHAR* name, std::size_t room) {
    if (name == nullptr) return {};
    const char16_t* text = fromWide(name);
    return QString::fromUtf16(text, std::find(text, text + room, u'\0') - text);
}

// The shell's dialog faces stand for whatever the desktop uses.
QFont faceOf(const QString& name) {
    bool isDesktops = name.isEmpty() || name.startsWith(QLatin1StringView("MS Shell Dlg"), Qt::CaseInsensitive);
    QFont font = QApplication::font();
    if (!isDesktops) font.setFamily(name);
    return font;
}

// Heights are in pixels: below 0 of the characters, above 0 of the line, 0 the usual one.
void setHeight(QFont& font, int height) {
    if (height == 0) return;
    int pixels = static_cast<int>(std::clamp<long long>(std::llabs(height), 1, tallestFont));
    font.setPixelSize(pixels);
    if (height > 0) font.setPixelSize(std::max(1, pixels * pixels / std::max(1, QFontMetrics(font).height())));
}

HFONT newFont(const LOGFONTW& wanted) {
    QFont font = faceOf(faceName(wanted.lfFaceName, LF_FACESIZE));
    setHeight(font, wanted.lfHeight);
    if (wanted.lfWeight != FW_DONTCARE)
        font.setWeight(static_cast<QFont::Weight>(std::clamp<int>(wanted.lfWeight, leastWeight, mostWeight)));
    font.setItalic(wanted.lfItalic != 0);
    font.setUnderline(wanted.lfUnderline != 0);
    font.setStrikeOut(wanted.lfStrikeOut != 0);
    return static_cast<HFONT>(addGdiObject({font}));
}

} // namespace

QFont fontOf(HFONT font) {
    if (font == nullptr) return QApplication::font();
    return gdiObjectAs<QFont>(font).value_or(QApplication::font());
}

namespace qt {

HFONT CreateFontIndirectW(const LOGFONTW* lplf) {
    if (lplf != nullptr) return newFont(*lplf);
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
}

HFONT CreateFontW(int cHeight, int cWidth, int cEscapement, int cOrientation, int cWeight, DWORD bItalic,
                  DWORD bUnderline, DWORD bStrikeOut, DWORD iCharSet, DWORD iOutPrecision, DWORD iClipPrecision,
                  DWORD iQuality, DWORD iPitchAndFamily, LPCWSTR pszFaceName) {
    LOGFONTW font{};
    font.lfHeight = cHeight;
    font.lfWidth = cWidth;
    font.lfEscapement = cEscapement;
    font.lfOrientation = cOrientation;
    font.lfWeight = cWeight;
    font.lfItalic = static_cast<BYTE>(bItalic != 0);
    font.lfUnderline = static_cast<BYTE>(bUnderline != 0);
    font.lfStrikeOut = static_cast<BYTE>(bStrikeOut != 0);
    font.lfCharSet = static_cast<BYTE>(iCharSet);
    font.lfOutPrecision = static_cast<BYTE>(iOutPrecision);
    font.lfClipPrecision = static_cast<BYTE>(iClipPrecision);
    font.lfQuality = static_cast<BYTE>(iQuality);
    font.lfPitchAndFamily = static_cast<BYTE>(iPitchAndFamily);
    std::u16string name(pszFaceName == nullptr ? u"" : fromWide(pszFaceName));
    name.resize(std::min<std::size_t>(name.size(), LF_FACESIZE - 1));
    std::ranges::copy(name, reinterpret_cast<char16_t*>(font.lfFaceName));
    return newFont(font);
}

} // namespace qt
