// A message about a job ticket file: the title is the string with the file's name behind it.
#pragma once

#include "jtcore/Services/UserMessage.h"

class JobTicketUserMessage final : public UserMessage {
public:
    // Each raises what the resource module raises.
    JobTicketUserMessage(HWND window, std::uint16_t titleId, const std::u16string& fileName, std::uint16_t textId);
    // What could not be done with the file, in the user's words, and the code of the failure, which is borrowed.
    JobTicketUserMessage(HWND window, std::uint16_t titleId, const std::u16string& fileName,
                         const std::exception& failure);
    std::unique_ptr<UserMessage> clone() const override {
        return std::unique_ptr<UserMessage>(new JobTicketUserMessage(*this));
    }

    // The text that tells of a failure.
    static std::uint16_t getTextId(const std::exception& failure) noexcept;
};
