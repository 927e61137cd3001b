#include "platform/posix/service.h"
#include "platform/qt/Window.h"
#include "platform/qt/windowCalls.h"

#include <QDateTime>
#include <QTimer>

#include <algorithm>
#include <map>
#include <memory>

namespace {

struct TimerKey {
    HWND window;
    UINT_PTR id;
    auto operator<=>(const TimerKey&) const = default; // NOLINT(modernize-use-nullptr): misread by the check
};

// A timer that is killed while it fires goes when it has returned.
struct DeleteLater {
    void operator()(QTimer* timer) const {
        timer->stop();
        timer->deleteLater();
    }
};
using Timers = std::map<TimerKey, std::unique_ptr<QTimer, DeleteLater>>;

Timers& timers() {
    static auto* all = new Timers;
    return *all;
}

void fire(const TimerKey& key, TIMERPROC procedure) noexcept {
    try {
        auto now = static_cast<DWORD>(QDateTime::currentMSecsSinceEpoch());
        Window* window = key.window == nullptr ? nullptr : Window::of(key.window);
        if (key.window != nullptr && window == nullptr) return;
        if (procedure != nullptr)
            procedure(key.window, WM_TIMER, key.id, now);
        else if (window != nullptr)
            window->send(WM_TIMER, key.id);
    } catch (...) {
        SetLastError(errorOfCurrentException());
    }
}

// Of no window: the ids are given out.
UINT_PTR freeId() {
    UINT_PTR id = 1;
    while (timers().contains({nullptr, id}))
        ++id;
    return id;
}

} // namespace

namespace qt {

UINT_PTR SetTimer(HWND hWnd, UINT_PTR nIDEvent, UINT uElapse, TIMERPROC lpTimerFunc) {
    constexpr UINT longest = 0x7FFFFFFF;
    constexpr UINT shortest = 10;
    Window* window = hWnd == nullptr ? nullptr : Window::of(hWnd);
    if (hWnd != nullptr && window == nullptr) return 0;
    TimerKey key{hWnd, hWnd == nullptr && !timers().contains({hWnd, nIDEvent}) ? freeId() : nIDEvent};
    auto timer = std::unique_ptr<QTimer, DeleteLater>(new QTimer);
    // The toolkit's own repetition waits for the handler to return, which may run a dialog.
    timer->setSingleShot(true);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), [again = timer.get(), key, lpTimerFunc] {
        again->start();
        fire(key, lpTimerFunc);
    });
    if (window != nullptr) QObject::connect(window, &QObject::destroyed, timer.get(), [key] { timers().erase(key); });
    timer->start(static_cast<int>(std::clamp(uElapse, shortest, longest)));
    timers()[key] = std::move(timer);
    return hWnd == nullptr ? key.id : std::max<UINT_PTR>(key.id, 1);
}

BOOL KillTimer(HWND hWnd, UINT_PTR uIDEvent) { return timers().erase({hWnd, uIDEvent}) != 0 ? TRUE : FALSE; }

} // namespace qt
