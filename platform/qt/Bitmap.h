// A picture of a program: pixels, and for those of a resource module that have one the drawing that they were made of,
// which is sharp at every device pixel ratio and has soft edges.
#pragma once

#include "platform/types.h"

#include <QByteArray>
#include <QImage>

#include <optional>

class Bitmap {
public:
    // Sizes are logical pixels; the canvas has as many device pixels as the ratio says.
    Bitmap(QSize size, qreal devicePixelRatio);
    // One of a resource module's pictures; `drawing` may be empty.
    Bitmap(const QImage& pixels, QByteArray drawing);

    QSize size() const;
    const QImage& pixels() const noexcept { return pixels_; }
    // For painting on it: from here on the pixels alone are the picture.
    QImage& canvas();

    // The part `source` of it in the size that is asked for, opaque as it stands.
    QImage scaled(const QRectF& source, QSize devicePixels) const;
    // The same with what is transparent left out: as the drawing says, else all that has the colour.
    QImage transparent(const QRectF& source, QSize devicePixels, QRgb colour) const;
    // The whole of it as a control shows it: pictures of a resource module without their transparent colour.
    QImage shown(QSize devicePixels) const;

private:
    QImage part(const QRectF& source) const;
    QImage drawn(const QRectF& source, QSize devicePixels) const;

    QImage pixels_;
    QByteArray drawing_;
    // The colour of a resource module's pictures that stands for nothing.
    std::optional<QRgb> hole_;
};

// The picture of the module's BITMAP, with its drawing of type "SVG" if there is one under the same name. Nothing,
// with the last error set, where there is no such picture or it does not hold together.
std::optional<Bitmap> loadBitmap(HINSTANCE module, LPCWSTR name);
