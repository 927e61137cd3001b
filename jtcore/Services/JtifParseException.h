// The failure of everything that reads or writes XML. What went wrong is a number of its own, the parse code.
//
//     raiseJtifParse(JtifParseCode::READFILE_FAILED, u"KolmaXmlFile::read(): Failed to read %s.\r\n", path);
#pragma once

#include "jtcore/Services/KolmaException.h"

#include <string>
#include <utility>

enum class JtifParseCode : std::int32_t {
#define JTIF_PARSE_CODE(number, name) name = number,
#include "jtcore/Services/JtifParseCode.def"
#undef JTIF_PARSE_CODE
};

// "READFILE_FAILED"; for a number without a row the name of code 0.
const char* getParseCodeName(JtifParseCode code) noexcept;

class JtifParseException : public KolmaException {
public:
    explicit JtifParseException(std::u16string message,
                                JtifParseCode code = JtifParseCode::ILLEGAL_JTIFPARSE_EXCEPTION_CODE)
        : KolmaException(std::move(message)), parseCode_(code) {}

    // "001:" and the parse code in three digits.
    std::u16string getErrorCode() const override;

    JtifParseCode getParseCode() const noexcept { return parseCode_; }

private:
    JtifParseCode parseCode_;
};

// Formats the message and throws a JtifParseException with this code.
template <typename... Arguments>
[[noreturn]] void raiseJtifParse(JtifParseCode code, const RaiseSite& site, const Arguments&... arguments) {
    KolmaException::setFileAndLine(site.location.file, static_cast<std::int32_t>(site.location.line));
    KolmaException::setTraceClass(traceClassDefault);
    throw JtifParseException(formatMessage(site.format, arguments...), code);
}
