// How features of different overlays find each other: one announces itself to the whole dialog, and whoever depends on
// it hears it in onIntroduce().
#pragma once

#include "platform/windows.h"
#include "plugin_ui/UIFeature.h"

enum class Introduction : std::uint32_t { plex = 1, stockSelection = 2, collation = 3 };

// REQUIRES: the feature has a window. The announcement's lParam is the address of the Announcer itself.
template <typename Announcer>
void introduce(Announcer& feature, Introduction tag) {
    SendMessageW(feature.getWindow(), UIM_INTRODUCE, static_cast<WPARAM>(tag), reinterpret_cast<LPARAM>(&feature));
}
