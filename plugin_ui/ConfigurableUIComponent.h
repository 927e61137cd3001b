// A component that is shaped by the printer: what the printer cannot do is taken out of the tree before there is a
// window.
#pragma once

#include "jtcore/FeatureSettings/FeatureId.h"
#include "plugin_ui/MessageProcessorWithChildren.h"
#include "plugin_ui/UIContext.h"

class ConfigurableUIComponent : public MessageProcessorWithChildren {
public:
    // Deletes the features among the children that say that they are not supported; controls stay and do not count.
    // True when a feature is left. Whoever keeps pointers to children asks hasChild() afterwards.
    virtual bool removeUnsupportedFeatures();
    // Of this component and of all features below it.
    virtual void setParentFeature(Feature feature);

    UIContext& getContext() const noexcept { return context_; }
    const Capabilities& getCapabilities() const noexcept { return *context_.capabilities; }
    UserPreferences& getPreferences() const noexcept { return context_.getPreferences(); }
    Feature getParentFeature() const noexcept { return parentFeature_; }
    // Whether it stands on the job itself rather than inside a feature such as a cover or a page exception.
    bool isOnJob() const noexcept { return parentFeature_ == noParentFeature || parentFeature_ == Feature::any; }
    // Whether the printer can do the feature where this component stands.
    bool isSupportedFeature(const FeatureId& feature) const;

protected:
    // The context is borrowed for the object's life.
    ConfigurableUIComponent(UIContext& context, Feature parentFeature);

private:
    UIContext& context_;
    Feature parentFeature_;
};
