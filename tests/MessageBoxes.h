// Plays the user in front of message boxes: each box is kept, and answered as told.
#pragma once

#include "jtcore/Services/text.h"
#include "platform/posix/messageBox.h"

#include <string>
#include <vector>

struct ShownBox {
    HWND owner;
    std::string title;
    std::string text;
    UINT style;
};

class MessageBoxes {
public:
    explicit MessageBoxes(int answer = IDOK)
        : answer_(answer), before_(installWindowHooks({this, show, windowText, {}})) {}
    ~MessageBoxes() { installWindowHooks(before_); }
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;

    const std::vector<ShownBox>& shown() const { return shown_; }
    // The box that was shown, when there was exactly one.
    ShownBox onlyOne() const { return shown_.size() == 1 ? shown_.front() : ShownBox{}; }

    // What every window bears as its text.
    std::u16string ownerText;

private:
    static int show(void* context, HWND owner, LPCWSTR text, LPCWSTR caption, UINT type) {
        auto& boxes = *static_cast<MessageBoxes*>(context);
        boxes.shown_.push_back({owner, toUtf8(fromWide(caption)), toUtf8(fromWide(text)), type});
        return boxes.answer_;
    }
    static int windowText(void* context, HWND, LPWSTR text, int size) {
        const std::u16string& whole = static_cast<MessageBoxes*>(context)->ownerText;
        std::size_t length = whole.copy(text, static_cast<std::size_t>(size) - 1);
        text[length] = 0;
        return static_cast<int>(length);
    }

    int answer_;
    WindowHooks before_;
    std::vector<ShownBox> shown_;
};
