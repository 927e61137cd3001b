// The option items that the plug-in adds to a page of the host's own, in memory of the host's heap, which goes with the
// object.
#pragma once

#include "platform/driver_host.h"

#include <string>
#include <vector>

// What the plug-in is told of the sheet. The strings and areas must live as long as what is made of it.
struct SheetSubject {
    HANDLE printer = nullptr;
    std::u16string printerName;
    DEVMODEW* publicDevMode = nullptr;
    void* area = nullptr;
    DWORD flags = 0; // DM_...
};

class OptionItems {
public:
    // Asks the plug-in how many items of that mode (OEMCUIP_...) it has. It borrows both for its life.
    OptionItems(IPrintOemUI& plugIn, DWORD mode, SheetSubject& subject);
    ~OptionItems();
    OptionItems(const OptionItems&) = delete;
    OptionItems& operator=(const OptionItems&) = delete;

    // Has the plug-in fill them, and adds the page with that title to the sheet. False when there are none, when the
    // plug-in fails, which has said so then, and when the sheet does not take the page. Called once.
    bool addPage(PROPSHEETUI_INFO& sheet, std::u16string title);

private:
    static LONG CALLBACK onItems(PCPSUICBPARAM callback);

    bool tell();
    bool fill();

    IPrintOemUI& plugIn_;
    const DWORD mode_;
    OEMCUIPPARAM param_{};
    COMPROPSHEETUI page_{};
    std::u16string title_;
    std::u16string heading_;
    std::vector<OPTITEM> items_; // a heading, then the plug-in's
};
