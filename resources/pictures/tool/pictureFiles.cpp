#include "resources/pictures/tool/pictureFiles.h"

#include <QBuffer>
#include <QDataStream>

namespace {

constexpr QRgb transparencyKey = qRgb(0, 128, 0);
constexpr QRgb besideTheKey = qRgb(0, 129, 0);
constexpr int fileHeaderSize = 14;
constexpr int infoHeaderSize = 40;
constexpr int iconHeaderSize = 6;
constexpr int iconEntrySize = 16;
constexpr int smallestPng = 48;

class Writer {
public:
    Writer() : stream(&bytes, QIODevice::WriteOnly) { stream.setByteOrder(QDataStream::LittleEndian); }

    template <class... Integers>
    Writer& put(Integers... values) {
        ((stream << values), ...);
        return *this;
    }
    Writer& putBytes(const QByteArray& more) {
        stream.writeRawData(more.constData(), static_cast<int>(more.size()));
        return *this;
    }
    QByteArray take() { return bytes; }

private:
    QByteArray bytes;
    QDataStream stream;
};

int bytesOfRow(int width, int bits) { return (width * bits + 31) / 32 * 4; }

// Rows run from the bottom. `heightTold` is twice the height in an icon, where the mask counts.
QByteArray infoHeader(QSize size, int heightTold, quint16 bits) {
    const quint32 dataSize = static_cast<quint32>(bytesOfRow(size.width(), bits) * size.height());
    Writer writer;
    writer.put(quint32{infoHeaderSize}, qint32{size.width()}, qint32{heightTold}, quint16{1}, bits);
    writer.put(quint32{0}, dataSize, quint32{0}, quint32{0}, quint32{0}, quint32{0});
    return writer.take();
}

QRgb keyed(QRgb pixel) {
    if (qAlpha(pixel) < 128) return transparencyKey;
    const QRgb full = pixel | 0xFF000000U;
    return full == transparencyKey ? besideTheKey : full;
}

QByteArray keyedRow(const QImage& picture, int y) {
    QByteArray row;
    for (int x = 0; x < picture.width(); ++x) {
        const QRgb pixel = keyed(picture.pixel(x, y));
        row.append(static_cast<char>(qBlue(pixel)));
        row.append(static_cast<char>(qGreen(pixel)));
        row.append(static_cast<char>(qRed(pixel)));
    }
    return row.leftJustified(bytesOfRow(picture.width(), 24), '\0');
}

// One bit a pixel, set where nothing is drawn.
QByteArray maskRow(const QImage& picture, int y) {
    QByteArray row(bytesOfRow(picture.width(), 1), '\0');
    for (int x = 0; x < picture.width(); ++x)
        if (qAlpha(picture.pixel(x, y)) == 0) row[x / 8] = static_cast<char>(row[x / 8] | (0x80 >> (x % 8)));
    return row;
}

QByteArray iconBitmap(const QImage& picture) {
    Writer writer;
    writer.putBytes(infoHeader(picture.size(), 2 * picture.height(), 32));
    for (int y = picture.height() - 1; y >= 0; --y)
        for (int x = 0; x < picture.width(); ++x)
            writer.put(quint32{picture.pixel(x, y)});
    for (int y = picture.height() - 1; y >= 0; --y)
        writer.putBytes(maskRow(picture, y));
    return writer.take();
}

QByteArray png(const QImage& picture) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return buffer.data();
}

} // namespace

QByteArray bitmapFile(const QImage& picture) {
    Writer writer;
    const int dataSize = bytesOfRow(picture.width(), 24) * picture.height();
    writer.putBytes("BM");
    writer.put(quint32(fileHeaderSize + infoHeaderSize + dataSize), quint32{0},
               quint32{fileHeaderSize + infoHeaderSize});
    writer.putBytes(infoHeader(picture.size(), picture.height(), 24));
    for (int y = picture.height() - 1; y >= 0; --y)
        writer.putBytes(keyedRow(picture, y));
    return writer.take();
}

QByteArray iconFile(const PictureRenderer& drawing, const std::vector<int>& sizes) {
    Writer writer;
    writer.put(quint16{0}, quint16{1}, static_cast<quint16>(sizes.size()));
    QByteArray pictures;
    for (const int size : sizes) {
        const QImage picture = drawing.draw({size, size});
        const QByteArray bytes = size < smallestPng ? iconBitmap(picture) : png(picture);
        const qsizetype offset = iconHeaderSize + iconEntrySize * static_cast<qsizetype>(sizes.size());
        writer.put(static_cast<quint8>(size), static_cast<quint8>(size), quint8{0}, quint8{0}, quint16{1}, quint16{32});
        writer.put(static_cast<quint32>(bytes.size()), static_cast<quint32>(offset + pictures.size()));
        pictures += bytes;
    }
    writer.putBytes(pictures);
    return writer.take();
}
