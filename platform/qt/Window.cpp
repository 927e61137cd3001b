#include "platform/qt/Window.h"

#include "platform/posix/service.h"
#include "platform/qt/WindowTable.h"
#include "platform/qt/gdiObjects.h"
#include "platform/qt/resourcePictures.h"

#include <QEvent>

#include <algorithm>

namespace {

WindowTable& table() { return WindowTable::instance(); }

// The end of every chain of procedures.
LRESULT CALLBACK classProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = Window::of(handle);
    return window == nullptr ? 0 : window->answer(message, wParam, lParam);
}

void setBit(DWORD& style, DWORD bit, bool isSet) { style = isSet ? style | bit : style & ~bit; }

// The child windows for which it is asked, up to the first one for which the answer is true.
template <typename Take>
Window* firstChild(const QWidget& widget, Take&& take) {
    for (QObject* object : widget.children()) {
        auto* part = qobject_cast<QWidget*>(object);
        if (part == nullptr || part->isWindow()) continue;
        Window* window = Window::of(part);
        if (window == nullptr)
            window = firstChild(*part, take);
        else if (!take(*window))
            window = nullptr;
        if (window != nullptr) return window;
    }
    return nullptr;
}

// How many messages of windows are being answered, one inside the other. While there is one, its window or one that
// lies round it may be on the stack, so destroyed windows wait.
int answering = 0;
std::vector<Window*>& waitingToGo() {
    static auto* windows = new std::vector<Window*>;
    return *windows;
}

void letGo(Window& window) {
    if (answering == 0)
        window.deleteLater();
    else
        waitingToGo().push_back(&window);
}

void letGoWaiting() {
    for (Window* window : std::exchange(waitingToGo(), {}))
        window->deleteLater();
}

LRESULT setText(QWidget& widget, LPARAM text) {
    widget.setWindowTitle(textFrom(text));
    return TRUE;
}

} // namespace

Window::Window(std::unique_ptr<QWidget> widget, WindowTraits traits)
    : widget_(widget.release()),
      handle_(table().add(*this, widget_)),
      className_(std::move(traits.className)),
      style_(traits.style),
      extendedStyle_(traits.extendedStyle),
      id_(traits.id),
      instance_(traits.instance),
      procedure_(&classProcedure) {
    widget_->installEventFilter(this);
    widget_->setMouseTracking(true);
}

Window::~Window() {
    if (handle_ != nullptr) table().forget(handle_, widget_).release(); // NOLINT: it is this one
    delete widget_;
}

bool Window::isOfClass(LPCWSTR name) const noexcept {
    return QStringView(className_).compare(QStringView(fromWide(name)), Qt::CaseInsensitive) == 0;
}

DWORD Window::style() const noexcept {
    DWORD style = style_;
    setBit(style, WS_VISIBLE, widget_ != nullptr && !widget_->isHidden());
    setBit(style, WS_DISABLED, widget_ != nullptr && widget_->testAttribute(Qt::WA_ForceDisabled));
    return style;
}

Window* Window::of(HWND handle) noexcept {
    Window* window = table().find(handle);
    if (window == nullptr) SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return window;
}

Window* Window::of(const QWidget* widget) noexcept { return table().find(widget); }

Window* Window::holding(const QWidget* widget) noexcept {
    for (; widget != nullptr; widget = widget->parentWidget())
        if (Window* window = of(widget)) return window;
    return nullptr;
}

std::vector<Window*> Window::all() { return table().all(); }

Window* Window::parent() const noexcept { return widget_ == nullptr ? nullptr : holding(widget_->parentWidget()); }

std::vector<Window*> Window::children() const {
    std::vector<Window*> windows;
    auto collect = [&](Window& window) {
        windows.push_back(&window);
        return false;
    };
    if (widget_ != nullptr) firstChild(*widget_, collect);
    return windows;
}

Window* Window::child(WORD id) const {
    if (widget_ == nullptr) return nullptr;
    Window* known = table().find(childrenById_.value(id));
    if (known != nullptr && known->id() == id && known->parent() == this) return known;
    Window* found = firstChild(*widget_, [id](const Window& child) { return child.id() == id; });
    if (found != nullptr) childrenById_.insert(id, found->handle());
    return found;
}

// Another child may now be the first one with its id.
void Window::setId(WORD id) {
    id_ = id;
    if (Window* above = parent()) above->childrenById_.clear();
}

std::vector<Window*> Window::owned() const {
    std::vector<Window*> windows;
    if (widget_ == nullptr) return windows;
    for (QObject* object : widget_->children()) {
        auto* part = qobject_cast<QWidget*>(object);
        if (part == nullptr || !part->isWindow()) continue;
        if (Window* window = of(part)) windows.push_back(window);
    }
    return windows;
}

bool Window::isTopLevel() const noexcept { return widget_ != nullptr && widget_->isWindow(); }

Window& Window::root() noexcept {
    Window* window = this;
    while (!window->isTopLevel() && window->parent() != nullptr)
        window = window->parent();
    return *window;
}

LRESULT Window::send(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (handle_ == nullptr) return 0;
    ++depth_;
    ++answering;
    struct Leave {
        int& depth;
        ~Leave() {
            --depth;
            if (--answering == 0 && !waitingToGo().empty()) letGoWaiting();
        }
    } leave{depth_};
    try {
        LRESULT answer = procedure_(handle_, message, wParam, lParam);
        hasFailed_ = false;
        return answer;
    } catch (...) {
        // Below lie the toolkit's frames and the program's: none of them is made for what its procedure lets out.
        hasFailed_ = true;
        SetLastError(errorOfCurrentException());
        return 0;
    }
}

void Window::styleChanged(DWORD, DWORD) {}

void Window::place(const QRect& area) {
    if (widget_ != nullptr) widget_->setGeometry(area);
}

QRect Window::clientArea() const { return widget_ == nullptr ? QRect() : widget_->rect(); }

LONG_PTR* Window::extraWord(int) noexcept { return nullptr; }

WNDPROC Window::setProcedure(WNDPROC procedure) noexcept { return std::exchange(procedure_, procedure); }

void Window::setStyle(DWORD style) {
    DWORD before = this->style();
    style_ = style;
    if (widget_ == nullptr) return;
    widget_->setEnabled((style & WS_DISABLED) == 0);
    widget_->setVisible((style & WS_VISIBLE) != 0);
    styleChanged(before, extendedStyle_);
}

void Window::setExtendedStyle(DWORD extendedStyle) {
    DWORD before = std::exchange(extendedStyle_, extendedStyle);
    if (widget_ != nullptr) styleChanged(style(), before);
}

Window& Window::keep(std::unique_ptr<Window> window) {
    HWND handle = window->handle();
    table().keep(handle, std::move(window));
    return *of(handle);
}

void Window::destroy() {
    // A program may destroy what goes already: in WM_DESTROY, or in what that leads to.
    if (std::exchange(isGoing_, true)) return;
    for (Window* window : owned())
        window->destroy();
    if (widget_ != nullptr && widget_->isWindow()) widget_->hide();
    send(WM_DESTROY);
    for (Window* child : children())
        child->destroy();
    send(WM_NCDESTROY);
    if (handle_ == nullptr) return;
    auto kept = table().forget(std::exchange(handle_, nullptr), widget_);
    if (widget_ != nullptr) widget_->hide();
    if (kept != nullptr) letGo(*kept.release());
}

LRESULT Window::notifyCommand(WORD code) {
    Window* owner = parent();
    if (owner == nullptr || handle_ == nullptr) return 0;
    return owner->send(WM_COMMAND, MAKEWPARAM(id_, code), reinterpret_cast<LPARAM>(handle_));
}

LRESULT Window::notify(NMHDR& header, UINT code) {
    Window* owner = parent();
    if (owner == nullptr || handle_ == nullptr) return 0;
    header = {handle_, id_, code};
    return owner->send(WM_NOTIFY, id_, reinterpret_cast<LPARAM>(&header));
}

LRESULT Window::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    if (widget_ == nullptr) return 0;
    switch (message) {
    case WM_SETTEXT:
        return setText(*widget_, lParam);
    case WM_GETTEXT:
        return copyText(widget_->windowTitle(), wParam, lParam);
    case WM_GETTEXTLENGTH:
        return widget_->windowTitle().size();
    case WM_SETFONT:
        font_ = reinterpret_cast<HFONT>(wParam); // NOLINT: published
        widget_->setFont(fontOf(font_));
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(font_);
    case WM_SETICON:
        widget_->setWindowIcon(iconOf(reinterpret_cast<HICON>(lParam))); // NOLINT: published
        return 0;
    case WM_SETREDRAW:
        widget_->setUpdatesEnabled(wParam != 0);
        return 0;
    case WM_PAINT:
        if (!deliverEvent()) widget_->update();
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_MOUSELEAVE:
        deliverEvent();
        return 0;
    case WM_GETDLGCODE:
        return wantedKeys();
    case WM_SYSCOMMAND:
        return (wParam & 0xFFF0U) == SC_CLOSE ? send(WM_CLOSE) : 0;
    case WM_CLOSE:
        destroy();
        return 0;
    case WM_HELP:
        return parent() == nullptr ? 0 : parent()->send(WM_HELP, wParam, lParam);
    default:
        return answerInput(message, wParam, lParam);
    }
}

LRESULT Window::answerInput(UINT message, WPARAM wParam, LPARAM lParam) {
    bool isKey = message >= WM_KEYFIRST && message <= WM_KEYLAST;
    bool isMouse = message >= WM_MOUSEFIRST && message <= WM_MOUSEWHEEL;
    if ((!isKey && !isMouse) || deliverEvent()) return 0;
    if (isKey)
        actOnKey(message, wParam);
    else
        actOnMouse(message, wParam, lParam);
    return 0;
}

LRESULT Window::wantedKeys() const noexcept {
    struct Row {
        LPCWSTR className;
        LRESULT keys;
    };
    static constexpr Row rows[] = {
        {u"Edit", DLGC_WANTCHARS | DLGC_HASSETSEL | DLGC_WANTARROWS},
        {u"ComboBox", DLGC_WANTCHARS | DLGC_WANTARROWS},
        {u"ListBox", DLGC_WANTCHARS | DLGC_WANTARROWS},
        {u"SysListView32", DLGC_WANTCHARS | DLGC_WANTARROWS},
        {u"msctls_trackbar32", DLGC_WANTARROWS},
        {u"SysTabControl32", DLGC_WANTARROWS},
        {u"SysTreeView32", DLGC_WANTCHARS | DLGC_WANTARROWS},
        {u"Button", DLGC_BUTTON},
        {u"Static", DLGC_STATIC},
    };
    const auto* row = std::ranges::find_if(rows, [&](const Row& one) { return isOfClass(one.className); });
    return row == std::end(rows) ? 0 : row->keys;
}

LRESULT copyText(const QString& text, WPARAM size, LPARAM buffer) noexcept {
    auto* to = reinterpret_cast<LPWSTR>(buffer); // NOLINT: published
    if (to == nullptr || size == 0) return 0;
    std::size_t count = std::min<std::size_t>(static_cast<std::size_t>(text.size()), size - 1);
    std::copy_n(text.utf16(), count, to);
    to[count] = 0;
    return static_cast<LRESULT>(count);
}

QString textFrom(LPCWSTR text) { return text == nullptr ? QString() : QString::fromUtf16(fromWide(text)); }
