// A message box as an object: it can be composed, changed, copied and shown.
#pragma once

#include "platform/types.h"

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <utility>

// What a message is to the user; it chooses the icon.
enum class Severity : std::int32_t { information = 1, warning = 2, error = 3, question = 4 };

class UserMessage {
public:
    // An owner may be null; the box is then modal to the whole task.
    explicit UserMessage(HWND owner = nullptr);
    UserMessage(HWND owner, std::u16string title, std::u16string text, UINT style = 0,
                Severity severity = Severity::error);
    UserMessage(std::u16string title, std::u16string text, UINT style = 0, Severity severity = Severity::error);
    // The texts are strings of the resource module. Raises ResourceAcquisitionException and
    // ResourceLibraryConstructionException.
    UserMessage(HWND owner, std::uint16_t titleId, std::uint16_t textId, UINT style = 0,
                Severity severity = Severity::error);
    virtual ~UserMessage();
    virtual std::unique_ptr<UserMessage> clone() const;

    HWND getOwner() const noexcept { return owner_; }
    const std::u16string& getTitle() const noexcept { return title_; }
    const std::u16string& getText() const noexcept { return text_; }
    // The MessageBox style word, with the bits that severity and owner ask for.
    UINT getStyle() const noexcept { return style_; }
    Severity getSeverity() const noexcept { return severity_; }
    const std::exception* getException() const noexcept { return exception_; }

    void setOwner(HWND owner) noexcept;
    void setTitle(std::u16string title) noexcept { title_ = std::move(title); }
    void setText(std::u16string text) noexcept { text_ = std::move(text); }
    // Raises as the constructor from ids.
    void setTextById(std::uint16_t textId);
    void setStyle(UINT style) noexcept;
    void setSeverity(Severity severity) noexcept;
    // Appends an empty line and the failure's code to the text. The failure is borrowed and must outlive its use
    // here; null changes nothing of the text.
    void setException(const std::exception* failure);

    // Shows the box and waits for the user. Returns the button (IDOK, IDCANCEL, ...), or 0 when no box could be shown.
    int show() const;

protected:
    UserMessage(const UserMessage&) = default;
    UserMessage& operator=(const UserMessage&) = default;

private:
    void applyStyle() noexcept;

    HWND owner_;
    std::u16string title_;
    std::u16string text_;
    UINT style_ = 0;
    Severity severity_ = Severity::error;
    const std::exception* exception_ = nullptr;
};
