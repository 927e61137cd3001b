// The combo box class: drop-down lists, with a field to type in or without.
#include "platform/controls.h"
#include "platform/qt/DropDownBox.h"
#include "platform/qt/EditField.h"
#include "platform/qt/Window.h"
#include "platform/qt/controlClasses.h"
#include "platform/qt/listText.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QLineEdit>
#include <QStandardItemModel>

#include <algorithm>

namespace {

constexpr WORD editId = 1001;
constexpr int fewestRows = 12;

bool hasField(DWORD style) { return (style & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST; }

class ComboBox : public Window {
public:
    ComboBox(std::unique_ptr<DropDownBox> box, const WindowTraits& traits);

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
    void place(const QRect& area) override;

protected:
    bool translate(QEvent& event) override;

private:
    LRESULT answerEntries(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT answerSelection(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT answerList(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT answerField(UINT message, WPARAM wParam, LPARAM lParam);

    bool has(WPARAM row) const { return row < static_cast<WPARAM>(box_.count()); }
    TextOfRow textOfRow() const {
        return [this](int row) { return box_.itemText(row); };
    }
    LRESULT insert(int row, const QString& text);
    LRESULT remove(WPARAM row);
    LRESULT clear();
    LRESULT find(WPARAM after, LPARAM text, bool whole);
    LRESULT select(LRESULT row);
    LRESULT selected() const;
    LRESULT setData(WPARAM row, LPARAM data);
    LRESULT entryText(WPARAM row, LPARAM buffer);
    LRESULT setText(LPARAM text);
    LRESULT type(WPARAM unit);
    LRESULT showList(bool show);
    LRESULT droppedRectangle(RECT* rectangle) const;
    LRESULT hearField(WORD code);
    bool takesFocus(bool isComing);
    LRESULT tellLoss();
    LRESULT followFont();
    void makeField();
    void listen();

    DropDownBox& box_;
    // Null for a list without a field.
    Window* field_ = nullptr;
    TypedSearch search_;
    int droppedHeight_ = 0;
    // As far as anybody has been told.
    bool hasFocus_ = false;
};

ComboBox::ComboBox(std::unique_ptr<DropDownBox> box, const WindowTraits& traits)
    : Window(std::unique_ptr<QWidget>(box.release()), traits), box_(static_cast<DropDownBox&>(*widget())) {
    if (hasField(traits.style)) makeField();
    listen();
}

// The field is a window of its own, as programs know it. It has the focus itself, so that its keys are its own; what it
// does not want, such as the arrows, goes on to the box.
void ComboBox::makeField() {
    WindowTraits traits;
    traits.className = u"Edit";
    traits.style = WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL;
    traits.id = editId;
    field_ = &Window::keep(makeEdit(traits, &box_));
    auto* edit = static_cast<QLineEdit*>(field_->widget());
    box_.setLineEdit(edit);
    box_.setCompleter(nullptr);
    // The box would choose an entry by itself when the text is like it.
    QObject::disconnect(edit, nullptr, &box_, nullptr);
    edit->setFocusProxy(nullptr);
    box_.setFocusProxy(edit);
}

void ComboBox::listen() {
    box_.opening = [this] { notifyCommand(CBN_DROPDOWN); };
    box_.ending = [this](bool isTaken) { notifyCommand(isTaken ? CBN_SELENDOK : CBN_SELENDCANCEL); };
    box_.closed = [this] { notifyCommand(CBN_CLOSEUP); };
    box_.chosen = [this](bool isFromList) {
        if (!isFromList) notifyCommand(CBN_SELENDOK);
        notifyCommand(CBN_SELCHANGE);
    };
}

// A program gives the height of the box with its list dropped.
void ComboBox::place(const QRect& area) {
    int height = box_.closedHeight();
    droppedHeight_ = std::max(area.height(), height);
    int rows = (droppedHeight_ - height) / std::max(box_.fontMetrics().height(), 1);
    box_.setMaxVisibleItems(std::max(rows, fewestRows));
    Window::place({area.topLeft(), QSize(area.width(), height)});
}

bool ComboBox::translate(QEvent& event) {
    switch (event.type()) {
    case QEvent::FocusIn:
        return takesFocus(true) && Window::translate(event);
    case QEvent::FocusOut:
        return takesFocus(false) && Window::translate(event);
    default:
        return Window::translate(event);
    }
}

// The list that is open belongs to the box, and nobody is told that it has the keys for a while.
bool ComboBox::takesFocus(bool isComing) {
    if (isComing == hasFocus_ || (!isComing && box_.isOpen())) return false;
    hasFocus_ = isComing;
    return true;
}

LRESULT ComboBox::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        return hearField(HIWORD(wParam));
    case WM_SETTEXT:
        return setText(lParam);
    case WM_GETTEXT:
        return copyText(box_.currentText(), wParam, lParam);
    case WM_GETTEXTLENGTH:
        return box_.currentText().size();
    case WM_CHAR:
        return field_ == nullptr && wParam > VK_SPACE ? type(wParam) : Window::answer(message, wParam, lParam);
    case WM_SETFONT:
        Window::answer(message, wParam, lParam);
        return followFont();
    case WM_SETFOCUS:
        Window::answer(message, wParam, lParam);
        return notifyCommand(CBN_SETFOCUS), 0;
    case WM_KILLFOCUS:
        Window::answer(message, wParam, lParam);
        return tellLoss();
    // The field goes before the box, which must not look for it any more.
    case WM_NCDESTROY:
        box_.setFocusProxy(nullptr);
        return box_.setEditable(false), 0;
    default:
        return answerEntries(message, wParam, lParam);
    }
}

LRESULT ComboBox::answerEntries(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case CB_GETCOUNT:
        return box_.count();
    case CB_ADDSTRING: {
        QString text = textFrom(lParam);
        bool isSorted = (style() & CBS_SORT) != 0;
        return insert(isSorted ? sortedPlace(text, box_.count(), textOfRow()) : box_.count(), text);
    }
    case CB_INSERTSTRING:
        return insert(static_cast<int>(wParam), textFrom(lParam));
    case CB_DELETESTRING:
        return remove(wParam);
    case CB_RESETCONTENT:
        return clear();
    case CB_GETLBTEXT:
        return entryText(wParam, lParam);
    case CB_GETLBTEXTLEN:
        return has(wParam) ? box_.itemText(static_cast<int>(wParam)).size() : CB_ERR;
    case CB_GETITEMDATA:
        return has(wParam) ? static_cast<LRESULT>(box_.itemData(static_cast<int>(wParam)).toLongLong()) : CB_ERR;
    case CB_SETITEMDATA:
        return setData(wParam, lParam);
    default:
        return answerSelection(message, wParam, lParam);
    }
}

LRESULT ComboBox::answerSelection(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case CB_GETCURSEL:
        return selected();
    case CB_SETCURSEL:
        return select(static_cast<int>(wParam));
    case CB_FINDSTRING:
        return find(wParam, lParam, false);
    case CB_FINDSTRINGEXACT:
        return find(wParam, lParam, true);
    case CB_SELECTSTRING: {
        LRESULT row = find(wParam, lParam, false);
        return row < 0 ? CB_ERR : select(row);
    }
    default:
        return answerList(message, wParam, lParam);
    }
}

LRESULT ComboBox::answerList(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case CB_SHOWDROPDOWN:
        return showList(wParam != 0);
    case CB_GETDROPPEDSTATE:
        return box_.isOpen() ? TRUE : FALSE;
    case CB_SETDROPPEDWIDTH:
        box_.setDroppedWidth(static_cast<int>(wParam));
        return box_.droppedWidth();
    case CB_GETDROPPEDWIDTH:
        return box_.droppedWidth();
    case CB_GETDROPPEDCONTROLRECT:
        return droppedRectangle(reinterpret_cast<RECT*>(lParam)); // NOLINT
    case CB_GETITEMHEIGHT:
        return box_.fontMetrics().height() + (static_cast<int>(wParam) == -1 ? 2 : 0);
    default:
        return answerField(message, wParam, lParam);
    }
}

LRESULT ComboBox::answerField(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case CB_LIMITTEXT:
        return field_ == nullptr ? TRUE : (field_->send(EM_LIMITTEXT, wParam), TRUE);
    case CB_GETEDITSEL:
        return field_ == nullptr ? CB_ERR : field_->send(EM_GETSEL, wParam, lParam);
    case CB_SETEDITSEL:
        if (field_ == nullptr) return CB_ERR;
        field_->send(EM_SETSEL, static_cast<WPARAM>(static_cast<SHORT>(LOWORD(lParam))),
                     static_cast<SHORT>(HIWORD(lParam)));
        return TRUE;
    default:
        return Window::answer(message, wParam, lParam);
    }
}

// -1 means the end.
LRESULT ComboBox::insert(int row, const QString& text) {
    int at = row == -1 ? box_.count() : row;
    if (at < 0 || at > box_.count()) return CB_ERR;
    QSignalBlocker quiet(&box_);
    box_.insertItem(at, text, QVariant(qlonglong{0}));
    return at;
}

// The box would choose the next entry in the place of the one that goes.
LRESULT ComboBox::remove(WPARAM row) {
    if (!has(row)) return CB_ERR;
    QSignalBlocker quiet(&box_);
    int at = static_cast<int>(row);
    if (box_.currentIndex() == at) select(CB_ERR);
    box_.removeItem(at);
    return box_.count();
}

LRESULT ComboBox::clear() {
    QSignalBlocker quiet(&box_);
    box_.clear();
    if (field_ != nullptr) setText(0);
    return CB_OKAY;
}

LRESULT ComboBox::find(WPARAM after, LPARAM text, bool whole) {
    int row = findText({textFrom(text), static_cast<int>(after), whole}, box_.count(), textOfRow());
    return row < 0 ? CB_ERR : row;
}

LRESULT ComboBox::select(LRESULT row) {
    QSignalBlocker quiet(&box_);
    bool isThere = row >= 0 && row < box_.count();
    box_.setCurrentIndex(isThere ? static_cast<int>(row) : -1);
    return isThere ? row : CB_ERR;
}

// What the user has typed is no entry.
LRESULT ComboBox::selected() const {
    int row = box_.currentIndex();
    return row >= 0 && box_.currentText() != box_.itemText(row) ? CB_ERR : row;
}

LRESULT ComboBox::setData(WPARAM row, LPARAM data) {
    if (!has(row)) return CB_ERR;
    QSignalBlocker quiet(&box_);
    box_.setItemData(static_cast<int>(row), static_cast<qlonglong>(data));
    return CB_OKAY;
}

LRESULT ComboBox::entryText(WPARAM row, LPARAM buffer) {
    if (!has(row)) return CB_ERR;
    QString text = box_.itemText(static_cast<int>(row));
    return copyText(text, static_cast<WPARAM>(text.size()) + 1, buffer);
}

LRESULT ComboBox::setText(LPARAM text) {
    if (field_ == nullptr) return CB_ERR;
    dynamic_cast<EditField&>(*field_->widget()).setContent(textFrom(text));
    return TRUE;
}

// To the entry that begins so; the box's own search stays where it is when a letter comes twice.
LRESULT ComboBox::type(WPARAM unit) {
    int row = search_.type(QChar(static_cast<char16_t>(unit)), box_.currentIndex(), box_.count(), textOfRow());
    if (row >= 0 && row != box_.currentIndex()) box_.choose(row);
    return 0;
}

LRESULT ComboBox::showList(bool show) {
    if (show && box_.isVisible())
        box_.showPopup();
    else if (!show)
        box_.hidePopup();
    return TRUE;
}

LRESULT ComboBox::droppedRectangle(RECT* rectangle) const {
    if (rectangle == nullptr) return FALSE;
    QPoint corner = box_.mapToGlobal(QPoint(0, 0));
    *rectangle = {corner.x(), corner.y(), corner.x() + box_.droppedWidth(),
                  corner.y() + std::max(droppedHeight_, box_.height())};
    return TRUE;
}

LRESULT ComboBox::hearField(WORD code) {
    switch (code) {
    case EN_UPDATE:
        return notifyCommand(CBN_EDITUPDATE);
    case EN_CHANGE:
        return notifyCommand(CBN_EDITCHANGE);
    case EN_SETFOCUS:
        return takesFocus(true) ? notifyCommand(CBN_SETFOCUS) : 0;
    case EN_KILLFOCUS:
        return takesFocus(false) ? tellLoss() : 0;
    default:
        return 0;
    }
}

LRESULT ComboBox::tellLoss() {
    notifyCommand(CBN_SELENDCANCEL);
    return notifyCommand(CBN_KILLFOCUS), 0;
}

LRESULT ComboBox::followFont() {
    box_.resize(box_.width(), box_.closedHeight());
    return 0;
}

} // namespace

std::unique_ptr<Window> makeComboBox(const WindowTraits& traits, QWidget* parent) {
    return std::make_unique<ComboBox>(std::make_unique<DropDownBox>(parent), traits);
}
