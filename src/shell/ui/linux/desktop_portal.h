#pragma once

#include <optional>

#include <QDBusConnection>
#include <QString>

namespace corvane {

/// The desktop portal's service name on the session bus.
[[nodiscard]] QString portalService();
[[nodiscard]] QString portalObject();

/// The session bus if it is already running; must not start one.
[[nodiscard]] std::optional<QDBusConnection> runningSessionBus();

} // namespace corvane
