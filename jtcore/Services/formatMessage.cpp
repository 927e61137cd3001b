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

std::u16string pad(std::u16string text, const Directive& directive, bool number) {
    if (text.size() >= directive.width) return text;
    std::size_t missing = directive.width - text.size();
    if (directive.left) return text.append(missing, u' ');
    bool zeros = number && directive.zero && directive.precision == std::u16string_view::npos;
    std::size_t sign = zeros && text.starts_with(u'-') ? 1 : 0;
    return text.insert(sign, missing, zeros ? u'0' : u' ');
}

std::u16string formatNumber(const Directive& directive, const FormatArgument& argument) {
    std::u16string sign;
    std::uint64_t magnitude = asUnsigned(argument);
    unsigned base = directive.conversion == u'x' || directive.conversion == u'X' ? 16 : 10;
    bool isSigned = directive.conversion == u'd' || directive.conversion == u'i';
    if (const auto* number = std::get_if<std::int64_t>(&argument.value()); isSigned && number && *number < 0) {
        sign = u"-";
        magnitude = 0 - static_cast<std::uint64_t>(*number);
    }
    std::u16string text = digits(magnitude, base, directive.conversion == u'X');
    if (directive.precision != std::u16string_view::npos && text.size() < directive.precision)
        text.insert(0, directive.precision - text.size(), u'0');
    if (directive.alternate && base == 16) sign += directive.conversion == u'X' ? u"0X" : u"0x";
    return pad(sign + text, directive, true);
}

std::u16string formatText(const Directive& directive, std::u16string text) {
    if (text.size() > directive.precision) text.resize(directive.precision);
    return pad(std::move(text), directive, false);
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
        if (const auto* wide = std::get_if<std::u16string_view>(&value))
            out += formatText(directive, std::u16string(*wide));
        else
            out += formatText(directive, fromUtf8(std::get<std::string_view>(value)));
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
