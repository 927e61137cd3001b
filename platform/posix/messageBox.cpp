#include "platform/posix/messageBox.h"

#include "platform/posix/WindowLayer.h"
#include "platform/posix/service.h"
#include "platform/posix/wideText.h"

#include <csignal>
#include <ctime>
#include <mutex>
#include <unistd.h>

namespace {

struct Installed {
    std::mutex mutex;
    WindowHooks hooks{};
};

// The hook is called without the lock: it may show a box of its own, or give way to another.
Installed& installed() {
    static Installed one;
    return one;
}

WindowHooks currentHooks() {
    std::lock_guard lock(installed().mutex);
    return installed().hooks;
}

// A standard error that nobody reads any more must not end the process: its signal is kept from this thread, and taken
// away if it has come.
class BrokenPipeIgnored {
public:
    BrokenPipeIgnored() {
        sigset_t pending;
        sigemptyset(&set_);
        sigaddset(&set_, SIGPIPE);
        sigpending(&pending);
        wasPending_ = sigismember(&pending, SIGPIPE) == 1;
        pthread_sigmask(SIG_BLOCK, &set_, &before_);
    }
    ~BrokenPipeIgnored() {
        timespec now{};
        if (!wasPending_) sigtimedwait(&set_, nullptr, &now);
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    BrokenPipeIgnored(const BrokenPipeIgnored&) = delete;
    BrokenPipeIgnored& operator=(const BrokenPipeIgnored&) = delete;

private:
    sigset_t set_{};
    sigset_t before_{};
    bool wasPending_;
};

// Names in a message come from files; what would steer a terminal is not passed on to it.
std::u16string printable(std::u16string_view text) {
    std::u16string out;
    for (char16_t unit : text) {
        bool isControl = unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
        if (unit == u'\r') continue;
        out += isControl && unit != u'\n' && unit != u'\t' ? u'?' : unit;
    }
    while (out.ends_with(u'\n'))
        out.pop_back();
    return out;
}

void writeToStandardError(LPCWSTR caption, LPCWSTR text) {
    std::u16string title = printable(caption == nullptr ? u"" : caption);
    if (!title.empty()) title += u'\n';
    std::string message = readableText(title + printable(text == nullptr ? u"" : text) + u"\n");
    BrokenPipeIgnored guard;
    for (std::size_t done = 0; done < message.size();) {
        ssize_t count = ::write(STDERR_FILENO, message.data() + done, message.size() - done);
        if (count <= 0) return;
        done += static_cast<std::size_t>(count);
    }
}

// Nobody is there to agree to anything.
int unattendedAnswer(UINT type) {
    switch (type & MB_TYPEMASK) {
    case MB_OK:
    case MB_OKCANCEL:
        return IDOK;
    case MB_ABORTRETRYIGNORE:
        return IDABORT;
    case MB_YESNO:
        return IDNO;
    default:
        return IDCANCEL;
    }
}

} // namespace

WindowHooks installWindowHooks(const WindowHooks& hooks) noexcept {
    std::lock_guard lock(installed().mutex);
    WindowHooks before = installed().hooks;
    installed().hooks = hooks;
    return before;
}

int WINAPI MessageBoxW(HWND hWnd, LPCWSTR lpText, LPCWSTR lpCaption, UINT uType) {
    return service(0, [&] {
        WindowHooks hooks = currentHooks();
        if (hooks.messageBox != nullptr) return hooks.messageBox(hooks.context, hWnd, lpText, lpCaption, uType);
        // A box alone is no reason to open a display: a program that has shown no window is one of the console.
        const WindowLayer* layer = loadedWindowLayer();
        if (layer != nullptr) return layer->MessageBoxW(hWnd, lpText, lpCaption, uType);
        writeToStandardError(lpCaption, lpText);
        return unattendedAnswer(uType);
    });
}

int WINAPI GetWindowTextW(HWND hWnd, LPWSTR lpString, int nMaxCount) {
    return service(0, [&] {
        WindowHooks hooks = currentHooks();
        if (lpString != nullptr && nMaxCount > 0) *lpString = 0;
        if (hooks.windowText != nullptr) return hooks.windowText(hooks.context, hWnd, lpString, nMaxCount);
        const WindowLayer* layer = loadedWindowLayer();
        require(layer != nullptr, ERROR_INVALID_WINDOW_HANDLE);
        return layer->GetWindowTextW(hWnd, lpString, nMaxCount);
    });
}

int WINAPI GetWindowTextLengthW(HWND hWnd) {
    return service(0, [&] {
        WindowHooks hooks = currentHooks();
        if (hooks.windowTextLength != nullptr) return hooks.windowTextLength(hooks.context, hWnd);
        const WindowLayer* layer = loadedWindowLayer();
        require(layer != nullptr, ERROR_INVALID_WINDOW_HANDLE);
        return layer->GetWindowTextLengthW(hWnd);
    });
}
