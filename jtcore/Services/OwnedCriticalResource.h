// A named critical section for one thing that several objects share. Each is a static object.
#pragma once

#include "jtcore/Services/SourceLocation.h"

#include <mutex>

class OwnedCriticalResource {
public:
    explicit constexpr OwnedCriticalResource(const char* name = "OwnedCriticalResource") noexcept : name_(name) {}
    OwnedCriticalResource(const OwnedCriticalResource&) = delete;
    OwnedCriticalResource& operator=(const OwnedCriticalResource&) = delete;

    const char* name() const noexcept { return name_; }

    // Holds the resource from its construction to its end, and remembers for the debugger who does.
    class Guard {
    public:
        explicit Guard(OwnedCriticalResource& resource, SourceLocation where = SourceLocation::current())
            : resource_(resource), lock_(resource.mutex_) {
            resource_.file_ = where.file;
            resource_.line_ = where.line;
        }
        ~Guard() {
            resource_.file_ = "";
            resource_.line_ = 0;
        }
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;

    private:
        OwnedCriticalResource& resource_;
        std::lock_guard<std::mutex> lock_;
    };

private:
    const char* name_;
    std::mutex mutex_;
    const char* file_ = "";
    unsigned line_ = 0;
};
