#include "platform/qt/colourScheme.h"

#include "platform/qt/DesktopColourScheme.h"
#include "platform/qt/Dialog.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>
#include <QPalette>

#include <optional>

namespace {

// Grounds, and what stands on them. The contrast of every text to its ground is at least 4.5 to 1, of disabled ones 3.
struct Scheme {
    QRgb window;
    QRgb base;
    QRgb alternate;
    QRgb button;
    QRgb text;
    QRgb disabled;
    QRgb highlight;
    QRgb highlightedText;
    QRgb tip;
    QRgb link;
};

constexpr Scheme light = {0xFFF0F0F0, 0xFFFFFFFF, 0xFFF5F5F5, 0xFFE6E6E6, 0xFF1A1A1A,
                          0xFF808080, 0xFF1F6FBF, 0xFFFFFFFF, 0xFFFFFFDC, 0xFF0B5CAD};
constexpr Scheme dark = {0xFF2B2B2B, 0xFF1E1E1E, 0xFF252525, 0xFF3A3A3A, 0xFFEDEDED,
                         0xFF8C8C8C, 0xFF3D85C6, 0xFFFFFFFF, 0xFF3A3A3A, 0xFF6CB2F2};

QPalette paletteOf(const Scheme& scheme) {
    QPalette palette{QColor(scheme.button), QColor(scheme.window)};
    palette.setColor(QPalette::Window, scheme.window);
    palette.setColor(QPalette::Base, scheme.base);
    palette.setColor(QPalette::AlternateBase, scheme.alternate);
    palette.setColor(QPalette::Highlight, scheme.highlight);
    palette.setColor(QPalette::HighlightedText, scheme.highlightedText);
    palette.setColor(QPalette::ToolTipBase, scheme.tip);
    palette.setColor(QPalette::Link, scheme.link);
    for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, scheme.text);
        palette.setColor(QPalette::Disabled, role, scheme.disabled);
    }
    palette.setColor(QPalette::PlaceholderText, scheme.disabled);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, scheme.disabled);
    return palette;
}

bool isPaletteDark() {
    constexpr int darkest = 128;
    return QApplication::palette().color(QPalette::Window).lightness() < darkest;
}

// As KOLMA_COLOR_SCHEME says; nothing where it says nothing.
std::optional<bool> chosenDark() {
    QString chosen = qEnvironmentVariable("KOLMA_COLOR_SCHEME");
    if (chosen != "dark" && chosen != "light") return std::nullopt;
    return chosen == "dark";
}

// Windows that nobody sees are no part of it.
bool hasDesktop() {
    bool isSeen = QGuiApplication::platformName() != "offscreen" && QGuiApplication::platformName() != "minimal";
    return isSeen || qEnvironmentVariable("KOLMA_COLOR_SCHEME") == "desktop";
}

void apply(bool isDark) { QApplication::setPalette(paletteOf(isDark ? dark : light)); }

// Widgets follow by themselves; programs are told.
void change(bool isDark) {
    apply(isDark);
    for (Window* window : Window::all())
        if (Dialog::of(window) != nullptr) qt::SendMessageW(window->handle(), WM_SYSCOLORCHANGE, 0, 0);
}

} // namespace

void followColourScheme() {
    if (std::optional<bool> isDark = chosenDark()) return apply(*isDark);
    bool usual = isPaletteDark();
    auto changed = [usual](std::optional<bool> prefersDark) { change(prefersDark.value_or(usual)); };
    auto* desktop = new DesktopColourScheme(changed, QCoreApplication::instance());
    if (hasDesktop()) desktop->listen();
    apply((hasDesktop() ? DesktopColourScheme::prefersDark() : std::nullopt).value_or(usual));
}
