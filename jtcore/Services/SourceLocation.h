// A place in the source, taken down where a default argument of this type is used.
//
// In the manner of std::source_location, which the oldest compiler that builds this system does not have.
#pragma once

struct SourceLocation {
    static constexpr SourceLocation current(const char* file = __builtin_FILE(),
                                            unsigned line = __builtin_LINE()) noexcept {
        return {file, line};
    }

    const char* file;
    unsigned line;
};
