#include "jtcore/Compress/zlibBuffer.h"

#include "jtcore/Services/KolmaException.h"

#include <algorithm>
#include <zlib.h>

namespace {

constexpr std::size_t windowSize = 16384;
// zlib counts the input of one call in 32 bits.
constexpr std::size_t feedSize = std::size_t{1} << 30U;

using EndFunction = int (*)(z_stream*);

// One run of zlib, ended with the object: input is fed from a buffer, output comes by the window.
class Stream {
public:
    Stream(const ByteBuffer& source, EndFunction end)
        : rest_(source.getData()), restSize_(source.getSize()), end_(end) {}
    ~Stream() {
        if (isOpen_) end_(&zlib_);
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    z_stream* get() { return &zlib_; }
    void setOpen() { isOpen_ = true; }
    int end() {
        isOpen_ = false;
        return end_(&zlib_);
    }

    bool hasInput() const { return zlib_.avail_in != 0 || restSize_ != 0; }

    // One call of inflate or deflate; what it filled of the window goes to `out`.
    template <typename Step>
    int run(Step step, int flush, ByteBuffer& out) {
        feed();
        zlib_.next_out = window_;
        zlib_.avail_out = windowSize;
        int code = step(&zlib_, flush);
        out.appendData(window_, windowSize - zlib_.avail_out);
        return code;
    }

private:
    void feed() {
        if (zlib_.avail_in != 0 || restSize_ == 0) return;
        std::size_t size = std::min(restSize_, feedSize);
        zlib_.next_in = const_cast<Bytef*>(rest_); // zlib only reads there
        zlib_.avail_in = static_cast<uInt>(size);
        rest_ += size;
        restSize_ -= size;
    }

    z_stream zlib_{};
    const std::uint8_t* rest_;
    std::size_t restSize_;
    EndFunction end_;
    bool isOpen_ = false;
    Bytef window_[windowSize];
};

} // namespace

void compressBuffer(const ByteBuffer& source, ByteBuffer& out, std::int32_t level) {
    Stream stream(source, deflateEnd);
    if (int code = deflateInit(stream.get(), level); code != Z_OK)
        raise<CompressionException>(
            u"CompressedBuffer::compressBuffer(): ZLIB returned an error (%s) from deflateInit()!\r\n",
            getZlibCodeText(code));
    stream.setOpen();
    ByteBuffer compressed;
    int code = Z_OK;
    while (code == Z_OK)
        code = stream.run(deflate, stream.hasInput() ? Z_NO_FLUSH : Z_FINISH, compressed);
    if (code != Z_STREAM_END)
        raise<CompressionException>(
            u"CompressedBuffer::compressBuffer(): ZLIB returned an error (%s) from deflate()!\r\n",
            getZlibCodeText(code));
    if (code = stream.end(); code != Z_OK)
        raise<CompressionException>(
            u"CompressedBuffer::compressBuffer(): ZLIB returned an error (%s) from deflateEnd()!\r\n",
            getZlibCodeText(code));
    out = std::move(compressed);
}

void uncompressBuffer(const ByteBuffer& source, ByteBuffer& out, std::size_t limit) {
    Stream stream(source, inflateEnd);
    if (int code = inflateInit(stream.get()); code != Z_OK)
        raise<CompressionException>(
            u"CompressedBuffer::uncompressBuffer(): ZLIB returned an error (%s) from inflateInit()!\r\n",
            getZlibCodeText(code));
    stream.setOpen();
    ByteBuffer original;
    int code = Z_OK;
    // A stream that is cut off ends in Z_BUF_ERROR: no input is left and there is room for output.
    while (code == Z_OK) {
        code = stream.run(inflate, Z_NO_FLUSH, original);
        if (original.getSize() > limit)
            raise<CompressionException>(u"CompressedBuffer::uncompressBuffer(): The uncompressed data is above the "
                                        u"limit of %lu bytes!\r\n",
                                        limit);
    }
    if (code != Z_STREAM_END)
        raise<CompressionException>(
            u"CompressedBuffer::uncompressBuffer(): ZLIB returned an error (%s) from deflate()!\r\n",
            getZlibCodeText(code));
    if (code = stream.end(); code != Z_OK)
        raise<CompressionException>(
            u"CompressedBuffer::uncompressBuffer(): ZLIB returned an error (%s) from inflateEnd()!\r\n",
            getZlibCodeText(code));
    out = std::move(original);
}

std::u16string getZlibCodeText(int code) {
    switch (code) {
#define ZLIB_CODE(name)                                                                                                \
    case name:                                                                                                         \
        return u"" #name;
        ZLIB_CODE(Z_OK)
        ZLIB_CODE(Z_STREAM_END)
        ZLIB_CODE(Z_NEED_DICT)
        ZLIB_CODE(Z_ERRNO)
        ZLIB_CODE(Z_STREAM_ERROR)
        ZLIB_CODE(Z_DATA_ERROR)
        ZLIB_CODE(Z_MEM_ERROR)
        ZLIB_CODE(Z_BUF_ERROR)
        ZLIB_CODE(Z_VERSION_ERROR)
#undef ZLIB_CODE
    default:
        return formatMessage(u"<Unrecognized ZLIB Return Code %d>", code);
    }
}
