// A block of bytes in its stored form: a zlib stream and a small footer that says how long the original was.
//
// Offsets from the start of the stored bytes, n being the length of the stream (0 for an empty original); the numbers
// of the footer are big-endian:
//     n      4  compression level        (older form: missing)
//     n + 4  4  original size            (older form: at n)
//     n + 8  4  "COM4"                   (older form: "COMP" at n + 4)
//
// The footer is a claim. It is believed only as far as the stream bears it out.
#pragma once

#include "jtcore/Services/ByteBuffer.h"

#include <cstddef>
#include <cstdint>

class CompressedBuffer {
public:
    // zlib's own choice of level.
    static constexpr std::int32_t defaultLevel = -1;
    // No job's settings come near this size.
    static constexpr std::size_t settingsLimit = 1024U * 1024;

    // An empty original.
    explicit CompressedBuffer(std::int32_t level = defaultLevel);

    // Takes stored bytes of either form; the object always holds the current one. `originalLimit` is the largest
    // original that getOriginalData() gives out. Raises MissingOrBadCompressedBufferFooterException.
    explicit CompressedBuffer(const ByteBuffer& stored, std::size_t originalLimit = settingsLimit);

    // Compresses with the object's level and replaces what is stored. Raises CompressionException; the object is then
    // unchanged. Data may lie inside this object.
    void store(const void* data, std::size_t size);
    void store(const ByteBuffer& data) { store(data.getData(), data.getSize()); }

    // Raises CompressionException, `out` then being unchanged, when the claimed size is above the limit, the stream is
    // damaged or cut, its length differs from the claim, or anything stands between its end and the footer.
    void getOriginalData(ByteBuffer& out) const;

    // What the footer claims.
    std::uint32_t getOriginalSize() const noexcept { return originalSize_; }
    std::int32_t getLevel() const noexcept { return level_; }

    // The stored form, footer included.
    const std::uint8_t* getData() const noexcept { return stored_.getData(); }
    std::size_t getSize() const noexcept { return stored_.getSize(); }
    const ByteBuffer& getStoredData() const noexcept { return stored_; }
    void getStoredData(ByteBuffer& out) const { out = stored_; }

    void getFooterInfo(std::uint32_t& originalSize, std::int32_t& level, std::size_t& footerSize) const;

    static constexpr std::size_t getFooterSize() noexcept { return 12; }
    static constexpr std::size_t getOldFooterSize() noexcept { return 8; }

private:
    void appendFooter();

    ByteBuffer stored_;
    std::uint32_t originalSize_ = 0;
    std::int32_t level_ = defaultLevel;
    std::size_t originalLimit_ = settingsLimit;
};
