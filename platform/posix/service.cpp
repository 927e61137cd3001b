#include "platform/posix/service.h"

#include <new>

namespace {

thread_local DWORD lastError = ERROR_SUCCESS;

} // namespace

DWORD WINAPI GetLastError() { return lastError; }

void WINAPI SetLastError(DWORD error) { lastError = error; }

DWORD errorOfCurrentException() noexcept {
    try {
        throw;
    } catch (const PlatformError& error) {
        return error.number;
    } catch (const std::bad_alloc&) {
        return ERROR_NOT_ENOUGH_MEMORY;
    } catch (...) {
        return ERROR_GEN_FAILURE;
    }
}
