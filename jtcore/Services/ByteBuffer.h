// An owned, growable block of bytes: the one carrier of raw bytes. Copied by value. An empty buffer has no storage.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class ByteBuffer {
public:
    ByteBuffer() = default;
    ByteBuffer(const void* data, std::size_t size);
    // Two bytes a character, low byte first, no terminator.
    explicit ByteBuffer(std::u16string_view text);
    // Four bytes, low byte first.
    explicit ByteBuffer(std::int32_t value);
    // One byte, 1 or 0. Of bool alone: a pointer to characters is a text.
    template <std::same_as<bool> T>
    explicit ByteBuffer(T value) : bytes_(1, value ? 1 : 0) {}

    // Null when empty.
    const std::uint8_t* getData() const noexcept { return bytes_.empty() ? nullptr : bytes_.data(); }
    std::uint8_t* getData() noexcept { return bytes_.empty() ? nullptr : bytes_.data(); }
    std::size_t getSize() const noexcept { return bytes_.size(); }
    bool isEmpty() const noexcept { return bytes_.empty(); }

    // The source may lie inside this buffer.
    void setData(const void* data, std::size_t size);
    void appendData(const void* data, std::size_t size);
    // Grows with zero bytes, or cuts.
    void resize(std::size_t size) { bytes_.resize(size); }
    void reserve(std::size_t size) { bytes_.reserve(size); }
    void clear() noexcept { bytes_.clear(); }

    // The bytes as two-byte characters, low byte first; an odd last byte is ignored.
    std::u16string getAsString() const;
    // The first four bytes, low byte first. Raises NotEnoughBytesForDesiredDataTypeException.
    std::int32_t getAsLongValue() const;
    // The first byte, non-zero being true. Raises NotEnoughBytesForDesiredDataTypeException.
    bool getAsBoolValue() const;

    bool operator==(const ByteBuffer&) const = default;

private:
    std::vector<std::uint8_t> bytes_;
};
