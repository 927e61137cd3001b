#include "resources/pictures/tool/PictureRenderer.h"

#include <QFile>
#include <QPainter>

#include <stdexcept>

namespace {

QByteArray contentOf(const std::string& name) {
    QFile file(QString::fromStdString(name));
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error(name + ": cannot be read");
    return file.readAll();
}

} // namespace

PictureRenderer::PictureRenderer(const std::string& file) {
    if (!renderer.load(contentOf(file))) throw std::runtime_error(file + ": is no drawing");
    if (naturalSize().isEmpty()) throw std::runtime_error(file + ": tells no width and height");
}

QImage PictureRenderer::draw(QSize size) const {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}
