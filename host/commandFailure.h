// Failures at the command line: what a message box would say, on the standard error.
#pragma once

#include "host/ExitCode.h"
#include "jtcore/Services/KolmaException.h"

#include <exception>

// Marks a failure whose message is meant for the user's eyes.
struct UserWords {
    UserWords() = default;
    UserWords(const UserWords&) = default;
    UserWords& operator=(const UserWords&) = default;
    virtual ~UserWords() = default;
};

// A failure of that kind, with its heading, body and code, whose message stands between body and code:
//     raise<InWords<ReadFileException>>(u"There is no file \"%s\".", name);
template <typename Kind>
class InWords final : public Kind, public UserWords {
public:
    using Kind::Kind;
};

// A file that could not be written or put in its place.
class WriteFileException : public KolmaException {
public:
    using KolmaException::KolmaException;
    std::u16string getErrorCode() const override { return u"022:003"; }
};

// With set, a failure is followed by its technical report.
void setVerbose(bool isVerbose) noexcept;
bool isVerbose() noexcept;

// Writes heading, body, words and code, an empty line between each. Throws nothing.
void printFailure(const std::exception& failure) noexcept;

// Shows the same in a box. Throws nothing.
void showFailure(const std::exception& failure) noexcept;

// Runs a command and returns its exit code; a failure is printed and gives exitFailure.
template <typename Command>
int runReporting(Command&& command) noexcept {
    try {
        return command();
    } catch (const std::exception& failure) {
        printFailure(failure);
    } catch (...) {
        printFailure(std::exception());
    }
    return exitFailure;
}
