// The page of the document's sheet: the root of the tree of all overlays, on the settings of the document.
//
// The road of a change: the features write the working settings; PSN_APPLY validates them, sees that the document has
// room for them, and only then copies them to the stored settings and hands those to the dealer. What was not applied
// never reaches the dealer.
#pragma once

#include "plugin_ui/PageComposition.h"
#include "plugin_ui/PropertySheetPage.h"

class AnlDealer;

class KolmaSettingsPropertySheetPage : public PropertySheetPage {
public:
    // Adds the page to the sheet. All three are borrowed for the object's life. Raises ComPropSheetNullHandleException
    // when the host refuses the page, and what the resource module, the capabilities and the dealer raise.
    KolmaSettingsPropertySheetPage(PropertySheetInterface& sheet, UIContext& context, AnlDealer& dealer);

    // Hands the settings to the dealer, without their emptied lists. False after a failure, of which the user was told;
    // the dealer is then as it was.
    bool tryToApplyChanges(HWND window, FeatureSettings& settings);
    const FeatureSettings& getStoredSettings() const noexcept { return storedSettings_; }

    // Whether the document has room for the working settings.
    bool isEntryValid(HWND window) override;
    // A ticket file has no such limit.
    bool isSaveValid(HWND window) override;

    // Read-only on and off, with or without a window.
    void lockPage();
    void unlockPage();

protected:
    void commitSettings(HWND window) override;

private:
    void tell(UINT message);

    PageComposition pageComposition_;
    AnlDealer& dealer_;
    FeatureSettings storedSettings_;
};
