// The XML library, brought up on first use, once per process, and up until the process ends.
//
// The library serves one thread at a time: what touches it holds a Lock. After a failed start XML is off for the
// process, and every use raises.
#pragma once

#include "jtcore/Services/OwnedCriticalResource.h"
#include "jtcore/Services/SourceLocation.h"

#include <memory>

class XmlParserPool;

class JtXMLInterface {
public:
    // Raises parse code 22 when the library cannot start, 20 on every later call after that.
    // REQUIRES: the calling thread holds no Lock.
    static JtXMLInterface& Instance();

    // Holds the library.
    class Lock {
    public:
        explicit Lock(SourceLocation where = SourceLocation::current()) : guard_(resource_, where) {}

    private:
        OwnedCriticalResource::Guard guard_;
    };

    // The kept parsers. REQUIRES: a Lock.
    XmlParserPool& parsers() noexcept { return *parsers_; }

    // Called when the library has given itself up: XML is off from here on.
    static void markTerminated() noexcept { terminated_ = true; }

private:
    JtXMLInterface();
    ~JtXMLInterface();

    static OwnedCriticalResource resource_;
    static bool terminated_;
    std::unique_ptr<XmlParserPool> parsers_;
};
