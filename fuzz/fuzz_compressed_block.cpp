// Any bytes as a stored block and as a plain zlib stream: either one is read whole or it is refused with one of the two
// failures of the family, and what was read survives being stored again.
#include "jtcore/Compress/CompressedBuffer.h"
#include "jtcore/Compress/zlibBuffer.h"
#include "jtcore/Services/KolmaException.h"

#include <cstdlib>

namespace {

constexpr std::size_t streamLimit = 256U * 1024;

void check(bool holds) {
    if (!holds) std::abort();
}

void readBlock(const ByteBuffer& bytes) {
    CompressedBuffer block(bytes);
    ByteBuffer original;
    block.getOriginalData(original);
    check(original.getSize() == block.getOriginalSize());
    CompressedBuffer again;
    again.store(original);
    ByteBuffer back;
    again.getOriginalData(back);
    check(back == original);
}

void readStream(const ByteBuffer& bytes) {
    ByteBuffer original;
    uncompressBuffer(bytes, original, streamLimit);
    check(original.getSize() <= streamLimit);
}

template <typename Read>
void readOrRefuse(Read read, const ByteBuffer& bytes) {
    try {
        read(bytes);
    } catch (const MissingOrBadCompressedBufferFooterException&) {
    } catch (const CompressionException&) {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteBuffer bytes(data, size);
    readOrRefuse(readBlock, bytes);
    readOrRefuse(readStream, bytes);
    return 0;
}
