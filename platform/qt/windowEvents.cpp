// Between the events of widgets and messages.
#include "platform/posix/service.h"
#include "platform/qt/Dialog.h"
#include "platform/qt/Window.h"
#include "platform/qt/keys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

WPARAM keyStateOf(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers) {
    WPARAM state = 0;
    if (buttons.testFlag(Qt::LeftButton)) state |= MK_LBUTTON;
    if (buttons.testFlag(Qt::RightButton)) state |= MK_RBUTTON;
    if (buttons.testFlag(Qt::MiddleButton)) state |= MK_MBUTTON;
    if (modifiers.testFlag(Qt::ShiftModifier)) state |= MK_SHIFT;
    if (modifiers.testFlag(Qt::ControlModifier)) state |= MK_CONTROL;
    return state;
}

struct MouseRow {
    UINT message;
    QEvent::Type type;
    Qt::MouseButton button;
};
constexpr MouseRow mouseRows[] = {
    {WM_MOUSEMOVE, QEvent::MouseMove, Qt::NoButton},
    {WM_LBUTTONDOWN, QEvent::MouseButtonPress, Qt::LeftButton},
    {WM_LBUTTONUP, QEvent::MouseButtonRelease, Qt::LeftButton},
    {WM_LBUTTONDBLCLK, QEvent::MouseButtonDblClick, Qt::LeftButton},
    {WM_RBUTTONDOWN, QEvent::MouseButtonPress, Qt::RightButton},
    {WM_RBUTTONUP, QEvent::MouseButtonRelease, Qt::RightButton},
    {WM_RBUTTONDBLCLK, QEvent::MouseButtonDblClick, Qt::RightButton},
    {WM_MBUTTONDOWN, QEvent::MouseButtonPress, Qt::MiddleButton},
    {WM_MBUTTONUP, QEvent::MouseButtonRelease, Qt::MiddleButton},
};

const MouseRow* mouseRowOf(const QMouseEvent& event) {
    for (const MouseRow& row : mouseRows)
        if (row.type == event.type() && row.button == event.button()) return &row;
    return nullptr;
}

} // namespace

bool Window::eventFilter(QObject* watched, QEvent* event) {
    if (watched != widget_ || handle_ == nullptr) return false;
    try {
        return translate(*event);
    } catch (...) {
        // Nothing may pass through the message loop, which is no code of ours.
        SetLastError(errorOfCurrentException());
        return true;
    }
}

bool Window::deliverEvent() {
    if (delivery_ == nullptr || delivery_->depth != depth_) return false;
    if (!delivery_->isDue || std::exchange(delivery_->isDone, true)) return true;
    if (widget_ != nullptr) static_cast<QObject*>(widget_)->event(delivery_->event);
    return true;
}

bool Window::sendFor(QEvent& event, UINT message, WPARAM wParam, LPARAM lParam) {
    deliver(event, true, message, wParam, lParam);
    return true;
}

// True when the widget got the event.
bool Window::deliver(QEvent& event, bool isDue, UINT message, WPARAM wParam, LPARAM lParam) {
    Delivery delivery{&event, delivery_, depth_ + 1, isDue, false};
    struct Scope {
        Delivery*& place;
        Delivery* outer;
        ~Scope() { place = outer; }
    } scope{delivery_, std::exchange(delivery_, &delivery)};
    send(message, wParam, lParam);
    if (!delivery.isDone) event.accept();
    return delivery.isDone;
}

bool Window::translate(QEvent& event) {
    switch (event.type()) {
    case QEvent::KeyPress:
        return translateKey(event);
    case QEvent::KeyRelease: {
        auto& key = static_cast<QKeyEvent&>(event);
        bool isSystem = key.modifiers().testFlag(Qt::AltModifier);
        return sendFor(event, isSystem ? WM_SYSKEYUP : WM_KEYUP, virtualKeyOf(key), 1);
    }
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return translateMouse(event);
    case QEvent::Leave:
        return std::exchange(tracksLeave, false) && sendFor(event, WM_MOUSELEAVE, 0, 0);
    case QEvent::FocusIn:
        return sendFor(event, WM_SETFOCUS, 0, 0);
    case QEvent::FocusOut:
        return sendFor(event, WM_KILLFOCUS, 0, 0);
    case QEvent::Paint:
        return sendFor(event, WM_PAINT, 0, 0);
    default:
        tellState(event);
        return false;
    }
}

// What the program is told and has no say in.
void Window::tellState(const QEvent& event) {
    switch (event.type()) {
    case QEvent::EnabledChange:
        send(WM_ENABLE, widget_->isEnabled() ? TRUE : FALSE, 0);
        break;
    case QEvent::Show:
    case QEvent::Hide:
        if (!event.spontaneous()) send(WM_SHOWWINDOW, event.type() == QEvent::Show ? TRUE : FALSE, 0);
        break;
    case QEvent::Resize:
        send(WM_SIZE, SIZE_RESTORED, MAKELPARAM(widget_->width(), widget_->height()));
        break;
    case QEvent::Move:
        send(WM_MOVE, 0, MAKELPARAM(widget_->x(), widget_->y()));
        break;
    default:
        break;
    }
}

bool Window::translateKey(QEvent& event) {
    auto& key = static_cast<QKeyEvent&>(event);
    constexpr LPARAM once = 1;
    if (key.modifiers().testFlag(Qt::AltModifier) && charactersOf(key).empty())
        return sendFor(event, WM_SYSKEYDOWN, virtualKeyOf(key), once);
    // A key that types something reaches the widget with its last character: who swallows that swallows the key.
    std::u16string typed = charactersOf(key);
    QPointer<Window> self = this;
    deliver(event, typed.empty(), WM_KEYDOWN, virtualKeyOf(key), once);
    for (std::size_t i = 0; i < typed.size() && self != nullptr && handle_ != nullptr; ++i)
        deliver(event, i + 1 == typed.size(), WM_CHAR, typed[i], once);
    // What a control does not want is not for its dialog, nor for itself once more; the field of a combo box has its
    // box.
    if (self == nullptr || handle_ == nullptr || Dialog::of(parent()) != nullptr) event.accept();
    return true;
}

bool Window::translateMouse(QEvent& event) {
    auto& mouse = static_cast<QMouseEvent&>(event);
    const MouseRow* row = mouseRowOf(mouse);
    if (row == nullptr) return false;
    QPoint at = mouse.position().toPoint();
    return sendFor(event, row->message, keyStateOf(mouse.buttons(), mouse.modifiers()), MAKELPARAM(at.x(), at.y()));
}

// A program presses the key: it goes to the widget alone, past the window's procedure.
void Window::actOnKey(UINT message, WPARAM wParam) {
    QWidget* target = widget_->focusProxy() == nullptr ? widget_.data() : widget_->focusProxy();
    if (message == WM_CHAR) {
        QKeyEvent press = pressTyping(static_cast<char16_t>(wParam));
        static_cast<QObject*>(target)->event(&press);
    } else if (message == WM_KEYDOWN) {
        QKeyEvent press(QEvent::KeyPress, qtKeyOf(static_cast<WORD>(wParam)), Qt::NoModifier);
        if (press.key() != 0 && charactersOf(press).empty() && textOfKey(static_cast<WORD>(wParam), {}).isEmpty())
            static_cast<QObject*>(target)->event(&press);
    }
}

void Window::actOnMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    for (const MouseRow& row : mouseRows) {
        if (row.message != message) continue;
        QPoint at(static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam)));
        QWidget* part = widget_->childAt(at);
        if (part == nullptr || holding(part) != this) part = widget_;
        Qt::MouseButtons held = wParam & MK_LBUTTON ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent mouse(row.type, part->mapFrom(widget_, at), widget_->mapToGlobal(at), row.button, held,
                          Qt::NoModifier);
        if (part == widget_)
            static_cast<QObject*>(part)->event(&mouse);
        else
            QCoreApplication::sendEvent(part, &mouse);
        return;
    }
}
