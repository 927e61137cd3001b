#include "jtcore/Services/JtifParseException.h"

namespace {

constexpr const char* parseCodeNames[] = {
#define JTIF_PARSE_CODE(number, name) #name,
#include "jtcore/Services/JtifParseCode.def"
#undef JTIF_PARSE_CODE
};

constexpr std::size_t parseCodeCount = std::size(parseCodeNames);

// A name is found by its number, so the rows count up from 0 without a gap.
constexpr bool rowsAreInOrder() {
    std::size_t row = 0;
#define JTIF_PARSE_CODE(number, name)                                                                                  \
    if (row++ != number) return false;
#include "jtcore/Services/JtifParseCode.def"
#undef JTIF_PARSE_CODE
    return true;
}
static_assert(rowsAreInOrder());
static_assert(parseCodeCount == 24);

} // namespace

const char* getParseCodeName(JtifParseCode code) noexcept {
    auto number = static_cast<std::size_t>(code);
    return parseCodeNames[number < parseCodeCount ? number : 0];
}

std::u16string JtifParseException::getErrorCode() const { return formatMessage(u"001:%03d", parseCode_); }
