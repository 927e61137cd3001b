#include "plugin_ui/Features/PageRangeUIFeature.h"

#include "jtcore/Capabilities/Capabilities.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "plugin_ui/Controls/NumberBoxUIControl.h"
#include "plugin_ui/Controls/RadioButtonUIControl.h"
#include "plugin_ui/Controls/StaticUIControl.h"
#include "plugin_ui/Features/listMember.h"
#include "resources/ids.h"

namespace {

std::int32_t valueOr(const NumberBoxUIControl& box, std::int32_t valueOfEmpty) {
    return box.isEmptyValue() ? valueOfEmpty : box.getValue();
}

} // namespace

PageRangeUIFeature::PageRangeUIFeature(UIContext& context)
    : UIFeature(context, noParentFeature),
      choice_(addObserved<RadioButtonUIControl>(IDC_PAGES_FRAME)),
      firstPage_(addObserved<NumberBoxUIControl>(IDC_PAGES_FIRST_LABEL, IDC_PAGES_FIRST_EDIT, 0, 0, true)),
      lastPage_(addObserved<NumberBoxUIControl>(IDC_PAGES_LAST_LABEL, IDC_PAGES_LAST_EDIT, 0, 0, true)),
      note_(addNew<StaticUIControl>(IDC_PAGES_NOTE)) {
    choice_.addButton(IDC_PAGES_ALL);
    choice_.addButton(IDC_PAGES_RANGE);
}

bool PageRangeUIFeature::isFeatureSupported() { return getCapabilities().isFeatureSupported(Feature::pageRanges); }

void PageRangeUIFeature::initializeFeature() {
    getCapabilities().getFeatureCapabilities(Feature::pageRanges, lowerPage_, upperPage_);
    for (NumberBoxUIControl* box : {&firstPage_, &lastPage_}) {
        box->setNumberType(NumberBoxType::signedInteger);
        box->setRange(lowerPage_, upperPage_);
        box->setMaxChars(NumberBoxUIControl::digitsNeeded(upperPage_));
    }
}

void PageRangeUIFeature::updateFeatureWithNewSettings() {
    std::int32_t first = lowerPage_;
    std::int32_t last = upperPage_;
    const bool isRange = getDialogSettings().getRange(FeatureId(Feature::pageRanges), first, last);
    choice_.setSelected(isRange ? IDC_PAGES_RANGE : IDC_PAGES_ALL);
    firstPage_.setValue(first);
    lastPage_.setValue(last);
    enableBoxes(isRange);
    showNote();
}

// An emptied box stands for the bound that the printer has there.
void PageRangeUIFeature::handleSubjectUpdate(std::uint16_t) {
    const FeatureId pageRanges(Feature::pageRanges);
    if (isRangeChosen())
        getDialogSettings().setRange(pageRanges, valueOr(firstPage_, lowerPage_), valueOr(lastPage_, upperPage_));
    else
        eraseAllMembers(getDialogSettings(), pageRanges);
    enableBoxes(isRangeChosen());
    markPageChanged();
    showNote();
}

bool PageRangeUIFeature::onUnlock(const UIMessage& message, LRESULT& result) {
    const bool handled = UIFeature::onUnlock(message, result);
    if (!isRangeChosen()) enableBoxes(false);
    return handled;
}

void PageRangeUIFeature::enableBoxes(bool enable) {
    for (NumberBoxUIControl* box : {&firstPage_, &lastPage_})
        if (enable)
            box->enableControl();
        else
            box->disableControl();
}

bool PageRangeUIFeature::isRangeChosen() const { return choice_.getSelected() == IDC_PAGES_RANGE; }

void PageRangeUIFeature::showNote() {
    const std::uint16_t note = findNote();
    note_.setText(note == 0 ? std::u16string() : ResourceLibrary().getString(note));
}

// What a user should know of a range and cannot see in the boxes; 0 for nothing.
std::uint16_t PageRangeUIFeature::findNote() {
    const FeatureId pageRanges(Feature::pageRanges);
    std::int32_t first = 0;
    std::int32_t last = 0;
    if (!getDialogSettings().getRange(pageRanges, first, last)) return 0;
    if (first > last) return IDS_PAGES_REVERSED;
    return getDialogSettings().getValueCount(pageRanges) > 1 ? IDS_PAGES_FURTHER : std::uint16_t{0};
}
