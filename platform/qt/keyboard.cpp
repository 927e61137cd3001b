#include "platform/qt/keyboard.h"

#include "platform/controls.h"
#include "platform/qt/Dialog.h"
#include "platform/qt/keys.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>
#include <QCursor>

#include <algorithm>

namespace {

DWORD buttonKind(const Window& control) {
    return control.isOfClass(WC_BUTTONW) ? control.style() & BS_TYPEMASK : BS_GROUPBOX;
}
bool isPushButton(const Window& control) {
    DWORD kind = buttonKind(control);
    return kind == BS_PUSHBUTTON || kind == BS_DEFPUSHBUTTON || kind == BS_OWNERDRAW;
}
bool isRadioButton(const Window& control) {
    DWORD kind = buttonKind(control);
    return kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON;
}
bool isGroupBox(const Window& control) { return control.isOfClass(WC_BUTTONW) && buttonKind(control) == BS_GROUPBOX; }
bool isLabel(const Window& control) { return control.isOfClass(WC_STATICW) || isGroupBox(control); }

// As far as the dialog goes, which may itself not be shown yet.
bool isUsable(const Window& control) {
    const QWidget& widget = *control.widget();
    return widget.isVisibleTo(widget.window()) && widget.isEnabledTo(widget.window());
}

// The dialog whose keys these are: the one on the desktop.
Dialog* rootDialog(Window& window) { return Dialog::of(&window.root()); }

// The controls of the dialog and of the dialogs in it, in the order of the Tab key.
void collectControls(const Window& dialog, std::vector<Window*>& controls) {
    for (Window* child : dialog.children()) {
        if (Dialog::of(child) == nullptr)
            controls.push_back(child);
        else if (isUsable(*child))
            collectControls(*child, controls);
    }
}

std::vector<Window*> controlsOf(const Window& dialog) {
    std::vector<Window*> controls;
    collectControls(dialog, controls);
    return controls;
}

void act(Window& control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    qt::SendMessageW(control.handle(), message, wParam, lParam);
}

void press(Window& dialog, WORD id) {
    HWND button = qt::GetDlgItem(dialog.handle(), id);
    if (button != nullptr && !qt::IsWindowEnabled(button)) {
        qt::MessageBeep(MB_OK);
        return;
    }
    act(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

void pressEnter(Window& focused, Dialog& dialog) {
    if (isPushButton(focused)) return act(focused, BM_CLICK);
    LRESULT defaultButton = dialog.send(DM_GETDEFID);
    press(dialog, HIWORD(defaultButton) == DC_HASDEFID ? LOWORD(defaultButton) : WORD{IDOK});
}

// The next control of the group; from a radio button the next one of its kind, past the fields that belong to them.
Window* neighbourInGroup(const Window& focused, bool isBackwards) {
    HWND handle = focused.handle();
    for (auto left = focused.parent()->children().size(); left > 0; --left) {
        handle = qt::GetNextDlgGroupItem(focused.parent()->handle(), handle, isBackwards ? TRUE : FALSE);
        Window* next = handle == nullptr ? nullptr : Window::of(handle);
        if (next == nullptr || !isRadioButton(focused) || isRadioButton(*next)) return next;
    }
    return nullptr;
}

void moveInGroup(Window& focused, bool isBackwards) {
    Window* next = neighbourInGroup(focused, isBackwards);
    if (next == nullptr || next == &focused) return;
    focusByKeyboard(next->handle());
    if (isRadioButton(*next) && qt::SendMessageW(next->handle(), BM_GETCHECK, 0, 0) == LRESULT{BST_UNCHECKED})
        act(*next, BM_CLICK);
}

void askForHelp(Window& focused) {
    QPoint at = QCursor::pos();
    HELPINFO help{sizeof(HELPINFO), HELPINFO_WINDOW, focused.id(), focused.handle(), 0, {at.x(), at.y()}};
    act(focused, WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
}

// A label's letter means the control behind it.
Window* targetOfLabel(const std::vector<Window*>& controls, std::size_t label) {
    for (std::size_t i = label + 1; i < controls.size(); ++i)
        if (!isLabel(*controls[i]) && isUsable(*controls[i])) return controls[i];
    return nullptr;
}

struct Mnemonic {
    Window* control = nullptr;
    bool isLabel = false;
    bool isOnlyOne = true;
};

bool answersTo(Window& control, QChar letter) {
    bool hasMnemonic =
        control.isOfClass(WC_BUTTONW) || (control.isOfClass(WC_STATICW) && (control.style() & SS_NOPREFIX) == 0);
    return hasMnemonic && isUsable(control) && mnemonicOf(textOf(control)) == letter;
}

// Where the window stands among the controls, or the control that it is a part of: the field of a combo box is a window
// of its own. Their number for none of them.
std::ptrdiff_t placeOf(const std::vector<Window*>& controls, const Window* window) {
    for (; window != nullptr; window = window->isTopLevel() ? nullptr : window->parent())
        if (auto at = std::ranges::find(controls, window); at != controls.end()) return at - controls.begin();
    return std::ssize(controls);
}

// Null for no window, without a fault.
const Window* windowOrNone(HWND handle) { return handle == nullptr ? nullptr : Window::of(handle); }

// The next control with the letter behind the focused one, round the dialog.
Mnemonic findMnemonic(Window& focused, Dialog& dialog, QChar letter) {
    std::vector<Window*> controls = controlsOf(dialog);
    auto begin = static_cast<std::size_t>(placeOf(controls, &focused));
    Mnemonic found;
    for (std::size_t step = 1; step <= controls.size(); ++step) {
        std::size_t i = (begin + step) % controls.size();
        if (!answersTo(*controls[i], letter)) continue;
        if (found.control != nullptr) {
            found.isOnlyOne = false;
            break;
        }
        bool isALabel = isLabel(*controls[i]);
        found = {isALabel ? targetOfLabel(controls, i) : controls[i], isALabel, true};
    }
    return found;
}

void actOnMnemonic(const Mnemonic& found) {
    focusByKeyboard(found.control->handle());
    if (!found.isLabel && found.isOnlyOne) act(*found.control, BM_CLICK);
}

bool takesMnemonic(Window& focused, Dialog& dialog, const QKeyEvent& key, LRESULT wanted, bool asksOnly) {
    bool isAlt = key.modifiers() == Qt::AltModifier;
    bool isPlain = (key.modifiers() & ~Qt::ShiftModifier) == 0 && (wanted & (DLGC_WANTCHARS | DLGC_WANTALLKEYS)) == 0;
    bool isLetter = key.key() > Qt::Key_Space && key.key() < Qt::Key_Escape;
    if (!isLetter || (!isAlt && !isPlain)) return false;
    Mnemonic found = findMnemonic(focused, dialog, QChar(key.key()).toLower());
    if (found.control == nullptr) return false;
    if (!asksOnly) actOnMnemonic(found);
    return true;
}

bool takesArrow(Window& focused, const QKeyEvent& key, LRESULT wanted, bool asksOnly) {
    if ((wanted & DLGC_WANTARROWS) != 0 || key.modifiers() & ~Qt::KeypadModifier || focused.parent() == nullptr)
        return false;
    if (!asksOnly) moveInGroup(focused, key.key() == Qt::Key_Left || key.key() == Qt::Key_Up);
    return true;
}

bool takesTab(Window& focused, Dialog& dialog, const QKeyEvent& key, LRESULT wanted, bool asksOnly) {
    if ((wanted & DLGC_WANTTAB) != 0 || key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
    bool isBackwards = key.key() == Qt::Key_Backtab || key.modifiers().testFlag(Qt::ShiftModifier);
    if (!asksOnly)
        focusByKeyboard(qt::GetNextDlgTabItem(dialog.handle(), focused.handle(), isBackwards ? TRUE : FALSE));
    return true;
}

// A field of several lines keeps Enter for itself if its style says so.
bool keepsEnter(const Window& focused) {
    return focused.isOfClass(WC_EDITW) && (focused.style() & ES_MULTILINE) != 0 &&
           (focused.style() & ES_WANTRETURN) != 0;
}

bool isCheckedRadio(Window& control) {
    return isRadioButton(control) && qt::SendMessageW(control.handle(), BM_GETCHECK, 0, 0) == LRESULT{BST_CHECKED};
}

// From the nearest WS_GROUP on or before it up to the next one.
std::pair<std::size_t, std::size_t> groupRound(const std::vector<Window*>& controls, std::size_t at) {
    auto startsGroup = [&](std::size_t i) { return (controls[i]->style() & WS_GROUP) != 0; };
    std::size_t begin = at;
    while (begin > 0 && !startsGroup(begin))
        --begin;
    std::size_t end = at + 1;
    while (end < controls.size() && !startsGroup(end))
        ++end;
    return {begin, end};
}

bool hasTabStop(const Window& control) { return (control.style() & WS_TABSTOP) != 0; }

// Of the radio buttons of a group the Tab key reaches the one that is set, or else the first stop.
bool isRadioStop(const std::vector<Window*>& controls, std::size_t at) {
    auto [begin, end] = groupRound(controls, at);
    std::vector<Window*> radios(controls.begin() + static_cast<std::ptrdiff_t>(begin),
                                controls.begin() + static_cast<std::ptrdiff_t>(end));
    std::erase_if(radios, [](const Window* control) { return !isRadioButton(*control) || !isUsable(*control); });
    if (std::ranges::none_of(radios, [](const Window* radio) { return hasTabStop(*radio); })) return false;
    auto best = std::ranges::find_if(radios, [](Window* radio) { return isCheckedRadio(*radio); });
    if (best == radios.end())
        best = std::ranges::find_if(radios, [](const Window* radio) { return hasTabStop(*radio); });
    return *best == controls[at];
}

bool isStop(const std::vector<Window*>& controls, std::size_t at) {
    const Window& control = *controls[at];
    if (!isUsable(control)) return false;
    return isRadioButton(control) ? isRadioStop(controls, at) : hasTabStop(control);
}

} // namespace

bool dialogTakesKey(Window& focused, const QKeyEvent& key, bool asksOnly) {
    Dialog* dialog = rootDialog(focused);
    if (dialog == nullptr) return false;
    LRESULT wanted = focused.send(WM_GETDLGCODE);
    switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return takesTab(focused, *dialog, key, wanted, asksOnly);
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        return takesArrow(focused, key, wanted, asksOnly);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (keepsEnter(focused)) return false;
        if (!asksOnly) pressEnter(focused, *dialog);
        return true;
    case Qt::Key_Escape:
        if (!asksOnly) press(*dialog, IDCANCEL);
        return true;
    case Qt::Key_F1:
        if (!asksOnly) askForHelp(focused);
        return true;
    default:
        return takesMnemonic(focused, *dialog, key, wanted, asksOnly);
    }
}

// The toolkit tells of a new window's focus only when the desktop has made it the active one.
QWidget* focusedPart() {
    QWidget* focused = QApplication::focusWidget();
    const Window* active = Window::of(qt::GetActiveWindow());
    bool isInActive = focused != nullptr && (active == nullptr || focused->window() == active->widget());
    return isInActive || active == nullptr ? focused : active->widget()->focusWidget();
}

void focusByKeyboard(HWND handle) {
    Window* control = handle == nullptr ? nullptr : Window::of(handle);
    if (control == nullptr) return;
    LRESULT wanted = control->send(WM_GETDLGCODE);
    // The toolkit marks the focus only where it has moved it by a key itself.
    control->widget()->window()->setAttribute(Qt::WA_KeyboardFocusChange);
    control->widget()->setFocus(Qt::TabFocusReason);
    if ((wanted & DLGC_HASSETSEL) != 0) act(*control, EM_SETSEL, 0, -1);
}

void showDefaultButton(const QWidget* focused) {
    Window* window = Window::holding(focused);
    Dialog* dialog = window == nullptr ? nullptr : rootDialog(*window);
    if (dialog == nullptr) return;
    bool hasOwn = isPushButton(*window);
    for (Window* control : controlsOf(*dialog)) {
        DWORD kind = buttonKind(*control);
        if (kind != BS_PUSHBUTTON && kind != BS_DEFPUSHBUTTON) continue;
        bool isDefault = hasOwn ? control == window : control->id() == dialog->defaultId() && dialog->defaultId() != 0;
        DWORD wanted = isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        if (kind != wanted) act(*control, BM_SETSTYLE, wanted, TRUE);
    }
}

QString textOf(Window& window) {
    auto length = static_cast<std::size_t>(std::max<LRESULT>(window.send(WM_GETTEXTLENGTH), 0));
    std::u16string text(length + 1, u'\0');
    text.resize(static_cast<std::size_t>(
        std::max<LRESULT>(window.send(WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data())), 0)));
    return QString::fromStdU16String(text);
}

QString withoutMnemonic(const QString& text) {
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && ++i == text.size()) break;
        plain += text[i];
    }
    return plain;
}

QChar mnemonicOf(const QString& text) {
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != u'&') continue;
        if (text[i + 1] != u'&') return text[i + 1].toLower();
        ++i;
    }
    return {};
}

namespace qt {

// With no control to start from, the first or the last.
HWND GetNextDlgTabItem(HWND hDlg, HWND hCtl, BOOL bPrevious) {
    Window* dialog = Window::of(hDlg);
    if (dialog == nullptr) return nullptr;
    std::vector<Window*> controls = controlsOf(*dialog);
    auto count = std::ssize(controls);
    std::ptrdiff_t step = bPrevious != FALSE ? -1 : 1;
    auto at = placeOf(controls, windowOrNone(hCtl));
    if (at == count) at = step > 0 ? -1 : count;
    for (std::ptrdiff_t tried = 0; tried < count; ++tried) {
        at = (at + step + count) % count;
        if (isStop(controls, static_cast<std::size_t>(at))) return controls[static_cast<std::size_t>(at)]->handle();
    }
    return nullptr;
}

HWND GetNextDlgGroupItem(HWND hDlg, HWND hCtl, BOOL bPrevious) {
    Window* dialog = Window::of(hDlg);
    if (dialog == nullptr) return nullptr;
    std::vector<Window*> controls = controlsOf(*dialog);
    auto at = static_cast<std::size_t>(placeOf(controls, windowOrNone(hCtl)));
    if (at == controls.size()) return nullptr;
    auto [begin, end] = groupRound(controls, at);
    std::size_t size = end - begin;
    for (std::size_t step = 1; step <= size; ++step) {
        std::size_t offset = bPrevious != FALSE ? size - step : step;
        Window& next = *controls[begin + (at - begin + offset) % size];
        if (isUsable(next) && !isLabel(next)) return next.handle();
    }
    return hCtl;
}

} // namespace qt
