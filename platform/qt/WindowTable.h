// The windows by handle and by widget. A handle is a number that is never given out twice, so a stale one is told from
// every window that comes later.
#pragma once

#include "platform/types.h"

#include <QHash>

#include <map>
#include <memory>
#include <vector>

class QWidget;
class Window;

class WindowTable {
public:
    // The one table. It is never destroyed: widgets still go while the process ends.
    static WindowTable& instance();

    HWND add(Window& window, const QWidget* widget);
    Window* find(HWND handle) const noexcept;
    Window* find(const QWidget* widget) const noexcept;
    std::vector<Window*> all() const;

    // The table owns the window until it is forgotten.
    void keep(HWND handle, std::unique_ptr<Window> window);
    // The handle means nothing from here on. Gives the window back to whoever ends it, if it was kept.
    std::unique_ptr<Window> forget(HWND handle, const QWidget* widget);

private:
    struct Entry {
        Window* window;
        std::unique_ptr<Window> kept;
    };
    std::map<HWND, Entry> windows_;
    QHash<const QWidget*, Window*> byWidget_;
    ULONG_PTR last_ = 0;
};
