// For destructors: what is given back there may fail, and the failure has nowhere to go.
#pragma once

#include <utility>

template <typename Body>
void quietly(Body&& body) noexcept {
    try {
        std::forward<Body>(body)();
    } catch (...) { // NOLINT(bugprone-empty-catch)
    }
}
