#include "jtcore/Printer/PrinterDefaults.h"

#include "jtcore/Services/User.h"
#include "resources/ids.h"

namespace {

static_assert(static_cast<int>(DefaultStockSize::letter) == static_cast<int>(StockSize::Id::letter) &&
              static_cast<int>(DefaultStockSize::legal) == static_cast<int>(StockSize::Id::legal) &&
              static_cast<int>(DefaultStockSize::a4) == static_cast<int>(StockSize::Id::a4) &&
              static_cast<int>(DefaultStockSize::a3) == static_cast<int>(StockSize::Id::a3));

StockSize usualSize() { return StockSize(static_cast<StockSize::Id>(User::getDefaultStockSize())); }

void setPlainJob(FeatureSettings& settings, const std::u16string& jobName) {
    const auto set = [&](Feature feature, Value value) { settings.setFeatureValue(FeatureId(feature), value); };
    settings.setLong(FeatureId(Feature::copies), 1);
    set(Feature::finishings, Value::finishingsNone);
    set(Feature::sheetCollate, Value::collated);
    set(Feature::sides, Value::oneSided);
    settings.setString(FeatureId(Feature::jobName), jobName);
    set(Feature::saveDisposition, Value::saveDispositionNone);
    set(Feature::mediaColor, Value::white);
    set(Feature::mediaType, Value::mediaTypeStationery);
    set(Feature::mediaHoleCount, Value::mediaHoleCount0);
}

} // namespace

PrinterDefaults::PrinterDefaults(const PrinterModel& model, TicketForm form) : model_(model), form_(form) {
    setPlainJob(settings_, library_.getString(IDS_DEFAULT_JOB_NAME));
    model_.applyModelDefaults(settings_, form_);
    std::u16string userName = User::getLogonName();
    if (userName.empty()) userName = library_.getString(IDS_DEFAULT_USER_NAME);
    settings_.setString(FeatureId(Feature::requestingUserName), userName);
    settings_.setString(FeatureId(Feature::jobRecipientName), userName);
    settings_.setStockSize(usualSize());
}
