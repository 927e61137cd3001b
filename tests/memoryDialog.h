// Dialog templates for tests, made in memory, and what a person does with the controls of a dialog: by published
// messages alone.
#pragma once

#include "platform/controls.h"
#include "platform/windows.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

struct DialogItem {
    std::u16string className;
    DWORD style;
    std::uint16_t id;
    std::u16string text{};
};

// Items one below the other; each is a child and takes the focus unless it is a label.
class MemoryDialog {
public:
    explicit MemoryDialog(const std::vector<DialogItem>& items, DWORD style = WS_POPUP | WS_CAPTION) {
        append(DLGTEMPLATE{style, 0, static_cast<WORD>(items.size()), 0, 0, 200,
                           static_cast<SHORT>(20 * items.size() + 20)});
        for (int text = 0; text < 3; ++text) // no menu, the usual class, no title
            append(WORD{0});
        SHORT y = 10;
        for (const DialogItem& item : items) {
            align();
            append(DLGITEMTEMPLATE{item.style | WS_CHILD | WS_VISIBLE, 0, 10, y, 180, 14, item.id});
            append(item.className);
            append(item.text);
            append(WORD{0});
            y = static_cast<SHORT>(y + 20);
        }
    }
    LPCDLGTEMPLATEW get() const noexcept { return reinterpret_cast<LPCDLGTEMPLATEW>(words_.data()); }

private:
    template <typename Part>
    void append(const Part& part) {
        append(&part, sizeof part);
    }
    void append(const std::u16string& text) { append(text.c_str(), 2 * (text.size() + 1)); }
    void append(const void* bytes, std::size_t size) {
        words_.resize((size_ + size + 3) / 4);
        std::memcpy(reinterpret_cast<std::byte*>(words_.data()) + size_, bytes, size);
        size_ += size;
    }
    void align() { size_ = (size_ + 3) / 4 * 4; }

    std::vector<std::uint32_t> words_;
    std::size_t size_ = 0;
};

// A window of a dialog, and the hands of a person.
class DialogHands {
public:
    DialogHands() = default;
    explicit DialogHands(HWND window) : window_(window) {}

    HWND window() const noexcept { return window_; }
    HWND item(std::uint16_t id) const { return GetDlgItem(window_, id); }
    LRESULT send(std::uint16_t id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(item(id), message, wParam, lParam);
    }

    std::u16string text(std::uint16_t id) const {
        char16_t buffer[512] = {};
        GetWindowTextW(item(id), toWide(buffer), 512);
        return buffer;
    }
    bool isEnabled(std::uint16_t id) const { return IsWindowEnabled(item(id)) != FALSE; }
    // As the item itself is, whether or not the dialog is on the screen.
    bool isShown(std::uint16_t id) const { return (GetWindowLongW(item(id), GWL_STYLE) & LONG{WS_VISIBLE}) != 0; }
    bool isTicked(std::uint16_t id) const { return IsDlgButtonChecked(window_, id) == BST_CHECKED; }

    void click(std::uint16_t id) const { send(id, BM_CLICK); }
    // Puts a text in the place of what the field holds, or of what is selected there: no key is filtered.
    void paste(std::uint16_t id, const std::u16string& text) const {
        send(id, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(toWide(text)));
    }
    void insert(std::uint16_t id, const std::u16string& text) const {
        send(id, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(toWide(text)));
    }
    void select(std::uint16_t id, int start, int end) const { send(id, EM_SETSEL, static_cast<WPARAM>(start), end); }
    void press(std::uint16_t id, char16_t key) const { send(id, WM_CHAR, key, 1); }
    // A key that is no character, such as VK_DOWN.
    void pressKey(std::uint16_t id, WPARAM key) const { send(id, WM_KEYDOWN, key, 1); }
    // Key by key in the place of what the field holds.
    void type(std::uint16_t id, std::u16string_view keys) const {
        select(id, 0, -1);
        for (const char16_t key : keys)
            press(id, key);
    }
    void leave(std::uint16_t id) const { command(id, EN_KILLFOCUS); }
    void command(std::uint16_t id, WORD code) const {
        SendMessageW(window_, WM_COMMAND, static_cast<WPARAM>(MAKELONG(id, code)), reinterpret_cast<LPARAM>(item(id)));
    }
    // One press of a spin button; -1 is up.
    void spin(std::uint16_t id, int delta) const {
        NMUPDOWN notification{{item(id), id, UDN_DELTAPOS}, 50, delta};
        SendMessageW(window_, WM_NOTIFY, id, reinterpret_cast<LPARAM>(&notification));
    }

    std::vector<std::u16string> entries(std::uint16_t listId) const {
        std::vector<std::u16string> all;
        for (LRESULT index = 0; index < send(listId, CB_GETCOUNT); ++index)
            all.push_back(entry(listId, index));
        return all;
    }
    // The selected entry; empty when there is none.
    std::u16string chosen(std::uint16_t listId) const {
        const LRESULT index = send(listId, CB_GETCURSEL);
        return index < 0 ? std::u16string() : entry(listId, index);
    }
    void choose(std::uint16_t listId, int index) const {
        send(listId, CB_SETCURSEL, static_cast<WPARAM>(index));
        command(listId, CBN_SELCHANGE);
    }

private:
    std::u16string entry(std::uint16_t listId, LRESULT index) const {
        char16_t buffer[512] = {};
        send(listId, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(toWide(buffer)));
        return buffer;
    }

    HWND window_ = nullptr;
};
