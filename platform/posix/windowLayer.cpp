#include "platform/posix/WindowLayer.h"

#include "platform/posix/service.h"

#include <atomic>
#include <dlfcn.h>
#include <mutex>
#include <string>
#include <thread>

namespace {

struct Loaded {
    std::mutex mutex;
    WindowLayerEntry entry = nullptr;
    std::atomic<const WindowLayer*> layer = nullptr;
    std::atomic<std::thread::id> thread;
};

// Never destroyed: windows are still asked about while the process ends.
Loaded& loaded() {
    static auto* one = new Loaded;
    return *one;
}

// The layer lies beside this library.
WindowLayerEntry findEntry() {
    Dl_info own{};
    if (::dladdr(reinterpret_cast<void*>(&wantedWindowLayer), &own) == 0) return nullptr;
    std::string path = own.dli_fname;
    path.replace(path.rfind('/') + 1, std::string::npos, windowLayerLibrary);
    void* library = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    return library == nullptr ? nullptr : reinterpret_cast<WindowLayerEntry>(::dlsym(library, windowLayerEntry));
}

// A display may come later, and the application whose windows these are may have gone, so the layer is asked each time.
const WindowLayer* load() {
    std::lock_guard lock(loaded().mutex);
    if (loaded().entry == nullptr) loaded().entry = findEntry();
    require(loaded().entry != nullptr, ERROR_MOD_NOT_FOUND);
    bool isOthers = loaded().layer != nullptr && loaded().thread != std::this_thread::get_id();
    require(!isOthers, ERROR_REQUIRES_INTERACTIVE_WINDOWSTATION);
    loaded().thread = std::this_thread::get_id();
    loaded().layer = loaded().entry();
    require(loaded().layer != nullptr, ERROR_REQUIRES_INTERACTIVE_WINDOWSTATION);
    return loaded().layer;
}

template <typename Result, typename Call, typename None>
Result forwarded(const WindowLayer* layer, Call&& call, None&& none) noexcept {
    if (layer == nullptr) return none();
    try {
        return call(*layer);
    } catch (...) {
        // A procedure of the program let something out: it ends here, since the layer's own frames lie between.
        SetLastError(errorOfCurrentException());
        return none();
    }
}

} // namespace

const WindowLayer* loadedWindowLayer() noexcept {
    const WindowLayer* layer = loaded().layer;
    if (layer != nullptr && loaded().thread == std::this_thread::get_id()) return layer;
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
}

const WindowLayer* wantedWindowLayer() noexcept {
    // cppcheck-suppress throwInNoexceptFunction ; a service catches
    return service<const WindowLayer*>(nullptr, [] { return load(); });
}

#define FORWARD(layer, Result, name, parameters, arguments, none)                                                      \
    Result WINAPI name parameters {                                                                                    \
        return forwarded<Result>(                                                                                      \
            layer(), [&](const WindowLayer& windows) { return windows.name arguments; },                               \
            [] { return static_cast<Result>(none); });                                                                 \
    }
#define WINDOW_CALL(...) FORWARD(loadedWindowLayer, __VA_ARGS__)
#define WINDOW_CREATOR(...) FORWARD(wantedWindowLayer, __VA_ARGS__)
#define WINDOW_HOOKED(...)
#include "platform/posix/windowCalls.def"
#undef FORWARD

// Asked after a file dialog that never opened: 0 would mean that the user cancelled it.
DWORD WINAPI CommDlgExtendedError() {
    const WindowLayer* layer = loadedWindowLayer();
    return layer == nullptr ? CDERR_INITIALIZATION : layer->CommDlgExtendedError();
}
