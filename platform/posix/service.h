// How a service of this folder fails: inside it throws, at its edge the failure becomes the calling thread's last
// error (or an error number) and the published failure value. Nothing else ever leaves it.
#pragma once

#include "platform/types.h"

#include <type_traits>

// A failure, as the published error number.
struct PlatformError {
    DWORD number;
};

// The error number of the exception that is being handled. REQUIRES: called inside a catch clause.
KOLMA_PLATFORM_API DWORD errorOfCurrentException() noexcept;

// What body returns, or `failed` with the last error set.
template <typename Result, typename Body>
Result service(Result failed, Body&& body) noexcept {
    try {
        return body();
    } catch (...) {
        SetLastError(errorOfCurrentException());
        return failed;
    }
}

// A service whose result is the error number itself: what body throws, or returns where a failure is an everyday
// answer.
template <typename Body>
DWORD errorNumberOf(Body&& body) noexcept {
    try {
        if constexpr (std::is_same_v<std::invoke_result_t<Body>, DWORD>) return body();
        body();
        return ERROR_SUCCESS;
    } catch (...) {
        return errorOfCurrentException();
    }
}

inline void require(bool condition, DWORD number) {
    if (!condition) throw PlatformError{number};
}
