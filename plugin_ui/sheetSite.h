// The catch site of what runs inside a sheet of the host's or a dialog: the user always hears of a failure, even where
// the words for it are among what is missing.
#pragma once

#include "jtcore/Services/catchSite.h"

// A box in words that stand in the program, with the failure's code.
void reportPlainly(HWND owner, const std::exception& failure);

// As runAtCatchSite(), and a failure to show one is shown plainly. What leaves: an unknown failure that the user chose
// to pass on.
template <typename Result, typename Body>
Result runAtSheetSite(const CatchSite& site, Result failureValue, Body&& body) {
    try {
        return runAtCatchSite(site, failureValue, std::forward<Body>(body));
    } catch (const std::exception& failure) {
        reportPlainly(site.owner, failure);
    }
    return failureValue;
}
