// The host's sheet, as far as a page of ours is concerned: what it takes to add one, and to say that it has applied.
#pragma once

#include "platform/driver_host.h"
#include "platform/property_sheet.h"

#include <string>

class DialogHandler;
class DialogResource;

class PropertySheetInterface {
public:
    // The sheet and the module that holds the resources are the host's and outlive the object.
    PropertySheetInterface(PFNCOMPROPSHEET pfnComPropSheet, HANDLE hComPropSheet, HINSTANCE hInstance) noexcept;
    PropertySheetInterface(const PropertySheetInterface&) = delete;
    PropertySheetInterface& operator=(const PropertySheetInterface&) = delete;

    // Adds the page. Title, template and handler are borrowed as long as the host may open the page. Raises
    // ComPropSheetNullHandleException when the host refuses it, and what the template raises.
    void AddPage(const std::u16string& title, const DialogResource& dialogResource, DLGPROC dialogProcedure,
                 DialogHandler& handler);
    // Tells the host that the page has accepted the apply.
    void setResultOk();

private:
    LONG_PTR call(UINT function, LPARAM first, LPARAM second) const;

    PFNCOMPROPSHEET pfnComPropSheet_;
    HANDLE hComPropSheet_;
    HINSTANCE hInstance_;
    LONG_PTR hPage_ = 0;
    PROPSHEETPAGEW page_{};
};
