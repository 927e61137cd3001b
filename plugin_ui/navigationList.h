// The list control of the navigation bar, one entry an overlay.
#pragma once

#include "platform/types.h"

#include <cstdint>

class NavigationList {
public:
    explicit NavigationList(HWND window) noexcept : window_(window) {}

    // Icons with their labels below, or a list of small icons.
    void setIconView(bool icons);
    // The lists of icons belong to the control from then on.
    void makeImageLists();
    // Raises what the resource module raises. REQUIRES: makeImageLists().
    void append(std::uint16_t iconId, std::uint16_t labelId);
    void setSpacing();
    void chooseFirst();

private:
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void addIcon(WPARAM imageList, HICON icon) const;

    HWND window_;
};

// Pixels from one icon to the next below it, on a screen of that many pixels an inch.
constexpr int getIconSpacing(int pixelsPerInch) noexcept { return pixelsPerInch >= 97 ? 80 : 70; }
