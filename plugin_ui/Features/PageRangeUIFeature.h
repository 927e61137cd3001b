// All pages or a range of them. The range is the first one of the job; no attribute means all pages. A range that ends
// before it begins is kept as it is typed, and a note beside it says so.
#pragma once

#include "plugin_ui/UIFeature.h"

class NumberBoxUIControl;
class RadioButtonUIControl;
class StaticUIControl;

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
    void showNote();
    std::uint16_t findNote();

    RadioButtonUIControl& choice_;
    NumberBoxUIControl& firstPage_;
    NumberBoxUIControl& lastPage_;
    StaticUIControl& note_;
    std::int32_t lowerPage_ = 0;
    std::int32_t upperPage_ = 0;
};
