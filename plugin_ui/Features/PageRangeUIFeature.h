// All pages or a range of them. The range is the first one of the job; no attribute means all pages.
#pragma once

#include "plugin_ui/UIFeature.h"

class NumberBoxUIControl;
class RadioButtonUIControl;

class PageRangeUIFeature : public UIFeature {
public:
    explicit PageRangeUIFeature(UIContext& context);

    bool isFeatureSupported() override;
    void initializeFeature() override;
    void updateFeatureWithNewSettings() override;
    void handleSubjectUpdate(std::uint16_t subjectId) override;
    bool onUnlock(const UIMessage& message, LRESULT& result) override;

private:
    void enableBoxes(bool enable);
    bool isRangeChosen() const;

    RadioButtonUIControl& choice_;
    NumberBoxUIControl& firstPage_;
    NumberBoxUIControl& lastPage_;
    std::int32_t lowerPage_ = 0;
    std::int32_t upperPage_ = 0;
};
