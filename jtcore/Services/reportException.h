// What a catch site does with a failure: one message box in the user's words, with a short code by which support can
// place it. The technical message is never shown; it goes to the trace hook.
//
// A site has two handlers, in this order; catchSite.h writes them for it.
//
//     catch (const std::exception& failure) { reportException(owner, failure, captionId, u"Class::operation()"); }
//     catch (...) { if (reportUnknownException(owner, captionId, u"Class::operation()")) throw; }
//
// captionId: the string for the title; with 0 it is the owner's own text, or string 11606 when that is empty.
// contextId: the string that says what was being done, 0 for none. methodText and extraText go to the trace hook.
// All texts come of the resource module: when one cannot be had, ResourceAcquisitionException (or
// ResourceLibraryConstructionException) leaves these operations as a new failure.
#pragma once

#include "platform/types.h"

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

class UserMessage;

void reportException(HWND owner, const std::exception& failure, std::uint16_t captionId, std::u16string_view methodText,
                     std::uint16_t contextId = 0, std::u16string_view extraText = {});
void reportException(const std::exception& failure, std::uint16_t captionId, std::u16string_view methodText,
                     std::uint16_t contextId = 0, std::u16string_view extraText = {});

// The box that reportException() shows, for callers that show it in another way.
std::unique_ptr<UserMessage> makeFailureMessage(HWND owner, const std::exception& failure, std::uint16_t captionId,
                                                std::uint16_t contextId = 0);

// For a failure of no known kind. True when the user chose Cancel: the site passes the failure on.
bool reportUnknownException(HWND owner, std::uint16_t captionId, std::u16string_view methodText,
                            std::uint16_t contextId = 0, std::u16string_view extraText = {});
bool reportUnknownException(std::uint16_t captionId, std::u16string_view methodText, std::uint16_t contextId = 0,
                            std::u16string_view extraText = {});

// Sets title and text of the message: heading, body, context (unless 0), with offerCancel the explanation of OK and
// Cancel (the box then gets these two buttons), and the code (unless empty), an empty line between each. An empty
// caption stands for the owner's own text.
void composeFailureText(UserMessage& message, HWND owner, const std::u16string& caption, std::uint16_t headingId,
                        std::uint16_t bodyId, bool offerCancel, const std::u16string& code, std::uint16_t contextId);

// "027:000:0680": error code and line of a KolmaException; "000:000:000" for any other failure.
std::u16string getExceptionCode(const std::exception& failure);

// The technical report: class, parse code, place and message.
std::u16string getExceptionDetails(const std::exception& failure);
