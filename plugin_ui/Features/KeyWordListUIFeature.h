// The standard way to show a feature whose value comes from a list: a combo box of what the printer allows and, where
// the feature has one, a picture of the value.
//
// Where the user may give a value of his own, one entry of the list opens a small dialog for it, and that value gets an
// entry of its own in its place; there is never more than one such entry.
#pragma once

#include "jtcore/FeatureSettings/FeatureValue.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "plugin_ui/UIFeature.h"

#include <string>
#include <vector>

class BitmapUIControl;
class ComboBoxUIControl;

class KeyWordListUIFeature : public UIFeature {
public:
    KeyWordListUIFeature(UIContext& context, std::uint16_t labelId, std::uint16_t listId, const FeatureId& feature,
                         Feature parentFeature);
    // With a picture: defaultBitmapId for a value that has none of its own, customBitmapId (0 for none) for values of
    // the user's.
    KeyWordListUIFeature(UIContext& context, std::uint16_t labelId, std::uint16_t listId, const FeatureId& feature,
                         Feature parentFeature, std::uint16_t pictureItemId, std::uint16_t defaultBitmapId,
                         std::uint16_t customBitmapId);

    // The setting.
    FeatureValue getValue();
    void setValue(FeatureValue value);
    // A setting that the list does not have: choose the first entry in its place, write it and notify.
    void setFirstEntryRule(bool on) noexcept { firstEntryRule_ = on; }
    // The entry that opens the dialog stays, and the user's value stands beside it.
    void setKeepCustomChoice(bool on) noexcept { keepCustomChoice_ = on; }
    // The user's value is listed with a word that says whose it is; on to begin with.
    void setMarkCustomValue(bool on) noexcept { markCustomValue_ = on; }
    // Takes the value's entry out of the list.
    void removeValue(FeatureValue value);
    // Asks the capabilities anew.
    void reinitialize();
    void enableList();
    void disableList();

    void setToDefault(FeatureSettings& settings) override;
    void setDefaultLabel(std::uint16_t stringId) override;
    bool isFeatureSupported() override;
    void updateFeatureWithNewSettings() override;
    void initializeFeature() override;
    void handleSubjectUpdate(std::uint16_t subjectId) override;

private:
    void addCustomChoice();
    void applyDefaultLabel();
    std::u16string displayText(FeatureValue value) const;
    std::u16string customText(ValueEnum value) const;
    void setCustomEntry(ValueEnum value);
    void showValue(FeatureValue value);
    void showPicture();
    bool isOffered(FeatureValue value) const;
    // The entry that opens the dialog.
    ValueEnum customTrigger() const;
    // Lets the user type a value; not set when he did not.
    FeatureValue askForValue();

    ResourceLibrary resources_;
    FeatureId feature_;
    std::vector<FeatureValue> values_; // offered at the last initialization
    ComboBoxUIControl& list_;
    BitmapUIControl* picture_ = nullptr;
    std::uint16_t defaultBitmapId_ = 0;
    std::uint16_t customBitmapId_ = 0;
    bool firstEntryRule_ = false;
    bool keepCustomChoice_ = false;
    bool markCustomValue_ = true;
    bool customAllowed_ = false;
    ValueEnum customEntry_{}; // the data word of the entry for the user's value; 0 for none
    std::uint16_t defaultLabelId_ = 0;
    bool initialized_ = false;
};
