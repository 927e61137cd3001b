// One logical control: a leaf of the tree that stands for one or several items of a dialog (a label, a field, a spin
// button) and owns their value.
//
// It shows and hides, enables and disables its items together; it turns window messages into a stored value and tells
// its observers when that value has really changed; and it pushes a stored value into the window. A value that is set
// by the program notifies nobody.
//
// A control outlives its window: it gets WM_INITDIALOG again at each showing of its dialog. The value stays, what lives
// in the window is rebuilt.
#pragma once

#include "platform/controls.h"
#include "plugin_ui/MessageProcessorWithChildren.h"
#include "plugin_ui/ObserverSubject.h"
#include "plugin_ui/ToolTip.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class UIControl : public MessageProcessorWithChildren, public ObserverSubject {
public:
    ~UIControl() override;

    // The text of the control, where it has one of its own.
    virtual void setLabelId(std::uint16_t stringId);
    // Pushes the stored value into the window.
    virtual void displayControl();
    // True when the message was for this control.
    virtual bool handleControlMessage(const UIMessage& message, LRESULT& result);
    // Rebuilds what lives in the window, which getWindow() gives.
    virtual void initializeControl();

    bool onInitDialog(const UIMessage& message, LRESULT& result) override;
    bool onCommand(const UIMessage& message, LRESULT& result) override;
    bool onNotify(const UIMessage& message, LRESULT& result) override;
    bool onShow(const UIMessage& message, LRESULT& result) override;
    bool onHide(const UIMessage& message, LRESULT& result) override;
    bool onEnable(const UIMessage& message, LRESULT& result) override;
    bool onDisable(const UIMessage& message, LRESULT& result) override;
    bool onOtherMessage(const UIMessage& message, LRESULT& result) override;
    bool onDestroy(const UIMessage& message, LRESULT& result) override;
    // A locked control stays disabled until it is unlocked, and is enabled then: whoever wants it disabled for another
    // reason says so again.
    bool onLock(const UIMessage& message, LRESULT& result) override;
    bool onUnlock(const UIMessage& message, LRESULT& result) override;

    // An item that is shown, hidden, enabled and disabled with this control; 0 for none.
    void addControlId(std::uint16_t id);
    // The dialog; null while there is none.
    HWND getWindow() const noexcept { return window_; }
    void enableControl();
    void disableControl();
    // The other children see a WM_COMMAND too that this control has handled: for an item that several controls share.
    void setPassCommands() noexcept { passCommands_ = true; }

    // An empty text takes the tool tip away.
    void setToolTip(std::u16string text);
    // Raises what the resource module raises.
    void setToolTipId(std::uint16_t stringId);
    // The same tip with another text.
    void changeToolTip(std::u16string text);

protected:
    explicit UIControl(std::uint16_t tipControlId);

    bool isEnabled() const noexcept { return enabled_; }
    // Null when there is no window, or the template has no such item.
    HWND getItem(std::uint16_t id) const;
    LRESULT sendToItem(std::uint16_t id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    static bool isCommand(const UIMessage& message, std::uint16_t id, WORD code) noexcept;

private:
    void showItems(int how) const;
    void enableItems(bool enable);
    void makeToolTip();

    HWND window_ = nullptr;
    bool enabled_ = true;
    bool locked_ = false;
    bool passCommands_ = false;
    std::vector<std::uint16_t> itemIds_;
    std::uint16_t tipControlId_;
    std::u16string tipText_;
    std::unique_ptr<ToolTip> toolTip_;
};
