#include "platform/qt/WindowTable.h"

#include "platform/posix/HandleTable.h"
#include "platform/qt/Window.h"

WindowTable& WindowTable::instance() {
    static auto* table = new WindowTable;
    return *table;
}

HWND WindowTable::add(Window& window, const QWidget* widget) {
    ULONG_PTR number = ++last_ << 8U | static_cast<ULONG_PTR>(HandleKind::window) << 3U;
    auto handle = reinterpret_cast<HWND>(number); // NOLINT: never an address
    windows_.emplace(handle, Entry{&window, nullptr});
    byWidget_.insert(widget, &window);
    return handle;
}

Window* WindowTable::find(HWND handle) const noexcept {
    auto at = windows_.find(handle);
    return at == windows_.end() ? nullptr : at->second.window;
}

Window* WindowTable::find(const QWidget* widget) const noexcept { return byWidget_.value(widget, nullptr); }

std::vector<Window*> WindowTable::all() const {
    std::vector<Window*> windows;
    windows.reserve(windows_.size());
    for (const auto& [handle, entry] : windows_)
        windows.push_back(entry.window);
    return windows;
}

void WindowTable::keep(HWND handle, std::unique_ptr<Window> window) { windows_.at(handle).kept = std::move(window); }

std::unique_ptr<Window> WindowTable::forget(HWND handle, const QWidget* widget) {
    auto node = windows_.extract(handle);
    if (node.empty()) return nullptr;
    byWidget_.remove(widget);
    return std::move(node.mapped().kept);
}
