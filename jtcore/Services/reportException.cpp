#include "jtcore/Services/reportException.h"

#include "jtcore/Services/JtifParseException.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "jtcore/Services/UserMessage.h"
#include "jtcore/Services/trace.h"
#include "platform/windows.h"
#include "resources/ids.h"

#include <new>
#include <typeinfo>

namespace {

template <typename Kind>
bool isKind(const std::exception& failure) {
    return dynamic_cast<const Kind*>(&failure) != nullptr;
}

struct FailureIds {
    std::uint16_t heading = IDS_FAILURE_HEADING;
    std::uint16_t body = IDS_FAILURE_BODY;
};

// The words for each kind of failure; the first row that fits is taken.
struct FailureText {
    bool (*fits)(const std::exception&);
    FailureIds ids;
};

constexpr FailureText failureTexts[] = {
    {isKind<DevModeOverflowException>, {IDS_SETTINGS_TOO_LARGE_HEADING, IDS_SETTINGS_TOO_LARGE_BODY}},
    {isKind<ResourceAcquisitionException>, {IDS_RESOURCE_FAILURE_HEADING, IDS_RESOURCE_FAILURE_BODY}},
    {isKind<SpoolDataException>, {IDS_SPOOL_DATA_FAILURE_HEADING, IDS_SPOOL_DATA_FAILURE_BODY}},
    {isKind<RegistryRequestException>, {IDS_PREFERENCES_FAILURE_HEADING, IDS_FAILURE_BODY}},
    {isKind<JtifParseException>, {IDS_XML_FAILURE_HEADING, IDS_XML_FAILURE_BODY}},
    {isKind<FileException>, {IDS_FILE_FAILURE_HEADING, IDS_FILE_FAILURE_BODY}},
};

FailureIds findFailureIds(const std::exception& failure) {
    for (const FailureText& row : failureTexts)
        if (row.fits(failure)) return row.ids;
    return {};
}

std::u16string getWindowText(HWND window) {
    constexpr int maximum = 255;
    if (window == nullptr) return {};
    std::u16string text(maximum + 1, u'\0');
    int length = GetWindowTextW(window, toWide(text.data()), maximum + 1);
    text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return text;
}

std::u16string getCaption(HWND owner, std::uint16_t captionId) {
    ResourceLibrary library;
    if (captionId != 0) return library.getString(captionId);
    std::u16string text = getWindowText(owner);
    return text.empty() ? library.getString(IDS_CAPTION_DRIVER) : text;
}

// Without the resource module there are only the words that stand here.
std::unique_ptr<UserMessage> makeMissingResourcesMessage(const std::exception& failure) {
    auto message = std::make_unique<UserMessage>(
        u"Kolma Printer Driver",
        u"Could not load the resource DLL. It's probably missing. Translated strings are not available. "
        u"Please reinstall the driver.");
    message->setException(&failure);
    return message;
}

} // namespace

std::unique_ptr<UserMessage> makeFailureMessage(HWND owner, const std::exception& failure, std::uint16_t captionId,
                                                std::uint16_t contextId) {
    if (isKind<ResourceLibraryConstructionException>(failure)) return makeMissingResourcesMessage(failure);
    if (isKind<std::bad_alloc>(failure))
        return std::make_unique<UserMessage>(owner, IDS_CAPTION_DRIVER, IDS_OUT_OF_MEMORY);
    FailureIds ids = findFailureIds(failure);
    auto message = std::make_unique<UserMessage>(owner);
    composeFailureText(*message, owner, getCaption(owner, captionId), ids.heading, ids.body, false,
                       getExceptionCode(failure), contextId);
    return message;
}

void reportException(HWND owner, const std::exception& failure, std::uint16_t captionId, std::u16string_view methodText,
                     std::uint16_t contextId, std::u16string_view extraText) {
    traceException(&failure, methodText, extraText);
    // Out of memory is no time to compose a report that nobody reads.
    if (!isKind<std::bad_alloc>(failure)) traceText(methodText, getExceptionDetails(failure));
    makeFailureMessage(owner, failure, captionId, contextId)->show();
}

void reportException(const std::exception& failure, std::uint16_t captionId, std::u16string_view methodText,
                     std::uint16_t contextId, std::u16string_view extraText) {
    reportException(nullptr, failure, captionId, methodText, contextId, extraText);
}

bool reportUnknownException(HWND owner, std::uint16_t captionId, std::u16string_view methodText,
                            std::uint16_t contextId, std::u16string_view extraText) {
    traceException(nullptr, methodText, extraText);
    UserMessage message(owner);
    composeFailureText(message, owner, getCaption(owner, captionId), IDS_FAILURE_HEADING, IDS_UNKNOWN_FAILURE_BODY,
                       true, {}, contextId);
    return message.show() == IDCANCEL;
}

bool reportUnknownException(std::uint16_t captionId, std::u16string_view methodText, std::uint16_t contextId,
                            std::u16string_view extraText) {
    return reportUnknownException(nullptr, captionId, methodText, contextId, extraText);
}

void composeFailureText(UserMessage& message, HWND owner, const std::u16string& caption, std::uint16_t headingId,
                        std::uint16_t bodyId, bool offerCancel, const std::u16string& code, std::uint16_t contextId) {
    ResourceLibrary library;
    std::u16string text = library.getString(headingId);
    auto append = [&text](const std::u16string& piece) { text += u"\r\n\r\n" + piece; };
    append(library.getString(bodyId));
    if (contextId != 0) append(library.getString(contextId));
    if (offerCancel) append(library.getString(IDS_UNKNOWN_FAILURE_CHOICE));
    if (!code.empty()) append(code);
    if (offerCancel) message.setStyle(message.getStyle() | MB_OKCANCEL);
    message.setTitle(caption.empty() ? getWindowText(owner) : caption);
    message.setText(std::move(text));
}

std::u16string getExceptionCode(const std::exception& failure) {
    const auto* ours = dynamic_cast<const KolmaException*>(&failure);
    if (ours == nullptr) return u"000:000:000";
    return ours->getErrorCode() + formatMessage(u":%04d", ours->getLine());
}

std::u16string getExceptionDetails(const std::exception& failure) {
    std::u16string details = formatMessage(u"%S\r\n", typeid(failure).name());
    if (const auto* parse = dynamic_cast<const JtifParseException*>(&failure))
        details += formatMessage(u"\tError Type: %S\r\n", getParseCodeName(parse->getParseCode()));
    const auto* ours = dynamic_cast<const KolmaException*>(&failure);
    if (ours == nullptr) return details + u"No additional information available.\r\n";
    details += formatMessage(u"Location: %s, line %d\r\n", ours->getFile(), ours->getLine());
    return details + u"Message is:\r\n\t" + ours->getMessage();
}
