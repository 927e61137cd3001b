#include "jtcore/Capabilities/SettingsProblemReporter.h"

#include "jtcore/AnlXlate/PersistentSettings.h"
#include "jtcore/Capabilities/JobTicketUserMessage.h"
#include "jtcore/Capabilities/LimitationsDisplay.h"
#include "jtcore/Capabilities/LimitationsText.h"
#include "jtcore/Capabilities/SettingsProblemList.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "platform/windows.h"
#include "resources/ids.h"

namespace {

std::unique_ptr<UserMessage> makeShortMessage(HWND window, std::uint16_t titleId, const std::u16string& fileName,
                                              bool canCancel) {
    const std::uint16_t textId = canCancel ? IDS_LIMITATIONS_MESSAGE_CHOICE : IDS_LIMITATIONS_MESSAGE;
    const UINT style = canCancel ? MB_OKCANCEL : MB_OK;
    if (fileName.empty()) return std::make_unique<UserMessage>(window, titleId, textId, style, Severity::error);
    auto message = std::make_unique<JobTicketUserMessage>(window, titleId, fileName, textId);
    message->setStyle(style);
    return message;
}

} // namespace

SettingsProblemReporter::SettingsProblemReporter(HWND window, std::uint16_t titleId, const std::u16string& fileName,
                                                 const PersistentSettings& defaults, bool detailed, bool canCancel,
                                                 int defaultResult)
    : defaultResult_(defaultResult),
      isDetailed_(detailed),
      canCancel_(canCancel),
      message_(detailed ? nullptr : makeShortMessage(window, titleId, fileName, canCancel)),
      window_(window),
      title_(ResourceLibrary().getString(titleId) + fileName) {
    defaults.getAttrNodeList(defaults_);
}

SettingsProblemReporter::~SettingsProblemReporter() = default;

int SettingsProblemReporter::report(const SettingsProblemList& problems) const {
    if (problems.isEmpty() || !isEnabled_) return defaultResult_;
    if (!isDetailed_) return message_->show() == IDCANCEL ? IDCANCEL : defaultResult_;
    const std::uint16_t headline = canCancel_ ? IDS_LIMITATIONS_HEADLINE_CHOICE : IDS_LIMITATIONS_MESSAGE;
    const int answer =
        showLimitations({window_, title_, ResourceLibrary().getString(headline), getReportText(problems), canCancel_});
    if (answer == 0 || answer == -1)
        raise<ResourceAcquisitionException>(
            u"SettingsProblemReporter::report(): The report could not be shown. Last Error: %ld.\r\n", GetLastError());
    return answer == IDCANCEL && canCancel_ ? IDCANCEL : defaultResult_;
}

std::u16string SettingsProblemReporter::getReportText(const SettingsProblemList& problems) const {
    return LimitationsText(defaults_, showsRepair()).compose(problems);
}
