// A window that writes down what its control tells it, as programs' parents of controls hear it.
#pragma once

#include "platform/controls.h"
#include "platform/windows.h"

#include <QPoint>

#include <functional>
#include <string>
#include <utility>
#include <vector>

class QWidget;

class WindowListener {
public:
    // Opens the parent, 400 by 300, with one control of the class in it, 200 by 150, both visible.
    WindowListener(const char16_t* className, DWORD style, WORD id = 100);
    ~WindowListener();

    HWND parent() const { return parent_; }
    HWND control() const { return control_; }
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    template <typename Record>
    LRESULT send(UINT message, WPARAM wParam, Record* record) const {
        return send(message, wParam, reinterpret_cast<LPARAM>(record));
    }
    LRESULT sendText(UINT message, WPARAM wParam, const char16_t* text) const;
    // By the mouse, in the control's client area: press and release.
    void click(POINT at, WPARAM keys = 0) const;
    // The keyboard's own event at the widget that has the focus.
    void press(int qtKey, int qtModifiers = 0, const char16_t* text = u"") const;
    // The same for the mouse: at the widget under the position.
    void clickByHand(POINT at) const;
    static void clickWidget(QWidget& widget, const QPoint& onScreen);

    // What was heard since the last call, such as "changing 1 0>3", "click 2", "selchange".
    std::vector<std::string> heard() { return std::exchange(heard_, {}); }
    // Answers LVN_ITEMCHANGING; without it every change is allowed.
    std::function<bool(const NMLISTVIEW&)> refuses;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT hear(const NMHDR& note);

    HWND parent_;
    HWND control_;
    WNDPROC before_ = nullptr;
    std::vector<std::string> heard_;
};

// Lets the events that wait run.
void runEvents();
