// From a template to widgets.
#include "platform/controls.h"
#include "platform/qt/Dialog.h"
#include "platform/qt/controlClasses.h"
#include "platform/qt/keyboard.h"
#include "platform/qt/readerNames.h"
#include "platform/qt/windowCalls.h"

#include <QFrame>
#include <QScreen>

#include <algorithm>

namespace {

bool has(DWORD style, DWORD bits) { return (style & bits) == bits; }

Qt::WindowFlags windowFlags(DWORD style, DWORD extendedStyle) {
    Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint;
    if (!has(style, WS_CAPTION)) flags |= Qt::FramelessWindowHint;
    if (has(style, WS_CAPTION)) flags |= Qt::WindowTitleHint;
    if (has(style, WS_SYSMENU)) flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (has(extendedStyle, WS_EX_TOPMOST)) flags |= Qt::WindowStaysOnTopHint;
    return flags;
}

// Without a caption nothing but an edge tells the dialog from what lies below.
bool wantsEdge(DWORD style) { return !has(style, WS_CAPTION) && (style & (WS_BORDER | WS_DLGFRAME | DS_MODALFRAME)); }

std::unique_ptr<QWidget> makeWidget(const DialogTemplate& dialog, Window* parent) {
    QWidget* holder = parent == nullptr ? nullptr : parent->widget();
    bool isPart = has(dialog.style, WS_CHILD) && holder != nullptr;
    if (!isPart && holder != nullptr) holder = holder->window();
    auto frame =
        std::make_unique<QFrame>(holder, isPart ? Qt::Widget : windowFlags(dialog.style, dialog.extendedStyle));
    if (!isPart && wantsEdge(dialog.style)) frame->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    frame->setWindowTitle(QString::fromStdU16String(dialog.title));
    return frame;
}

WindowTraits traitsOf(const DialogTemplate& dialog, HINSTANCE instance) {
    return {fromWide(dialogClassName), dialog.style, dialog.extendedStyle, 0, dialog.title, 0, instance};
}

Window* addItem(Dialog& dialog, const TemplateItem& item, HINSTANCE instance) {
    const ControlClass* known = item.classOrdinal != 0 ? controlClass(item.classOrdinal) : controlClass(item.className);
    if (known == nullptr) return nullptr;
    WindowTraits traits{
        fromWide(known->name), item.style | WS_CHILD, item.extendedStyle, item.id, item.text, item.imageId, instance};
    Window& control = Window::keep(known->make(traits, dialog.widget()));
    control.place(dialog.units().rect(item.x, item.y, std::max<int>(item.width, 0), std::max<int>(item.height, 0)));
    control.widget()->setEnabled(!has(item.style, WS_DISABLED));
    control.widget()->setVisible(has(item.style, WS_VISIBLE));
    return &control;
}

bool addItems(Dialog& dialog, const DialogTemplate& from, HINSTANCE instance) {
    std::vector<Window*> controls;
    for (const TemplateItem& item : from.items) {
        Window* control = addItem(dialog, item, instance);
        if (control == nullptr) return false;
        controls.push_back(control);
        bool isDefault = control->isOfClass(WC_BUTTONW) && (item.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
        if (isDefault && dialog.defaultId() == 0) dialog.send(DM_SETDEFID, item.id);
    }
    nameForReaders(controls);
    return true;
}

QRect workArea(const QWidget& widget) { return widget.screen()->availableGeometry(); }

// In the middle of its owner, or of the screen; always with the caption in reach.
QPoint centred(const QWidget& dialog, const Window* owner) {
    QRect work = workArea(dialog);
    QRect over = owner == nullptr || !owner->widget()->isVisible() ? work : owner->widget()->window()->frameGeometry();
    QPoint at = over.center() - QPoint(dialog.width() / 2, dialog.height() / 2);
    at.setX(std::clamp(at.x(), work.left(), std::max(work.left(), work.right() + 1 - dialog.width())));
    at.setY(std::clamp(at.y(), work.top(), std::max(work.top(), work.bottom() + 1 - dialog.height())));
    return at;
}

void placeDialog(Dialog& dialog, const DialogTemplate& from) {
    QRect area = dialog.units().rect(from.x, from.y, from.width, from.height);
    if (!dialog.isTopLevel()) return dialog.place(area);
    QWidget& widget = *dialog.widget();
    dialog.place(QRect(widget.pos(), area.size()));
    bool isPlaced = (from.x != 0 || from.y != 0) && !has(from.style, DS_CENTER);
    const Window* owner = dialog.owner();
    if (!isPlaced)
        widget.move(centred(widget, owner));
    else if (owner == nullptr || has(from.style, DS_ABSALIGN))
        widget.move(area.topLeft());
    else
        widget.move(owner->widget()->mapToGlobal(area.topLeft()));
}

// The procedure may say that it set the focus itself, and may have ended all this. It may also have shown or enabled
// the control that comes first now.
void initialize(Dialog& dialog, LPARAM initParam) {
    HWND first = qt::GetNextDlgTabItem(dialog.handle(), nullptr, FALSE);
    bool wantsFocus = dialog.send(WM_INITDIALOG, reinterpret_cast<WPARAM>(first), initParam) != 0;
    bool mayTakeFocus = dialog.handle() != nullptr && dialog.isTopLevel();
    if (wantsFocus && mayTakeFocus) focusByKeyboard(qt::GetNextDlgTabItem(dialog.handle(), nullptr, FALSE));
}

} // namespace

Dialog* Dialog::create(const DialogTemplate& dialogTemplate, HINSTANCE instance, Window* parent, DLGPROC procedure,
                       LPARAM initParam) {
    QFont font = dialogFont(dialogTemplate.pointSize, dialogTemplate.faceName);
    auto made =
        std::make_unique<Dialog>(makeWidget(dialogTemplate, parent), traitsOf(dialogTemplate, instance), font, nullptr);
    auto& dialog = static_cast<Dialog&>(Window::keep(std::move(made)));
    placeDialog(dialog, dialogTemplate);
    if (!addItems(dialog, dialogTemplate, instance)) {
        DWORD error = GetLastError();
        dialog.destroy();
        SetLastError(error);
        return nullptr;
    }
    dialog.procedure_ = reinterpret_cast<LONG_PTR>(procedure);
    initialize(dialog, initParam);
    return dialog.handle() == nullptr ? nullptr : &dialog;
}
