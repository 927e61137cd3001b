#include "plugin_ui/KolmaSettingsPropertySheetPage.h"

#include "jtcore/AnlXlate/AnlDealer.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "plugin_ui/NavigationBar.h"
#include "plugin_ui/sheetSite.h"
#include "resources/ids.h"

namespace {

bool handOver(HWND window, FeatureSettings& settings, AnlDealer& dealer) {
    const CatchSite site{window, IDS_CAPTION_DOCUMENT_PROPERTIES,
                         u"KolmaSettingsPropertySheetPage::tryToApplyChanges()"};
    return runAtSheetSite(site, false, [&] {
        settings.getAttrNodeList().pruneEmptyLists();
        dealer.setAttrNodeList(settings.getAttrNodeList());
        return true;
    });
}

} // namespace

KolmaSettingsPropertySheetPage::KolmaSettingsPropertySheetPage(PropertySheetInterface& sheet, UIContext& context,
                                                               AnlDealer& dealer)
    : PropertySheetPage(context, noParentFeature, true, IDS_CAPTION_DOCUMENT_PROPERTIES, sheet),
      pageComposition_(context),
      dealer_(dealer) {
    addChild(pageComposition_.takeNavigationBar());
    dealer_.getAttrNodeList(storedSettings_.getAttrNodeList());
    addPage(ResourceLibrary().getString(IDS_CAPTION_DOCUMENT_PROPERTIES), pageComposition_.getDialog(), storedSettings_,
            windowProc);
}

bool KolmaSettingsPropertySheetPage::tryToApplyChanges(HWND window, FeatureSettings& settings) {
    return handOver(window, settings, dealer_);
}

// On a copy of the dealer: a validation need not end in an apply.
bool KolmaSettingsPropertySheetPage::isEntryValid(HWND window) {
    const std::unique_ptr<AnlDealer> trial = dealer_.clone();
    return handOver(window, getWorkingSettings(), *trial);
}

bool KolmaSettingsPropertySheetPage::isSaveValid(HWND) { return true; }

void KolmaSettingsPropertySheetPage::commitSettings(HWND window) {
    PropertySheetPage::commitSettings(window);
    tryToApplyChanges(window, storedSettings_);
}

void KolmaSettingsPropertySheetPage::lockPage() { tell(UIM_LOCK); }

void KolmaSettingsPropertySheetPage::unlockPage() { tell(UIM_UNLOCK); }

void KolmaSettingsPropertySheetPage::tell(UINT message) {
    LRESULT ignored = 0;
    processMessage({nullptr, message, 0, 0}, ignored);
}
