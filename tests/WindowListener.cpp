#include "WindowListener.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

#include <map>

namespace {

WindowListener* current = nullptr;

const std::map<UINT, const char*>& noteNames() {
    static const std::map<UINT, const char*> names = {{LVN_ITEMCHANGING, "changing"},    {LVN_ITEMCHANGED, "changed"},
                                                      {LVN_INSERTITEM, "insert"},        {LVN_DELETEITEM, "delete"},
                                                      {LVN_DELETEALLITEMS, "deleteall"}, {LVN_COLUMNCLICK, "column"},
                                                      {LVN_ITEMACTIVATE, "activate"},    {NM_CLICK, "click"},
                                                      {NM_DBLCLK, "dblclick"},           {NM_RCLICK, "rclick"},
                                                      {NM_SETFOCUS, "setfocus"},         {NM_HOVER, "hover"}};
    return names;
}

const std::map<std::u16string, std::map<UINT, const char*>>& commandNames() {
    static const std::map<std::u16string, std::map<UINT, const char*>> names = {
        {u"ComboBox",
         {{CBN_SELCHANGE, "selchange"},
          {CBN_EDITCHANGE, "editchange"},
          {CBN_EDITUPDATE, "editupdate"},
          {CBN_DROPDOWN, "dropdown"},
          {CBN_CLOSEUP, "closeup"},
          {CBN_SELENDOK, "selendok"},
          {CBN_SELENDCANCEL, "selendcancel"}}},
        {u"ListBox", {{LBN_SELCHANGE, "selchange"}, {LBN_DBLCLK, "dblclick"}}}};
    return names;
}

std::u16string classOf(HWND window) {
    WCHAR name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

} // namespace

WindowListener::WindowListener(const char16_t* className, DWORD style, WORD id) {
    parent_ =
        CreateWindowExW(0, u"#32770", u"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr, nullptr, nullptr, nullptr);
    EXPECT_NE(parent_, nullptr) << GetLastError();
    current = this;
    before_ =
        reinterpret_cast<WNDPROC>(SetWindowLongPtrW(parent_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure)));
    control_ = CreateWindowExW(0, className, u"", WS_CHILD | WS_VISIBLE | style, 10, 10, 200, 150, parent_,
                               reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(id)), nullptr, nullptr);
    EXPECT_NE(control_, nullptr) << GetLastError();
    SetForegroundWindow(parent_);
    runEvents();
    heard_.clear();
}

WindowListener::~WindowListener() {
    DestroyWindow(parent_);
    current = nullptr;
    runEvents();
}

LRESULT WindowListener::send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(control_, message, wParam, lParam);
}

LRESULT WindowListener::sendText(UINT message, WPARAM wParam, const char16_t* text) const {
    return send(message, wParam, reinterpret_cast<LPARAM>(text));
}

void WindowListener::click(POINT at, WPARAM keys) const {
    LPARAM position = MAKELPARAM(at.x, at.y);
    PostMessageW(control_, WM_LBUTTONDOWN, MK_LBUTTON | keys, position);
    PostMessageW(control_, WM_LBUTTONUP, keys, position);
    runEvents();
}

void WindowListener::press(int qtKey, int qtModifiers, const char16_t* text) const {
    QWidget* focused = QApplication::activePopupWidget();
    if (focused == nullptr)
        focused = QApplication::focusWidget();
    else if (focused->focusWidget() != nullptr)
        focused = focused->focusWidget();
    ASSERT_NE(focused, nullptr);
    Qt::KeyboardModifiers modifiers(qtModifiers);
    QKeyEvent down(QEvent::KeyPress, qtKey, modifiers, QString::fromUtf16(text));
    QApplication::sendEvent(focused, &down);
    QKeyEvent up(QEvent::KeyRelease, qtKey, modifiers, QString::fromUtf16(text));
    QApplication::sendEvent(focused, &up);
    runEvents();
}

void WindowListener::clickByHand(POINT at) const {
    RECT frame{};
    GetWindowRect(control_, &frame);
    QPoint there(frame.left + at.x, frame.top + at.y);
    QWidget* under = QApplication::widgetAt(there);
    ASSERT_NE(under, nullptr);
    clickWidget(*under, there);
}

void WindowListener::clickWidget(QWidget& widget, const QPoint& onScreen) {
    QPointF there(widget.mapFromGlobal(onScreen));
    QMouseEvent move(QEvent::MouseMove, there, onScreen, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QMouseEvent press(QEvent::MouseButtonPress, there, onScreen, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, there, onScreen, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    for (QMouseEvent* event : {&move, &press, &release})
        QApplication::sendEvent(&widget, event);
    runEvents();
}

LRESULT CALLBACK WindowListener::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NOTIFY) return current->hear(*reinterpret_cast<const NMHDR*>(lParam));
    if (message == WM_COMMAND && lParam != 0) {
        const auto& names = commandNames();
        auto ofClass = names.find(classOf(reinterpret_cast<HWND>(lParam)));
        if (ofClass != names.end())
            if (auto name = ofClass->second.find(HIWORD(wParam)); name != ofClass->second.end())
                current->heard_.emplace_back(name->second);
    }
    return CallWindowProcW(current->before_, window, message, wParam, lParam);
}

LRESULT WindowListener::hear(const NMHDR& note) {
    auto name = noteNames().find(note.code);
    if (name == noteNames().end()) return 0;
    const auto& list = reinterpret_cast<const NMLISTVIEW&>(note);
    bool isChange = note.code == LVN_ITEMCHANGING || note.code == LVN_ITEMCHANGED;
    std::string line =
        std::string(name->second) + ' ' + std::to_string(note.code == LVN_COLUMNCLICK ? list.iSubItem : list.iItem);
    if (isChange) line += ' ' + std::to_string(list.uOldState) + '>' + std::to_string(list.uNewState);
    heard_.push_back(line);
    return note.code == LVN_ITEMCHANGING && refuses && refuses(list) ? TRUE : FALSE;
}

void runEvents() {
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
}
