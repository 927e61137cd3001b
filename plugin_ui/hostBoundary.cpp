#include "plugin_ui/hostBoundary.h"

void leaveLastError(DWORD error) noexcept {
    try {
        SetLastError(error);
    } catch (...) { // NOLINT(bugprone-empty-catch): the result alone must then do
    }
}
