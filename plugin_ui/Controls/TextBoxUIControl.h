// A field for a line of text, which takes no key that may not be typed.
#pragma once

#include "plugin_ui/Controls/EntryUIControl.h"
#include "plugin_ui/Controls/OwnedGdi.h"
#include "plugin_ui/Controls/TextBoxType.h"

class TextBoxUIControl : public EntryUIControl {
public:
    // The label and the extra item may be 0. whiteBackground: the field is read-only and yet painted white.
    TextBoxUIControl(std::uint16_t labelId, std::uint16_t editId, std::uint16_t extraId, std::int32_t maxChars,
                     bool whiteBackground = false);

    const std::u16string& getText() const noexcept { return text_; }
    void setText(const std::u16string& text);
    // In characters. These two raise UnknownCaseException when the dialog has no such field.
    void setMaxChars(std::int32_t maxChars);
    void setTextType(TextBoxType type);
    // The weight is 400 for a normal font, 700 for a bold one.
    void setFont(std::int32_t pointSize, std::int32_t weight, const std::u16string& faceName);

    void displayControl() override;
    void initializeControl() override;
    bool handleControlMessage(const UIMessage& message, LRESULT& result) override;

private:
    static LRESULT CALLBACK TextBoxWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    WNDPROC keyFilter() const noexcept override { return TextBoxWindowProc; }
    std::int32_t entryType() const noexcept override { return static_cast<std::int32_t>(textType_); }
    std::u16string admit(const FieldEdit& edit) const override;
    void handleEdit(const std::u16string& text) override;
    void renewCallBack();

    std::u16string text_;
    bool whiteBackground_;
    TextBoxType textType_ = TextBoxType::any;
    OwnedGdi<HFONT> font_; // the field borrows it
};
