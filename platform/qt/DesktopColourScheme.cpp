#include "platform/qt/DesktopColourScheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

#include <utility>

namespace {

constexpr QLatin1StringView service("org.freedesktop.portal.Desktop");
constexpr QLatin1StringView path("/org/freedesktop/portal/desktop");
constexpr QLatin1StringView settings("org.freedesktop.portal.Settings");
constexpr QLatin1StringView appearance("org.freedesktop.appearance");
constexpr QLatin1StringView colourScheme("color-scheme");

// 0 no preference, 1 dark, 2 light.
std::optional<bool> meaningOf(const QVariant& value) {
    uint preference = value.toUInt();
    if (preference == 0) return std::nullopt;
    return preference == 1;
}

} // namespace

DesktopColourScheme::DesktopColourScheme(std::function<void(std::optional<bool>)> changed, QObject* parent)
    : QObject(parent), changed_(std::move(changed)) {}

void DesktopColourScheme::listen() {
    // The bus looks for the type by its name, which it may not know yet itself.
    qRegisterMetaType<QDBusVariant>();
    QDBusConnection::sessionBus().connect(service, path, settings, QStringLiteral("SettingChanged"), this,
                                          SLOT(settingChanged(QString, QString, QDBusVariant)));
}

std::optional<bool> DesktopColourScheme::prefersDark() {
    constexpr int patience = 250; // milliseconds
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return std::nullopt;
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, settings, QStringLiteral("Read"));
    question << QString(appearance) << QString(colourScheme);
    QDBusMessage reply = bus.call(question, QDBus::Block, patience);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return std::nullopt;
    // A value in a value.
    auto outer = qvariant_cast<QDBusVariant>(reply.arguments().constFirst());
    return meaningOf(qvariant_cast<QDBusVariant>(outer.variant()).variant());
}

void DesktopColourScheme::settingChanged(const QString& group, const QString& name, const QDBusVariant& value) {
    if (group == appearance && name == colourScheme) changed_(meaningOf(value.variant()));
}
