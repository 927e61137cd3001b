// The place between the sheet and the page that the plug-in adds. The plug-in tells the host of an apply before its
// page has answered whether it takes part; only the answer says what the apply was worth.
#pragma once

#include "platform/driver_host.h"

#include <functional>

class PlugInPage {
public:
    // Called when the page has answered an apply, with whether it has accepted it. False keeps the sheet open all the
    // same.
    std::function<bool(bool)> onAnswered;
    // No page is taken then.
    bool isRefused = false;

    PlugInPage() = default;
    ~PlugInPage();
    PlugInPage(const PlugInPage&) = delete;
    PlugInPage& operator=(const PlugInPage&) = delete;

    // What the plug-in's group adds from now on goes through here. One sheet at a time.
    void watch(PROPSHEETUI_INFO& group);
    // Whether the page is just being asked to apply.
    bool isApplying() const noexcept { return isApplying_; }

private:
    static LONG_PTR CALLBACK call(HANDLE group, UINT function, LPARAM first, LPARAM second);
    static INT_PTR CALLBACK procedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
    LONG_PTR add(HANDLE group, const PROPSHEETPAGEW& record);
    INT_PTR apply(HWND page, WPARAM wParam, LPARAM lParam);

    static PlugInPage* watching;

    PFNCOMPROPSHEET sheet_ = nullptr;
    DLGPROC procedure_ = nullptr; // the plug-in's
    bool isApplying_ = false;
};
