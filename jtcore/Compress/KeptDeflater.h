// A deflate stream of zlib's own level, kept between uses: making one takes a quarter of a megabyte from the system,
// which costs several times what it costs to compress a job's settings.
//
// An object has the stream for its life. The process keeps one; who finds it taken makes a new one.
#pragma once

#include <cstddef>
#include <cstdint>

class KeptDeflater {
public:
    KeptDeflater();
    ~KeptDeflater();
    KeptDeflater(const KeptDeflater&) = delete;
    KeptDeflater& operator=(const KeptDeflater&) = delete;

    // The same bytes and the same code as compress2() of the default level. `outSize` is the room there is, and
    // afterwards what was filled. REQUIRES: both sizes fit 32 bits.
    int compress(const std::uint8_t* in, std::size_t inSize, std::uint8_t* out, std::size_t& outSize) noexcept;

private:
    struct Stream;
    struct Keeper;

    static Keeper keeper_;
    Stream* stream_; // owned
};
