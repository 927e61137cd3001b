// Between the wide text of the services and the bytes of this platform. What is no text on one side is refused, never
// guessed at: a changed name would be another file's, another printer's or another key's.
#pragma once

#include "platform/types.h"

#include <string>
#include <string_view>

// UTF-8. Fails with ERROR_INVALID_NAME on an unpaired surrogate.
std::string narrowText(std::u16string_view text);
// The same for a published argument; null fails with ERROR_INVALID_PARAMETER.
std::string narrowText(LPCWSTR text);
// Fails with ERROR_NO_UNICODE_TRANSLATION on what is no UTF-8.
std::u16string wideText(std::string_view text);
// For a reader's eyes only: what is no text comes out as U+FFFD.
std::string readableText(std::u16string_view text);

// The form in which names compare that compare without case: upper case, one unit for one.
std::u16string foldCase(std::u16string_view text);

// Copies the text and its terminator where they fit. The number of characters needed, with the terminator, is told in
// both cases.
struct CopiedText {
    std::size_t needed;
    bool fits;
};
CopiedText copyText(std::u16string_view text, LPWSTR buffer, std::size_t size) noexcept;
