#include "platform/posix/unattended.h"

#include "platform/unattended.h"

#include <atomic>

namespace {

std::atomic<bool> isAllowed = false;

} // namespace

void WINAPI AllowWindowsWithoutDisplay() { isAllowed = true; }

bool mayDoWithoutDisplay() noexcept { return isAllowed; }
