#include "platform/qt/gdiObjects.h"

#include "platform/posix/HandleTable.h"
#include "platform/qt/DeviceContext.h"
#include "platform/qt/windowCalls.h"
#include "platform/windows.h"

#include <QApplication>

#include <algorithm>
#include <cstring>
#include <map>

namespace {

constexpr DWORD mostObjects = 10'000;

auto& objects() { return handleTable<HandleKind::gdiObject, GdiObject, HGDIOBJ>(); }

std::size_t stockObjects = 0;

// The greys are the published ones, which are not those of the same names elsewhere.
std::map<int, HGDIOBJ> makeStock() {
    return {{WHITE_BRUSH, addStockObject({QBrush(Qt::white)})},
            {LTGRAY_BRUSH, addStockObject({QBrush(QColor(192, 192, 192))})},
            {GRAY_BRUSH, addStockObject({QBrush(QColor(128, 128, 128))})},
            {DKGRAY_BRUSH, addStockObject({QBrush(QColor(64, 64, 64))})},
            {BLACK_BRUSH, addStockObject({QBrush(Qt::black)})},
            {NULL_BRUSH, addStockObject({QBrush(Qt::NoBrush)})},
            {WHITE_PEN, addStockObject({QPen(Qt::white)})},
            {BLACK_PEN, addStockObject({QPen(Qt::black)})},
            {NULL_PEN, addStockObject({QPen(Qt::NoPen)})},
            {SYSTEM_FONT, addStockObject({QApplication::font()})},
            {DEFAULT_GUI_FONT, addStockObject({QApplication::font()})}};
}

BITMAP describe(const Bitmap& bitmap) {
    BITMAP about{};
    about.bmWidth = bitmap.size().width();
    about.bmHeight = bitmap.size().height();
    about.bmWidthBytes = about.bmWidth * 4;
    about.bmPlanes = 1;
    about.bmBitsPixel = 32;
    return about;
}

} // namespace

HGDIOBJ addGdiObject(GdiObject object) {
    if (objects().size() < mostObjects) return objects().add(std::make_shared<GdiObject>(std::move(object)));
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

HGDIOBJ addStockObject(GdiObject object) {
    object.isStock = true;
    ++stockObjects;
    return objects().add(std::make_shared<GdiObject>(std::move(object)));
}

std::shared_ptr<GdiObject> gdiObject(HGDIOBJ handle) {
    auto object = objects().lookUp(handle);
    if (object == nullptr) SetLastError(ERROR_INVALID_HANDLE);
    return object;
}

namespace qt {

HBRUSH CreateSolidBrush(COLORREF color) { return static_cast<HBRUSH>(addGdiObject({QBrush(colourOf(color))})); }

HPEN CreatePen(int iStyle, int cWidth, COLORREF color) {
    QPen pen(colourOf(color), std::max(cWidth, 1), iStyle == PS_NULL ? Qt::NoPen : Qt::SolidLine);
    return static_cast<HPEN>(addGdiObject({pen}));
}

HGDIOBJ GetStockObject(int i) {
    static const auto* stock = new std::map<int, HGDIOBJ>(makeStock());
    auto at = stock->find(i);
    return at == stock->end() ? nullptr : at->second;
}

// One for each colour that was ever asked for: the palette may change from light to dark while a program keeps a brush.
HBRUSH GetSysColorBrush(int nIndex) {
    static auto* brushes = new std::map<COLORREF, HGDIOBJ>();
    COLORREF colour = GetSysColor(nIndex);
    auto [at, isNew] = brushes->try_emplace(colour, nullptr);
    if (isNew) at->second = addStockObject({QBrush(colourOf(colour))});
    return static_cast<HBRUSH>(at->second);
}

BOOL DeleteObject(HGDIOBJ ho) {
    auto object = gdiObject(ho);
    if (object == nullptr) return FALSE;
    if (!object->isStock) objects().remove(ho);
    return TRUE;
}

int GetObjectW(HANDLE h, int c, LPVOID pv) {
    auto bitmap = gdiObjectAs<Bitmap>(h);
    if (!bitmap) return 0;
    constexpr int size = sizeof(BITMAP);
    if (pv == nullptr) return size;
    if (c < size) return 0;
    BITMAP about = describe(*bitmap);
    std::memcpy(pv, &about, sizeof about);
    return size;
}

DWORD GetGuiResources(HANDLE /*hProcess*/, DWORD uiFlags) {
    return uiFlags == GR_GDIOBJECTS ? static_cast<DWORD>(objects().size() - stockObjects + DeviceContext::count()) : 0;
}

} // namespace qt
