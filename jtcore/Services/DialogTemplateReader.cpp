#include "jtcore/Services/DialogTemplateReader.h"

#include "jtcore/Services/KolmaException.h"

#include <algorithm>

namespace {

constexpr std::uint32_t setFontStyle = 0x40;           // DS_SETFONT
constexpr std::uint32_t extendedFormMark = 0xFFFF0001; // version 1 and signature of the extended form
constexpr std::uint16_t ordinalMark = 0xFFFF;
constexpr std::size_t boundary = 4;
constexpr std::size_t headerGeometry = 4 * sizeof(std::uint16_t);  // x, y, width, height
constexpr std::size_t itemBeforeClass = 5 * sizeof(std::uint16_t); // the same and the id

[[noreturn]] void refuse(const char16_t* reason, std::size_t position) {
    raise<ResourceAcquisitionException>(
        u"DialogTemplateReader: The dialog template cannot be used: %s at byte %lu.\r\n", reason, position);
}

} // namespace

std::uint16_t DialogTemplateReader::readHeader() {
    const std::uint32_t style = readLong();
    if (style == extendedFormMark) refuse(u"it is of the extended form", 0);
    readLong();
    const std::uint16_t count = readWord();
    skip(headerGeometry);
    skipName(); // menu
    skipName(); // class
    skipText(readWord());
    if ((style & setFontStyle) != 0) {
        readWord(); // size
        skipText(readWord());
    }
    skipPadding();
    return count;
}

std::span<const std::uint8_t> DialogTemplateReader::readItem() {
    const std::size_t begin = position_;
    readLong();
    readLong();
    skip(itemBeforeClass);
    skipName(); // class
    skipName(); // title
    skipCreationData();
    skipPadding();
    return bytes_.subspan(begin, position_ - begin);
}

void DialogTemplateReader::readEnd() const {
    if (position_ != bytes_.size()) refuse(u"bytes behind the last item", position_);
}

std::uint16_t DialogTemplateReader::readWord() {
    const std::size_t at = position_;
    skip(sizeof(std::uint16_t));
    return static_cast<std::uint16_t>(bytes_[at] | bytes_[at + 1] << 8);
}

std::uint32_t DialogTemplateReader::readLong() {
    const std::uint32_t low = readWord();
    return low | std::uint32_t{readWord()} << 16;
}

void DialogTemplateReader::skip(std::size_t count) {
    if (bytes_.size() - position_ < count) refuse(u"it is cut short", position_);
    position_ += count;
}

void DialogTemplateReader::skipText(std::uint16_t first) {
    for (std::uint16_t character = first; character != 0;)
        character = readWord();
}

void DialogTemplateReader::skipName() {
    const std::uint16_t first = readWord();
    if (first == ordinalMark)
        readWord();
    else
        skipText(first);
}

// The size counts its own word too; 0 stands for that word alone.
void DialogTemplateReader::skipCreationData() {
    const std::uint16_t size = readWord();
    if (size == 0) return;
    if (size < sizeof size) refuse(u"creation data smaller than their size", position_);
    skip(size - sizeof size);
}

void DialogTemplateReader::skipPadding() noexcept {
    position_ = std::min(bytes_.size(), (position_ + boundary - 1) / boundary * boundary);
}
