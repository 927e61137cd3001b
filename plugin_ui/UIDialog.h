// A modal (or modeless) dialog whose content is a tree of features of its own. It edits a deep copy of the settings it
// is shown for: OK commits the copy, Cancel drops it. It can be shown any number of times, once at a time.
#pragma once

#include "jtcore/Services/DialogResource.h"
#include "plugin_ui/DialogHandler.h"
#include "plugin_ui/ObserverSubject.h"

#include <string>
#include <utility>

class UIDialog : public DialogHandler, public ObserverSubject {
public:
    // A window that is open without being modal goes too.
    ~UIDialog() override;

    // Runs the dialog. True when the user accepted, and then the settings hold what was entered; otherwise they are
    // untouched. False at once while the dialog is up already. Raises ResourceAcquisitionException when there can be no
    // window.
    bool showModal(HWND parent, FeatureSettings& settings);
    // Opens the dialog and returns. The settings must live until it is closed; observers hear of the commit.
    void showModeless(HWND parent, FeatureSettings& settings);

    void setButtonIds(std::uint16_t ok, std::uint16_t cancel) noexcept;
    // The next showing uses this template. Raises what the resource module raises.
    void setDialogId(std::uint16_t dialogId);
    // An empty one leaves the template's.
    void setTitle(std::u16string title) noexcept { title_ = std::move(title); }
    // Where the dialog's top right corner is to be, in screen pixels; 0, 0 leaves it to the system.
    void setAnchor(int x, int y) noexcept;
    // Of the current showing, or the one before; null before the first.
    HWND getDialogWindow() const noexcept { return dialogWindow_; }

    // Escape and the window's own close button say IDCANCEL: it cancels, whatever the cancelling button is.
    bool onCommand(const UIMessage& message, LRESULT& result) override;
    bool onDestroy(const UIMessage& message, LRESULT& result) override;

protected:
    // Loads the template, all of whose items are hidden until a control shows them. autoSize: the window is fitted
    // round its controls. Raises what the resource module raises.
    UIDialog(UIContext& context, std::uint16_t dialogId, Feature parentFeature, bool bindsStocks, bool autoSize);

    void beforeInitDialog(HWND window) override;
    void afterInitDialog(HWND window) override;

    // The window given to showModal() or showModeless().
    HWND getParentWindow() const noexcept { return parentWindow_; }

private:
    bool runModal(HWND parent, FeatureSettings& settings);
    bool accept(HWND window);
    bool cancel(HWND window);
    void closeModeless();

    DialogResource dialogResource_;
    std::u16string title_;
    HWND parentWindow_ = nullptr;
    std::uint16_t okId_;
    std::uint16_t cancelId_;
    bool autoSize_;
    bool isModal_ = false;
    int anchorX_ = 0;
    int anchorY_ = 0;
    HWND dialogWindow_ = nullptr;
    HWND modelessWindow_ = nullptr;
};
