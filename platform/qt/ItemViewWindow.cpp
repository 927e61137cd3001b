#include "platform/qt/ItemViewWindow.h"

#include "platform/posix/service.h"
#include "platform/qt/windowCalls.h"

#include <QMouseEvent>

#include <utility>

std::optional<RowStep> stepOfKey(WPARAM key) noexcept {
    static constexpr std::pair<int, RowStep> steps[] = {
        {VK_UP, RowStep::up},      {VK_DOWN, RowStep::down}, {VK_LEFT, RowStep::left},    {VK_RIGHT, RowStep::right},
        {VK_HOME, RowStep::first}, {VK_END, RowStep::last},  {VK_PRIOR, RowStep::pageUp}, {VK_NEXT, RowStep::pageDown}};
    for (auto [name, step] : steps)
        if (static_cast<WPARAM>(name) == key) return step;
    return std::nullopt;
}

void makeShowOnly(QAbstractItemView& view) {
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setAutoScroll(false);
    view.setTabKeyNavigation(false);
    view.viewport()->setAttribute(Qt::WA_Hover);
}

bool isKeyHeld(int key) { return qt::GetKeyState(key) < 0; }

void ItemViewWindow::watch(QAbstractItemView& view) {
    views_.push_back(&view);
    view.viewport()->installEventFilter(this);
    if (&view != widget()) view.installEventFilter(this);
}

bool ItemViewWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget()) return Window::eventFilter(watched, event);
    if (handle() == nullptr) return false;
    try {
        return translateOfView(watched, *event);
    } catch (...) {
        // Nothing may pass through the message loop, which is no code of ours.
        SetLastError(errorOfCurrentException());
        return true;
    }
}

bool ItemViewWindow::translateOfView(QObject* watched, QEvent& event) {
    for (QAbstractItemView* view : views_) {
        if (watched == view->viewport()) return translateOfViewport(*view, event);
        if (watched != view) continue;
        switch (event.type()) {
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            return translate(event), false;
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            translate(event);
            return event.accept(), true; // and not once more on the way up
        default:
            return false;
        }
    }
    return false;
}

bool ItemViewWindow::translateOfViewport(QAbstractItemView& view, QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        break;
    default:
        return false;
    }
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    QPoint at = view.viewport()->mapTo(widget(), mouse.position().toPoint());
    QMouseEvent onWidget(event.type(), at, mouse.globalPosition(), mouse.button(), mouse.buttons(), mouse.modifiers());
    return translate(onWidget);
}
