// The root of everything in the user interface's tree: a node that knows other components without owning them and
// passes notifications on to them.
#pragma once

#include "plugin_ui/UINotification.h"

#include <cstdint>
#include <vector>

class UIComponent {
public:
    UIComponent(const UIComponent&) = delete;
    UIComponent& operator=(const UIComponent&) = delete;
    virtual ~UIComponent();

    // Tells each registered component in order until one returns true; returns what the last one told said.
    virtual bool notifyComponents(const UINotification& notification);
    // Not owned: whoever dies first of the two, the component is taken out before.
    virtual void addComponent(UIComponent& component);
    // Each acts on this component, then on those registered with it.
    virtual bool handleDefaultRequest(const UINotification& notification);
    virtual bool handleLabelRequest(const UINotification& notification);
    // Erases this component's attribute from the settings.
    virtual void setToDefault(FeatureSettings& settings);
    // Takes the text of the not-set choice.
    virtual void setDefaultLabel(std::uint16_t stringId);

    // An unknown kind changes nothing and gives false.
    bool handleNotification(const UINotification& notification);

    // Send the notification to the registered components, not to this one itself.
    bool requestDefault(FeatureSettings& settings);
    bool requestDefaultLabel(std::uint16_t stringId);

    void removeComponent(const UIComponent& component);

protected:
    UIComponent();

private:
    std::vector<UIComponent*> components_;
};
