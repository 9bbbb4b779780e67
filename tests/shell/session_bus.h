#pragma once

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QProcess>
#include <QStandardPaths>

namespace corvane {

/// A private session bus, from `start` until this object is destroyed.
class SessionBus {
public:
    SessionBus() = default;
    SessionBus(const SessionBus &) = delete;
    SessionBus &operator=(const SessionBus &) = delete;
    ~SessionBus()
    {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    [[nodiscard]] static bool isInstalled()
    {
        return !QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty();
    }
    /// The address; empty if it cannot be started.
    QString start()
    {
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
        if (!m_daemon.waitForReadyRead())
            return {};
        const QByteArray address = m_daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        // Settings otherwise come from dconf, whose connection ends the process with SIGTERM when the bus goes.
        qputenv("GSETTINGS_BACKEND", "memory");
        return QString::fromLatin1(address);
    }

private:
    QProcess m_daemon;
};

/// With a session bus on which the test implements the desktop portal.
class SessionBusTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!SessionBus::isInstalled())
            GTEST_SKIP() << "dbus-daemon is not installed";
        const QString address = m_bus.start();
        ASSERT_FALSE(address.isEmpty());
        QDBusConnection bus = QDBusConnection::connectToBus(address, QStringLiteral("portal"));
        ASSERT_TRUE(bus.isConnected());
        ASSERT_TRUE(bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
    }
    void TearDown() override
    {
        // The connection is closed asynchronously on another thread, which must not access the portal by then.
        portalBus().unregisterObject(portalPath);
        QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
    }
    [[nodiscard]] static QDBusConnection portalBus() { return QDBusConnection(QStringLiteral("portal")); }

    const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");

private:
    SessionBus m_bus;
};

} // namespace corvane
