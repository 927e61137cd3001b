// The Edit class: fields of one line and of several.
#include "platform/controls.h"
#include "platform/qt/EditField.h"
#include "platform/qt/Window.h"
#include "platform/qt/controlClasses.h"
#include "platform/qt/controlColours.h"
#include "platform/qt/keys.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

namespace {

constexpr LRESULT selectionTooFar = -1;
constexpr LRESULT lastShortPosition = 0xFFFF;
constexpr WPARAM deleteCharacter = 0x7F;

bool isMultiLine(DWORD style) { return (style & ES_MULTILINE) != 0; }

Qt::Alignment alignmentOf(DWORD style) {
    if ((style & ES_CENTER) != 0) return Qt::AlignHCenter;
    return (style & ES_RIGHT) != 0 ? Qt::AlignRight : Qt::AlignLeft;
}

bool isEditingKey(const QKeyEvent& key) {
    constexpr QKeySequence::StandardKey keys[] = {QKeySequence::Copy, QKeySequence::Cut,  QKeySequence::Paste,
                                                  QKeySequence::Undo, QKeySequence::Redo, QKeySequence::SelectAll};
    return std::ranges::any_of(keys, [&](QKeySequence::StandardKey one) { return key.matches(one); });
}

class Edit : public Window {
public:
    Edit(std::unique_ptr<QWidget> widget, const WindowTraits& traits);

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
    void styleChanged(DWORD before, DWORD extendedBefore) override;

protected:
    bool translate(QEvent& event) override;

private:
    LRESULT answerEdit(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT setText(LPARAM text);
    LRESULT type(WPARAM unit);
    bool typeComposed(QInputMethodEvent& event);
    LRESULT tellSelection(WPARAM begin, LPARAM end) const;
    LRESULT setSelection(WPARAM begin, LPARAM end);
    LRESULT setReadOnly(bool isReadOnly);
    LRESULT setPasswordCharacter(WPARAM unit);
    LRESULT wantedKeys() const;
    void reportChange();
    void followColours();

    EditField* field_;
};

Edit::Edit(std::unique_ptr<QWidget> widget, const WindowTraits& traits)
    : Window(std::move(widget), traits), field_(dynamic_cast<EditField*>(this->widget())) {
    field_->setReadOnly((traits.style & ES_READONLY) != 0);
    field_->setContent(QString::fromStdU16String(traits.text));
    field_->edited = [this] { reportChange(); };
    field_->overflowed = [this] { notifyCommand(EN_MAXTEXT); };
}

LRESULT Edit::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SETTEXT:
        return setText(lParam);
    case WM_GETTEXT:
        return copyText(field_->content(), wParam, lParam);
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(field_->content().size());
    case WM_CHAR:
        return type(wParam);
    case WM_CUT:
        return field_->cut(), 0;
    case WM_COPY:
        return field_->copy(), 0;
    case WM_PASTE:
        return field_->paste(), 0;
    case WM_CLEAR:
        return field_->selection().isEmpty() ? 0 : (field_->replaceSelection(QString()), 0);
    case WM_UNDO:
    case EM_UNDO:
        return field_->canUndo() ? (field_->undo(), TRUE) : FALSE;
    case WM_GETDLGCODE:
        return wantedKeys();
    case WM_PAINT:
        followColours();
        return Window::answer(message, wParam, lParam);
    case WM_SETFOCUS:
        Window::answer(message, wParam, lParam);
        return notifyCommand(EN_SETFOCUS), 0;
    case WM_KILLFOCUS:
        Window::answer(message, wParam, lParam);
        return notifyCommand(EN_KILLFOCUS), 0;
    default:
        return answerEdit(message, wParam, lParam);
    }
}

LRESULT Edit::answerEdit(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case EM_GETSEL:
        return tellSelection(wParam, lParam);
    case EM_SETSEL:
        return setSelection(wParam, lParam);
    case EM_REPLACESEL:
        return field_->replaceSelection(textFrom(lParam)), 0;
    case EM_LIMITTEXT: {
        bool isLimit = wParam > 0 && wParam < EditField::noLimit;
        return field_->setLimit(isLimit ? static_cast<int>(wParam) : EditField::noLimit), 0;
    }
    case EM_GETLIMITTEXT:
        return field_->limit();
    case EM_SETREADONLY:
        return setReadOnly(wParam != 0);
    case EM_SETPASSWORDCHAR:
        return setPasswordCharacter(wParam);
    case EM_GETMODIFY:
        return field_->isModified() ? TRUE : FALSE;
    case EM_SETMODIFY:
        return field_->setModified(wParam != 0), 0;
    case EM_CANUNDO:
        return field_->canUndo() ? TRUE : FALSE;
    case EM_GETLINECOUNT:
        return field_->lineCount();
    case EM_SCROLLCARET:
        return field_->showCaret(), TRUE;
    default:
        return Window::answer(message, wParam, lParam);
    }
}

// A text of several lines tells nobody that the program has set it.
LRESULT Edit::setText(LPARAM text) {
    field_->setContent(textFrom(text));
    if (!isMultiLine(style())) reportChange();
    return TRUE;
}

LRESULT Edit::type(WPARAM unit) {
    QChar character(static_cast<char16_t>(unit));
    bool isControl = unit < VK_SPACE || unit == deleteCharacter;
    if ((style() & ES_NUMBER) != 0 && !isControl && !(unit >= u'0' && unit <= u'9')) return 0;
    if (deliverEvent() || field_->isReadOnly()) return 0;
    if (unit == VK_BACK)
        field_->eraseBack();
    else if (unit == VK_RETURN && isMultiLine(style()))
        field_->replaceSelection(QStringLiteral("\r\n"));
    else if (!isControl)
        field_->replaceSelection(QString(character));
    return 0;
}

LRESULT Edit::tellSelection(WPARAM begin, LPARAM end) const {
    EditField::Span selected = field_->selection();
    if (begin != 0) *reinterpret_cast<DWORD*>(begin) = static_cast<DWORD>(selected.begin);
    if (end != 0) *reinterpret_cast<DWORD*>(end) = static_cast<DWORD>(selected.end);
    return selected.end > lastShortPosition ? selectionTooFar
                                            : static_cast<DWORD>(MAKELONG(selected.begin, selected.end));
}

// -1 as begin takes the selection away, -1 as end means the end of the text.
LRESULT Edit::setSelection(WPARAM begin, LPARAM end) {
    auto length = static_cast<int>(field_->content().size());
    auto first = static_cast<int>(begin);
    auto last = static_cast<int>(end);
    if (first < 0) {
        first = last = field_->selection().end;
    } else if (last < 0) {
        last = length;
    }
    auto [low, high] = std::minmax(first, last);
    field_->select({std::min(low, length), std::min(high, length)});
    return 0;
}

LRESULT Edit::setReadOnly(bool isReadOnly) {
    field_->setReadOnly(isReadOnly);
    setStyle(isReadOnly ? style() | ES_READONLY : style() & ~ES_READONLY);
    widget()->update();
    return TRUE;
}

LRESULT Edit::setPasswordCharacter(WPARAM unit) {
    if (auto* line = qobject_cast<QLineEdit*>(widget()); line != nullptr)
        line->setEchoMode(unit == 0 ? QLineEdit::Normal : QLineEdit::Password);
    return 0;
}

LRESULT Edit::wantedKeys() const {
    LRESULT keys = DLGC_WANTCHARS | DLGC_HASSETSEL | DLGC_WANTARROWS;
    return (style() & ES_WANTRETURN) != 0 && isMultiLine(style()) ? keys | DLGC_WANTALLKEYS : keys;
}

void Edit::styleChanged(DWORD before, DWORD extendedBefore) {
    field_->setReadOnly((style() & ES_READONLY) != 0);
    Window::styleChanged(before, extendedBefore);
}

bool Edit::translate(QEvent& event) {
    switch (event.type()) {
    case QEvent::InputMethod:
        return typeComposed(static_cast<QInputMethodEvent&>(event));
    // Keys that copy and paste are no characters: a filter of characters leaves them to the field.
    case QEvent::KeyPress:
        if (auto& key = static_cast<QKeyEvent&>(event); isEditingKey(key))
            return sendFor(event, WM_KEYDOWN, virtualKeyOf(key), 1);
        return Window::translate(event);
    // The field's own menu takes the keys only for as long as it is open.
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        return static_cast<QFocusEvent&>(event).reason() != Qt::PopupFocusReason && Window::translate(event);
    default:
        return Window::translate(event);
    }
}

// What an input method composes comes as characters, so that a filter of characters sees it.
bool Edit::typeComposed(QInputMethodEvent& event) {
    QString composed = event.commitString();
    if (composed.isEmpty() || event.replacementLength() != 0) return false;
    event.setCommitString(QString());
    static_cast<QObject*>(widget())->event(&event);
    for (QChar unit : composed)
        send(WM_CHAR, unit.unicode());
    return true;
}

void Edit::reportChange() {
    notifyCommand(EN_UPDATE);
    notifyCommand(EN_CHANGE);
}

void Edit::followColours() {
    const QPalette usual = QApplication::palette(widget());
    bool isLabel = field_->isReadOnly() || !widget()->isEnabled();
    auto colours = isLabel ? ControlColours::of(*this, WM_CTLCOLORSTATIC,
                                                {usual.brush(QPalette::Window), usual.color(QPalette::WindowText)})
                           : ControlColours::of(*this, WM_CTLCOLOREDIT,
                                                {usual.brush(QPalette::Base), usual.color(QPalette::Text)});
    QPalette palette = widget()->palette();
    if (palette.brush(QPalette::Base) == colours.background &&
        palette.color(QPalette::Active, QPalette::Text) == colours.text)
        return;
    palette.setBrush(QPalette::Base, colours.background);
    for (auto group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::Text, colours.text);
    widget()->setPalette(palette);
}

EditTraits editTraits(const WindowTraits& traits) {
    EditTraits edit;
    edit.isPassword = (traits.style & ES_PASSWORD) != 0;
    edit.hasFrame = (traits.style & WS_BORDER) != 0 || (traits.extendedStyle & WS_EX_CLIENTEDGE) != 0;
    edit.wraps = (traits.style & ES_AUTOHSCROLL) == 0;
    edit.hasScrollBar = (traits.style & WS_VSCROLL) != 0;
    edit.alignment = alignmentOf(traits.style);
    return edit;
}

} // namespace

std::unique_ptr<Window> makeEdit(const WindowTraits& traits, QWidget* parent) {
    auto* make = isMultiLine(traits.style) ? makeTextField : makeLineField;
    return std::make_unique<Edit>(make(editTraits(traits), parent), traits);
}
