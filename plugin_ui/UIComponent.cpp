#include "plugin_ui/UIComponent.h"

#include <algorithm>

namespace {

constexpr std::size_t usualComponents = 10;

} // namespace

UIComponent::UIComponent() { components_.reserve(usualComponents); }

UIComponent::~UIComponent() = default;

bool UIComponent::notifyComponents(const UINotification& notification) {
    return std::any_of(components_.begin(), components_.end(),
                       [&](UIComponent* component) { return component->handleNotification(notification); });
}

void UIComponent::addComponent(UIComponent& component) { components_.push_back(&component); }

bool UIComponent::handleDefaultRequest(const UINotification& notification) {
    setToDefault(*notification.settings);
    return notifyComponents(notification);
}

bool UIComponent::handleLabelRequest(const UINotification& notification) {
    setDefaultLabel(notification.stringId);
    return notifyComponents(notification);
}

void UIComponent::setToDefault(FeatureSettings&) {}

void UIComponent::setDefaultLabel(std::uint16_t) {}

bool UIComponent::handleNotification(const UINotification& notification) {
    switch (notification.kind) {
    case UINotificationKind::toDefault:
        return handleDefaultRequest(notification);
    case UINotificationKind::defaultLabel:
        return handleLabelRequest(notification);
    }
    return false;
}

bool UIComponent::requestDefault(FeatureSettings& settings) {
    return notifyComponents({UINotificationKind::toDefault, 0, &settings});
}

bool UIComponent::requestDefaultLabel(std::uint16_t stringId) {
    return notifyComponents({UINotificationKind::defaultLabel, stringId, nullptr});
}

void UIComponent::removeComponent(const UIComponent& component) {
    const auto found = std::find(components_.begin(), components_.end(), &component);
    if (found != components_.end()) components_.erase(found);
}
