#include "platform/qt/Bitmap.h"

#include "platform/modules.h"
#include "platform/qt/resourcePictures.h"

#include <QPainter>
#include <QSvgRenderer>

#include <cmath>
#include <utility>

namespace {

constexpr QRgb holeOfResources = qRgb(0, 128, 0);

std::span<const BYTE> resourceBytes(HINSTANCE module, LPCWSTR name, LPCWSTR type) {
    HRSRC resource = FindResourceW(module, name, type);
    if (resource == nullptr) return {};
    const void* bytes = LockResource(LoadResource(module, resource));
    return {static_cast<const BYTE*>(bytes), bytes == nullptr ? 0 : SizeofResource(module, resource)};
}

// A picture may do without a drawing: that is no failure of the call.
QByteArray drawingOf(HINSTANCE module, LPCWSTR name) {
    DWORD error = GetLastError();
    auto bytes = resourceBytes(module, name, toWide(u"SVG"));
    SetLastError(error);
    QByteArray drawing(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    return isPlainDrawing(drawing) ? drawing : QByteArray();
}

QImage withoutColour(QImage picture, QRgb colour) {
    picture = std::move(picture).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            if ((row[x] & RGB_MASK) == (colour & RGB_MASK)) row[x] = 0;
    }
    return std::move(picture).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// Pixels that fit need no filter, which would soften them.
QImage fitted(QImage picture, QSize size) {
    picture.setDevicePixelRatio(1);
    return picture.size() == size ? picture : picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

Bitmap::Bitmap(QSize size, qreal devicePixelRatio)
    : pixels_((QSizeF(size) * devicePixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied) {
    pixels_.setDevicePixelRatio(devicePixelRatio);
    pixels_.fill(Qt::black);
}

Bitmap::Bitmap(const QImage& pixels, QByteArray drawing)
    : pixels_(pixels.convertToFormat(QImage::Format_ARGB32_Premultiplied)),
      drawing_(std::move(drawing)),
      hole_(holeOfResources) {}

QSize Bitmap::size() const { return pixels_.deviceIndependentSize().toSize(); }

QImage& Bitmap::canvas() {
    drawing_.clear();
    hole_.reset();
    return pixels_;
}

QImage Bitmap::part(const QRectF& source) const {
    qreal ratio = pixels_.devicePixelRatio();
    return pixels_.copy(QRectF(source.topLeft() * ratio, source.size() * ratio).toAlignedRect());
}

QImage Bitmap::drawn(const QRectF& source, QSize devicePixels) const {
    QImage picture(devicePixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    qreal across = devicePixels.width() / source.width();
    qreal down = devicePixels.height() / source.height();
    QPainter painter(&picture);
    QSvgRenderer renderer(drawing_);
    renderer.render(&painter,
                    QRectF(-source.x() * across, -source.y() * down, size().width() * across, size().height() * down));
    return picture;
}

QImage Bitmap::scaled(const QRectF& source, QSize devicePixels) const { return fitted(part(source), devicePixels); }

QImage Bitmap::transparent(const QRectF& source, QSize devicePixels, QRgb colour) const {
    if (!drawing_.isEmpty()) return drawn(source, devicePixels);
    return fitted(withoutColour(part(source), colour), devicePixels);
}

QImage Bitmap::shown(QSize devicePixels) const {
    QRectF whole(QPointF(), size());
    return hole_ ? transparent(whole, devicePixels, *hole_) : scaled(whole, devicePixels);
}

std::optional<Bitmap> loadBitmap(HINSTANCE module, LPCWSTR name) {
    auto bytes = resourceBytes(module, name, RT_BITMAP);
    if (bytes.empty()) return std::nullopt;
    QImage pixels = pictureOfDib(bytes);
    if (!pixels.isNull()) return Bitmap(pixels, drawingOf(module, name));
    SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
    return std::nullopt;
}
