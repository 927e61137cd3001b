#include "jtcore/Services/UserMessage.h"

#include "jtcore/Services/ResourceLibrary.h"
#include "jtcore/Services/reportException.h"
#include "platform/windows.h"

namespace {

struct SeverityStyle {
    UINT set;
    UINT cleared;
};

SeverityStyle styleOf(Severity severity) {
    switch (severity) {
    case Severity::information:
        return {MB_ICONINFORMATION, MB_ICONWARNING};
    case Severity::warning:
        return {MB_ICONWARNING, MB_ICONINFORMATION};
    case Severity::question:
        return {MB_ICONQUESTION, MB_ICONINFORMATION | MB_ICONERROR};
    default:
        return {MB_ICONERROR, MB_ICONINFORMATION | MB_ICONQUESTION};
    }
}

} // namespace

UserMessage::UserMessage(HWND owner) : owner_(owner) { applyStyle(); }

UserMessage::UserMessage(HWND owner, std::u16string title, std::u16string text, UINT style, Severity severity)
    : owner_(owner), title_(std::move(title)), text_(std::move(text)), style_(style), severity_(severity) {
    applyStyle();
}

UserMessage::UserMessage(std::u16string title, std::u16string text, UINT style, Severity severity)
    : UserMessage(nullptr, std::move(title), std::move(text), style, severity) {}

UserMessage::UserMessage(HWND owner, std::uint16_t titleId, std::uint16_t textId, UINT style, Severity severity)
    : UserMessage(owner, ResourceLibrary().getString(titleId), ResourceLibrary().getString(textId), style, severity) {}

UserMessage::~UserMessage() = default;

std::unique_ptr<UserMessage> UserMessage::clone() const { return std::unique_ptr<UserMessage>(new UserMessage(*this)); }

void UserMessage::setOwner(HWND owner) noexcept {
    owner_ = owner;
    applyStyle();
}

void UserMessage::setTextById(std::uint16_t textId) { text_ = ResourceLibrary().getString(textId); }

void UserMessage::setStyle(UINT style) noexcept {
    style_ = style;
    applyStyle();
}

void UserMessage::setSeverity(Severity severity) noexcept {
    severity_ = severity;
    applyStyle();
}

void UserMessage::setException(const std::exception* failure) {
    if (failure != nullptr) text_ += u"\r\n\r\n" + getExceptionCode(*failure);
    exception_ = failure;
}

int UserMessage::show() const { return MessageBoxW(owner_, toWide(text_), toWide(title_), style_); }

void UserMessage::applyStyle() noexcept {
    SeverityStyle icon = styleOf(severity_);
    style_ = (style_ & ~(icon.cleared | MB_TASKMODAL)) | icon.set;
    if (owner_ == nullptr) style_ |= MB_TASKMODAL;
}
