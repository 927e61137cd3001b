// The one family of failures, and how they are raised.
//
// Deep code raises and shows nothing; the catch sites show (reportException.h). A raise looks like
//
//     raise<ReadFileException>(u"File::read(): ReadFile() failed for file %s.\r\n", path);
//
// which takes down the source file and the line of that statement. Every message begins with Class::operation() and
// ends in "\r\n".
#pragma once

#include "jtcore/Services/SourceLocation.h"
#include "jtcore/Services/formatMessage.h"

#include <cstdint>
#include <exception>
#include <string>

// Masks that say which subsystem raised; they reach only the trace hook.
inline constexpr std::uint32_t traceClassDefault = 1024;
inline constexpr std::uint32_t traceClassPrinter = 16384;

class KolmaException : public std::exception {
public:
    // Takes the source file, line and trace class that the raising site left (setFileAndLine, setTraceClass), resets
    // them to an empty file, line 0 and trace class 1024, and tells the trace hook.
    explicit KolmaException(std::u16string message);
    ~KolmaException() override;
    KolmaException(const KolmaException&) = default;
    KolmaException& operator=(const KolmaException&) = default;

    // The message in UTF-8.
    const char* what() const noexcept override;

    // "021:000": three digits of class, a colon, three digits of detail.
    virtual std::u16string getErrorCode() const = 0;

    std::u16string getFile() const;
    std::int32_t getLine() const noexcept { return line_; }
    std::uint32_t getTraceClass() const noexcept { return traceClass_; }
    const std::u16string& getMessage() const noexcept { return message_; }

    static void setFileAndLine(const char* file, std::int32_t line) noexcept;
    static void setTraceClass(std::uint32_t traceClass) noexcept;

private:
    const char* file_;
    std::int32_t line_;
    std::uint32_t traceClass_;
    std::u16string message_;
    std::string narrowMessage_;
};

// A class of the family with a fixed code; the rows stand in KolmaException.def.
#define KOLMA_EXCEPTION(Name, Base, code)                                                                              \
    class Name : public Base {                                                                                         \
    public:                                                                                                            \
        using Base::Base;                                                                                              \
        std::u16string getErrorCode() const override { return u##code; }                                               \
    };
#define KOLMA_EXCEPTION_MIDDLE(Name, Base)                                                                             \
    class Name : public Base {                                                                                         \
    public:                                                                                                            \
        using Base::Base;                                                                                              \
    };
#include "jtcore/Services/KolmaException.def"
#undef KOLMA_EXCEPTION
#undef KOLMA_EXCEPTION_MIDDLE

// What a raising site hands over: the format, and where in the source it stands.
struct RaiseSite {
    template <typename Format>
    RaiseSite(const Format& messageFormat, SourceLocation where = SourceLocation::current())
        : format(messageFormat), location(where) {}
    MessageFormat format;
    SourceLocation location;
};

// Formats the message and throws Exception. REQUIRES: Exception is constructed from a message.
template <typename Exception, typename... Arguments>
[[noreturn]] void raise(const RaiseSite& site, const Arguments&... arguments) {
    KolmaException::setFileAndLine(site.location.file, static_cast<std::int32_t>(site.location.line));
    KolmaException::setTraceClass(traceClassDefault);
    throw Exception(formatMessage(site.format, arguments...));
}

// The same with a trace class of the caller's.
template <typename Exception, typename... Arguments>
[[noreturn]] void raiseTraced(std::uint32_t traceClass, const RaiseSite& site, const Arguments&... arguments) {
    KolmaException::setFileAndLine(site.location.file, static_cast<std::int32_t>(site.location.line));
    KolmaException::setTraceClass(traceClass);
    throw Exception(formatMessage(site.format, arguments...));
}
