#include "shell/ui/linux/desktop_portal.h"

#include <QFileInfo>

namespace corvane {

QString portalService()
{
    return QStringLiteral("org.freedesktop.portal.Desktop");
}

QString portalObject()
{
    return QStringLiteral("/org/freedesktop/portal/desktop");
}

std::optional<QDBusConnection> runningSessionBus()
{
    if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") &&
        !QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus")))
        return std::nullopt;
    QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() ? std::optional(bus) : std::nullopt;
}

} // namespace corvane
