#include "host/commandFailure.h"

#include "host/output.h"
#include "jtcore/Services/UserMessage.h"
#include "jtcore/Services/reportException.h"
#include "jtcore/Services/text.h"
#include "resources/ids.h"

#include <cstdio>

namespace {

bool verbose = false;

constexpr std::u16string_view emptyLine = u"\r\n\r\n";

// The box, with the failure's own words before the code, which comes last.
std::unique_ptr<UserMessage> makeMessage(const std::exception& failure) {
    std::unique_ptr<UserMessage> message = makeFailureMessage(nullptr, failure, IDS_CAPTION_DRIVER);
    std::u16string text = message->getText();
    const auto* ours = dynamic_cast<const KolmaException*>(&failure);
    if (!ours || !dynamic_cast<const UserWords*>(&failure)) return message;
    std::u16string words = ours->getMessage();
    while (words.ends_with(u'\n') || words.ends_with(u'\r'))
        words.pop_back();
    const std::size_t code = text.rfind(emptyLine);
    message->setText(text.insert(code == std::u16string::npos ? text.size() : code, std::u16string(emptyLine) + words));
    return message;
}

// The last resort, when not even the strings can be had.
void printPlainly(const std::exception& failure) noexcept {
    std::fputs(failure.what(), stderr);
    std::fputc('\n', stderr);
}

} // namespace

void setVerbose(bool isVerbose) noexcept { verbose = isVerbose; }

bool isVerbose() noexcept { return verbose; }

void printFailure(const std::exception& failure) noexcept {
    try {
        std::u16string text = makeMessage(failure)->getText();
        if (verbose) text.append(emptyLine).append(getExceptionDetails(failure));
        printError(text);
    } catch (...) {
        printPlainly(failure);
    }
}

void showFailure(const std::exception& failure) noexcept {
    try {
        makeMessage(failure)->show();
    } catch (...) {
        printPlainly(failure);
    }
}
