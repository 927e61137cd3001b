#pragma once

#include <QByteArray>
#include <QImage>
#include <QSvgRenderer>

#include <string>

// One drawing of the pictures, as it is drawn for a size in pixels.
class PictureRenderer {
public:
    // Raises std::runtime_error for what cannot be read, is no drawing or has no size of its own.
    explicit PictureRenderer(const std::string& file);

    // The size that the drawing itself tells, in pixels of a screen of 96 dots per inch.
    QSize naturalSize() const { return renderer.defaultSize(); }

    // With alpha, not premultiplied.
    QImage draw(QSize size) const;

private:
    mutable QSvgRenderer renderer;
};
