// The Button class: push buttons, boxes, group frames and buttons that their program draws.
#include "platform/controls.h"
#include "platform/gdi.h"
#include "platform/qt/PictureIcon.h"
#include "platform/qt/Window.h"
#include "platform/qt/controlClasses.h"
#include "platform/qt/ownerDraw.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>

#include <functional>
#include <utility>

namespace {

DWORD kindOf(DWORD style) { return style & BS_TYPEMASK; }

bool isCheckBox(DWORD kind) {
    return kind == BS_CHECKBOX || kind == BS_AUTOCHECKBOX || kind == BS_3STATE || kind == BS_AUTO3STATE;
}
bool isRadioButton(DWORD kind) { return kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON; }
bool isPushButton(DWORD kind) { return kind == BS_PUSHBUTTON || kind == BS_DEFPUSHBUTTON; }

// With a picture the text is for those who cannot see it.
class PushButton : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void initStyleOption(QStyleOptionButton* option) const override {
        QPushButton::initStyleOption(option);
        if (!option->icon.isNull()) option->text.clear();
    }
};

// A box whose program sets its check mark only tells of the click. The whole of the control can be clicked.
class CheckBox : public QCheckBox {
public:
    CheckBox(DWORD kind, QWidget* parent)
        : QCheckBox(parent), isAuto_(kind == BS_AUTOCHECKBOX || kind == BS_AUTO3STATE) {
        setTristate(kind == BS_3STATE || kind == BS_AUTO3STATE);
    }

protected:
    bool hitButton(const QPoint& place) const override { return rect().contains(place); }
    void nextCheckState() override {
        if (!isAuto_) return;
        switch (checkState()) {
        case Qt::Unchecked:
            return setCheckState(Qt::Checked);
        case Qt::Checked:
            return setCheckState(isTristate() ? Qt::PartiallyChecked : Qt::Unchecked);
        default:
            return setCheckState(Qt::Unchecked);
        }
    }

private:
    bool isAuto_;
};

// Which ones belong together the styles say, so for the toolkit each stands in a group alone. It still counts as one
// that excludes others: that is what a screen reader calls a radio button.
class RadioButton : public QRadioButton {
public:
    RadioButton(bool isAuto, QWidget* parent) : QRadioButton(parent), isAuto_(isAuto) {
        alone_.setExclusive(false);
        alone_.addButton(this);
    }
    std::function<void()> chosen;

protected:
    bool hitButton(const QPoint& place) const override { return rect().contains(place); }
    void nextCheckState() override {
        if (!isAuto_) return;
        setChecked(true);
        if (chosen) chosen();
    }

private:
    QButtonGroup alone_;
    bool isAuto_;
};

// Programs draw what it looks like, and leave out the focus.
class DrawnButton : public QAbstractButton {
public:
    using QAbstractButton::QAbstractButton;
    std::function<void()> draw;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        if (draw) draw();
        if (hasFocus()) drawFocus();
    }

private:
    void drawFocus() {
        constexpr qreal roundness = 2.5;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), roundness, roundness);
    }
};

std::unique_ptr<QWidget> makeWidget(DWORD kind, QWidget* parent) {
    if (kind == BS_GROUPBOX) {
        auto box = std::make_unique<QGroupBox>(parent);
        // It frames its neighbours and does not hold them: the mouse is for what lies inside.
        box->setAttribute(Qt::WA_TransparentForMouseEvents);
        return box;
    }
    if (isCheckBox(kind)) return std::make_unique<CheckBox>(kind, parent);
    if (isRadioButton(kind)) return std::make_unique<RadioButton>(kind == BS_AUTORADIOBUTTON, parent);
    if (kind == BS_OWNERDRAW) return std::make_unique<DrawnButton>(parent);
    auto button = std::make_unique<PushButton>(parent);
    button->setAutoDefault(false);
    button->setDefault(kind == BS_DEFPUSHBUTTON);
    return button;
}

class Button : public Window {
public:
    Button(std::unique_ptr<QWidget> widget, const WindowTraits& traits);

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
    void styleChanged(DWORD before, DWORD extendedBefore) override;

private:
    template <typename Kind>
    Kind* as() const {
        return dynamic_cast<Kind*>(widget());
    }
    LRESULT answerButton(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT setText(const QString& text);
    QString text() const;
    LRESULT checkState() const;
    LRESULT setCheckState(WPARAM state);
    LRESULT state() const;
    LRESULT setPushed(bool isPushed);
    LRESULT setKind(DWORD kind);
    LRESULT setImage(WPARAM type, LPARAM image);
    LRESULT click();
    LRESULT press();
    LRESULT release(POINT at);
    LRESULT wantedKeys() const;
    void focusChanged(WORD code);
    void uncheckOthers();
    void draw();

    LRESULT image_ = 0;
    WPARAM imageType_ = IMAGE_BITMAP;
};

Button::Button(std::unique_ptr<QWidget> widget, const WindowTraits& traits) : Window(std::move(widget), traits) {
    setText(QString::fromStdU16String(traits.text));
    if (auto* button = as<QAbstractButton>(); button != nullptr)
        connect(button, &QAbstractButton::clicked, this, [this] { notifyCommand(BN_CLICKED); });
    if (auto* radio = as<RadioButton>(); radio != nullptr) radio->chosen = [this] { uncheckOthers(); };
    if (auto* drawn = as<DrawnButton>(); drawn != nullptr) drawn->draw = [this] { draw(); };
    if ((traits.style & BS_LEFTTEXT) != 0) this->widget()->setLayoutDirection(Qt::RightToLeft);
}

LRESULT Button::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SETTEXT:
        return setText(textFrom(lParam));
    case WM_GETTEXT:
        return copyText(text(), wParam, lParam);
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(text().size());
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        return deliverEvent() ? 0 : press();
    case WM_LBUTTONUP:
        return deliverEvent() ? 0 : release(pointOfMouse(lParam));
    case WM_SETFOCUS:
        Window::answer(message, wParam, lParam);
        return focusChanged(BN_SETFOCUS), 0;
    case WM_KILLFOCUS:
        Window::answer(message, wParam, lParam);
        return focusChanged(BN_KILLFOCUS), 0;
    case WM_GETDLGCODE:
        return wantedKeys();
    default:
        return answerButton(message, wParam, lParam);
    }
}

LRESULT Button::answerButton(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case BM_GETCHECK:
        return checkState();
    case BM_SETCHECK:
        return setCheckState(wParam);
    case BM_GETSTATE:
        return state();
    case BM_SETSTATE:
        return setPushed(wParam != 0);
    case BM_SETSTYLE:
        return setKind(kindOf(static_cast<DWORD>(wParam)));
    case BM_CLICK:
        return click();
    case BM_GETIMAGE:
        return imageType_ == wParam ? image_ : 0;
    case BM_SETIMAGE:
        return setImage(wParam, lParam);
    default:
        return Window::answer(message, wParam, lParam);
    }
}

LRESULT Button::setText(const QString& text) {
    if (auto* button = as<QAbstractButton>(); button != nullptr)
        button->setText(text);
    else if (auto* box = as<QGroupBox>(); box != nullptr)
        box->setTitle(text);
    return TRUE;
}

QString Button::text() const {
    if (const auto* button = as<QAbstractButton>(); button != nullptr) return button->text();
    const auto* box = as<QGroupBox>();
    return box == nullptr ? QString() : box->title();
}

LRESULT Button::checkState() const {
    if (const auto* box = as<QCheckBox>(); box != nullptr) {
        if (box->checkState() == Qt::PartiallyChecked) return static_cast<LRESULT>(BST_INDETERMINATE);
        return static_cast<LRESULT>(box->isChecked() ? BST_CHECKED : BST_UNCHECKED);
    }
    const auto* radio = as<QRadioButton>();
    return static_cast<LRESULT>(radio != nullptr && radio->isChecked() ? BST_CHECKED : BST_UNCHECKED);
}

// Nobody is told; other buttons of the group stay as they are.
LRESULT Button::setCheckState(WPARAM state) {
    if (static_cast<WPARAM>(checkState()) == state) return 0; // the toolkit would draw it once more
    if (auto* box = as<QCheckBox>(); box != nullptr) {
        bool isHalf = state == BST_INDETERMINATE && box->isTristate();
        if (isHalf)
            box->setCheckState(Qt::PartiallyChecked);
        else
            box->setCheckState(state == BST_UNCHECKED ? Qt::Unchecked : Qt::Checked);
    } else if (auto* radio = as<QRadioButton>(); radio != nullptr) {
        radio->setChecked(state != BST_UNCHECKED);
    }
    return 0;
}

LRESULT Button::state() const {
    const auto* button = as<QAbstractButton>();
    if (button == nullptr) return 0;
    return checkState() | static_cast<LRESULT>(button->isDown() ? BST_PUSHED : 0) |
           static_cast<LRESULT>(button->hasFocus() ? BST_FOCUS : 0);
}

LRESULT Button::setPushed(bool isPushed) {
    if (auto* button = as<QAbstractButton>(); button != nullptr) button->setDown(isPushed);
    return 0;
}

// Only from push button to default push button and back: the other kinds are other widgets.
LRESULT Button::setKind(DWORD kind) {
    if (!isPushButton(kind) || !isPushButton(kindOf(style()))) return 0;
    setStyle((style() & ~BS_TYPEMASK) | kind);
    return 0;
}

void Button::styleChanged(DWORD before, DWORD extendedBefore) {
    if (auto* button = as<QPushButton>(); button != nullptr) button->setDefault(kindOf(style()) == BS_DEFPUSHBUTTON);
    Window::styleChanged(before, extendedBefore);
}

LRESULT Button::setImage(WPARAM type, LPARAM image) {
    imageType_ = type;
    LRESULT before = std::exchange(image_, image);
    if (auto* button = as<QAbstractButton>(); button != nullptr) {
        PictureIcon picture = PictureIcon::of(type, image);
        button->setIcon(picture.icon);
        button->setIconSize(picture.size);
    }
    return before;
}

// As a user's, so a disabled button does nothing.
LRESULT Button::click() {
    if (!widget()->isEnabled()) return 0;
    send(WM_LBUTTONDOWN, MK_LBUTTON);
    return send(WM_LBUTTONUP), 0;
}

LRESULT Button::press() {
    if (as<QAbstractButton>() == nullptr) return 0;
    widget()->setFocus(Qt::MouseFocusReason);
    return setPushed(true);
}

// Outside of it the user has thought better of it.
LRESULT Button::release(POINT at) {
    auto* button = as<QAbstractButton>();
    if (button == nullptr || !button->isDown()) return 0;
    button->setDown(false);
    if (button->rect().contains(at.x, at.y)) button->click();
    return 0;
}

LRESULT Button::wantedKeys() const {
    DWORD kind = kindOf(style());
    if (kind == BS_GROUPBOX) return DLGC_STATIC;
    if (isRadioButton(kind)) return DLGC_BUTTON | DLGC_RADIOBUTTON;
    if (kind == BS_DEFPUSHBUTTON) return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
    return isPushButton(kind) ? DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON : DLGC_BUTTON;
}

void Button::focusChanged(WORD code) {
    if ((style() & BS_NOTIFY) != 0) notifyCommand(code);
}

// A group begins at a window with WS_GROUP and ends before the next one.
void Button::uncheckOthers() {
    bool isInGroup = false;
    std::vector<Window*> group;
    for (Window* window : parent()->children()) {
        if ((window->style() & WS_GROUP) != 0) {
            if (isInGroup) break;
            group.clear();
        }
        if (window == this)
            isInGroup = true;
        else if (auto* radio = dynamic_cast<RadioButton*>(window->widget()); radio != nullptr)
            group.push_back(window);
    }
    for (Window* window : group)
        window->send(BM_SETCHECK, BST_UNCHECKED);
}

void Button::draw() {
    const auto* button = as<QAbstractButton>();
    sendDrawItem(*this, ODT_BUTTON,
                 (button->isDown() ? ODS_SELECTED : 0) | (button->isEnabled() ? 0 : ODS_DISABLED) |
                     (button->hasFocus() ? ODS_FOCUS : 0));
}

} // namespace

std::unique_ptr<Window> makeButton(const WindowTraits& traits, QWidget* parent) {
    return std::make_unique<Button>(makeWidget(kindOf(traits.style), parent), traits);
}
