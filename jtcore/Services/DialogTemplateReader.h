// Walks over a dialog template and finds out where each part ends, without ever reading outside of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

class DialogTemplateReader {
public:
    // Offset of the count of items in the header.
    static constexpr std::size_t countOffset = 8;

    explicit DialogTemplateReader(std::span<const std::uint8_t> bytes) noexcept : bytes_(bytes) {}

    // Each of these raises ResourceAcquisitionException when the bytes are no plain template.
    // The header with its padding; returns the number of items that it claims.
    std::uint16_t readHeader();
    // One item with its padding: where it begins and how long it is.
    std::span<const std::uint8_t> readItem();
    // REQUIRES: all items are read.
    void readEnd() const;

    std::size_t getPosition() const noexcept { return position_; }

private:
    std::uint16_t readWord();
    std::uint32_t readLong();
    void skip(std::size_t count);
    // The rest of a text, whose first character was read already.
    void skipText(std::uint16_t first);
    // An ordinal behind 0xFFFF, or a text.
    void skipName();
    void skipCreationData();
    // The end of the template stands for the padding of the last part.
    void skipPadding() noexcept;

    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
};
