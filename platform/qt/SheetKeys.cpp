#include "platform/qt/SheetKeys.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

// 0 for every other key.
int stepOf(const QKeyEvent& key) {
    if (!key.modifiers().testFlag(Qt::ControlModifier) || key.modifiers().testFlag(Qt::AltModifier)) return 0;
    const bool isBack = key.modifiers().testFlag(Qt::ShiftModifier);
    switch (key.key()) {
    case Qt::Key_Tab:
        return isBack ? -1 : 1;
    case Qt::Key_Backtab:
    case Qt::Key_PageUp:
        return -1;
    case Qt::Key_PageDown:
        return 1;
    default:
        return 0;
    }
}

} // namespace

SheetKeys::SheetKeys(Window& sheet, std::function<void(int)> go) : QObject(&sheet), sheet_(sheet), go_(std::move(go)) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool SheetKeys::eventFilter(QObject* watched, QEvent* event) {
    const bool isAsked = event->type() == QEvent::ShortcutOverride;
    if (!isAsked && event->type() != QEvent::KeyPress) return false;
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget->window() != sheet_.widget() || QApplication::activePopupWidget()) return false;
    const int step = stepOf(static_cast<const QKeyEvent&>(*event));
    if (step == 0) return false;
    event->accept();
    if (!isAsked) go_(step);
    return true;
}
