#include "plugin_ui/Features/NumberCheckBoxUIFeature.h"

#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Services/formatMessage.h"
#include "plugin_ui/Controls/CheckBoxUIControl.h"
#include "plugin_ui/Controls/NumberBoxUIControl.h"
#include "plugin_ui/Controls/TextBoxUIControl.h"

namespace {

constexpr std::int32_t hintLength = 30;

} // namespace

NumberCheckBoxUIFeature::NumberCheckBoxUIFeature(UIContext& context, const FeatureId& feature, std::uint16_t labelId,
                                                 std::uint16_t hintId, std::uint16_t editId, std::uint16_t spinId,
                                                 std::uint16_t checkId, std::int32_t initialValue, bool inverted,
                                                 bool clampOnLeave, Feature parentFeature)
    : UIFeature(context, parentFeature),
      feature_(feature),
      initialValue_(initialValue),
      inverted_(inverted),
      lastValue_(initialValue) {
    if (hintId != 0) hint_ = &addObserved<TextBoxUIControl>(0, hintId, 0, hintLength, false);
    if (editId != 0) number_ = &addObserved<NumberBoxUIControl>(labelId, editId, spinId, 0, clampOnLeave);
    if (checkId != 0 && getCapabilities().isUnspecifiedAllowed(feature, parentFeature))
        checkBox_ = &addObserved<CheckBoxUIControl>(checkId);
}

bool NumberCheckBoxUIFeature::isChecked() const { return checkBox_ && checkBox_->isChecked(); }

void NumberCheckBoxUIFeature::enableAll() {
    if (checkBox_) checkBox_->enableControl();
    if (isChecked()) return;
    if (number_) number_->enableControl();
    if (hint_) hint_->enableControl();
}

void NumberCheckBoxUIFeature::disableAll() {
    if (checkBox_) checkBox_->disableControl();
    disableEntry();
}

void NumberCheckBoxUIFeature::disableEntry() {
    if (number_) number_->disableControl();
    if (hint_) hint_->disableControl();
}

void NumberCheckBoxUIFeature::setToDefault(FeatureSettings& settings) {
    settings.setFeatureValue(feature_, Value::notSet);
}

void NumberCheckBoxUIFeature::setDefaultLabel(std::uint16_t stringId) {
    if (checkBox_) checkBox_->setLabelId(stringId);
}

bool NumberCheckBoxUIFeature::isFeatureSupported() { return isSupportedFeature(feature_); }

void NumberCheckBoxUIFeature::initializeFeature() {
    if (!number_) return;
    getCapabilities().getFeatureCapabilities(feature_, lower_, upper_);
    if (hint_) hint_->setText(formatMessage(u"(%d - %d)", lower_, upper_));
    number_->setNumberType(NumberBoxType::signedInteger);
    number_->setRange(lower_, upper_);
    number_->setMaxChars(NumberBoxUIControl::digitsNeeded(upper_));
    number_->setValue(initialValue_);
}

void NumberCheckBoxUIFeature::updateFeatureWithNewSettings() {
    std::int32_t value = 0;
    if (getDialogSettings().getLong(feature_, value))
        showNumber(value);
    else
        showUnset();
}

void NumberCheckBoxUIFeature::showNumber(std::int32_t value) {
    if (checkBox_) checkBox_->setChecked(!inverted_);
    if (!number_) return;
    number_->setValue(value);
    number_->enableControl();
}

void NumberCheckBoxUIFeature::showUnset() {
    if (checkBox_) checkBox_->setChecked(inverted_);
    if (!number_) return;
    if (checkBox_)
        number_->disableControl();
    else
        number_->setValue(initialValue_);
}

void NumberCheckBoxUIFeature::handleSubjectUpdate(std::uint16_t subjectId) {
    lastValue_ = initialValue_;
    if (checkBox_ && subjectId == checkBox_->getSubjectId())
        handleCheckBox();
    else if (number_ && subjectId == number_->getSubjectId())
        writeNumber();
    notifyObservers();
    markPageChanged();
}

void NumberCheckBoxUIFeature::handleCheckBox() {
    if (checkBox_->isChecked() == inverted_) {
        if (number_) number_->disableControl();
        setToDefault(getDialogSettings());
    } else {
        if (number_) number_->enableControl();
        writeNumber();
    }
}

// An emptied box stands for the least that the printer allows.
void NumberCheckBoxUIFeature::writeNumber() {
    if (number_) lastValue_ = number_->isEmptyValue() ? lower_ : number_->getValue();
    getDialogSettings().setLong(feature_, lastValue_);
}
