// A page in the host's sheet: the handler of its window, and what it answers when the sheet applies.
#pragma once

#include "plugin_ui/ApplyRepeats.h"
#include "plugin_ui/DialogHandler.h"

#include <string>

class DialogResource;
class PropertySheetInterface;

class PropertySheetPage : public DialogHandler {
public:
    // PSN_APPLY: commits if all entries are valid and else keeps the sheet open. The sheet stays open too when the
    // commit fails.
    bool onNotify(const UIMessage& message, LRESULT& result) override;

protected:
    // The sheet is borrowed for the object's life.
    PropertySheetPage(UIContext& context, Feature parentFeature, bool bindsStocks, std::uint16_t titleId,
                      PropertySheetInterface& sheet);

    // The page edits the settings and is borrowed by the sheet, with the template. Raises what AddPage() raises.
    void addPage(std::u16string title, const DialogResource& dialogResource, FeatureSettings& targetSettings,
                 DLGPROC dialogProcedure);

private:
    bool apply(HWND window, LRESULT& result);

    PropertySheetInterface& sheet_;
    std::u16string title_;
    ApplyRepeats repeats_;
};
