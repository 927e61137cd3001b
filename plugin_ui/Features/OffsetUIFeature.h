// Offset stacking: one member of the finishings, as a check box with a picture.
#pragma once

#include "plugin_ui/UIFeature.h"

class BitmapUIControl;
class CheckBoxUIControl;

class OffsetUIFeature : public UIFeature {
public:
    explicit OffsetUIFeature(UIContext& context);

    bool isOffsetSet();

    bool isFeatureSupported() override;
    void updateFeatureWithNewSettings() override;
    void handleSubjectUpdate(std::uint16_t subjectId) override;

private:
    CheckBoxUIControl& box_;
    BitmapUIControl& picture_;
};
