// What every component of one document sheet works with. Made once for the session, which owns what it points to.
#pragma once

#include "jtcore/Services/UserPreferences.h"

#include <cstdint>

class Capabilities;
class PrinterDefaults;
class StockInformation;

inline constexpr std::uint32_t uiModePrinterDriver = 1;

struct UIContext {
    std::uint32_t mode = uiModePrinterDriver;
    const Capabilities* capabilities = nullptr;
    const PrinterDefaults* printerDefaults = nullptr;
    UserPreferences preferences;
    StockInformation* stockInformation = nullptr;
    // The session may change nothing.
    bool readOnly = false;

    UserPreferences& getPreferences() noexcept { return preferences; }
};
