// The bridge from a window to the tree: the root of the tree of one page or dialog, and the dialog procedure of all.
//
// The features of a dialog edit its working settings, a deep copy of the target; the target is written at the commit
// and at no other time. Nothing thrown below leaves the dialog procedure: it is shown to the user, and the message
// counts as not handled. A handler has one window at a time and may get another when that is gone.
#pragma once

#include "jtcore/FeatureSettings/FeatureSettings.h"
#include "plugin_ui/ConfigurableUIComponent.h"

class DialogHandler : public ConfigurableUIComponent {
public:
    // A window that outlives the handler finds none from then on.
    ~DialogHandler() override;

    // With WM_INITDIALOG the lParam points to a PROPSHEETPAGEW whose own lParam is the DialogHandler.
    static INT_PTR CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    // Their address stays the same for the handler's life.
    FeatureSettings& getWorkingSettings() noexcept { return workingSettings_; }
    // Borrowed until the commit. The working settings become a copy of them.
    void setTargetSettings(FeatureSettings& settings);

protected:
    // bindsStocks: at WM_INITDIALOG the session's stocks follow the working settings. titleId: the caption under which
    // a failure is shown; 0 for the window's own text.
    DialogHandler(UIContext& context, Feature parentFeature, bool bindsStocks, std::uint16_t titleId);

    // Before and after the tree is told WM_INITDIALOG.
    virtual void beforeInitDialog(HWND window);
    virtual void afterInitDialog(HWND window);
    // Copies the working settings to the target.
    virtual void commitSettings(HWND window);

    FeatureSettings& getTargetSettings() const;

private:
    void attach(HWND window);
    // What the dialog procedure returns.
    INT_PTR handle(const UIMessage& message);
    void initDialog(UIMessage message, LRESULT& result, bool& isHandled);
    void lockIfReadOnly(HWND window);
    // False after a failure, of which the user was told. Nothing leaves, whatever the user chose at its box.
    template <typename Body>
    bool runGuarded(HWND window, Body&& body);

    FeatureSettings* targetSettings_ = nullptr;
    FeatureSettings workingSettings_;
    HWND openWindow_ = nullptr;
    bool wasLocked_ = false; // at the latest showing; the controls remember it
    bool bindsStocks_;
    std::uint16_t titleId_;
};
