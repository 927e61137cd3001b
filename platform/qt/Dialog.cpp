#include "platform/qt/Dialog.h"

#include "platform/controls.h"
#include "platform/qt/keyboard.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>
#include <QEvent>
#include <QThread>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace {

std::vector<Dialog*>& runningDialogs() {
    static auto* dialogs = new std::vector<Dialog*>;
    return *dialogs;
}

// While it lives, the dialog is the innermost modal one.
class Running {
public:
    explicit Running(Dialog& dialog) : dialog_(&dialog) { runningDialogs().push_back(dialog_); }
    ~Running() { std::erase(runningDialogs(), dialog_); }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

private:
    Dialog* dialog_;
};

// Whether it is the other one, a part of it, or owned by it.
bool lies(const QWidget* widget, const QWidget& other) {
    while (widget != nullptr && widget != &other)
        widget = widget->parentWidget();
    return widget != nullptr;
}

// A dialog of no owner still stays above the window that was in use.
void keepAbove(QWidget& dialog, const QWidget* inUse) {
    if (inUse == nullptr || inUse->window()->windowHandle() == nullptr) return;
    dialog.winId(); // its native window is made now
    dialog.windowHandle()->setTransientParent(inUse->window()->windowHandle());
}

// Messages whose answer is what the procedure returns, not what it stores.
bool answersDirectly(UINT message) {
    return (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) || message == WM_INITDIALOG ||
           message == WM_COMPAREITEM;
}

void setButtonStyle(Window& dialog, WORD id, DWORD style) {
    HWND button = id == 0 ? nullptr : qt::GetDlgItem(dialog.handle(), id);
    if (button != nullptr) qt::SendMessageW(button, BM_SETSTYLE, style, TRUE);
}

// Widgets that went with the dialog are freed here when no message loop is left to do it.
void freeDestroyed() {
    if (QThread::currentThread()->loopLevel() == 0) QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

Dialog::Dialog(std::unique_ptr<QWidget> widget, WindowTraits traits, const QFont& font, DLGPROC procedure)
    : Window(std::move(widget), std::move(traits)), units_(font), procedure_(reinterpret_cast<LONG_PTR>(procedure)) {
    this->widget()->setFont(font);
}

Dialog::~Dialog() {
    if (loop_ != nullptr) loop_->quit();
}

Window* Dialog::owner() const noexcept { return isTopLevel() ? Window::holding(widget()->parentWidget()) : nullptr; }

const std::vector<Dialog*>& Dialog::running() noexcept { return runningDialogs(); }

bool Dialog::isBlocked(const Window& window) noexcept {
    for (auto at = runningDialogs().rbegin(); at != runningDialogs().rend(); ++at) {
        const Dialog& dialog = **at;
        if (lies(window.widget(), *dialog.widget())) return false;
        const Window* owner = dialog.owner();
        if (owner == nullptr || lies(owner->widget(), *window.widget())) return true;
    }
    return false;
}

INT_PTR Dialog::runModal() {
    QPointer<Dialog> self = this;
    if (!isEnded_ && handle() != nullptr) coverOwner();
    if (self != nullptr && !isEnded_ && handle() != nullptr) {
        Window* ownedBy = owner();
        if (ownedBy == nullptr) keepAbove(*widget(), QApplication::activeWindow());
        Running running(*this);
        QEventLoop loop;
        loop_ = &loop;
        widget()->setWindowModality(ownedBy == nullptr ? Qt::ApplicationModal : Qt::WindowModal);
        widget()->show();
        widget()->raise();
        widget()->activateWindow();
        loop.exec(QEventLoop::DialogExec);
        if (self != nullptr) loop_ = nullptr;
    }
    if (self == nullptr) return -1;
    INT_PTR result = isEnded_ ? endResult_ : -1;
    if (handle() != nullptr) destroy();
    freeDestroyed();
    return result;
}

// Its owner's keys and mouse are this dialog's until it ends.
void Dialog::coverOwner() {
    Window* ownedBy = owner();
    if (ownedBy == nullptr || isBlocked(ownedBy->root())) return;
    covered_ = &ownedBy->root();
    covered_->send(WM_ENABLE, FALSE);
}

void Dialog::end(INT_PTR result) {
    endResult_ = result;
    isEnded_ = true;
    if (widget() == nullptr) return;
    if (Window* freed = std::exchange(covered_, nullptr); freed != nullptr && freed->handle() != nullptr)
        freed->send(WM_ENABLE, TRUE);
    if (widget() == nullptr) return;
    QWidget* next = widget()->parentWidget();
    bool wasActive = widget()->isActiveWindow();
    widget()->hide();
    if (wasActive && next != nullptr) next->window()->activateWindow();
    if (loop_ != nullptr) loop_->quit();
}

void Dialog::showAsTemplateSays() {
    widget()->show();
    if (isTopLevel()) widget()->activateWindow();
}

LONG_PTR* Dialog::extraWord(int index) noexcept {
    switch (index) {
    case DWLP_MSGRESULT:
        return &result_;
    case DWLP_DLGPROC:
        return &procedure_;
    case DWLP_USER:
        return &user_;
    default:
        return nullptr;
    }
}

LRESULT Dialog::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    auto* procedure = reinterpret_cast<DLGPROC>(procedure_); // NOLINT: the published word
    result_ = 0;
    INT_PTR handled = procedure == nullptr ? 0 : procedure(handle(), message, wParam, lParam);
    if (message == WM_NCDESTROY && loop_ != nullptr) loop_->quit();
    if (handled == 0) return answerByDefault(message, wParam, lParam);
    return answersDirectly(message) ? handled : result_;
}

LRESULT Dialog::answerByDefault(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CLOSE:
        return close();
    case DM_GETDEFID:
        return defaultId_ == 0 ? 0 : MAKELPARAM(defaultId_, DC_HASDEFID);
    case DM_SETDEFID:
        return setDefaultId(static_cast<WORD>(wParam));
    case WM_NEXTDLGCTL: {
        HWND next = LOWORD(lParam) != 0 ? reinterpret_cast<HWND>(wParam) // NOLINT: published
                                        : qt::GetNextDlgTabItem(handle(), qt::GetFocus(), wParam != 0);
        focusByKeyboard(next);
        return 0;
    }
    default:
        return Window::answer(message, wParam, lParam);
    }
}

// As the button would: a dialog whose Cancel is disabled stays.
LRESULT Dialog::close() {
    HWND cancel = qt::GetDlgItem(handle(), IDCANCEL);
    if (cancel != nullptr && !qt::IsWindowEnabled(cancel))
        qt::MessageBeep(MB_OK);
    else
        qt::PostMessageW(handle(), WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), reinterpret_cast<LPARAM>(cancel));
    return 0;
}

LRESULT Dialog::setDefaultId(WORD id) {
    setButtonStyle(*this, defaultId_, BS_PUSHBUTTON);
    defaultId_ = id;
    setButtonStyle(*this, defaultId_, BS_DEFPUSHBUTTON);
    return TRUE;
}

// A top-level window's place counts its frame; one that cannot be resized by hand keeps the size it is given.
void Dialog::place(const QRect& area) {
    if (!isTopLevel()) return Window::place(area);
    QSize frame = widget()->frameGeometry().size() - widget()->size();
    QSize size = (area.size() - frame).expandedTo(QSize(1, 1));
    if ((style() & WS_THICKFRAME) != 0)
        widget()->resize(size);
    else
        widget()->setFixedSize(size);
    widget()->move(area.topLeft());
}

// The toolkit tells of the new active window first; programs hear of the old one first.
void Dialog::tellActive(bool isActive) {
    static QPointer<Dialog> active;
    if ((active == this) == isActive || !isTopLevel()) return;
    QPointer<Dialog> before = std::exchange(active, isActive ? this : nullptr);
    HWND other = isActive && before != nullptr ? before->handle() : nullptr;
    if (other != nullptr) before->send(WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(handle()));
    send(WM_ACTIVATE, isActive ? WA_ACTIVE : WA_INACTIVE, reinterpret_cast<LPARAM>(other));
}

bool Dialog::translate(QEvent& event) {
    switch (event.type()) {
    case QEvent::Close:
        event.ignore();
        send(WM_SYSCOMMAND, SC_CLOSE);
        return true;
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        tellActive(event.type() == QEvent::WindowActivate);
        return false;
    default:
        return Window::translate(event);
    }
}
