// Drawing: what programs draw lands where and as they say, handles that mean nothing are refused, nothing is left over,
// and pictures that do not hold together are no pictures.
#include "platform/modules.h"
#include "platform/posix/resourceModuleOf.h"
#include "tests/peBuilder.h"
#include "tests/windowStage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

constexpr COLORREF hole = RGB(0, 128, 0);
constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF blue = RGB(0, 0, 255);
constexpr COLORREF white = RGB(255, 255, 255);

DWORD objects() { return GetGuiResources(nullptr, GR_GDIOBJECTS); }

HGDIOBJ invented() { return reinterpret_cast<HGDIOBJ>(0x1234567); } // NOLINT

// The desktop's own context stands for nothing but its density.
class Picture {
public:
    Picture(int width, int height, COLORREF colour) : context_(CreateCompatibleDC(nullptr)) {
        bitmap_ = CreateCompatibleBitmap(context_, width, height);
        before_ = SelectObject(context_, bitmap_);
        fill({0, 0, width, height}, colour);
    }
    explicit Picture(HBITMAP bitmap) : context_(CreateCompatibleDC(nullptr)), bitmap_(bitmap) {
        before_ = SelectObject(context_, bitmap_);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    ~Picture() {
        SelectObject(context_, before_);
        DeleteDC(context_);
        DeleteObject(bitmap_);
    }

    HDC dc() const { return context_; }
    void fill(const RECT& area, COLORREF colour) const {
        HBRUSH brush = CreateSolidBrush(colour);
        FillRect(context_, &area, brush);
        DeleteObject(brush);
    }
    COLORREF at(int x, int y) const { return GetPixel(context_, x, y); }

private:
    HDC context_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

// A picture of one colour as it lies in a module: 24 bits, rows from below.
PeBuilder::Bytes dib(int width, int height, COLORREF colour) {
    PeBuilder::Bytes bytes;
    for (std::size_t value : {std::size_t{40}, static_cast<std::size_t>(width), static_cast<std::size_t>(height)})
        PeBuilder::put(bytes, value, 4);
    PeBuilder::put(bytes, 1, 2);
    PeBuilder::put(bytes, 24, 2);
    PeBuilder::put(bytes, 0, 24);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            for (BYTE part : {GetBValue(colour), GetGValue(colour), GetRValue(colour)})
                bytes.push_back(part);
        bytes.resize(bytes.size() + static_cast<std::size_t>(width % 4));
    }
    return bytes;
}

PeBuilder::Bytes drawing(const std::string& text) { return {text.begin(), text.end()}; }

class PictureModule {
public:
    explicit PictureModule(const PeBuilder& builder) {
        auto bytes = builder.module();
        module_ = resourceModuleOf(bytes.data(), bytes.size());
    }
    PictureModule(const PictureModule&) = delete;
    PictureModule& operator=(const PictureModule&) = delete;
    ~PictureModule() { FreeLibrary(module_); }

    HBITMAP load(int id) const { return LoadBitmapW(module_, MAKEINTRESOURCEW(static_cast<ULONG_PTR>(id))); }
    HICON icon(int id) const { return LoadIconW(module_, MAKEINTRESOURCEW(static_cast<ULONG_PTR>(id))); }

private:
    HMODULE module_;
};

constexpr int bitmapType = 2;
constexpr int iconType = 3;
constexpr int groupIconType = 14;

TEST(Drawing, copiesPicturesAsTheOperationSays) {
    struct CopyRow {
        const char* what;
        DWORD operation;
        COLORREF from, onto, result;
    };
    const CopyRow rows[] = {
        {"copy", SRCCOPY, red, blue, red},
        {"or", SRCPAINT, red, blue, RGB(255, 0, 255)},
        {"and", SRCAND, RGB(255, 0, 255), blue, blue},
        {"xor", SRCINVERT, white, blue, RGB(255, 255, 0)},
        {"not", NOTSRCCOPY, RGB(255, 255, 0), red, blue},
        {"black", BLACKNESS, red, blue, RGB(0, 0, 0)},
        {"white", WHITENESS, red, blue, white},
    };
    for (const CopyRow& row : rows) {
        Picture from(4, 4, row.from);
        Picture onto(10, 10, row.onto);
        EXPECT_TRUE(BitBlt(onto.dc(), 2, 3, 4, 4, from.dc(), 0, 0, row.operation)) << row.what;
        EXPECT_EQ(onto.at(2, 3), row.result) << row.what;
        EXPECT_EQ(onto.at(5, 6), row.result) << row.what;
        EXPECT_EQ(onto.at(1, 3), row.onto) << row.what;
        EXPECT_EQ(onto.at(6, 6), row.onto) << row.what;
        EXPECT_EQ(onto.at(5, 7), row.onto) << row.what;
    }
}

TEST(Drawing, leavesTheTransparentColourOutInEverySize) {
    for (int size : {4, 8, 12}) {
        Picture from(4, 4, hole);
        from.fill({0, 0, 2, 4}, red);
        Picture onto(20, 20, blue);
        EXPECT_TRUE(TransparentBlt(onto.dc(), 1, 1, size, size, from.dc(), 0, 0, 4, 4, hole)) << size;
        EXPECT_EQ(onto.at(1, 1), red) << size;
        EXPECT_EQ(onto.at(size, size), blue) << size;
        EXPECT_EQ(onto.at(size + 1, 1), blue) << size;
        Picture opaque(20, 20, blue);
        StretchBlt(opaque.dc(), 1, 1, size, size, from.dc(), 0, 0, 4, 4, SRCCOPY);
        EXPECT_EQ(opaque.at(size, size), hole) << size;
    }
}

TEST(Drawing, aRectangleEndsOnePixelEarlierWithoutAPen) {
    for (bool hasPen : {true, false}) {
        Picture picture(20, 20, white);
        HBRUSH brush = CreateSolidBrush(red);
        HPEN pen = CreatePen(hasPen ? PS_SOLID : PS_NULL, 1, blue);
        HGDIOBJ brushBefore = SelectObject(picture.dc(), brush);
        HGDIOBJ penBefore = SelectObject(picture.dc(), pen);
        EXPECT_EQ(brushBefore, GetStockObject(WHITE_BRUSH));
        EXPECT_EQ(penBefore, GetStockObject(BLACK_PEN));
        EXPECT_TRUE(Rectangle(picture.dc(), 2, 2, 10, 8));
        EXPECT_EQ(SelectObject(picture.dc(), brushBefore), brush);
        EXPECT_EQ(SelectObject(picture.dc(), penBefore), pen);
        EXPECT_EQ(picture.at(5, 5), red);
        EXPECT_EQ(picture.at(8, 6), red);
        EXPECT_EQ(picture.at(2, 2), hasPen ? blue : red);
        EXPECT_EQ(picture.at(9, 7), hasPen ? blue : white);
        EXPECT_EQ(picture.at(10, 8), white);
        DeleteObject(brush);
        DeleteObject(pen);
    }
}

TEST(Drawing, aLineGoesOnFromWhereTheLastOneEnded) {
    Picture picture(20, 20, white);
    HPEN pen = CreatePen(PS_SOLID, 1, blue);
    HGDIOBJ before = SelectObject(picture.dc(), pen);
    POINT place{};
    EXPECT_TRUE(MoveToEx(picture.dc(), 3, 5, &place));
    EXPECT_TRUE(LineTo(picture.dc(), 12, 5));
    EXPECT_EQ(picture.at(3, 5), blue);
    EXPECT_EQ(picture.at(11, 5), blue);
    EXPECT_EQ(picture.at(7, 4), white);
    EXPECT_EQ(picture.at(7, 6), white);
    EXPECT_EQ(picture.at(14, 5), white);
    MoveToEx(picture.dc(), 0, 0, &place);
    EXPECT_EQ(place.x, 12);
    EXPECT_EQ(place.y, 5);
    SelectObject(picture.dc(), before);
    DeleteObject(pen);
}

TEST(Drawing, textIsMeasuredInItsFontAndDrawnInItsColour) {
    Picture picture(200, 60, white);
    HFONT font = CreateFontW(-20, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                             CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, toWide(u"Arial"));
    SIZE usual{};
    SIZE big{};
    GetTextExtentPoint32W(picture.dc(), toWide(u"MMMM"), 4, &usual);
    HGDIOBJ before = SelectObject(picture.dc(), font);
    GetTextExtentPoint32W(picture.dc(), toWide(u"MMMM"), 4, &big);
    EXPECT_GT(big.cx, usual.cx);
    EXPECT_GE(big.cy, 20);
    SetTextColor(picture.dc(), red);
    EXPECT_EQ(SetTextColor(picture.dc(), blue), red);
    SetBkMode(picture.dc(), TRANSPARENT);
    RECT area{0, 0, 200, 60};
    RECT needed = area;
    EXPECT_EQ(DrawTextW(picture.dc(), toWide(u"MM\u2588M"), -1, &needed, DT_SINGLELINE | DT_CALCRECT), needed.bottom);
    EXPECT_LT(needed.right, 200);
    DrawTextW(picture.dc(), toWide(u"MMMM"), 4, &area, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
    bool hasInk = false;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 200; ++x)
            hasInk |= picture.at(x, y) == blue;
    EXPECT_TRUE(hasInk);
    EXPECT_EQ(picture.at(0, 0), white);
    SelectObject(picture.dc(), before);
    DeleteObject(font);
}

TEST(Drawing, aStateThatWasSavedComesBack) {
    Picture picture(10, 10, white);
    SetTextColor(picture.dc(), red);
    int saved = SaveDC(picture.dc());
    SetTextColor(picture.dc(), blue);
    SaveDC(picture.dc());
    SetBkColor(picture.dc(), blue);
    EXPECT_TRUE(RestoreDC(picture.dc(), saved));
    EXPECT_EQ(GetTextColor(picture.dc()), red);
    EXPECT_EQ(GetBkColor(picture.dc()), white);
    EXPECT_FALSE(RestoreDC(picture.dc(), -1));
}

// A place of the window in logical pixels, whatever the screen's density.
QColor seenAt(QWidget& widget, int x, int y) {
    QImage seen = widget.grab().toImage();
    qreal ratio = seen.devicePixelRatio();
    return seen.pixelColor(static_cast<int>((x + 0.5) * ratio), static_cast<int>((y + 0.5) * ratio));
}

WNDPROC labelProcedure = nullptr;

// Draws over what the label shows, as a program that subclasses it does.
LRESULT CALLBACK drawOver(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = CallWindowProcW(labelProcedure, window, message, wParam, lParam);
    if (message == WM_PAINT) {
        HDC dc = GetDC(window);
        HBRUSH brush = CreateSolidBrush(red);
        RECT area{0, 0, 5, 5};
        FillRect(dc, &area, brush);
        DeleteObject(brush);
        ReleaseDC(window, dc);
    }
    return result;
}

TEST(Drawing, aWindowIsDrawnOnWhileItIsPaintedAndPaintedAnewOtherwise) {
    WindowStage stage;
    HWND label = stage.add(WC_STATICW, SS_NOTIFY, 101, u"", 40);
    stage.show();
    QWidget* widget = WindowStage::widgetOf(label);
    labelProcedure = reinterpret_cast<WNDPROC>( // NOLINT
        SetWindowLongPtrW(label, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&drawOver)));
    EXPECT_EQ(seenAt(*widget, 2, 2), QColor(Qt::red));
    EXPECT_NE(seenAt(*widget, 8, 8), QColor(Qt::red));
    SetWindowLongW(label, GWL_EXSTYLE, WS_EX_DLGMODALFRAME);
    EXPECT_NE(seenAt(*widget, 1, 1), QColor(Qt::red)) << "the frame is outside the client area";
    EXPECT_EQ(seenAt(*widget, 7, 7), QColor(Qt::red)) << "where drawing begins";
    // Outside of WM_PAINT nothing lands on the screen, but the window paints itself again.
    HDC dc = GetDC(label);
    RECT all{0, 0, 200, 40};
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    ReleaseDC(label, dc);
    EXPECT_NE(seenAt(*widget, 20, 20), QColor(Qt::black));
    SetWindowLongPtrW(label, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(labelProcedure));
}

TEST(Drawing, pixelsAreThoseOfTheScreen) {
    WindowStage stage;
    HDC screen = GetDC(nullptr);
    EXPECT_EQ(GetDeviceCaps(screen, LOGPIXELSX), 96);
    EXPECT_EQ(GetDeviceCaps(screen, LOGPIXELSY), 96);
    EXPECT_GT(GetDeviceCaps(screen, HORZRES), 0);
    EXPECT_FALSE(Rectangle(screen, 0, 0, 10, 10)) << "for measuring only";
    EXPECT_EQ(ReleaseDC(nullptr, screen), 1);
    EXPECT_EQ(ReleaseDC(nullptr, screen), 0);
}

TEST(Pictures, aModulesPictureIsAsTransparentAsItsDrawing) {
    PeBuilder builder;
    builder.add(bitmapType, 7, 0, dib(8, 8, hole))
        .add(u"SVG", 7, 0,
             drawing("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 8 8'>"
                     "<rect x='0' y='0' width='4' height='8' fill='#ff0000'/></svg>"))
        .add(bitmapType, 8, 0, dib(8, 8, red));
    PictureModule module(builder);
    BITMAP about{};
    HBITMAP drawn = module.load(7);
    ASSERT_EQ(GetObjectW(drawn, sizeof about, &about), int{sizeof about});
    EXPECT_EQ(about.bmWidth, 8);
    EXPECT_EQ(about.bmHeight, 8);
    Picture source(drawn);
    Picture onto(40, 40, blue);
    EXPECT_TRUE(TransparentBlt(onto.dc(), 0, 0, 32, 32, source.dc(), 0, 0, 8, 8, hole));
    EXPECT_EQ(onto.at(15, 31), red) << "drawn, and to the edge";
    EXPECT_EQ(onto.at(16, 0), blue) << "left out";
    Picture plain(module.load(8));
    EXPECT_TRUE(TransparentBlt(onto.dc(), 0, 0, 8, 8, plain.dc(), 0, 0, 8, 8, hole));
    EXPECT_EQ(onto.at(7, 7), red);
    EXPECT_EQ(module.load(9), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_NAME_NOT_FOUND);
}

TEST(Pictures, drawingsThatReachOutOrNestTooDeepAreLeftAside) {
    std::string deep;
    for (int i = 0; i < 20000; ++i)
        deep += "<g>";
    const std::string head = "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 8 8'>";
    const std::string shape = "<rect width='8' height='8' fill='#0000ff'/>";
    const std::string rows[] = {
        head + "<image href='file:///etc/passwd' width='8' height='8'/>" + shape + "</svg>",
        "<!DOCTYPE svg [<!ENTITY a 'x'>]>" + head + shape + "</svg>",
        head + deep + shape,
        head + "<g id='a'><use href='#a'/></g>" + shape + "</svg>",
        head + shape,
        "",
    };
    for (const std::string& row : rows) {
        PeBuilder builder;
        builder.add(bitmapType, 7, 0, dib(8, 8, red)).add(u"SVG", 7, 0, drawing(row));
        Picture source(PictureModule(builder).load(7));
        Picture onto(8, 8, white);
        EXPECT_TRUE(TransparentBlt(onto.dc(), 0, 0, 8, 8, source.dc(), 0, 0, 8, 8, hole));
        EXPECT_EQ(onto.at(4, 4), red) << "the pixels are used: " << row.substr(0, 80);
    }
}

TEST(Pictures, whatDoesNotHoldTogetherIsNoPicture) {
    struct BrokenRow {
        const char* what;
        std::size_t offset;
        std::uint32_t value;
        std::size_t size;
    };
    const BrokenRow rows[] = {
        {"a header of its own size", 0, 12, 4},
        {"a huge header", 0, 0xFFFFFFFF, 4},
        {"no width", 4, 0, 4},
        {"a negative width", 4, 0xFFFFFFF0, 4},
        {"a width beyond all memory", 4, 0x7FFFFFFF, 4},
        {"a height beyond the rows", 8, 9, 4},
        {"the least height", 8, 0x80000000, 4},
        {"bits that nobody has", 14, 23, 2},
        {"more bits than there are", 14, 32, 2},
        {"a packed picture", 16, 1, 4},
        {"a picture in a picture", 16, 5, 4},
        {"too many colours", 32, 0xFFFFFFFF, 4},
    };
    for (const BrokenRow& row : rows) {
        auto bytes = dib(8, 8, red);
        for (std::size_t i = 0; i < row.size; ++i)
            bytes[row.offset + i] = static_cast<std::uint8_t>(row.value >> (8 * i));
        PictureModule module(PeBuilder().add(bitmapType, 7, 0, bytes));
        EXPECT_EQ(module.load(7), nullptr) << row.what;
        EXPECT_EQ(GetLastError(), ERROR_RESOURCE_DATA_NOT_FOUND) << row.what;
    }
    auto whole = dib(8, 8, red);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        PictureModule module(
            PeBuilder().add(bitmapType, 7, 0, {whole.begin(), whole.begin() + static_cast<long>(size)}));
        EXPECT_EQ(module.load(7), nullptr) << size;
    }
}

// An icon of one picture without colours: 16 by 16, 32 bits, and its mask.
PeBuilder::Bytes iconImage() {
    PeBuilder::Bytes bytes = dib(16, 16, red);
    bytes.resize(40);
    bytes[8] = 32;
    bytes[14] = 32;
    bytes.resize(40 + 16 * 16 * 4 + 16 * 4, 0x80);
    return bytes;
}

PeBuilder::Bytes iconGroup(std::size_t imageSize) {
    PeBuilder::Bytes bytes;
    for (std::size_t value : {0, 1, 1})
        PeBuilder::put(bytes, value, 2);
    PeBuilder::put(bytes, 16 | 16 << 8, 4);
    PeBuilder::put(bytes, 1, 2);
    PeBuilder::put(bytes, 32, 2);
    PeBuilder::put(bytes, imageSize, 4);
    PeBuilder::put(bytes, 1, 2);
    return bytes;
}

TEST(Pictures, brokenIconsAndBitmapsDoNoHarm) {
    std::mt19937 random(20240917);
    auto image = iconImage();
    auto bitmap = dib(16, 16, red);
    int drawnIcons = 0;
    for (int round = 0; round < 400; ++round) {
        auto icon = image;
        auto broken = bitmap;
        // The first round is whole; then ever more bytes of the headers are anything.
        for (int i = 0; i < round / 40; ++i) {
            icon[random() % 40] = static_cast<std::uint8_t>(random());
            broken[random() % 40] = static_cast<std::uint8_t>(random());
        }
        if (round % 3 == 2) icon.resize(random() % icon.size());
        PeBuilder builder;
        builder.add(iconType, 1, 0, icon)
            .add(groupIconType, 7, 0, iconGroup(icon.size()))
            .add(bitmapType, 7, 0, broken);
        PictureModule module(builder);
        Picture onto(20, 20, white);
        drawnIcons += DrawIconEx(onto.dc(), 0, 0, module.icon(7), 16, 16, 0, nullptr, 3) != FALSE ? 1 : 0;
        if (HBITMAP loaded = module.load(7); loaded != nullptr) {
            Picture source(loaded);
            TransparentBlt(onto.dc(), 0, 0, 16, 16, source.dc(), 0, 0, 16, 16, hole);
        }
    }
    EXPECT_GT(drawnIcons, 20);
}

TEST(Handles, whatMeansNothingIsRefused) {
    WindowStage stage;
    HDC noContext = static_cast<HDC>(invented());
    Picture picture(4, 4, white);
    HBRUSH brush = CreateSolidBrush(red);
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_FALSE(DeleteObject(brush)) << "deleted before";
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(SelectObject(picture.dc(), brush), nullptr);
    EXPECT_EQ(SelectObject(noContext, GetStockObject(BLACK_PEN)), nullptr);
    EXPECT_FALSE(DeleteDC(noContext));
    EXPECT_FALSE(Rectangle(noContext, 0, 0, 1, 1));
    EXPECT_FALSE(BitBlt(picture.dc(), 0, 0, 4, 4, noContext, 0, 0, SRCCOPY));
    EXPECT_FALSE(BitBlt(picture.dc(), 0, 0, 2000000000, 4, picture.dc(), 0, 0, SRCCOPY));
    EXPECT_FALSE(BitBlt(picture.dc(), 0, 0, 4, 4, picture.dc(), 0, 0, 0x12345678));
    EXPECT_EQ(CreateCompatibleBitmap(picture.dc(), 100000, 100000), nullptr);
    EXPECT_EQ(CreateCompatibleBitmap(picture.dc(), -1, 4), nullptr);
    EXPECT_EQ(GetDC(reinterpret_cast<HWND>(invented())), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
    EXPECT_TRUE(DeleteObject(GetStockObject(WHITE_BRUSH))) << "and it is there all the same";
    EXPECT_EQ(GetObjectW(GetStockObject(WHITE_BRUSH), sizeof(BITMAP), nullptr), 0);
    EXPECT_EQ(FillRect(picture.dc(), nullptr, nullptr), 0);
    HWND label = stage.add(WC_STATICW, SS_BITMAP, 101);
    EXPECT_EQ(SendMessageW(label, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(invented())), 0);
    stage.show();
}

TEST(Handles, nothingIsLeftOver) {
    DWORD before = objects();
    {
        WindowStage stage;
        HWND button = stage.add(WC_BUTTONW, BS_BITMAP, 101, u"Name");
        HWND label = stage.add(WC_STATICW, SS_BITMAP, 102);
        stage.add(WC_EDITW, ES_READONLY, 103, u"text");
        stage.add(WC_BUTTONW, BS_OWNERDRAW, 104);
        HDC screen = GetDC(nullptr);
        HBITMAP bitmap = CreateCompatibleBitmap(screen, 12, 10);
        ReleaseDC(nullptr, screen);
        auto image = reinterpret_cast<LPARAM>(bitmap);
        EXPECT_EQ(SendMessageW(button, BM_SETIMAGE, IMAGE_BITMAP, image), 0);
        EXPECT_EQ(SendMessageW(button, BM_GETIMAGE, IMAGE_BITMAP, 0), image);
        EXPECT_EQ(SendMessageW(label, STM_SETIMAGE, IMAGE_BITMAP, image), 0);
        EXPECT_EQ(SendMessageW(label, STM_SETIMAGE, IMAGE_BITMAP, image), image);
        EXPECT_EQ(WindowStage::textOf(button), u"Name") << "the text stays, for those who cannot see";
        RECT area{};
        GetClientRect(label, &area);
        EXPECT_EQ(area.right, 12);
        EXPECT_EQ(area.bottom, 10);
        stage.show();
        UpdateWindow(button);
        EXPECT_EQ(objects(), before + 1) << "the bitmap, and nothing for painting";
        DeleteObject(bitmap);
        UpdateWindow(label);
    }
    EXPECT_EQ(objects(), before);
}

} // namespace
