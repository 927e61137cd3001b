// The tip window of one control of a dialog. Destroyed with the object.
#pragma once

#include "jtcore/Services/ResourceLibrary.h"
#include "platform/controls.h"

#include <cstdint>
#include <string>

class ToolTip {
public:
    // Where the dialog has no control of this id there is no tip. Raises ResourceLibraryConstructionException.
    ToolTip(HWND dialog, std::uint16_t controlId, std::u16string text);
    ToolTip(const ToolTip&) = delete;
    ToolTip& operator=(const ToolTip&) = delete;
    virtual ~ToolTip();

    void setText(std::u16string text);

private:
    TTTOOLINFOW identify() const noexcept;
    void addTool();

    ResourceLibrary resourceLibrary_;
    HWND controlWindow_;
    std::u16string text_;
    std::uint32_t toolId_;
    HWND tipWindow_ = nullptr;
};
