#include "platform/qt/resourcePictures.h"

#include "platform/posix/icons.h"

#include <QBuffer>
#include <QCache>
#include <QImageReader>
#include <QPixmap>
#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

constexpr std::size_t infoHeaderSize = 40;
constexpr std::size_t largestInfoHeader = 124;
constexpr std::size_t fileHeaderSize = 14;
constexpr DWORD uncompressed = 0;
constexpr DWORD bitFields = 3;
constexpr qsizetype largestDrawing = 1024 * 1024;
constexpr int deepestElement = 32;
constexpr int mostElements = 20'000;

DWORD dwordAt(std::span<const BYTE> bytes, std::size_t at) {
    return static_cast<DWORD>(bytes[at] | bytes[at + 1] << 8U | bytes[at + 2] << 16U) |
           static_cast<DWORD>(bytes[at + 3]) << 24U;
}

WORD wordAt(std::span<const BYTE> bytes, std::size_t at) { return static_cast<WORD>(bytes[at] | bytes[at + 1] << 8U); }

void putWord(QByteArray& bytes, unsigned value) {
    bytes.append(static_cast<char>(value & 0xFFU)).append(static_cast<char>(value >> 8U & 0xFFU));
}

void putDword(QByteArray& bytes, std::size_t value) {
    putWord(bytes, static_cast<unsigned>(value & 0xFFFFU));
    putWord(bytes, static_cast<unsigned>(value >> 16U & 0xFFFFU));
}

void putBytes(QByteArray& bytes, std::span<const BYTE> more) {
    bytes.append(reinterpret_cast<const char*>(more.data()), static_cast<qsizetype>(more.size()));
}

// What the header of a bitmap says. A height below 0 means that the rows run from the top.
struct InfoHeader {
    explicit InfoHeader(std::span<const BYTE> bytes)
        : size(dwordAt(bytes, 0)),
          width(static_cast<std::int32_t>(dwordAt(bytes, 4))),
          height(std::llabs(static_cast<std::int32_t>(dwordAt(bytes, 8)))),
          bits(wordAt(bytes, 14)),
          compression(dwordAt(bytes, 16)),
          coloursUsed(dwordAt(bytes, 32)) {}

    bool isGood() const {
        constexpr std::array<WORD, 6> depths = {1, 4, 8, 16, 24, 32};
        return size >= infoHeaderSize && size <= largestInfoHeader && width > 0 && width <= longestPictureSide &&
               height > 0 && height <= 2LL * longestPictureSide && std::ranges::find(depths, bits) != depths.end() &&
               (compression == uncompressed || (compression == bitFields && bits >= 16)) && coloursUsed <= 256;
    }
    std::size_t paletteSize() const {
        if (compression == bitFields) return size == infoHeaderSize ? 12 : 0;
        if (coloursUsed != 0) return coloursUsed * 4ULL;
        return bits <= 8 ? (std::size_t{1} << bits) * 4 : 0;
    }
    std::size_t rowsSize() const {
        return (static_cast<std::size_t>(width) * bits + 31) / 32 * 4 * static_cast<std::size_t>(height);
    }

    std::size_t size;
    long long width;
    long long height;
    WORD bits;
    DWORD compression;
    DWORD coloursUsed;
};

QImage decode(const QByteArray& bytes, const char* format) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    QSize size = reader.size();
    if (size.isEmpty() || size.width() > longestPictureSide || size.height() > longestPictureSide) return {};
    return reader.read();
}

bool isPng(std::span<const BYTE> bytes) {
    constexpr std::array<BYTE, 8> signature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    return bytes.size() > signature.size() && std::ranges::equal(bytes.first(signature.size()), signature);
}

// The file of one picture that a decoder of icons reads.
QByteArray iconFile(std::span<const BYTE> bytes, QSize size, WORD bits) {
    QByteArray file;
    for (unsigned word : {0U, 1U, 1U})
        putWord(file, word);
    file.append(static_cast<char>(size.width() & 0xFF)).append(static_cast<char>(size.height() & 0xFF));
    putWord(file, 0);
    putWord(file, 1);
    putWord(file, bits);
    putDword(file, bytes.size());
    putDword(file, 22);
    putBytes(file, bytes);
    return file;
}

// The mask of an icon has one bit a pixel and follows its rows; its height is counted with them.
bool isIconDib(std::span<const BYTE> bytes, QSize size) {
    if (bytes.size() < infoHeaderSize) return false;
    InfoHeader header(bytes);
    if (!header.isGood() || header.size != infoHeaderSize || header.compression != uncompressed) return false;
    if (header.width != size.width() || header.height != 2LL * size.height()) return false;
    std::size_t mask = (static_cast<std::size_t>(header.width) + 31) / 32 * 4 * static_cast<std::size_t>(size.height());
    return bytes.size() >= header.size + header.paletteSize() + header.rowsSize() / 2 + mask;
}

bool isShape(QStringView element) {
    constexpr std::array forbidden = {"image", "use", "script", "foreignObject", "tref", "video", "audio", "animation"};
    return std::ranges::none_of(forbidden, [&](const char* name) { return element == QLatin1StringView(name); });
}

} // namespace

QImage pictureOfDib(std::span<const BYTE> bytes) {
    if (bytes.size() < infoHeaderSize) return {};
    InfoHeader header(bytes);
    std::size_t rows = header.size + (header.isGood() ? header.paletteSize() : 0);
    if (!header.isGood() || bytes.size() < rows || bytes.size() - rows < header.rowsSize()) return {};
    QByteArray file("BM");
    putDword(file, fileHeaderSize + bytes.size());
    putDword(file, 0);
    putDword(file, fileHeaderSize + rows);
    putBytes(file, bytes);
    return decode(file, "bmp");
}

QImage pictureOfIconImage(std::span<const BYTE> bytes, QSize size) {
    if (isPng(bytes))
        return decode(QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())),
                      "png");
    return isIconDib(bytes, size) ? decode(iconFile(bytes, size, wordAt(bytes, 14)), "ico") : QImage();
}

bool isPlainDrawing(const QByteArray& svg) {
    if (svg.size() > largestDrawing) return false;
    QXmlStreamReader reader(svg);
    int depth = 0;
    int elements = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::DTD:
        case QXmlStreamReader::EntityReference:
            return false;
        case QXmlStreamReader::StartElement:
            if (++depth > deepestElement || ++elements > mostElements || !isShape(reader.name())) return false;
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        default:
            break;
        }
    }
    return !reader.hasError() && elements > 0;
}

namespace {

constexpr qsizetype mostIconBytes = 1 << 20;

// The icons of a sheet are the same at each opening, and to decode them takes a quarter of it. They are known by their
// bytes, since the module that they lie in comes and goes. Never destroyed: the toolkit may be gone before.
QCache<QByteArray, QIcon>& decodedIcons() {
    static auto* icons = new QCache<QByteArray, QIcon>(mostIconBytes);
    return *icons;
}

QByteArray contentOf(const std::vector<IconImage>& images) {
    QByteArray content;
    for (const IconImage& image : images)
        content.append(reinterpret_cast<const char*>(image.bytes.data()), static_cast<qsizetype>(image.bytes.size()));
    return content;
}

} // namespace

QIcon iconOf(HICON icon) {
    const std::vector<IconImage> images = iconImages(icon);
    const QByteArray content = contentOf(images);
    if (const QIcon* known = decodedIcons().object(content)) return *known;
    QIcon pictures;
    for (const IconImage& image : images)
        if (QImage picture = pictureOfIconImage(image.bytes, {image.width, image.height}); !picture.isNull())
            pictures.addPixmap(QPixmap::fromImage(std::move(picture)));
    decodedIcons().insert(content, new QIcon(pictures), content.size());
    return pictures;
}
