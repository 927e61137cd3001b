#include "platform/qt/colourScheme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
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

// What the desktop prefers, as every desktop tells it that has a portal; nothing where none answers at once.
std::optional<bool> desktopPrefersDark() {
    constexpr int patience = 250; // milliseconds
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return std::nullopt;
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
    question << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme");
    QDBusMessage reply = bus.call(question, QDBus::Block, patience);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return std::nullopt;
    // A value in a value: 0 no preference, 1 dark, 2 light.
    auto outer = qvariant_cast<QDBusVariant>(reply.arguments().constFirst());
    uint preference = qvariant_cast<QDBusVariant>(outer.variant()).variant().toUInt();
    if (preference == 0) return std::nullopt;
    return preference == 1;
}

bool isPaletteDark() {
    constexpr int darkest = 128;
    return QApplication::palette().color(QPalette::Window).lightness() < darkest;
}

bool wantsDark() {
    QString chosen = qEnvironmentVariable("KOLMA_COLOR_SCHEME");
    if (chosen == "dark" || chosen == "light") return chosen == "dark";
    bool isSeen = QGuiApplication::platformName() != "offscreen" && QGuiApplication::platformName() != "minimal";
    return (isSeen ? desktopPrefersDark() : std::nullopt).value_or(isPaletteDark());
}

} // namespace

void applyColourScheme() { QApplication::setPalette(paletteOf(wantsDark() ? dark : light)); }
