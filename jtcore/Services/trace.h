// The trace hook: diagnostic texts with a class mask. It has no destination: a call costs nothing and changes no
// result. A destination, when one is wanted, is put behind these operations.
#pragma once

#include <cstdint>
#include <exception>
#include <string_view>

inline void traceRaise(const char*, std::int32_t, std::uint32_t, std::u16string_view) noexcept {}

// A text under the method that it tells of.
inline void traceText(std::u16string_view, std::u16string_view) noexcept {}

// A failure (may be null) with what was being done and further detail.
inline void traceException(const std::exception*, std::u16string_view, std::u16string_view) noexcept {}
