#pragma once

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QProcess>
#include <QStandardPaths>

namespace corvane {

/// A session bus of the test's own, where the test itself is the desktop portal.
class SessionBusTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty())
            GTEST_SKIP() << "dbus-daemon is not installed";
        daemon.start(QStringLiteral("dbus-daemon"),
                     {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
        ASSERT_TRUE(daemon.waitForReadyRead());
        const QByteArray address = daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        QDBusConnection bus = QDBusConnection::connectToBus(QString::fromLatin1(address), QStringLiteral("portal"));
        ASSERT_TRUE(bus.isConnected());
        ASSERT_TRUE(bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
    }
    void TearDown() override
    {
        // The connection ends on a thread of its own, some time later: it must not look at the portal any more.
        portalBus().unregisterObject(portalPath);
        QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        daemon.kill();
        daemon.waitForFinished();
    }
    [[nodiscard]] static QDBusConnection portalBus() { return QDBusConnection(QStringLiteral("portal")); }

    const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
    QProcess daemon;
};

} // namespace corvane
