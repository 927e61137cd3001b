// Gathers what the formatter writes, a few characters at a time, into blocks for the callback.
#pragma once

#include "jtcore/JtifParse/XmlOutputCallback.h"

#include <xercesc/framework/XMLFormatter.hpp>

#include <string>

class XmlOutputTarget final : public XERCES_CPP_NAMESPACE::XMLFormatTarget {
public:
    explicit XmlOutputTarget(XmlOutputCallback& callback) noexcept : callback_(callback) {}

    // Each raises parse code 4 when the callback refuses a block.
    void writeChars(const XMLByte* toWrite, XMLSize_t count, XERCES_CPP_NAMESPACE::XMLFormatter* formatter) override;
    // Hands over what is left.
    void finish();

private:
    XmlOutputCallback& callback_;
    std::string pending_;
};
