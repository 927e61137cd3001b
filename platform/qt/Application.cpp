#include "platform/qt/Application.h"

#include "platform/posix/unattended.h"
#include "platform/qt/DialogStyle.h"
#include "platform/qt/colourScheme.h"
#include "platform/qt/keyboard.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QPluginLoader>
#include <QPointer>
#include <QThread>
#include <QTranslator>

#include <dlfcn.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

namespace {

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

// Platforms that draw into memory and need no display.
bool needsNoDisplay() {
    std::string platform = environment("QT_QPA_PLATFORM");
    std::string_view name = std::string_view(platform).substr(0, platform.find(':'));
    constexpr std::string_view inMemory[] = {"offscreen", "minimal", "vnc"};
    return std::ranges::find(inMemory, name) != std::end(inMemory);
}

bool connects(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return false;
    path.copy(address.sun_path, path.size());
    int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connection < 0) return false;
    bool isThere = ::connect(connection, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    ::close(connection);
    return isThere;
}

bool hasWaylandDisplay() {
    std::string display = environment("WAYLAND_DISPLAY");
    if (display.empty()) return false;
    return connects(display.front() == '/' ? display : environment("XDG_RUNTIME_DIR") + "/" + display);
}

// The connection is tried with the library that the toolkit uses: it knows every form of DISPLAY, and the cookies. It
// stays until the toolkit has one of its own: a server that loses its last client may start anew, and is not there
// meanwhile.
class XConnection {
public:
    XConnection() = default;
    ~XConnection() {
        if (connection_ != nullptr) call<void (*)(void*)>("xcb_disconnect")(connection_);
        if (library_ != nullptr) ::dlclose(library_);
    }
    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;

    bool open() {
        if (environment("DISPLAY").empty()) return false;
        library_ = ::dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
        if (library_ == nullptr) return false;
        for (const char* name : {"xcb_connect", "xcb_connection_has_error", "xcb_disconnect"})
            if (::dlsym(library_, name) == nullptr) return false;
        connection_ = call<void* (*)(const char*, int*)>("xcb_connect")(nullptr, nullptr);
        return call<int (*)(void*)>("xcb_connection_has_error")(connection_) == 0;
    }

private:
    template <typename Function>
    Function call(const char* name) const {
        return reinterpret_cast<Function>(::dlsym(library_, name));
    }

    void* library_ = nullptr;
    void* connection_ = nullptr;
};

// The toolkit ends the process over a plug-in that is missing or lacks a library, too.
bool hasPlugIn(const char* file) {
    return QPluginLoader(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms/" + file).load();
}

bool canUseWayland() { return hasWaylandDisplay() && hasPlugIn("libqwayland-generic.so"); }
bool canUseX(XConnection& x) { return x.open() && hasPlugIn("libqxcb.so"); }

// What the toolkit draws with: as QT_QPA_PLATFORM says, or the one kind of display there is. Null when nothing would
// work, empty when the choice is the toolkit's.
std::optional<std::string> usablePlatform(XConnection& connection) {
    if (needsNoDisplay()) return std::string();
    std::string chosen = environment("QT_QPA_PLATFORM");
    bool mayUseWayland = chosen.empty() || chosen.find("wayland") != std::string::npos;
    bool mayUseX = chosen.empty() || chosen.find("xcb") != std::string::npos;
    bool wayland = mayUseWayland && canUseWayland();
    bool x = mayUseX && canUseX(connection);
    if (wayland && x) return std::string();
    if (wayland) return "wayland";
    if (x) return "xcb";
    return std::nullopt;
}

// A screen with room for a sheet at every scale; the toolkit's own has 800 pixels each way. Its description is a file
// that only this process sees, and that lives as long.
std::string screenInMemory() {
    constexpr std::string_view description =
        R"({"screens": [{"name": "memory", "x": 0, "y": 0, "width": 3840, "height": 2400,)"
        R"( "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";
    int file = ::memfd_create("screen", MFD_CLOEXEC);
    bool isWritten = file >= 0 && ::write(file, description.data(), description.size()) > 0;
    return isWritten ? "offscreen:configfile=/proc/self/fd/" + std::to_string(file) : std::string("offscreen");
}

// For a program that does without a display. What the toolkit has to say of that is of no use to anybody.
std::optional<std::string> memoryPlatform() {
    if (!mayDoWithoutDisplay()) return std::nullopt;
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    return screenInMemory();
}

// Where the desktop names no font, one that reads well in small print.
void chooseFont() {
    constexpr int dialogPoints = 9;
    QFont font = QApplication::font();
    const QString generic[] = {"Sans Serif", "Sans", "sans-serif", "Helvetica"};
    if (std::ranges::find(generic, font.family()) == std::end(generic)) return;
    QStringList families = QFontDatabase::families();
    for (const QString& family : {QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans")}) {
        if (!families.contains(family)) continue;
        font.setFamily(family);
        break;
    }
    font.setPointSize(dialogPoints);
    QApplication::setFont(font);
}

// The texts of the buttons of message boxes and sheets, in the user's language.
void loadTranslation() {
    auto* translator = new QTranslator(QCoreApplication::instance());
    bool isLoaded = translator->load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                                     QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    if (isLoaded) QCoreApplication::installTranslator(translator);
}

// Keys are seen here before the part of a control that has the focus: a field inside a list box, a view in its frame.
class KeyFilter : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        bool asksOnly = event->type() == QEvent::ShortcutOverride;
        if (!asksOnly && event->type() != QEvent::KeyPress) return false;
        auto* widget = qobject_cast<QWidget*>(watched);
        if (widget == nullptr || QApplication::activePopupWidget() != nullptr) return false;
        // A key that nobody wanted climbs up through the parents; it was asked about at its start.
        QWidget* focused = focusedPart();
        if (focused != nullptr && widget != focused) return false;
        return takes(*widget, static_cast<QKeyEvent&>(*event), asksOnly);
    }

private:
    static bool takes(const QWidget& widget, QKeyEvent& key, bool asksOnly) noexcept {
        try {
            Window* window = Window::holding(&widget);
            if (window == nullptr || !dialogTakesKey(*window, key, asksOnly)) return false;
            key.accept();
            return true;
        } catch (...) {
            return true;
        }
    }
};

// The one that has what this layer needs; null when it has gone.
QPointer<QApplication>& adopted() {
    static QPointer<QApplication> application;
    return application;
}

void adopt(QApplication& application) {
    if (adopted() == &application) return;
    adopted() = &application;
    application.installEventFilter(new KeyFilter(&application));
    QObject::connect(&application, &QApplication::focusChanged, &application,
                     [](QWidget*, QWidget* now) { showDefaultButton(now); });
}

// Windows come and go under programs that run on: the last one closed does not end them.
void startOwn(const std::string& platform) {
    // The toolkit keeps these for as long as the application lives.
    static std::string chosen;
    static char name[] = "kolma";
    static char option[] = "-platform";
    static char* arguments[] = {name, option, nullptr, nullptr};
    static int argumentCount;
    chosen = platform;
    arguments[2] = chosen.data();
    argumentCount = platform.empty() ? 1 : 3;
    auto* application = new QApplication(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    chooseFont();
    QApplication::setStyle(new DialogStyle);
    followColourScheme();
    loadTranslation();
    adopt(*application);
}

} // namespace

bool startApplication() {
    if (QCoreApplication::instance() == nullptr) {
        XConnection connection;
        std::optional<std::string> platform = usablePlatform(connection);
        if (!platform) platform = memoryPlatform();
        if (platform) startOwn(*platform);
        return platform.has_value();
    }
    auto* shared = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (shared == nullptr || QThread::currentThread() != shared->thread()) return false;
    adopt(*shared);
    return true;
}
