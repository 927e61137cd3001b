// The up-down class: a pair of arrows that change the number in the field beside them, its buddy.
#include "platform/controls.h"
#include "platform/qt/UpDownFace.h"
#include "platform/qt/Window.h"
#include "platform/qt/controlClasses.h"
#include "platform/qt/keyboard.h"

#include <QKeyEvent>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace {

constexpr int usualWidth = 17;
constexpr int wheelNotch = 120;
constexpr LRESULT decimal = 10;

class UpDown : public Window {
public:
    UpDown(std::unique_ptr<UpDownFace> face, const WindowTraits& traits);

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
    void place(const QRect& area) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // As far as it can be used: null for no buddy and for one that is gone.
    Window* buddy() const;
    LRESULT setBuddy(HWND buddy);
    Window* windowBefore() const;
    void standBeside(const Window& neighbour);

    LRESULT answerPosition(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT setRange(int lower, int upper);
    LRESULT tellRange(WPARAM lower, LPARAM upper) const;
    int position();
    LRESULT setPosition(long long wanted);
    long long confined(long long wanted) const;
    void step(int direction, int size);
    void tell(WORD code);
    bool actOnKey(const QKeyEvent& key);
    bool actOnWheel(const QWheelEvent& wheel);

    // As published: the range that nobody has set runs downwards, so up counts down.
    int lower_ = 100;
    int upper_ = 0;
    int position_ = 0;
    HWND buddy_ = nullptr;
    bool isPlaced_ = false;
};

UpDown::UpDown(std::unique_ptr<UpDownFace> face, const WindowTraits& traits) : Window(std::move(face), traits) {
    auto* arrows = static_cast<UpDownFace*>(widget());
    arrows->stepped = [this](int direction, int size) {
        if (Window* field = buddy(); field != nullptr) field->widget()->setFocus(Qt::MouseFocusReason);
        step(direction, size);
    };
    arrows->released = [this] { tell(SB_ENDSCROLL); };
    if ((traits.style & UDS_AUTOBUDDY) != 0)
        if (Window* before = windowBefore(); before != nullptr) setBuddy(before->handle());
}

LRESULT UpDown::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case UDM_SETRANGE:
        return setRange(static_cast<SHORT>(HIWORD(lParam)), static_cast<SHORT>(LOWORD(lParam)));
    case UDM_GETRANGE:
        return static_cast<DWORD>(MAKELONG(upper_, lower_));
    case UDM_SETRANGE32:
        return setRange(static_cast<int>(wParam), static_cast<int>(lParam));
    case UDM_GETRANGE32:
        return tellRange(wParam, lParam);
    case UDM_SETBUDDY:
        return setBuddy(reinterpret_cast<HWND>(wParam)); // NOLINT: published
    case UDM_GETBUDDY:
        return reinterpret_cast<LRESULT>(buddy_);
    case UDM_SETBASE:
        return wParam == decimal ? decimal : 0;
    case UDM_GETBASE:
        return decimal;
    default:
        return answerPosition(message, wParam, lParam);
    }
}

LRESULT UpDown::answerPosition(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case UDM_SETPOS:
        return setPosition(static_cast<SHORT>(LOWORD(lParam)));
    case UDM_SETPOS32:
        return setPosition(static_cast<int>(lParam));
    case UDM_GETPOS:
        return static_cast<DWORD>(MAKELONG(position(), buddy() == nullptr ? 1 : 0));
    case UDM_GETPOS32:
        if (lParam != 0) *reinterpret_cast<BOOL*>(lParam) = buddy() == nullptr ? TRUE : FALSE;
        return position();
    default:
        return Window::answer(message, wParam, lParam);
    }
}

Window* UpDown::windowBefore() const {
    Window* before = nullptr;
    if (parent() == nullptr) return nullptr;
    for (Window* window : parent()->children()) {
        if (window == this) break;
        before = window;
    }
    return before;
}

Window* UpDown::buddy() const {
    DWORD error = GetLastError();
    Window* window = buddy_ == nullptr ? nullptr : Window::of(buddy_);
    SetLastError(error);
    return window;
}

LRESULT UpDown::setBuddy(HWND next) {
    if (Window* before = buddy(); before != nullptr) before->widget()->removeEventFilter(this);
    HWND before = std::exchange(buddy_, next);
    Window* field = buddy();
    if (field != nullptr && (style() & UDS_ARROWKEYS) != 0) field->widget()->installEventFilter(this);
    if (field != nullptr && isPlaced_) standBeside(*field);
    return reinterpret_cast<LRESULT>(before);
}

// The first place is the template's; where an up-down belongs to the edge of its buddy, it goes there.
void UpDown::place(const QRect& area) {
    Window::place(area);
    Window* field = buddy();
    if (!std::exchange(isPlaced_, true) && field != nullptr) standBeside(*field);
}

void UpDown::standBeside(const Window& neighbour) {
    bool isLeft = (style() & UDS_ALIGNLEFT) != 0;
    if (!isLeft && (style() & UDS_ALIGNRIGHT) == 0) return;
    QRect area = neighbour.widget()->geometry();
    int width = std::min(usualWidth, area.width() / 2);
    QRect arrows(isLeft ? area.left() : area.right() - width + 1, area.top(), width, area.height());
    neighbour.widget()->setGeometry(isLeft ? area.adjusted(width, 0, 0, 0) : area.adjusted(0, 0, -width, 0));
    widget()->setGeometry(arrows);
}

LRESULT UpDown::setRange(int lower, int upper) {
    lower_ = lower;
    upper_ = upper;
    position_ = static_cast<int>(confined(position_));
    return 0;
}

LRESULT UpDown::tellRange(WPARAM lower, LPARAM upper) const {
    if (lower != 0) *reinterpret_cast<int*>(lower) = lower_;
    if (upper != 0) *reinterpret_cast<int*>(upper) = upper_;
    return 0;
}

// With UDS_SETBUDDYINT the number in the field is the position, also when the user has typed it.
int UpDown::position() {
    Window* field = buddy();
    if (field == nullptr || (style() & UDS_SETBUDDYINT) == 0) return position_;
    WCHAR text[32];
    field->send(WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
    bool isNumber = false;
    int number = textFrom(text).toInt(&isNumber);
    if (isNumber) position_ = static_cast<int>(confined(number));
    return position_;
}

long long UpDown::confined(long long wanted) const {
    auto [low, high] = std::minmax(lower_, upper_);
    return std::clamp<long long>(wanted, low, high);
}

LRESULT UpDown::setPosition(long long wanted) {
    int before = std::exchange(position_, static_cast<int>(confined(wanted)));
    if (Window* field = buddy(); field != nullptr && (style() & UDS_SETBUDDYINT) != 0) {
        std::u16string number = QString::number(position_).toStdU16String();
        if (textOf(*field).toStdU16String() != number)
            field->send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(toWide(number)));
    }
    return before;
}

// The parent hears of a change before it is made, may alter it or forbid it, and hears also of one that leads nowhere:
// it may count for itself.
void UpDown::step(int direction, int size) {
    NMUPDOWN change{};
    change.iPos = position();
    change.iDelta = direction * size * (upper_ < lower_ ? -1 : 1);
    if (notify(change.hdr, UDN_DELTAPOS) == 0) {
        long long wanted = static_cast<long long>(position_) + change.iDelta;
        auto [low, high] = std::minmax(lower_, upper_);
        bool turnsOver = (style() & UDS_WRAP) != 0 && (wanted < low || wanted > high);
        setPosition(!turnsOver ? wanted : wanted < low ? high : low);
    }
    tell(SB_THUMBPOSITION);
}

void UpDown::tell(WORD code) {
    if (parent() == nullptr) return;
    parent()->send((style() & UDS_HORZ) != 0 ? WM_HSCROLL : WM_VSCROLL, MAKEWPARAM(code, position_),
                   reinterpret_cast<LPARAM>(handle()));
}

bool UpDown::eventFilter(QObject* watched, QEvent* event) {
    Window* field = buddy();
    if (field != nullptr && watched == field->widget() && widget()->isEnabled()) {
        if (event->type() == QEvent::KeyPress && actOnKey(static_cast<const QKeyEvent&>(*event))) return true;
        if (event->type() == QEvent::Wheel && actOnWheel(static_cast<const QWheelEvent&>(*event))) return true;
    }
    return Window::eventFilter(watched, event);
}

bool UpDown::actOnKey(const QKeyEvent& key) {
    bool isUp = key.key() == Qt::Key_Up;
    if ((!isUp && key.key() != Qt::Key_Down) || (key.modifiers() & ~Qt::KeypadModifier) != 0) return false;
    step(isUp ? 1 : -1, 1);
    return true;
}

// Of whole notches only, and only in a field that has the focus: who scrolls past changes nothing.
bool UpDown::actOnWheel(const QWheelEvent& wheel) {
    int notches = wheel.angleDelta().y() / wheelNotch;
    if (notches == 0 || !buddy()->widget()->hasFocus()) return false;
    step(notches > 0 ? 1 : -1, std::abs(notches));
    return true;
}

} // namespace

std::unique_ptr<Window> makeUpDown(const WindowTraits& traits, QWidget* parent) {
    auto orientation = (traits.style & UDS_HORZ) != 0 ? Qt::Horizontal : Qt::Vertical;
    return std::make_unique<UpDown>(std::make_unique<UpDownFace>(orientation, parent), traits);
}
