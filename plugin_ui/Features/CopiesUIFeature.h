// The number of copies. An empty field leaves it to the printer.
#pragma once

#include "plugin_ui/UIFeature.h"

class NumberBoxUIControl;

class CopiesUIFeature : public UIFeature {
public:
    explicit CopiesUIFeature(UIContext& context);

    bool isFeatureSupported() override;
    void initializeFeature() override;
    void updateFeatureWithNewSettings() override;
    void handleSubjectUpdate(std::uint16_t subjectId) override;

private:
    NumberBoxUIControl& copies_;
};
