#include "platform/qt/SheetTabs.h"

#include "platform/controls.h"

#include <QSignalBlocker>
#include <QTabBar>

namespace {

std::unique_ptr<QWidget> makeBar(QWidget* parent, const QStringList& titles) {
    auto bar = std::make_unique<QTabBar>(parent);
    bar->setExpanding(false);
    bar->setDrawBase(true);
    for (const QString& title : titles)
        bar->addTab(title);
    return bar;
}

WindowTraits tabTraits() {
    WindowTraits traits;
    traits.className = WC_TABCONTROLW;
    traits.style = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
    traits.id = SheetTabs::controlId;
    return traits;
}

} // namespace

SheetTabs::SheetTabs(QWidget* parent, const QStringList& titles, std::function<void(int)> choose)
    : Window(makeBar(parent, titles), tabTraits()), choose_(std::move(choose)) {
    QObject::connect(&bar(), &QTabBar::currentChanged, this, [this](int index) { choose_(index); });
}

QTabBar& SheetTabs::bar() const { return *static_cast<QTabBar*>(widget()); }

void SheetTabs::show(int index) {
    const QSignalBlocker quiet(bar());
    bar().setCurrentIndex(index);
}

int SheetTabs::current() const { return bar().currentIndex(); }

int SheetTabs::count() const { return bar().count(); }

int SheetTabs::neighbour(int step) const { return (current() + step + count()) % count(); }

LRESULT SheetTabs::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case TCM_GETITEMCOUNT:
        return count();
    case TCM_GETCURSEL:
        return current();
    case TCM_SETCURSEL: {
        const int before = current();
        if (static_cast<int>(wParam) < 0 || static_cast<int>(wParam) >= count()) return -1;
        choose_(static_cast<int>(wParam));
        return before;
    }
    case TCM_GETITEMW:
        return getItem(static_cast<int>(wParam), lParam);
    default:
        return Window::answer(message, wParam, lParam);
    }
}

LRESULT SheetTabs::getItem(int index, LPARAM item) const {
    auto* to = reinterpret_cast<TCITEMW*>(item); // NOLINT: published
    if (to == nullptr || index < 0 || index >= count()) return FALSE;
    if ((to->mask & TCIF_TEXT) != 0 && to->cchTextMax > 0)
        copyText(bar().tabText(index), static_cast<WPARAM>(to->cchTextMax), reinterpret_cast<LPARAM>(to->pszText));
    if ((to->mask & TCIF_IMAGE) != 0) to->iImage = -1;
    return TRUE;
}
