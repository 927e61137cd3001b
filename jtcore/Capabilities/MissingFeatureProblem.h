// A feature that a level of the settings needs and has not. The location is the collection that lacks it.
#pragma once

#include "jtcore/Capabilities/SettingsProblem.h"
#include "jtcore/FeatureSettings/FeatureId.h"

class MissingFeatureProblem final : public ClonedProblem<MissingFeatureProblem, SettingsProblem> {
public:
    MissingFeatureProblem(AttrLocation location, const FeatureId& feature)
        : ClonedProblem(std::move(location)), feature_(feature) {}

    // Adds the feature from the defaults. Where they lack it too, the optional element that needs it goes; at the top
    // of a job nothing happens.
    void fix(const AttrNodeList& defaults) override;
    Fix getFix(const AttrNodeList& defaults) const override;
    std::u16string getProblemAttrName() const override { return std::u16string(feature_.getUniqueId()); }

    const FeatureId& getFeature() const noexcept { return feature_; }
    bool hasEqualFields(const MissingFeatureProblem& other) const { return feature_ == other.feature_; }

protected:
    std::u16string_view getNameOperation() const override { return u"MissingFeatureProblem::getProblemFeatureName()"; }

private:
    FeatureId feature_;
};
