// Tells the user what is wrong with settings and what the repair would be, and returns his decision. A reporter serves
// one check.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "platform/types.h"

#include <cstdint>
#include <memory>
#include <string>

class PersistentSettings;
class SettingsProblemList;
class UserMessage;

class SettingsProblemReporter {
public:
    // The title is the string with the file name behind it. `defaults` are what the repair would take values from.
    // Detailed: the whole report, else a short message. `defaultResult` is what report() returns when nothing stops it.
    // Raises what the resource module and reading the defaults raise.
    SettingsProblemReporter(HWND window, std::uint16_t titleId, const std::u16string& fileName,
                            const PersistentSettings& defaults, bool detailed, bool canCancel, int defaultResult = 1);
    ~SettingsProblemReporter();
    SettingsProblemReporter(const SettingsProblemReporter&) = delete;
    SettingsProblemReporter& operator=(const SettingsProblemReporter&) = delete;

    // The default result, or 2 when the user cancelled: callers repair on 1. Shows nothing for an empty list, and
    // nothing when disabled. Raises ResourceAcquisitionException when the report cannot be shown.
    int report(const SettingsProblemList& problems) const;

    // The report as the user reads it, lines ended by "\r\n"; with the repairs unless the user has no choice and
    // nothing will be repaired. Raises what the resource module raises.
    std::u16string getReportText(const SettingsProblemList& problems) const;

    const std::u16string& getTitle() const noexcept { return title_; }
    void setEnabled(bool isEnabled) noexcept { isEnabled_ = isEnabled; }

private:
    bool showsRepair() const noexcept { return canCancel_ || defaultResult_ != 2; }

    int defaultResult_;
    bool isDetailed_;
    bool canCancel_;
    bool isEnabled_ = true;
    std::unique_ptr<UserMessage> message_; // only for the short form
    HWND window_;
    std::u16string title_;
    AttrNodeList defaults_;
};
