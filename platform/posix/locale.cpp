#include "platform/identity.h"
#include "platform/posix/service.h"
#include "platform/posix/wideText.h"

#include <algorithm>
#include <cstdlib>
#include <langinfo.h>
#include <locale.h>

namespace {

constexpr char16_t metric = u'0';
constexpr char16_t unitedStates = u'1';

constexpr char16_t paperLetter = u'1';
constexpr char16_t paperLegal = u'5';
constexpr char16_t paperA3 = u'8';
constexpr char16_t paperA4 = u'9';

// Millimetres, as the locale has them.
struct Paper {
    char16_t code;
    long width;
    long height;
};
constexpr Paper papers[] = {{paperLetter, 216, 279}, {paperLegal, 216, 356}, {paperA3, 297, 420}, {paperA4, 210, 297}};

// The user's locale of one category, beside the process's own.
class UserLocale {
public:
    explicit UserLocale(int mask) : locale_(::newlocale(mask, "", nullptr)) {}
    ~UserLocale() {
        if (locale_ != nullptr) ::freelocale(locale_);
    }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

    bool known() const { return locale_ != nullptr; }
    unsigned char byte(nl_item item) const { return static_cast<unsigned char>(*::nl_langinfo_l(item, locale_)); }
    // The numbers of a locale come as what takes a pointer's place.
    long number(nl_item item) const {
        return static_cast<int>(reinterpret_cast<std::intptr_t>(::nl_langinfo_l(item, locale_)));
    }

private:
    locale_t locale_;
};

// The territory in the name of a locale that is set but not installed here: "US" of "en_US.UTF-8".
std::string_view territory(const char* category) {
    for (const char* variable : {"LC_ALL", category, "LANG"}) {
        const char* value = std::getenv(variable);
        if (value == nullptr || *value == '\0') continue;
        std::string_view name(value);
        std::size_t start = name.find('_');
        return start == std::string_view::npos ? "" : name.substr(start + 1, 2);
    }
    return "";
}

bool contains(std::initializer_list<std::string_view> territories, std::string_view one) {
    return std::find(territories.begin(), territories.end(), one) != territories.end();
}

char16_t measurementSystem() {
    UserLocale locale(LC_MEASUREMENT_MASK);
    constexpr unsigned char us = 2;
    constexpr unsigned char si = 1;
    if (!locale.known()) return contains({"US", "LR", "MM"}, territory("LC_MEASUREMENT")) ? unitedStates : metric;
    unsigned char system = locale.byte(_NL_MEASUREMENT_MEASUREMENT);
    require(system == us || system == si, ERROR_INVALID_PARAMETER);
    return system == us ? unitedStates : metric;
}

char16_t paperSize() {
    UserLocale locale(LC_PAPER_MASK);
    if (!locale.known())
        return contains({"US", "CA", "MX", "PR", "PH", "CL", "CO", "CR", "GT", "NI", "PA", "SV", "VE"},
                        territory("LC_PAPER"))
                   ? paperLetter
                   : paperA4;
    long width = locale.number(_NL_PAPER_WIDTH);
    long height = locale.number(_NL_PAPER_HEIGHT);
    const auto* paper = std::find_if(std::begin(papers), std::end(papers),
                                     [&](const Paper& row) { return row.width == width && row.height == height; });
    require(paper != std::end(papers), ERROR_INVALID_PARAMETER);
    return paper->code;
}

} // namespace

int WINAPI GetLocaleInfoW(LCID Locale, LCTYPE LCType, LPWSTR lpLCData, int cchData) {
    return service(0, [&] {
        require(Locale == LOCALE_USER_DEFAULT && (LCType == LOCALE_IMEASURE || LCType == LOCALE_IPAPERSIZE) &&
                    cchData >= 0,
                ERROR_INVALID_PARAMETER);
        char16_t code = LCType == LOCALE_IMEASURE ? measurementSystem() : paperSize();
        CopiedText copied = copyText({&code, 1}, lpLCData, static_cast<std::size_t>(cchData));
        require(copied.fits || cchData == 0, ERROR_INSUFFICIENT_BUFFER);
        return static_cast<int>(copied.needed);
    });
}
