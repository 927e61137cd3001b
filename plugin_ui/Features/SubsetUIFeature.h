// The pages of a subset, or no subsets.
#pragma once

#include "plugin_ui/UIFeature.h"

class NumberCheckBoxUIFeature;

class SubsetUIFeature : public UIFeature {
public:
    explicit SubsetUIFeature(UIContext& context);

    bool isSubsetSet() const;

    bool isFeatureSupported() override;
    void updateFeatureWithNewSettings() override {}
    void handleSubjectUpdate(std::uint16_t) override {}
    bool onUnlock(const UIMessage& message, LRESULT& result) override;

private:
    NumberCheckBoxUIFeature& pages_;
};
