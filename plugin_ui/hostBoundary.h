// The outermost edge of the module: nothing but a result leaves it.
//
// Every operation that the host calls runs in hostBoundary(). Whatever is thrown inside stops here: a failure, a
// failure to show a failure, what a user chose to pass on at the box of an unknown failure, and what a service of the
// host's own throws. The host expects no exception from a plug-in and could only end on one.
#pragma once

#include "platform/types.h"

#include <new>
#include <utility>

// Leaves the reason for the caller. Throws nothing, whatever SetLastError does.
void leaveLastError(DWORD error) noexcept;

// Runs the operation and returns its result. When anything is thrown the result is `failure`, and the last error is
// ERROR_NOT_ENOUGH_MEMORY or ERROR_GEN_FAILURE.
template <typename Result, typename Operation>
Result hostBoundary(Result failure, Operation&& operation) noexcept {
    try {
        return std::forward<Operation>(operation)();
    } catch (const std::bad_alloc&) {
        leaveLastError(ERROR_NOT_ENOUGH_MEMORY);
    } catch (...) {
        leaveLastError(ERROR_GEN_FAILURE);
    }
    return failure;
}
