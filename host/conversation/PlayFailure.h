// Why a command of a conversation cannot be done, or what it found in place of what it expects.
#pragma once

#include <exception>
#include <string>
#include <utility>

class PlayFailure : public std::exception {
public:
    explicit PlayFailure(std::u16string found) : found_(std::move(found)) {}

    const std::u16string& found() const noexcept { return found_; }
    const char* what() const noexcept override { return "a conversation failed"; }

private:
    std::u16string found_;
};
