#include "plugin_ui/PrivateAreaRecovery.h"

#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "jtcore/Services/formatMessage.h"
#include "jtcore/Services/trace.h"
#include "plugin_ui/EmptyArea.h"

#include <cstring>

namespace {

// Reads as the next operation will: a valid header, and settings that can be had.
bool isUsableArea(const void* area) noexcept {
    try {
        return KolmaDevMode::isValidArea(area) && !KolmaDevMode(area).getState().isEmpty();
    } catch (...) {
        return false;
    }
}

} // namespace

void traceRecovery(DWORD mode) noexcept {
    try {
        traceText(formatMessage(u"IKolmaPlugIn::recoverFromDevModeImplementationException(mode=0x%lx)", mode),
                  u"Still going to return success and try to recover as gracefully as possible by returning an empty, "
                  u"but valid, DevMode.");
    } catch (...) { // NOLINT(bugprone-empty-catch): a trace is never worth an area
    }
}

void writeEmptyArea(void* areaOut) noexcept {
    try {
        KolmaDevMode().exportToDevMode(areaOut);
    } catch (...) {
        std::memcpy(areaOut, emptyArea.data(), emptyArea.size());
    }
}

void keepIncomingOrEmptyArea(const void* areaIn, void* areaOut) noexcept {
    AreaBytes incoming{};
    const bool isUsable = isUsableArea(areaIn);
    if (isUsable) std::memcpy(incoming.data(), areaIn, incoming.size());
    writeEmptyArea(areaOut);
    if (isUsable) std::memcpy(areaOut, incoming.data(), incoming.size());
}
