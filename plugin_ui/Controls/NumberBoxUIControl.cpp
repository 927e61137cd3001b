#include "plugin_ui/Controls/NumberBoxUIControl.h"

#include "plugin_ui/Controls/entryField.h"
#include "plugin_ui/Controls/spinArithmetic.h"

#include <algorithm>

namespace {

bool accepts(std::uint32_t type, char16_t key, const EntryState& field, std::int32_t maxChars) {
    return acceptsNumberKey(static_cast<NumberBoxType>(type), key, field, maxChars);
}

constexpr std::int32_t usualLength = 10;

} // namespace

NumberBoxUIControl::NumberBoxUIControl(std::uint16_t labelId, std::uint16_t editId, std::uint16_t spinId,
                                       std::uint16_t unitLabelId, bool clampOnLeave)
    : EntryUIControl(editId, usualLength), spinId_(spinId), clampOnLeave_(clampOnLeave) {
    addControlId(labelId);
    addControlId(editId);
    addControlId(spinId);
    addControlId(unitLabelId);
}

NumberBoxUIControl::NumberBoxUIControl(std::uint16_t editId, std::uint16_t spinId, bool clampOnLeave)
    : NumberBoxUIControl(0, editId, spinId, 0, clampOnLeave) {}

void NumberBoxUIControl::setValue(std::int32_t value) { showValue(value); }

void NumberBoxUIControl::setFloatValue(double value) { showValue(roundToPrecision(value, precision_)); }

void NumberBoxUIControl::showValue(double value) {
    const NumberEntry entry{value, false};
    if (entry == entry_ && displayed_) return;
    entry_ = entry;
    displayControl();
    displayed_ = true;
}

void NumberBoxUIControl::setNumberType(NumberBoxType type) {
    displayed_ = false;
    numberType_ = type;
    renewCallBack();
}

void NumberBoxUIControl::setMaxChars(std::int32_t maxChars) {
    setLimit(maxChars);
    renewCallBack();
}

void NumberBoxUIControl::setRange(std::int32_t lower, std::int32_t upper) noexcept {
    lowerInt_ = lower;
    upperInt_ = upper;
    hasRange_ = true;
}

void NumberBoxUIControl::setFloatRange(double lower, double upper) noexcept {
    lowerFloat_ = lower;
    upperFloat_ = upper;
    hasRange_ = true;
}

void NumberBoxUIControl::displayControl() {
    showText(entry_.isEmpty ? u"" : formatNumber(entry_.value, numberType_, precision_));
}

void NumberBoxUIControl::initializeControl() {
    displayed_ = false;
    renewCallBack();
}

bool NumberBoxUIControl::handleControlMessage(const UIMessage& message, LRESULT& result) {
    if (EntryUIControl::handleControlMessage(message, result)) return true;
    if (isCommand(message, getEditId(), EN_KILLFOCUS)) return handleLeave();
    if (!isSpin(message)) return false;
    handleSpin(reinterpret_cast<const NMUPDOWN*>(message.lParam)->iDelta);
    result = TRUE; // the button keeps its position: it would come to an end of its own range
    return true;
}

bool NumberBoxUIControl::onValidateEntry(const UIMessage& message, LRESULT& result) {
    leaveForValidation();
    return EntryUIControl::onValidateEntry(message, result);
}

bool NumberBoxUIControl::onValidateSave(const UIMessage& message, LRESULT& result) {
    leaveForValidation();
    return EntryUIControl::onValidateSave(message, result);
}

std::u16string NumberBoxUIControl::admit(const FieldEdit& edit) const {
    return admitNumber(numberType_, edit, getMaxChars());
}

void NumberBoxUIControl::handleEdit(const std::u16string& text) {
    const NumberEntry entry = readNumberEntry(text, numberType_);
    if (entry == entry_) return;
    entry_ = entry;
    notifyObservers();
}

bool NumberBoxUIControl::handleLeave() {
    if (!hasRange_ || numberType_ != NumberBoxType::signedInteger || entry_.isEmpty) return false;
    const double typed = readNumberEntry(readWindowText(getEditWindow()), numberType_).value;
    const std::int32_t allowed = std::max(lowerInt_, std::min(toInteger(typed), upperInt_));
    if (!clampOnLeave_ || typed == allowed) return true;
    setValue(allowed);
    notifyObservers();
    return true;
}

void NumberBoxUIControl::leaveForValidation() {
    if (getEditWindow() && GetFocus() == getEditWindow()) handleLeave();
}

bool NumberBoxUIControl::isSpin(const UIMessage& message) const {
    if (spinId_ == 0 || message.id != WM_NOTIFY) return false;
    const auto& header = *reinterpret_cast<const NMHDR*>(message.lParam);
    return header.idFrom == spinId_ && header.code == UDN_DELTAPOS;
}

// Observers hear of a press twice: as of a change of the text, and as of the press.
void NumberBoxUIControl::handleSpin(std::int32_t delta) {
    const double old = parseDecimal(readWindowText(getEditWindow()));
    const double value = numberType_ == NumberBoxType::decimal
                             ? spinDecimal(old, delta, precision_, lowerFloat_, upperFloat_)
                             : spinInteger(old, delta, lowerInt_, upperInt_);
    const std::u16string text = formatNumber(value, numberType_, precision_);
    showText(text);
    handleEdit(text);
    if (value != old) notifyObservers();
}

void NumberBoxUIControl::renewCallBack() {
    if (getWindow()) setControlCallBack(u"NumberBoxUIControl");
}

LRESULT CALLBACK NumberBoxUIControl::NumberBoxWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return filterKeys(window, message, wParam, lParam, u"NumberBoxUIControl::NumberBoxWindowProc()", accepts);
}
