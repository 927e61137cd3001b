// The common wide printf-style formatter.
//
// Directives: %s wide text, %S narrow text (UTF-8), %d %i signed, %u unsigned, %x %X hexadecimal, %c one wide
// character, %%; with flags (-, 0, #), width and precision, and the length modifiers h, l and ll, which are read and
// ignored, since every argument carries its own type. A directive without an argument, or with one of another kind,
// comes out as it stands: a wrong format never reads what is not there.
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

// The result never exceeds six rounds of a buffer that grows by this many characters.
inline constexpr std::size_t formatBufferStep = 2048;
inline constexpr std::size_t formatMaximum = 6 * formatBufferStep;

// One argument of a format: text is borrowed for the time of the call.
class FormatArgument {
public:
    using Value = std::variant<std::int64_t, std::uint64_t, std::u16string_view, std::string_view>;

    template <std::integral T>
    FormatArgument(T number) : value_(toNumber(number)) {}
    template <typename T>
    requires std::is_enum_v<T> FormatArgument(T number)
        : value_(toNumber(static_cast<std::underlying_type_t<T>>(number))) {}
    FormatArgument(const void* address)
        : value_(static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(address))) {}
    FormatArgument(std::u16string_view text) : value_(text) {}
    FormatArgument(const std::u16string& text) : value_(std::u16string_view(text)) {}
    FormatArgument(const char16_t* text) : value_(std::u16string_view(text ? text : u"(null)")) {}
    FormatArgument(std::string_view text) : value_(text) {}
    FormatArgument(const std::string& text) : value_(std::string_view(text)) {}
    FormatArgument(const char* text) : value_(std::string_view(text ? text : "(null)")) {}

    const Value& value() const noexcept { return value_; }
    // The number of bits that an %x of a negative value shows.
    unsigned bits() const noexcept { return bits_; }

private:
    template <typename T>
    Value toNumber(T number) {
        bits_ = sizeof(T) * 8 < 32 ? 32 : static_cast<unsigned>(sizeof(T) * 8);
        if constexpr (std::is_signed_v<T>)
            return static_cast<std::int64_t>(number);
        else
            return static_cast<std::uint64_t>(number);
    }

    unsigned bits_ = 64;
    Value value_;
};

// A format: a wide or narrow literal, or the id of a string in the resource module. An id that has no string raises
// ResourceAcquisitionException.
class MessageFormat {
public:
    MessageFormat(std::u16string_view text) : text_(text) {}
    MessageFormat(const char16_t* text) : text_(text) {}
    MessageFormat(const std::u16string& text) : text_(text) {}
    MessageFormat(const char* text);
    MessageFormat(std::uint16_t stringId);

    std::u16string_view text() const noexcept { return text_; }

private:
    std::u16string text_;
};

std::u16string formatMessageV(const MessageFormat& format, std::initializer_list<FormatArgument> arguments);

template <typename... Arguments>
std::u16string formatMessage(const MessageFormat& format, const Arguments&... arguments) {
    return formatMessageV(format, {FormatArgument(arguments)...});
}
