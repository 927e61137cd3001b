#include "plugin_ui/Features/KeyWordListUIFeature.h"

#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Services/OwnedCriticalResource.h"
#include "jtcore/Services/formatMessage.h"
#include "plugin_ui/Controls/BitmapUIControl.h"
#include "plugin_ui/Controls/ComboBoxUIControl.h"
#include "plugin_ui/Features/CustomStringUIDialog.h"
#include "plugin_ui/Features/settingValue.h"
#include "resources/ids.h"

#include <algorithm>

namespace {

constexpr ValueEnum noValue{};

OwnedCriticalResource customChoiceResource("KeywordListUIFeature");

// The row that stands for a value of the user's own; one for the process, made for the first feature that needs it.
ValueEnum customChoice = noValue;

std::uint32_t dataWord(ValueEnum value) { return static_cast<std::uint32_t>(value); }

// A row of the value table for a text of the user's; the one that is there, where a document has brought it along.
ValueEnum findOrMakeRow(const FeatureId& feature, std::u16string_view text, std::uint16_t labelId,
                        std::uint16_t bitmapId) {
    const Feature number = feature.getNumber();
    if (const FeatureValueInfo* row = FeatureValueDataBase::find(number, text)) return row->number;
    return FeatureValue::createNewValueEnum(number, text, feature.getUserDefinedSyntaxName(), AVTE{}, labelId,
                                            bitmapId);
}

ValueEnum getCustomChoice() {
    const OwnedCriticalResource::Guard guard(customChoiceResource);
    return customChoice;
}

ValueEnum makeCustomChoice(const FeatureId& feature, std::uint16_t bitmapId) {
    const OwnedCriticalResource::Guard guard(customChoiceResource);
    if (customChoice == noValue) customChoice = findOrMakeRow(feature, u"", IDS_CUSTOM_ENTRY, bitmapId);
    return customChoice;
}

} // namespace

KeyWordListUIFeature::KeyWordListUIFeature(UIContext& context, std::uint16_t labelId, std::uint16_t listId,
                                           const FeatureId& feature, Feature parentFeature)
    : UIFeature(context, parentFeature), feature_(feature), list_(addObserved<ComboBoxUIControl>(labelId, listId)) {}

KeyWordListUIFeature::KeyWordListUIFeature(UIContext& context, std::uint16_t labelId, std::uint16_t listId,
                                           const FeatureId& feature, Feature parentFeature, std::uint16_t pictureItemId,
                                           std::uint16_t defaultBitmapId, std::uint16_t customBitmapId)
    : KeyWordListUIFeature(context, labelId, listId, feature, parentFeature) {
    picture_ = &addObserved<BitmapUIControl>(pictureItemId, std::uint16_t{0});
    defaultBitmapId_ = defaultBitmapId;
    customBitmapId_ = customBitmapId;
}

FeatureValue KeyWordListUIFeature::getValue() { return getDialogSettings().getFeatureValue(feature_); }

void KeyWordListUIFeature::setValue(FeatureValue value) {
    getDialogSettings().setFeatureValue(feature_, value);
    updateFeatureWithNewSettings();
}

void KeyWordListUIFeature::removeValue(FeatureValue value) {
    const int index = list_.findData(dataWord(value.getNumber()));
    if (index >= 0) list_.deleteItem(index);
}

void KeyWordListUIFeature::reinitialize() {
    initializeFeature();
    updateFeatureWithNewSettings();
}

void KeyWordListUIFeature::enableList() { list_.enableControl(); }

void KeyWordListUIFeature::disableList() { list_.disableControl(); }

void KeyWordListUIFeature::setToDefault(FeatureSettings& settings) {
    settings.setFeatureValue(feature_, Value::notSet);
}

void KeyWordListUIFeature::setDefaultLabel(std::uint16_t stringId) {
    defaultLabelId_ = stringId;
    if (!initialized_ || !getWindow()) return;
    applyDefaultLabel();
    list_.displayControl();
}

bool KeyWordListUIFeature::isFeatureSupported() { return isSupportedFeature(feature_); }

void KeyWordListUIFeature::initializeFeature() {
    values_.clear();
    list_.clear();
    getCapabilities().getFeatureCapabilities(feature_, getParentFeature(), values_);
    for (const FeatureValue value : values_)
        list_.addItem(displayText(value), dataWord(value.getNumber()));
    if (defaultLabelId_ != 0) applyDefaultLabel();
    customAllowed_ = getCapabilities().isUserDefinedAllowed(feature_);
    if (customAllowed_) addCustomChoice();
    if (picture_) picture_->subclassItem(defaultBitmapId_);
    initialized_ = true;
}

void KeyWordListUIFeature::addCustomChoice() {
    const ValueEnum choice = makeCustomChoice(feature_, customBitmapId_);
    if (keepCustomChoice_)
        list_.addItem(displayText(choice), dataWord(choice));
    else
        setCustomEntry(choice);
}

void KeyWordListUIFeature::applyDefaultLabel() {
    const int index = list_.findData(dataWord(Value::notSet));
    if (index >= 0) list_.replaceItem(index, resources_.getString(defaultLabelId_), dataWord(Value::notSet));
}

void KeyWordListUIFeature::updateFeatureWithNewSettings() {
    const FeatureValue value = readSetting(getDialogSettings(), feature_);
    if (value.isSet() && value != unknownValue && customAllowed_ && !isOffered(value))
        setCustomEntry(value.getNumber());
    showValue(value);
}

void KeyWordListUIFeature::handleSubjectUpdate(std::uint16_t) {
    FeatureValue selected = static_cast<ValueEnum>(list_.getSelectedData());
    if (selected != unknownValue && selected.getNumber() == customTrigger()) {
        updateFeatureWithNewSettings(); // the list shows the setting until there is another one
        selected = askForValue();
        if (!selected.isSet()) return;
    }
    if (selected != unknownValue) getDialogSettings().setFeatureValue(feature_, selected);
    notifyObservers();
    if (isOnJob()) markPageChanged();
    updateFeatureWithNewSettings();
}

// What is left to the printer is named, never blank.
std::u16string KeyWordListUIFeature::displayText(FeatureValue value) const {
    if (value.getNumber() == getCustomChoice()) return resources_.getString(IDS_CUSTOM_ENTRY);
    std::u16string text = value.getDisplayString();
    return !value.isSet() && text.empty() ? resources_.getString(IDS_NOT_SPECIFIED) : text;
}

std::u16string KeyWordListUIFeature::customText(ValueEnum value) const {
    if (value == getCustomChoice() || !markCustomValue_) return displayText(value);
    return formatMessage(resources_.getString(IDS_CUSTOM_ENTRY_FORMAT), FeatureValue(value).getValueText());
}

void KeyWordListUIFeature::setCustomEntry(ValueEnum value) {
    const int index = customEntry_ == noValue ? -1 : list_.findData(dataWord(customEntry_));
    if (index < 0)
        list_.addItem(customText(value), dataWord(value));
    else
        list_.replaceItem(index, customText(value), dataWord(value));
    customEntry_ = value;
}

void KeyWordListUIFeature::showValue(FeatureValue value) {
    list_.setSelectedData(dataWord(value.getNumber()));
    // The entry that opens the dialog is never chosen for the user.
    const bool hasFirst = customTrigger() == noValue || list_.findData(dataWord(customTrigger())) != 0;
    if (firstEntryRule_ && hasFirst) list_.selectFirstIfNone();
    if (picture_) showPicture();
}

void KeyWordListUIFeature::showPicture() {
    const FeatureValue value = readSetting(getDialogSettings(), feature_);
    const std::uint16_t bitmapId = value == unknownValue ? std::uint16_t{0} : value.getBitmapId();
    picture_->setBitmap(bitmapId != 0 ? bitmapId : defaultBitmapId_);
}

bool KeyWordListUIFeature::isOffered(FeatureValue value) const {
    return std::find(values_.begin(), values_.end(), value) != values_.end();
}

ValueEnum KeyWordListUIFeature::customTrigger() const {
    if (!customAllowed_) return noValue;
    return keepCustomChoice_ ? getCustomChoice() : customEntry_;
}

FeatureValue KeyWordListUIFeature::askForValue() {
    std::u16string text;
    if (customEntry_ != noValue) text = FeatureValue(customEntry_).getValueText();
    FeatureSettings nothing;
    CustomStringUIDialog dialog(getContext(), feature_, text);
    if (!dialog.showModal(getWindow(), nothing) || text.empty()) return {};
    const FeatureValue value = findOrMakeRow(feature_, text, 0, customBitmapId_);
    if (!isOffered(value)) setCustomEntry(value.getNumber());
    showValue(value);
    return value;
}
