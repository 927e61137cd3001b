#include "plugin_ui/moduleState.h"

#include <atomic>

namespace {

LONG volatile liveObjects = 0;
LONG volatile serverLocks = 0;

LONG read(LONG volatile& counter) noexcept {
    return std::atomic_ref<LONG>(const_cast<LONG&>(counter)).load(); // NOLINT(cppcoreguidelines-pro-type-const-cast)
}

} // namespace

LiveObject::LiveObject() noexcept { InterlockedIncrement(&liveObjects); }

LiveObject::~LiveObject() { InterlockedDecrement(&liveObjects); }

void lockServer() noexcept { InterlockedIncrement(&serverLocks); }

void unlockServer() noexcept { InterlockedDecrement(&serverLocks); }

bool isModuleInUse() noexcept { return read(liveObjects) != 0 || read(serverLocks) != 0; }
