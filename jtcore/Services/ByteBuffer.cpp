#include "jtcore/Services/ByteBuffer.h"

#include "jtcore/Services/KolmaException.h"

#include <algorithm>

ByteBuffer::ByteBuffer(const void* data, std::size_t size) { appendData(data, size); }

ByteBuffer::ByteBuffer(std::u16string_view text) {
    bytes_.reserve(text.size() * 2);
    for (char16_t unit : text) {
        bytes_.push_back(static_cast<std::uint8_t>(unit & 0xFFU));
        bytes_.push_back(static_cast<std::uint8_t>(unit >> 8U));
    }
}

ByteBuffer::ByteBuffer(std::int32_t value) {
    auto bits = static_cast<std::uint32_t>(value);
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes_.push_back(static_cast<std::uint8_t>(bits >> shift));
}

void ByteBuffer::setData(const void* data, std::size_t size) {
    const auto* first = static_cast<const std::uint8_t*>(data);
    std::vector<std::uint8_t> fresh(first, first + size);
    bytes_.swap(fresh);
}

void ByteBuffer::appendData(const void* data, std::size_t size) {
    if (size == 0) return;
    const auto* first = static_cast<const std::uint8_t*>(data);
    if (bytes_.capacity() - bytes_.size() >= size) {
        std::size_t end = bytes_.size();
        bytes_.resize(end + size);
        std::copy_n(first, size, bytes_.begin() + static_cast<std::ptrdiff_t>(end));
        return;
    }
    // The source may lie in the storage that growing frees.
    std::vector<std::uint8_t> grown;
    grown.reserve(std::max(bytes_.size() + size, bytes_.capacity() * 2));
    grown.insert(grown.end(), bytes_.begin(), bytes_.end());
    grown.insert(grown.end(), first, first + size);
    bytes_.swap(grown);
}

std::u16string ByteBuffer::getAsString() const {
    std::u16string text(bytes_.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char16_t>(bytes_[2 * i] | (bytes_[2 * i + 1] << 8U));
    return text;
}

std::int32_t ByteBuffer::getAsLongValue() const {
    if (bytes_.size() < 4)
        raise<NotEnoughBytesForDesiredDataTypeException>(
            u"ByteBuffer::getAsLongValue(): Cannot convert to the desired data type because the size of the source "
            u"buffer is too small (%ld bytes)! It needs to be at least %ld bytes.\r\n",
            bytes_.size(), 4);
    std::uint32_t bits = 0;
    for (unsigned i = 0; i < 4; ++i)
        bits |= static_cast<std::uint32_t>(bytes_[i]) << (8 * i);
    return static_cast<std::int32_t>(bits);
}

bool ByteBuffer::getAsBoolValue() const {
    if (bytes_.empty())
        raise<NotEnoughBytesForDesiredDataTypeException>(
            u"ByteBuffer::getAsBoolValue(): Cannot convert to the desired data type because the size of the source "
            u"buffer is too small (%ld bytes)! It needs to be at least %ld bytes.\r\n",
            bytes_.size(), 1);
    return bytes_.front() != 0;
}
