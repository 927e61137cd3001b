// A window on the real window layer with controls on it, which writes down what they tell it, and the hands of a user,
// whose events come in where those of a desktop do.
#pragma once

#include "platform/controls.h"
#include "platform/gdi.h"
#include "platform/windows.h"

#include <QApplication>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class WindowStage {
public:
    WindowStage() {
        current() = this;
        window_ = CreateWindowExW(0, toWide(u"#32770"), toWide(u"Stage"), WS_POPUP | WS_CAPTION, 20, 20, 400, 400,
                                  nullptr, nullptr, nullptr, nullptr);
        oldProcedure() = reinterpret_cast<WNDPROC>( // NOLINT
            SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure)));
    }
    WindowStage(const WindowStage&) = delete;
    WindowStage& operator=(const WindowStage&) = delete;
    ~WindowStage() {
        answer = nullptr;
        DestroyWindow(window_);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        current() = nullptr;
    }

    HWND window() const { return window_; }

    // Controls stand one below the other unless a place is given.
    HWND add(LPCWSTR className, DWORD style, WORD id, const std::u16string& text = {}, int height = 24) {
        HWND control =
            CreateWindowExW(0, className, toWide(text), style | WS_CHILD | WS_VISIBLE, 10, next_, 200, height, window_,
                            reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(id)), nullptr, nullptr);
        next_ += height + 6;
        return control;
    }
    void show() {
        ShowWindow(window_, SW_SHOW);
        EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activeWindow() != nullptr; }));
        QCoreApplication::processEvents();
        log_.clear();
    }

    // What was told since the last time, one after the other.
    std::string told() {
        std::string all;
        for (const std::string& entry : log_)
            all += (all.empty() ? "" : ", ") + entry;
        log_.clear();
        return all;
    }

    // A user's hands.
    static QWidget* widgetOf(HWND control) {
        RECT area{};
        GetWindowRect(control, &area);
        return QApplication::widgetAt((area.left + area.right) / 2, (area.top + area.bottom) / 2);
    }
    static void click(HWND control, QPoint place = {}) {
        QTest::mouseClick(widgetOf(control), Qt::LeftButton, {}, place);
    }
    static void type(const QString& keys) {
        for (QChar key : keys)
            QTest::keyClick(QApplication::focusWidget(), key.toLatin1());
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    static std::u16string textOf(HWND control) {
        std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, u'\0');
        text.resize(
            static_cast<std::size_t>(GetWindowTextW(control, toWide(text.data()), static_cast<int>(text.size()))));
        return text;
    }
    static std::string narrow(const std::u16string& text) { return QString::fromStdU16String(text).toStdString(); }

    // Before a message is written down; what it gives is the answer.
    std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)> answer;

private:
    static WindowStage*& current() {
        static WindowStage* stage = nullptr;
        return stage;
    }
    static WNDPROC& oldProcedure() {
        static WNDPROC old = nullptr;
        return old;
    }

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        WindowStage* stage = current();
        if (stage == nullptr || stage->window_ != window)
            return CallWindowProcW(oldProcedure(), window, message, wParam, lParam);
        stage->write(message, wParam, lParam);
        if (stage->answer)
            if (auto given = stage->answer(message, wParam, lParam)) return *given;
        return CallWindowProcW(oldProcedure(), window, message, wParam, lParam);
    }

    void write(UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_COMMAND) log_.push_back(std::to_string(LOWORD(wParam)) + " " + nameOf(HIWORD(wParam)));
        if (message == WM_HSCROLL || message == WM_VSCROLL)
            log_.push_back((message == WM_HSCROLL ? "across " : "down ") + std::to_string(LOWORD(wParam)) +
                           (HIWORD(wParam) == 0 ? "" : " at " + std::to_string(static_cast<SHORT>(HIWORD(wParam)))));
        if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == UDN_DELTAPOS) {
            const auto* change = reinterpret_cast<NMUPDOWN*>(lParam);
            log_.push_back("delta " + std::to_string(change->iPos) + " by " + std::to_string(change->iDelta));
        }
    }

    static std::string nameOf(WORD code) {
        switch (code) {
        case BN_CLICKED:
            return "clicked";
        case BN_SETFOCUS:
        case EN_SETFOCUS:
            return "entered";
        case BN_KILLFOCUS:
        case EN_KILLFOCUS:
            return "left";
        case EN_UPDATE:
            return "update";
        case EN_CHANGE:
            return "change";
        case EN_MAXTEXT:
            return "full";
        default:
            return std::to_string(code);
        }
    }

    HWND window_ = nullptr;
    int next_ = 10;
    std::vector<std::string> log_;
};

// Ids of controls.
inline constexpr WORD first = 101;
inline constexpr WORD second = 102;
inline constexpr WORD third = 103;

inline LRESULT send(HWND control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageW(control, message, wParam, lParam);
}

inline LRESULT sendText(HWND control, UINT message, const std::u16string& text, WPARAM wParam = 0) {
    return send(control, message, wParam, reinterpret_cast<LPARAM>(text.c_str()));
}

inline std::string show(HWND control) { return WindowStage::narrow(WindowStage::textOf(control)); }
