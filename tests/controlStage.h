// A dialog on the real window layer with one item of each kind, and a tree of components that hears its messages.
#pragma once

#include "platform/list_view.h"
#include "plugin_ui/MessageProcessorWithChildren.h"
#include "plugin_ui/Observer.h"
#include "tests/memoryDialog.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

enum Id : std::uint16_t {
    label = 100,
    field,
    spinButton,
    unit,
    box,
    button,
    firstRadio,
    secondRadio,
    foreignRadio,
    picture,
    track,
    combo,
    list,
    table,
    drawnButton,
    otherDrawnButton
};

inline const std::vector<DialogItem>& items() {
    static const std::vector<DialogItem> all{
        {u"STATIC", SS_LEFT, label, u"Label"},
        {u"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, field},
        {u"msctls_updown32", 0, spinButton},
        {u"STATIC", SS_LEFT, unit, u"mm"},
        {u"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP, box, u"Box"},
        {u"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, button, u"Button"},
        {u"BUTTON", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, firstRadio, u"First"},
        {u"BUTTON", BS_AUTORADIOBUTTON, secondRadio, u"Second"},
        {u"BUTTON", BS_RADIOBUTTON | WS_GROUP, foreignRadio, u"Foreign"},
        {u"STATIC", SS_LEFT, picture},
        {u"msctls_trackbar32", WS_TABSTOP, track},
        {u"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, combo},
        {u"LISTBOX", LBS_NOTIFY | WS_TABSTOP, list},
        {u"SysListView32", LVS_REPORT | WS_TABSTOP, table},
        {u"BUTTON", BS_OWNERDRAW | WS_TABSTOP, drawnButton},
        {u"BUTTON", BS_OWNERDRAW | WS_TABSTOP, otherDrawnButton},
    };
    return all;
}

class Tree final : public MessageProcessorWithChildren {};

class Counter final : public Observer {
public:
    void handleSubjectUpdate(std::uint16_t) override { ++count_; }
    // Those since it was asked last.
    int take() { return std::exchange(count_, 0); }

private:
    int count_ = 0;
};

// A dialog whose messages go to a tree with one control.
class UiControls : public testing::Test {
protected:
    // A control in a dialog that is up; with others that were made before.
    template <typename Control, typename... Arguments>
    Control& show(Arguments&&... arguments) {
        Control& control = tree_->addNew<Control>(std::forward<Arguments>(arguments)...);
        control.addObserver(counter);
        open();
        return control;
    }
    void open() {
        close();
        const MemoryDialog dialog(items());
        hands = DialogHands(CreateDialogIndirectParamW(nullptr, dialog.get(), nullptr, procedure,
                                                       reinterpret_cast<LPARAM>(tree_.get())));
        if (!hands.window()) throw std::runtime_error("no window: " + std::to_string(GetLastError()));
    }
    void close() {
        if (hands.window()) DestroyWindow(hands.window());
        hands = DialogHands();
    }
    void startAfresh() {
        close();
        tree_ = std::make_unique<Tree>();
        counter.take();
    }
    void TearDown() override { close(); }

    LRESULT tell(UINT message) { return SendMessageW(hands.window(), message, 0, 0); }

    DialogHands hands;
    Counter counter;
    std::unique_ptr<Tree> tree_ = std::make_unique<Tree>();

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG) SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
        auto* tree = reinterpret_cast<Tree*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        LRESULT result = 0;
        const bool handled = tree && tree->processMessage({window, message, wParam, lParam}, result);
        SetWindowLongPtrW(window, DWLP_MSGRESULT, result);
        return handled ? TRUE : FALSE;
    }
};
