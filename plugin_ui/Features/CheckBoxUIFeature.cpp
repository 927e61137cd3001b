#include "plugin_ui/Features/CheckBoxUIFeature.h"

#include "jtcore/Capabilities/Capabilities.h"
#include "plugin_ui/Controls/CheckBoxUIControl.h"
#include "plugin_ui/Features/settingValue.h"

CheckBoxUIFeature::CheckBoxUIFeature(UIContext& context, const FeatureId& feature, std::uint16_t mainId,
                                     std::uint16_t defaultId, FeatureValue onValue, FeatureValue offValue,
                                     Feature parentFeature)
    : UIFeature(context, parentFeature),
      feature_(feature),
      onValue_(onValue),
      offValue_(offValue),
      mainBox_(addObserved<CheckBoxUIControl>(mainId)) {
    if (getCapabilities().isUnspecifiedAllowed(feature, parentFeature))
        defaultBox_ = &addObserved<CheckBoxUIControl>(defaultId);
}

bool CheckBoxUIFeature::isOn() { return isOnIn(getDialogSettings()); }

bool CheckBoxUIFeature::isOnIn(const FeatureSettings& settings) const {
    return readSetting(settings, feature_) == onValue_;
}

bool CheckBoxUIFeature::isNotSet() { return defaultBox_ && !getDialogSettings().hasFeature(feature_); }

void CheckBoxUIFeature::disableMainIfDefault() {
    if (defaultBox_) mainBox_.disableControl();
}

void CheckBoxUIFeature::setToDefault(FeatureSettings& settings) { settings.setFeatureValue(feature_, Value::notSet); }

void CheckBoxUIFeature::setDefaultLabel(std::uint16_t stringId) {
    if (defaultBox_) defaultBox_->setLabelId(stringId);
}

bool CheckBoxUIFeature::isFeatureSupported() { return isSupportedFeature(feature_); }

void CheckBoxUIFeature::updateFeatureWithNewSettings() {
    if (isNotSet()) {
        defaultBox_->setChecked(true);
        mainBox_.disableControl();
        return;
    }
    if (defaultBox_ && defaultBox_->isChecked()) {
        defaultBox_->setChecked(false);
        mainBox_.enableControl(); // it was the default box that had disabled it
    }
    mainBox_.setChecked(isOn());
}

void CheckBoxUIFeature::handleSubjectUpdate(std::uint16_t subjectId) {
    if (defaultBox_ && subjectId == defaultBox_->getSubjectId()) handleDefaultBox();
    if (subjectId == mainBox_.getSubjectId()) writeMainValue();
    notifyObservers();
}

void CheckBoxUIFeature::handleDefaultBox() {
    if (defaultBox_->isChecked()) {
        mainBox_.disableControl();
        setToDefault(getDialogSettings());
    } else {
        mainBox_.enableControl();
        writeMainValue();
    }
}

void CheckBoxUIFeature::writeMainValue() {
    getDialogSettings().setFeatureValue(feature_, mainBox_.isChecked() ? onValue_ : offValue_);
}
