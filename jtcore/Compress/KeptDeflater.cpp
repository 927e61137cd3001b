#include "jtcore/Compress/KeptDeflater.h"

#include <atomic>
#include <zlib.h>

struct KeptDeflater::Stream {
    Stream() noexcept : code(deflateInit(&zlib, Z_DEFAULT_COMPRESSION)) {}
    ~Stream() { deflateEnd(&zlib); }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    z_stream zlib{};
    int code; // of its making, then of its last reset
};

// Ends with the module, and the kept stream with it.
struct KeptDeflater::Keeper {
    ~Keeper() { delete idle.load(); }
    std::atomic<Stream*> idle = nullptr;
};

constinit KeptDeflater::Keeper KeptDeflater::keeper_;

KeptDeflater::KeptDeflater() : stream_(keeper_.idle.exchange(nullptr)) {
    if (stream_ == nullptr) stream_ = new Stream;
}

// A stream that could not be made or reset is not kept.
KeptDeflater::~KeptDeflater() {
    Stream* none = nullptr;
    if (stream_->code == Z_OK && keeper_.idle.compare_exchange_strong(none, stream_)) return;
    delete stream_;
}

int KeptDeflater::compress(const std::uint8_t* in, std::size_t inSize, std::uint8_t* out,
                           std::size_t& outSize) noexcept {
    if (stream_->code != Z_OK) return stream_->code;
    z_stream& zlib = stream_->zlib;
    zlib.next_in = const_cast<Bytef*>(in); // zlib only reads there
    zlib.avail_in = static_cast<uInt>(inSize);
    zlib.next_out = out;
    zlib.avail_out = static_cast<uInt>(outSize);
    const int code = deflate(&zlib, Z_FINISH);
    outSize = zlib.total_out;
    stream_->code = deflateReset(&zlib);
    if (code == Z_STREAM_END) return Z_OK;
    return code == Z_OK ? Z_BUF_ERROR : code;
}
