#include "platform/qt/ImageList.h"

#include "platform/controls.h"
#include "platform/posix/HandleTable.h"
#include "platform/qt/DeviceContext.h"
#include "platform/qt/gdiObjects.h"
#include "platform/qt/resourcePictures.h"
#include "platform/qt/windowCalls.h"

#include <QPainter>
#include <QPixmap>

namespace {

// A list of large images is a strip as wide as all of them; nothing sensible is larger.
constexpr int longestSide = 1024;

auto& imageLists() { return handleTable<HandleKind::imageList, ImageList, HIMAGELIST>(); }

std::shared_ptr<ImageList> listFor(HIMAGELIST handle) {
    auto list = imageListOf(handle);
    if (list == nullptr) SetLastError(ERROR_INVALID_HANDLE);
    return list;
}

QIcon partOf(const QImage& strip, QRect part) { return QIcon(QPixmap::fromImage(strip.copy(part))); }

// Cuts a strip into pictures of the list's size. The first one's number, or -1 where the strip is too small.
int addStrip(ImageList& list, const QImage& strip) {
    int first = -1;
    QSize size = list.size();
    for (int x = 0; x + size.width() <= strip.width(); x += size.width()) {
        int index = list.add(partOf(strip, {QPoint(x, 0), size}));
        if (first < 0) first = index;
    }
    return first;
}

QImage withoutColour(QImage image, QRgb colour) {
    image.convertTo(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if ((image.pixel(x, y) & RGB_MASK) == (colour & RGB_MASK)) image.setPixelColor(x, y, Qt::transparent);
    return image;
}

// White in the mask is what does not show.
QImage withMask(QImage image, const QImage& mask) {
    image.convertTo(QImage::Format_ARGB32);
    for (int y = 0; y < qMin(image.height(), mask.height()); ++y)
        for (int x = 0; x < qMin(image.width(), mask.width()); ++x)
            if (qGray(mask.pixel(x, y)) > 127) image.setPixelColor(x, y, Qt::transparent);
    return image;
}

} // namespace

int ImageList::add(QIcon image) {
    images_.push_back(std::move(image));
    return count() - 1;
}

bool ImageList::replace(int index, QIcon image) {
    if (!has(index)) return false;
    images_[static_cast<std::size_t>(index)] = std::move(image);
    return true;
}

bool ImageList::remove(int index) {
    if (index == -1)
        images_.clear();
    else if (has(index))
        images_.erase(images_.begin() + index);
    else
        return false;
    return true;
}

void ImageList::paint(QPainter& painter, QRect area, int index, QIcon::Mode mode) const {
    if (has(index)) images_[static_cast<std::size_t>(index)].paint(&painter, area, Qt::AlignCenter, mode);
}

std::shared_ptr<ImageList> imageListOf(HIMAGELIST handle) { return imageLists().lookUp(handle); }

namespace qt {

HIMAGELIST ImageList_Create(int cx, int cy, UINT /*flags*/, int cInitial, int cGrow) {
    if (cx > 0 && cy > 0 && cx <= longestSide && cy <= longestSide && cInitial >= 0 && cGrow >= 0)
        return imageLists().add(std::make_shared<ImageList>(QSize(cx, cy)));
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
}

BOOL ImageList_Destroy(HIMAGELIST himl) {
    if (imageLists().remove(himl) != nullptr) return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}

int ImageList_GetImageCount(HIMAGELIST himl) {
    auto list = listFor(himl);
    return list == nullptr ? 0 : list->count();
}

BOOL ImageList_GetIconSize(HIMAGELIST himl, int* cx, int* cy) {
    auto list = listFor(himl);
    if (list == nullptr || cx == nullptr || cy == nullptr) return FALSE;
    *cx = list->size().width();
    *cy = list->size().height();
    return TRUE;
}

int ImageList_ReplaceIcon(HIMAGELIST himl, int i, HICON hicon) {
    auto list = listFor(himl);
    if (list == nullptr) return -1;
    QIcon icon = iconOf(hicon);
    if (icon.isNull()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return -1;
    }
    if (i == -1) return list->add(std::move(icon));
    return list->replace(i, std::move(icon)) ? i : -1;
}

int ImageList_Add(HIMAGELIST himl, HBITMAP hbmImage, HBITMAP hbmMask) {
    auto list = listFor(himl);
    auto image = gdiObjectAs<Bitmap>(hbmImage);
    if (list == nullptr || !image) return -1;
    if (hbmMask == nullptr) return addStrip(*list, image->pixels());
    auto mask = gdiObjectAs<Bitmap>(hbmMask);
    return mask ? addStrip(*list, withMask(image->pixels(), mask->pixels())) : -1;
}

int ImageList_AddMasked(HIMAGELIST himl, HBITMAP hbmImage, COLORREF crMask) {
    auto list = listFor(himl);
    auto image = gdiObjectAs<Bitmap>(hbmImage);
    if (list == nullptr || !image) return -1;
    return addStrip(*list, withoutColour(image->pixels(), colourOf(crMask).rgb()));
}

BOOL ImageList_Remove(HIMAGELIST himl, int i) {
    auto list = listFor(himl);
    return list != nullptr && list->remove(i) ? TRUE : FALSE;
}

BOOL ImageList_Draw(HIMAGELIST himl, int i, HDC hdcDst, int x, int y, UINT /*fStyle*/) {
    auto list = listFor(himl);
    auto context = DeviceContext::of(hdcDst);
    if (list == nullptr || context == nullptr || i < 0 || i >= list->count()) return FALSE;
    auto paint = [&](QPainter& painter) { list->paint(painter, {QPoint(x, y), list->size()}, i, QIcon::Normal); };
    return context->draw(paint) ? TRUE : FALSE;
}

} // namespace qt
