// A request that travels along the components, not by window messages: so it reaches dialogs that are not shown.
#pragma once

#include <cstdint>

class FeatureSettings;

enum class UINotificationKind : std::uint32_t {
    toDefault = 1,    // take the not-set state in `settings`
    defaultLabel = 2, // `stringId` is the text of the not-set choice
};

struct UINotification {
    UINotificationKind kind;
    std::uint16_t stringId = 0;
    FeatureSettings* settings = nullptr;
};
