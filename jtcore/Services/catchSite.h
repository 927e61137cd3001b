// The pair of handlers of a catch site, written once.
#pragma once

#include "jtcore/Services/reportException.h"

#include <utility>

// Where failures are caught and how they are shown; the texts are borrowed for the time of the call.
struct CatchSite {
    HWND owner = nullptr;
    std::uint16_t captionId = 0;
    std::u16string_view methodText;
    std::uint16_t contextId = 0;
    std::u16string_view extraText = {};
};

// Runs the body and returns its result. A failure is shown, and the result is failureValue. What leaves: an unknown
// failure that the user chose to pass on, and a failure to show one.
template <typename Result, typename Body>
Result runAtCatchSite(const CatchSite& site, Result failureValue, Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (const std::exception& failure) {
        reportException(site.owner, failure, site.captionId, site.methodText, site.contextId, site.extraText);
    } catch (...) {
        if (reportUnknownException(site.owner, site.captionId, site.methodText, site.contextId, site.extraText)) throw;
    }
    return failureValue;
}
