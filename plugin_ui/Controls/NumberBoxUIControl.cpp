#include "plugin_ui/Controls/NumberBoxUIControl.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/quietly.h"
#include "plugin_ui/Controls/entryField.h"
#include "plugin_ui/Controls/spinArithmetic.h"
#include "plugin_ui/Controls/subclassing.h"
#include "plugin_ui/Controls/windowProperties.h"

#include <algorithm>

namespace {

bool accepts(HWND window, char16_t key) {
    const auto type = static_cast<NumberBoxType>(getProperty(window, property::entryType));
    const auto maxChars = static_cast<std::int32_t>(getProperty(window, property::maximumLength));
    return acceptsNumberKey(type, key, readEntryState(window), maxChars);
}

} // namespace

NumberBoxUIControl::NumberBoxUIControl(std::uint16_t labelId, std::uint16_t editId, std::uint16_t spinId,
                                       std::uint16_t unitLabelId, bool clampOnLeave)
    : UIControl(editId), editId_(editId), spinId_(spinId), clampOnLeave_(clampOnLeave) {
    addControlId(labelId);
    addControlId(editId);
    addControlId(spinId);
    addControlId(unitLabelId);
}

NumberBoxUIControl::NumberBoxUIControl(std::uint16_t editId, std::uint16_t spinId, bool clampOnLeave)
    : NumberBoxUIControl(0, editId, spinId, 0, clampOnLeave) {}

NumberBoxUIControl::~NumberBoxUIControl() {
    quietly([this] { unsubclassEntryField(editWindow_); });
}

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
    if (getWindow()) setControlCallBack();
}

void NumberBoxUIControl::setMaxChars(std::int32_t maxChars) {
    maxChars_ = maxChars;
    if (getWindow()) setControlCallBack();
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
    const std::u16string text = entry_.isEmpty ? u"" : formatNumber(entry_.value, numberType_, precision_);
    SetDlgItemTextW(getWindow(), editId_, toWide(text));
}

void NumberBoxUIControl::initializeControl() {
    displayed_ = false;
    setControlCallBack();
}

bool NumberBoxUIControl::handleControlMessage(const UIMessage& message, LRESULT& result) {
    if (isCommand(message, editId_, EN_CHANGE)) {
        handleChange();
        return true;
    }
    if (isCommand(message, editId_, EN_KILLFOCUS)) return handleLeave();
    if (!isSpin(message)) return false;
    handleSpin(reinterpret_cast<const NMUPDOWN*>(message.lParam)->iDelta);
    result = TRUE; // the button keeps its position: it would come to an end of its own range
    return true;
}

bool NumberBoxUIControl::onDestroy(const UIMessage& message, LRESULT& result) {
    unsubclassEntryField(editWindow_);
    editWindow_ = nullptr;
    return UIControl::onDestroy(message, result);
}

void NumberBoxUIControl::handleChange() {
    const NumberEntry entry = readNumberEntry(readWindowText(editWindow_), numberType_);
    if (entry == entry_) return;
    entry_ = entry;
    notifyObservers();
}

bool NumberBoxUIControl::handleLeave() {
    if (!hasRange_ || numberType_ != NumberBoxType::signedInteger || entry_.isEmpty) return false;
    const double typed = readNumberEntry(readWindowText(editWindow_), numberType_).value;
    const std::int32_t allowed = std::max(lowerInt_, std::min(toInteger(typed), upperInt_));
    if (!clampOnLeave_ || typed == allowed) return true;
    setValue(allowed);
    notifyObservers();
    return true;
}

bool NumberBoxUIControl::isSpin(const UIMessage& message) const {
    if (spinId_ == 0 || message.id != WM_NOTIFY) return false;
    const auto& header = *reinterpret_cast<const NMHDR*>(message.lParam);
    return header.idFrom == spinId_ && header.code == UDN_DELTAPOS;
}

// Setting the text makes the field tell of the change at once; observers hear of a press twice.
void NumberBoxUIControl::handleSpin(std::int32_t delta) {
    const double old = parseDecimal(readWindowText(editWindow_));
    const double value = numberType_ == NumberBoxType::decimal
                             ? spinDecimal(old, delta, precision_, lowerFloat_, upperFloat_)
                             : spinInteger(old, delta, lowerInt_, upperInt_);
    SetDlgItemTextW(getWindow(), editId_, toWide(formatNumber(value, numberType_, precision_)));
    if (value != old) notifyObservers();
}

void NumberBoxUIControl::setControlCallBack() {
    editWindow_ = getItem(editId_);
    if (!editWindow_) raise<UnknownCaseException>(u"NumberBoxUIControl::setControlCallBack() Unknown Resource ID.\r\n");
    if (!subclassEntryField(editWindow_, NumberBoxWindowProc, static_cast<std::int32_t>(numberType_), maxChars_))
        raise<UnknownCaseException>(u"NumberBoxUIControl::setControlCallBack() Unknown ANL value for disposition.\r\n");
}

LRESULT CALLBACK NumberBoxUIControl::NumberBoxWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return runInWindowProcedure(window, u"NumberBoxUIControl::NumberBoxWindowProc()", [&]() -> LRESULT {
        if (message == WM_CHAR && !accepts(window, static_cast<char16_t>(wParam))) return 0;
        return callReplacedProcedure(window, message, wParam, lParam);
    });
}
