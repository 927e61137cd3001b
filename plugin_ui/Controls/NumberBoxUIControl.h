// A field for a number, which may also be empty, with or without a spin button. It takes no key that makes no number. A
// number out of range may be typed; a box that clamps brings it back when the field is left.
#pragma once

#include "plugin_ui/Controls/EntryUIControl.h"
#include "plugin_ui/Controls/NumberBoxType.h"
#include "plugin_ui/Controls/numberText.h"

class NumberBoxUIControl : public EntryUIControl {
public:
    // Every id but the field's may be 0.
    NumberBoxUIControl(std::uint16_t labelId, std::uint16_t editId, std::uint16_t spinId, std::uint16_t unitLabelId,
                       bool clampOnLeave);
    NumberBoxUIControl(std::uint16_t editId, std::uint16_t spinId, bool clampOnLeave);

    // Cut to an integer; 0 when the box is empty, as is the other.
    std::int32_t getValue() const noexcept { return toInteger(entry_.value); }
    double getFloatValue() const noexcept { return entry_.value; }
    bool isEmptyValue() const noexcept { return entry_.isEmpty; }

    // The number is stored rounded to the precision. Nothing is shown that is shown already.
    void setValue(std::int32_t value);
    void setFloatValue(double value);
    // The window is not touched: displayControl() shows it.
    void setEmptyValue() noexcept { entry_ = {0, true}; }

    // These two raise UnknownCaseException when the dialog has no such field.
    void setNumberType(NumberBoxType type);
    void setMaxChars(std::int32_t maxChars);
    // Both bounds are allowed. A box with a spin button needs the range of its type.
    void setRange(std::int32_t lower, std::int32_t upper) noexcept;
    void setFloatRange(double lower, double upper) noexcept;
    // Decimal places: 2 for anything above 1, else 1.
    void setPrecision(std::int32_t precision) noexcept { precision_ = precision > 1 ? 2 : 1; }
    // The characters that a box needs for the integer, the sign included.
    static std::int32_t digitsNeeded(std::int32_t value) noexcept { return countDigits(value); }

    // Raises UnknownCaseException for a type that is none.
    void displayControl() override;
    void initializeControl() override;
    bool handleControlMessage(const UIMessage& message, LRESULT& result) override;
    // Enter accepts a dialog with the focus still in the field, which counts as left then. Never invalid.
    bool onValidateEntry(const UIMessage& message, LRESULT& result) override;
    bool onValidateSave(const UIMessage& message, LRESULT& result) override;

private:
    static LRESULT CALLBACK NumberBoxWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    WNDPROC keyFilter() const noexcept override { return NumberBoxWindowProc; }
    std::int32_t entryType() const noexcept override { return static_cast<std::int32_t>(numberType_); }
    std::u16string admit(const FieldEdit& edit) const override;
    void handleEdit(const std::u16string& text) override;
    void renewCallBack();
    void showValue(double value);
    bool handleLeave();
    void leaveForValidation();
    bool isSpin(const UIMessage& message) const;
    void handleSpin(std::int32_t delta);

    std::uint16_t spinId_;
    NumberBoxType numberType_ = NumberBoxType::signedInteger;
    NumberEntry entry_;
    bool hasRange_ = false;
    std::int32_t lowerInt_ = 0;
    std::int32_t upperInt_ = 0;
    double lowerFloat_ = 0;
    double upperFloat_ = 0;
    bool displayed_ = false; // since the last initializeControl()
    std::int32_t precision_ = 1;
    bool clampOnLeave_;
};
