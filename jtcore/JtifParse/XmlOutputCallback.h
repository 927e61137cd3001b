// Receives the bytes of a document that is written. The family: a buffer, a byte sink, a file.
#pragma once

#include "jtcore/JtifParse/ByteSink.h"
#include "jtcore/Services/ByteBuffer.h"

#include <cstddef>

class XmlOutputCallback {
public:
    // Takes the next bytes. False fails the write (parse code 4); an implementation may also raise a failure of its
    // own.
    virtual bool handleOutput(const void* bytes, std::size_t length) = 0;
    virtual ~XmlOutputCallback() = default;

    // Whether the writer puts in line breaks and tabs.
    bool isFormatted() const noexcept { return formatted_; }
    void setFormatted(bool formatted) noexcept { formatted_ = formatted; }

private:
    bool formatted_ = true;
};

// Appends to a buffer of the caller's.
class XmlOutputBufferCallback final : public XmlOutputCallback {
public:
    explicit XmlOutputBufferCallback(ByteBuffer& buffer) noexcept : buffer_(buffer) {}
    bool handleOutput(const void* bytes, std::size_t length) override;

private:
    ByteBuffer& buffer_;
};

// Hands each block to a sink of the caller's.
class XmlOutputStreamCallback final : public XmlOutputCallback {
public:
    explicit XmlOutputStreamCallback(ByteSink& sink) noexcept : sink_(sink) {}
    bool handleOutput(const void* bytes, std::size_t length) override;

private:
    ByteSink& sink_;
};
