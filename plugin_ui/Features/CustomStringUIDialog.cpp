#include "plugin_ui/Features/CustomStringUIDialog.h"

#include "plugin_ui/Features/CustomStringDialogUIFeature.h"
#include "resources/ids.h"

CustomStringUIDialog::CustomStringUIDialog(UIContext& context, const FeatureId& feature, std::u16string& target)
    : UIDialog(context, IDD_CUSTOM_ENTRY, noParentFeature, false, true),
      entry_(addNew<CustomStringDialogUIFeature>(context, feature, target)) {}

void CustomStringUIDialog::commitSettings(HWND) { entry_.commitText(); }
