#pragma once

#include <optional>

#include <QDBusConnection>
#include <QString>

namespace corvane {

/// Where the desktop portal stands on the session bus.
[[nodiscard]] QString portalService();
[[nodiscard]] QString portalObject();

/// The session bus, if one runs already: asking for it must not start one.
[[nodiscard]] std::optional<QDBusConnection> runningSessionBus();

} // namespace corvane
