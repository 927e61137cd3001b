#include "platform/qt/DropDownBox.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <utility>

namespace {

// Rows with a little air, to be hit more easily.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 4);
    }
};

bool isTakingKey(const QKeyEvent& key) {
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F4:
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        return key.modifiers().testFlag(Qt::AltModifier);
    default:
        return false;
    }
}

bool isTab(const QKeyEvent& key) { return key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab; }

} // namespace

DropDownBox::DropDownBox(QWidget* parent) : QComboBox(parent) {
    // Without one, the first entry of an empty box would be chosen as soon as it is there.
    setPlaceholderText(QStringLiteral(" "));
    setInsertPolicy(QComboBox::NoInsert);
    setMaxVisibleItems(20);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QComboBox::activated, this, [this] {
        bool isFromList = std::exchange(takes_, false);
        if (chosen) chosen(isFromList);
    });
}

void DropDownBox::showPopup() {
    if (isOpen_) return;
    if (opening) opening();
    if (dynamic_cast<RowDelegate*>(itemDelegate()) == nullptr) setItemDelegate(new RowDelegate(this));
    watchList();
    takes_ = false;
    isOpen_ = true;
    QComboBox::showPopup();
    if (!view()->isVisible() && finish(false) && closed) closed();
}

void DropDownBox::watchList() {
    int frame = view()->window()->width() - view()->width();
    view()->setMinimumWidth(droppedWidth() - (view()->isVisible() ? frame : 2));
    for (QObject* part : {static_cast<QObject*>(view()), static_cast<QObject*>(view()->viewport()),
                          static_cast<QObject*>(view()->window())}) {
        // Installed anew, it comes before the box's own filter.
        part->removeEventFilter(this);
        part->installEventFilter(this);
    }
}

// False when the list was not open.
bool DropDownBox::finish(bool isTaken) {
    if (!std::exchange(isOpen_, false)) return false;
    if (ending) ending(isTaken);
    return true;
}

void DropDownBox::hidePopup() {
    bool wasOpen = finish(takes_);
    QComboBox::hidePopup();
    if (wasOpen && closed) closed();
}

bool DropDownBox::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonRelease:
        takes_ = true;
        break;
    case QEvent::MouseButtonPress:
        takes_ = false;
        break;
    // The list acts on a key when it is asked whether it wants it.
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (isTab(static_cast<const QKeyEvent&>(*event))) {
            if (event->type() == QEvent::KeyPress) leaveList(static_cast<const QKeyEvent&>(*event));
            return event->accept(), true;
        }
        takes_ = isTakingKey(static_cast<const QKeyEvent&>(*event));
        break;
    case QEvent::Hide:
        // Not by the program: the user's choice, or the desktop has closed it.
        if (watched == view()->window() && finish(takes_) && closed) closed();
        break;
    default:
        break;
    }
    return QComboBox::eventFilter(watched, event);
}

// The Tab key takes the entry under the cursor and goes on from the box.
void DropDownBox::leaveList(const QKeyEvent& tab) {
    QKeyEvent take(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(view(), &take);
    if (isOpen_) hidePopup(); // there was nothing to take
    QWidget* target = focusProxy() == nullptr ? this : focusProxy();
    QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, tab.key(), tab.modifiers()));
}

// From a text that is no entry the arrows begin at the first one.
void DropDownBox::keyPressEvent(QKeyEvent* event) {
    bool isArrow =
        (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) && (event->modifiers() & ~Qt::KeypadModifier) == 0;
    if (!isArrow || !isEditable() || count() == 0 || currentText() == itemText(currentIndex()))
        return QComboBox::keyPressEvent(event);
    choose(0);
}

void DropDownBox::choose(int row) {
    setCurrentIndex(row);
    if (isEditable()) setEditText(itemText(row));
    emit activated(row);
}

// A wheel that passes over the box on the way through a page must not change it.
void DropDownBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}
