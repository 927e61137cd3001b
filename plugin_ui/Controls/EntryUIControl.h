// What the fields to type into share: an edit item that takes no key which may not be typed. Text that comes in by
// another way than by keys is held to the same: what could not have been typed is taken out again.
#pragma once

#include "plugin_ui/Controls/UIControl.h"
#include "plugin_ui/Controls/pastedText.h"

#include <string>

class EntryUIControl : public UIControl {
public:
    ~EntryUIControl() override;

    bool handleControlMessage(const UIMessage& message, LRESULT& result) override;
    bool onDestroy(const UIMessage& message, LRESULT& result) override;

protected:
    EntryUIControl(std::uint16_t editId, std::int32_t maxChars);

    std::uint16_t getEditId() const noexcept { return editId_; }
    // Null while there is no dialog.
    HWND getEditWindow() const noexcept { return editWindow_; }
    std::int32_t getMaxChars() const noexcept { return maxChars_; }
    // From the next setControlCallBack() on.
    void setLimit(std::int32_t maxChars) noexcept { maxChars_ = maxChars; }

    // The text is the program's: what the field tells of it is no edit.
    void showText(const std::u16string& text);
    // Puts the key filter before the field, with the type and the limit as they are now. Raises UnknownCaseException,
    // in the name of the class, when the dialog has no such field.
    void setControlCallBack(const char16_t* className);

private:
    virtual WNDPROC keyFilter() const noexcept = 0;
    virtual std::int32_t entryType() const noexcept = 0;
    // The part of an edit that the field takes.
    virtual std::u16string admit(const FieldEdit& edit) const = 0;
    // The user has changed the text.
    virtual void handleEdit(const std::u16string& text) = 0;

    void takeEdit();
    std::u16string correct(const FieldEdit& edit, const std::u16string& admitted);

    std::uint16_t editId_;
    std::int32_t maxChars_;
    HWND editWindow_ = nullptr;
    std::u16string shown_; // what the field held last
    bool isShowing_ = false;
};
