// Message boxes: dialogs whose template is made to measure, so that they are found and answered like any other.
#include "platform/controls.h"
#include "platform/qt/Dialog.h"
#include "platform/qt/controlClasses.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFrame>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <array>

namespace {

using Standard = QDialogButtonBox::StandardButton;

struct BoxButton {
    int id;
    Standard text;
};

struct BoxKind {
    UINT type;
    std::array<BoxButton, 3> buttons; // in their order; the rest has id 0
};

constexpr BoxButton noButton = {0, Standard::NoButton};
constexpr BoxKind boxKinds[] = {
    {MB_OK, {{{IDOK, Standard::Ok}, noButton, noButton}}},
    {MB_OKCANCEL, {{{IDOK, Standard::Ok}, {IDCANCEL, Standard::Cancel}, noButton}}},
    {MB_ABORTRETRYIGNORE, {{{IDABORT, Standard::Abort}, {IDRETRY, Standard::Retry}, {IDIGNORE, Standard::Ignore}}}},
    {MB_YESNOCANCEL, {{{IDYES, Standard::Yes}, {IDNO, Standard::No}, {IDCANCEL, Standard::Cancel}}}},
    {MB_YESNO, {{{IDYES, Standard::Yes}, {IDNO, Standard::No}, noButton}}},
    {MB_RETRYCANCEL, {{{IDRETRY, Standard::Retry}, {IDCANCEL, Standard::Cancel}, noButton}}},
};

const BoxKind* kindOf(UINT type) {
    const auto* kind = std::ranges::find(boxKinds, type & MB_TYPEMASK, &BoxKind::type);
    return kind == std::end(boxKinds) ? nullptr : kind;
}

std::vector<BoxButton> buttonsOf(UINT type) {
    std::vector<BoxButton> buttons;
    for (const BoxButton& button : kindOf(type)->buttons)
        if (button.id != 0) buttons.push_back(button);
    if ((type & MB_HELP) != 0) buttons.push_back({IDHELP, Standard::Help});
    return buttons;
}

bool hasButton(UINT type, int id) {
    return std::ranges::any_of(buttonsOf(type), [id](const BoxButton& button) { return button.id == id; });
}

// What Escape and the cross mean: Cancel where there is one, OK where there is nothing else to say, else nothing.
int escapeAnswer(UINT type) {
    if (hasButton(type, IDCANCEL)) return IDCANCEL;
    return (type & MB_TYPEMASK) == MB_OK ? IDOK : 0;
}

WORD defaultButton(UINT type) {
    std::vector<BoxButton> buttons = buttonsOf(type);
    std::size_t wanted = (type & MB_DEFMASK) / MB_DEFBUTTON2;
    return static_cast<WORD>(buttons[wanted < buttons.size() ? wanted : 0].id);
}

QStyle::StandardPixmap iconOfType(UINT type) {
    switch (type & MB_ICONMASK) {
    case MB_ICONHAND:
        return QStyle::SP_MessageBoxCritical;
    case MB_ICONQUESTION:
        return QStyle::SP_MessageBoxQuestion;
    case MB_ICONEXCLAMATION:
        return QStyle::SP_MessageBoxWarning;
    default:
        return QStyle::SP_MessageBoxInformation;
    }
}

// As the desktop writes it in the user's language, marked letter and all.
QString standardText(Standard which) {
    QDialogButtonBox box(which);
    return box.button(which)->text();
}

constexpr int margin = 14;
constexpr int gap = 8;
constexpr int iconSide = 32;
constexpr WORD iconId = 20;

QSize workArea() { return QApplication::primaryScreen()->availableGeometry().size(); }

int widestText() { return workArea().width() * 2 / 3; }

struct TextLayout {
    QSize size;
    // A word without an end, such as a file's name, does not fit into a line.
    bool breaksWords;
};

TextLayout layOut(const QString& text, const QFont& font, int width) {
    auto measure = [&](int flags) {
        return QFontMetrics(font).boundingRect(QRect(0, 0, width, 0), flags | Qt::TextExpandTabs, text).size();
    };
    QSize size = measure(Qt::TextWordWrap);
    bool breaksWords = size.width() > width;
    if (breaksWords) size = measure(Qt::TextWrapAnywhere);
    return {size + QSize(2, 2), breaksWords};
}

// Wide enough to read; a long text takes up to two thirds of the screen's width, and leaves room for the buttons.
TextLayout layOut(const QString& text, const QFont& font) {
    constexpr int comfortable = 460;
    constexpr int roomForTheRest = 160;
    int highest = std::max(workArea().height() - roomForTheRest, roomForTheRest);
    TextLayout layout = layOut(text, font, std::min(comfortable, widestText()));
    if (layout.size.height() > highest / 2) layout = layOut(text, font, widestText());
    layout.size.setHeight(std::min(layout.size.height(), highest));
    return layout;
}

class MessageBox : public Dialog {
public:
    MessageBox(const QString& caption, const QString& text, UINT type, Window* owner);

protected:
    LRESULT answerByDefault(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    static std::unique_ptr<QWidget> makeWidget(UINT type, Window* owner);
    static WindowTraits traits(UINT type);
    Window& add(ControlFactory make, const WindowTraits& traits, const QRect& area);
    void addIcon();
    void addText(const QRect& area, bool breaksWords);
    void addButtons(int width, int top);
    QSize buttonSize() const;
    int buttonsWidth() const;
    void giveHelp();
    void copy();

    QString caption_;
    QString text_;
    UINT type_;
};

std::unique_ptr<QWidget> MessageBox::makeWidget(UINT type, Window* owner) {
    Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    flags.setFlag(Qt::WindowCloseButtonHint, escapeAnswer(type) != 0);
    flags.setFlag(Qt::WindowStaysOnTopHint, (type & MB_SYSTEMMODAL) != 0);
    return std::make_unique<QFrame>(owner == nullptr ? nullptr : owner->widget()->window(), flags);
}

WindowTraits MessageBox::traits(UINT type) {
    DWORD close = escapeAnswer(type) != 0 ? WS_SYSMENU : 0;
    return {fromWide(dialogClassName), WS_POPUP | WS_CAPTION | DS_MODALFRAME | close, WS_EX_DLGMODALFRAME, 0, {}};
}

MessageBox::MessageBox(const QString& caption, const QString& text, UINT type, Window* owner)
    : Dialog(makeWidget(type, owner), traits(type), dialogFont(0, {}), nullptr),
      caption_(caption),
      text_(text),
      type_(type) {
    widget()->setWindowTitle(caption);
    bool hasIcon = (type & MB_ICONMASK) != 0;
    int left = margin + (hasIcon ? iconSide + margin : 0);
    TextLayout layout = layOut(text, widget()->font());
    QSize size = layout.size;
    int height = std::max(size.height(), hasIcon ? iconSide : 0);
    int width =
        std::max({left + size.width() + margin, buttonsWidth() + 2 * margin,
                  std::min(QFontMetrics(widget()->font()).horizontalAdvance(caption), widestText()) + 4 * margin});
    if (hasIcon) addIcon();
    addText({left, margin + (height - size.height()) / 2, width - left - margin, size.height()}, layout.breaksWords);
    int buttonsTop = margin + height + margin;
    addButtons(width, buttonsTop);
    place({0, 0, width, buttonsTop + buttonSize().height() + margin});
}

Window& MessageBox::add(ControlFactory make, const WindowTraits& traits, const QRect& area) {
    Window& control = Window::keep(make(traits, widget()));
    control.place(area);
    control.widget()->show();
    return control;
}

void MessageBox::addIcon() {
    Window& icon = add(&makeStatic, {fromWide(WC_STATICW), WS_CHILD | SS_ICON, 0, iconId, {}},
                       {margin, margin, iconSide, iconSide});
    QPixmap picture = QApplication::style()->standardIcon(iconOfType(type_)).pixmap(QSize(iconSide, iconSide));
    auto* shown = new QLabel(icon.widget());
    shown->setPixmap(picture);
    shown->show();
}

void MessageBox::addText(const QRect& area, bool breaksWords) {
    DWORD style = WS_CHILD | SS_NOPREFIX | (breaksWords ? SS_EDITCONTROL : 0);
    add(&makeStatic, {fromWide(WC_STATICW), style, 0, IDC_STATIC, text_.toStdU16String()}, area);
}

QSize MessageBox::buttonSize() const {
    QSize size(units().across(50), units().down(14));
    for (const BoxButton& button : buttonsOf(type_)) {
        int width = QFontMetrics(widget()->font()).horizontalAdvance(standardText(button.text)) + 2 * gap;
        size.setWidth(std::max(size.width(), width));
    }
    return size;
}

int MessageBox::buttonsWidth() const {
    auto count = static_cast<int>(buttonsOf(type_).size());
    return count * buttonSize().width() + (count - 1) * gap;
}

void MessageBox::addButtons(int width, int top) {
    QRect area({width - margin - buttonsWidth(), top}, buttonSize());
    for (const BoxButton& button : buttonsOf(type_)) {
        bool isDefault = button.id == defaultButton(type_);
        DWORD style = WS_CHILD | WS_TABSTOP | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
        Window& made = add(
            &makeButton,
            {fromWide(WC_BUTTONW), style, 0, static_cast<WORD>(button.id), standardText(button.text).toStdU16String()},
            area);
        if (isDefault) made.widget()->setFocus();
        area.translate(area.width() + gap, 0);
    }
    MessageBox::answerByDefault(DM_SETDEFID, defaultButton(type_), 0);
}

LRESULT MessageBox::answerByDefault(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND: {
        int id = LOWORD(wParam);
        if (id == IDHELP) return giveHelp(), 0;
        if (id == IDCANCEL) id = escapeAnswer(type_);
        if (id != 0 && hasButton(type_, id)) end(id);
        return 0;
    }
    case WM_CLOSE:
        return send(WM_COMMAND, IDCANCEL);
    case WM_COPY:
        return copy(), 0;
    default:
        return Dialog::answerByDefault(message, wParam, lParam);
    }
}

void MessageBox::giveHelp() {
    HELPINFO help{sizeof(HELPINFO), HELPINFO_WINDOW, 0, handle(), 0, {}};
    if (Window* ownedBy = owner()) ownedBy->send(WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
}

// The whole box as text, for a mail to whoever can help.
void MessageBox::copy() { QApplication::clipboard()->setText(caption_ + "\n\n" + text_ + "\n"); }

} // namespace

namespace qt {

int MessageBoxW(HWND hWnd, LPCWSTR lpText, LPCWSTR lpCaption, UINT uType) {
    Window* owner = hWnd == nullptr ? nullptr : Window::of(hWnd);
    if (hWnd != nullptr && owner == nullptr) return 0;
    if (kindOf(uType) == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    QString text = textFrom(lpText).remove(u'\r');
    while (text.endsWith(u'\n'))
        text.chop(1);
    auto box = std::make_unique<MessageBox>(textFrom(lpCaption), text, uType, owner);
    return static_cast<int>(static_cast<Dialog&>(Window::keep(std::move(box))).runModal());
}

} // namespace qt
