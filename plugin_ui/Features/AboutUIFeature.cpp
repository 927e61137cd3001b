#include "plugin_ui/Features/AboutUIFeature.h"

#include "jtcore/Services/ResourceLibrary.h"
#include "plugin_ui/Controls/BitmapUIControl.h"
#include "plugin_ui/Controls/TextBoxUIControl.h"
#include "resources/ids.h"

namespace {

constexpr std::int32_t maximumText = 255;
constexpr std::int32_t headingSize = 10; // points
constexpr std::int32_t bold = 700;
constexpr char16_t headingFace[] = u"Arial";
constexpr char16_t driverTitle[] = u"Windows 2000/XP Production Printer Driver";
constexpr char16_t productName[] = u"Kolma Production Job Ticket";
constexpr char16_t version[] = u"Version 3.7.54";

} // namespace

AboutUIFeature::AboutUIFeature(UIContext& context)
    : UIFeature(context, noParentFeature),
      logo_(addNew<BitmapUIControl>(static_cast<std::uint16_t>(IDC_ABOUT_LOGO), std::uint16_t{0})),
      titleBox_(addText(IDC_ABOUT_TITLE)),
      versionBox_(addText(IDC_ABOUT_VERSION)),
      legalBox_(addText(IDC_ABOUT_LEGAL)) {}

TextBoxUIControl& AboutUIFeature::addText(std::uint16_t controlId) {
    return addNew<TextBoxUIControl>(std::uint16_t{0}, controlId, std::uint16_t{0}, maximumText, true);
}

bool AboutUIFeature::isFeatureSupported() { return true; }

void AboutUIFeature::updateFeatureWithNewSettings() {}

void AboutUIFeature::handleSubjectUpdate(std::uint16_t) {}

void AboutUIFeature::initializeFeature() {
    logo_.subclassItem(IDB_ABOUT_LOGO);
    titleBox_.setFont(headingSize, bold, headingFace);
    titleBox_.setText(getContext().mode == uiModePrinterDriver ? driverTitle : productName);
    versionBox_.setFont(headingSize, bold, headingFace);
    versionBox_.setText(version);
    legalBox_.setText(ResourceLibrary().getString(IDS_ABOUT_LEGAL));
}
