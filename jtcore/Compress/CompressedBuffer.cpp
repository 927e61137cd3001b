#include "jtcore/Compress/CompressedBuffer.h"

#include "jtcore/Compress/KeptDeflater.h"
#include "jtcore/Compress/zlibBuffer.h"
#include "jtcore/Services/KolmaException.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <zlib.h>

namespace {

constexpr std::size_t signatureSize = 4;
constexpr char currentSignature[] = "COM4";
constexpr char oldSignature[] = "COMP";

bool endsIn(const ByteBuffer& bytes, const char* signature) {
    return std::memcmp(bytes.getData() + bytes.getSize() - signatureSize, signature, signatureSize) == 0;
}

std::uint32_t readBigEndian(const std::uint8_t* bytes) {
    return static_cast<std::uint32_t>(bytes[0]) << 24U | static_cast<std::uint32_t>(bytes[1]) << 16U |
           static_cast<std::uint32_t>(bytes[2]) << 8U | bytes[3];
}

void appendBigEndian(ByteBuffer& out, std::uint32_t value) {
    const std::uint8_t bytes[] = {static_cast<std::uint8_t>(value >> 24U), static_cast<std::uint8_t>(value >> 16U),
                                  static_cast<std::uint8_t>(value >> 8U), static_cast<std::uint8_t>(value)};
    out.appendData(bytes, sizeof bytes);
}

// zlib's own bound for any level lies below this.
std::size_t workSize(std::size_t size) { return size + size / 100 + 13; }

int compress(const Bytef* in, std::size_t size, std::int32_t level, Bytef* out, std::size_t& outSize) {
    if (level == CompressedBuffer::defaultLevel && size <= CompressedBuffer::settingsLimit)
        return KeptDeflater().compress(in, size, out, outSize);
    auto length = static_cast<uLongf>(outSize);
    const int code = compress2(out, &length, in, static_cast<uLong>(size), level);
    outSize = length;
    return code;
}

} // namespace

CompressedBuffer::CompressedBuffer(std::int32_t level) : level_(level) { appendFooter(); }

CompressedBuffer::CompressedBuffer(const ByteBuffer& stored, std::size_t originalLimit)
    : stored_(stored), originalLimit_(originalLimit) {
    std::size_t footerSize = 0;
    getFooterInfo(originalSize_, level_, footerSize);
    stored_.resize(stored_.getSize() - footerSize);
    appendFooter();
}

void CompressedBuffer::store(const void* data, std::size_t size) {
    if (size > std::numeric_limits<std::uint32_t>::max() - size / 100 - 13)
        raise<CompressionException>(
            u"CompressedBuffer::store(): %lu bytes are more than the footer can tell the size of!\r\n", size);
    CompressedBuffer fresh(level_);
    if (size != 0) {
        ByteBuffer work;
        work.resize(workSize(size));
        std::size_t length = work.getSize();
        int code = compress(static_cast<const Bytef*>(data), size, level_, work.getData(), length);
        if (code != Z_OK)
            raise<CompressionException>(u"CompressedBuffer::store(): ZLIB returned an error (%s) from compress()!\r\n",
                                        getZlibCodeText(code));
        fresh.stored_.setData(work.getData(), length);
        fresh.originalSize_ = static_cast<std::uint32_t>(size);
        fresh.appendFooter();
    }
    fresh.originalLimit_ = std::max(originalLimit_, size);
    *this = std::move(fresh);
}

void CompressedBuffer::getOriginalData(ByteBuffer& out) const {
    if (originalSize_ > originalLimit_)
        raise<CompressionException>(u"CompressedBuffer::getOriginalData(): The size of the original data (%lu) is "
                                    u"above the limit of %lu bytes!\r\n",
                                    originalSize_, originalLimit_);
    ByteBuffer original;
    std::size_t streamSize = stored_.getSize() - getFooterSize();
    if (originalSize_ != 0 || streamSize != 0) {
        original.resize(originalSize_);
        auto length = static_cast<uLongf>(originalSize_);
        auto consumed = static_cast<uLong>(streamSize);
        int code = uncompress2(original.getData(), &length, stored_.getData(), &consumed);
        if (code == Z_OK && consumed != streamSize) code = Z_DATA_ERROR;
        if (code != Z_OK)
            raise<CompressionException>(
                u"CompressedBuffer::getOriginalData(): ZLIB returned an error (%s) from uncompress()!\r\n",
                getZlibCodeText(code));
        if (length != originalSize_)
            raise<CompressionException>(u"CompressedBuffer::getOriginalData(): Uncompressed data size (%ld) doesn't "
                                        u"match the expected size of the original data (%ld)!\r\n",
                                        length, originalSize_);
    }
    out = std::move(original);
}

void CompressedBuffer::getFooterInfo(std::uint32_t& originalSize, std::int32_t& level, std::size_t& footerSize) const {
    std::size_t size = stored_.getSize();
    bool looked = size >= getOldFooterSize();
    bool isSigned = looked && endsIn(stored_, currentSignature);
    if (!isSigned && !(looked && endsIn(stored_, oldSignature)))
        raise<MissingOrBadCompressedBufferFooterException>(
            u"CompressedBuffer::getFooterInfo(): Footer information missing (buffer is %ld bytes versus footer size of "
            u"%ld or %ld) OR signature bytes were invalid (%s). CompressedBuffer ByteBuffer is invalid!\r\n",
            size, getFooterSize(), getOldFooterSize(), looked ? u"yes" : u"no");
    bool isCurrent = isSigned && size >= getFooterSize();
    const std::uint8_t* end = stored_.getData() + size;
    originalSize = readBigEndian(end - getOldFooterSize());
    level = isCurrent ? static_cast<std::int32_t>(readBigEndian(end - getFooterSize())) : defaultLevel;
    footerSize = isCurrent ? getFooterSize() : getOldFooterSize();
}

void CompressedBuffer::appendFooter() {
    appendBigEndian(stored_, static_cast<std::uint32_t>(level_));
    appendBigEndian(stored_, originalSize_);
    stored_.appendData(currentSignature, signatureSize);
}
