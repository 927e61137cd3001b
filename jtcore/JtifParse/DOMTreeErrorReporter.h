// Collects what the parser complains about.
#pragma once

#include <xercesc/sax/ErrorHandler.hpp>

#include <string>

class DOMTreeErrorReporter final : public XERCES_CPP_NAMESPACE::ErrorHandler {
public:
    // Past this many complaints the report is full; a reader gains nothing from more.
    static constexpr int maximumReports = 20;

    void warning(const XERCES_CPP_NAMESPACE::SAXParseException& fault) override;
    void error(const XERCES_CPP_NAMESPACE::SAXParseException& fault) override;
    void fatalError(const XERCES_CPP_NAMESPACE::SAXParseException& fault) override;
    void resetErrors() override;

    bool hasSeenWarning() const noexcept { return warningSeen_; }
    bool hasSeenError() const noexcept { return errorSeen_; }
    bool hasSeenFatalError() const noexcept { return fatalErrorSeen_; }
    bool isFull() const noexcept { return reports_ >= maximumReports; }

    // Two lines a complaint: where and what, and the name of the document.
    const std::u16string& getMessage() const noexcept { return message_; }

private:
    void report(const char16_t* format, const XERCES_CPP_NAMESPACE::SAXParseException& fault);

    bool warningSeen_ = false;
    bool errorSeen_ = false;
    bool fatalErrorSeen_ = false;
    int reports_ = 0;
    std::u16string message_;
};
