// Whether the desktop prefers light or dark, as every desktop tells it that has a portal.
#pragma once

#include <QObject>

#include <functional>
#include <optional>

class QDBusVariant;

class DesktopColourScheme : public QObject {
    Q_OBJECT

public:
    // `changed` is called when the user chooses another one; with nothing for no preference.
    DesktopColourScheme(std::function<void(std::optional<bool> prefersDark)> changed, QObject* parent);

    // Hears of changes from now on, where there is a desktop that tells of them.
    void listen();
    // Nothing for no preference, and where nobody answers at once.
    static std::optional<bool> prefersDark();

private slots:
    void settingChanged(const QString& group, const QString& name, const QDBusVariant& value);

private:
    std::function<void(std::optional<bool>)> changed_;
};
