// Plain zlib streams without a footer. Each raises CompressionException and leaves `out` as it was on failure; source
// and `out` may be the same buffer.
#pragma once

#include "jtcore/Services/ByteBuffer.h"

#include <cstddef>
#include <cstdint>
#include <string>

// The largest capability file that is unpacked.
inline constexpr std::size_t capabilityDataLimit = 16U * 1024 * 1024;

// level: zlib's, -1 being its own choice.
void compressBuffer(const ByteBuffer& source, ByteBuffer& out, std::int32_t level = -1);

// Also raises when the stream is cut off or holds more than `limit` bytes. Bytes behind the end of the stream are
// left alone.
void uncompressBuffer(const ByteBuffer& source, ByteBuffer& out, std::size_t limit = capabilityDataLimit);

// "Z_DATA_ERROR" and the like, for messages.
std::u16string getZlibCodeText(int code);
