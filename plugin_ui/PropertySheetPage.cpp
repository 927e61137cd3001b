#include "plugin_ui/PropertySheetPage.h"

#include "platform/property_sheet.h"
#include "platform/windows.h"
#include "plugin_ui/PropertySheetInterface.h"
#include "plugin_ui/validateEntries.h"

#include <utility>

namespace {

bool isWindows2000() {
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExW(&version) && version.dwPlatformId == VER_PLATFORM_WIN32_NT && version.dwMajorVersion == 5 &&
           version.dwMinorVersion == 0;
}

} // namespace

PropertySheetPage::PropertySheetPage(UIContext& context, Feature parentFeature, bool bindsStocks, std::uint16_t titleId,
                                     PropertySheetInterface& sheet)
    : DialogHandler(context, parentFeature, bindsStocks, titleId), sheet_(sheet), repeats_(isWindows2000()) {}

void PropertySheetPage::addPage(std::u16string title, const DialogResource& dialogResource,
                                FeatureSettings& targetSettings, DLGPROC dialogProcedure) {
    setTargetSettings(targetSettings);
    title_ = std::move(title);
    sheet_.AddPage(title_, dialogResource, dialogProcedure, *this);
}

bool PropertySheetPage::onNotify(const UIMessage& message, LRESULT& result) {
    switch (reinterpret_cast<const NMHDR*>(message.lParam)->code) {
    case PSN_APPLY:
        return repeats_.swallow() || apply(message.window, result);
    case PSN_KILLACTIVE:
        result = 0;
        break;
    default:
        break;
    }
    return sendToChildren(message, result);
}

bool PropertySheetPage::apply(HWND window, LRESULT& result) {
    result = PSNRET_INVALID; // what stands when the commit fails
    if (validateEntries(window)) {
        commitSettings(window);
        result = PSNRET_NOERROR;
        repeats_.begin();
    }
    sheet_.setResultOk();
    return true;
}
