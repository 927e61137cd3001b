#include "jtcore/Services/formatMessage.h"

#include "jtcore/Services/ResourceLibrary.h"
#include "jtcore/Services/text.h"

#include <algorithm>

namespace {

struct Directive {
    bool left = false;
    bool zero = false;
    bool alternate = false;
    std::size_t width = 0;
    std::size_t precision = std::u16string_view::npos;
    char16_t conversion = 0;
};

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

std::size_t readNumber(std::u16string_view text, std::size_t& at) {
    std::size_t number = 0;
    for (; at < text.size() && isDigit(text[at]); ++at)
        number = std::min<std::size_t>(number * 10 + static_cast<std::size_t>(text[at] - u'0'), formatMaximum);
    return number;
}

// Reads the directive that starts behind the '%' at `at`, and leaves `at` behind it. False when the text ends first.
bool readDirective(std::u16string_view text, std::size_t& at, Directive& directive) {
    for (; at < text.size(); ++at) {
        if (text[at] == u'-')
            directive.left = true;
        else if (text[at] == u'0')
            directive.zero = true;
        else if (text[at] == u'#')
            directive.alternate = true;
        else
            break;
    }
    directive.width = readNumber(text, at);
    if (at < text.size() && text[at] == u'.') {
        ++at;
        directive.precision = readNumber(text, at);
    }
    while (at < text.size() && (text[at] == u'l' || text[at] == u'h'))
        ++at;
    if (at == text.size()) return false;
    directive.conversion = text[at++];
    return true;
}

std::u16string digits(std::uint64_t number, unsigned base, bool upper) {
    const char16_t* symbols = upper ? u"0123456789ABCDEF" : u"0123456789abcdef";
    std::u16string text;
    do {
        text.insert(text.begin(), symbols[number % base]);
        number /= base;
    } while (number != 0);
    return text;
}

std::uint64_t asUnsigned(const FormatArgument& argument) {
    if (const auto* number = std::get_if<std::uint64_t>(&argument.value())) return *number;
    auto bits = static_cast<std::uint64_t>(std::get<std::int64_t>(argument.value()));
    return argument.bits() == 32 ? bits & 0xFFFFFFFFU : bits;
}

// The prefix of a number (sign, 0x) stands before the zeros that fill it up, and behind blanks.
std::u16string pad(const Directive& directive, const std::u16string& prefix, std::u16string text, bool zeros) {
    std::size_t size = prefix.size() + text.size();
    std::size_t missing = size < directive.width ? directive.width - size : 0;
    if (directive.left) return prefix + text.append(missing, u' ');
    if (zeros) return prefix + text.insert(0, missing, u'0');
    return std::u16string(missing, u' ') + prefix + text;
}

std::u16string formatNumber(const Directive& directive, const FormatArgument& argument) {
    std::u16string prefix;
    std::uint64_t magnitude = asUnsigned(argument);
    bool isHexadecimal = directive.conversion == u'x' || directive.conversion == u'X';
    bool isSigned = directive.conversion == u'd' || directive.conversion == u'i';
    if (const auto* number = std::get_if<std::int64_t>(&argument.value()); isSigned && number && *number < 0) {
        prefix = u"-";
        magnitude = 0 - static_cast<std::uint64_t>(*number);
    }
    if (directive.alternate && isHexadecimal && magnitude != 0) prefix = directive.conversion == u'X' ? u"0X" : u"0x";
    std::u16string text = digits(magnitude, isHexadecimal ? 16 : 10, directive.conversion == u'X');
    bool hasPrecision = directive.precision != std::u16string_view::npos;
    if (hasPrecision && text.size() < directive.precision) text.insert(0, directive.precision - text.size(), u'0');
    return pad(directive, prefix, std::move(text), directive.zero && !hasPrecision);
}

std::u16string formatText(const Directive& directive, std::u16string text) {
    if (text.size() > directive.precision) text.resize(directive.precision);
    return pad(directive, {}, std::move(text), false);
}

// No more of it than the result can hold: the text may be a whole document.
std::u16string asText(const FormatArgument& argument) {
    constexpr std::size_t mostBytesOfUnit = 3;
    if (const auto* wide = std::get_if<std::u16string_view>(&argument.value()))
        return std::u16string(wide->substr(0, formatMaximum));
    return fromUtf8(std::get<std::string_view>(argument.value()).substr(0, formatMaximum * mostBytesOfUnit));
}

// True, and the text in `out`, when the argument is of the kind that the directive asks for.
bool formatOne(const Directive& directive, const FormatArgument& argument, std::u16string& out) {
    const auto& value = argument.value();
    bool isNumber = value.index() < 2;
    switch (directive.conversion) {
    case u'd':
    case u'i':
    case u'u':
    case u'x':
    case u'X':
        if (!isNumber) return false;
        out += formatNumber(directive, argument);
        return true;
    case u'c':
        if (!isNumber) return false;
        out += formatText(directive, std::u16string(1, static_cast<char16_t>(asUnsigned(argument))));
        return true;
    case u's':
    case u'S':
        if (isNumber) return false;
        out += formatText(directive, asText(argument));
        return true;
    default:
        return false;
    }
}

} // namespace

MessageFormat::MessageFormat(const char* text) : text_(fromUtf8(text)) {}

MessageFormat::MessageFormat(std::uint16_t stringId) : text_(ResourceLibrary().getString(stringId)) {}

std::u16string formatMessageV(const MessageFormat& format, std::initializer_list<FormatArgument> arguments) {
    std::u16string_view text = format.text();
    std::u16string out;
    const FormatArgument* argument = arguments.begin();
    std::size_t at = 0;
    while (at < text.size() && out.size() < formatMaximum) {
        std::size_t percent = std::min(text.find(u'%', at), text.size());
        out += text.substr(at, percent - at);
        at = percent;
        if (at == text.size()) break;
        std::size_t start = at++;
        Directive directive;
        if (!readDirective(text, at, directive)) {
            out += text.substr(start);
            break;
        }
        if (directive.conversion == u'%')
            out += u'%';
        else if (argument == arguments.end() || !formatOne(directive, *argument++, out))
            out += text.substr(start, at - start);
    }
    if (out.size() > formatMaximum) out.resize(formatMaximum);
    return out;
}
