#include <gtest/gtest.h>

#include <QDBusVariant>
#include <QSignalSpy>
#include <QtTest/QtTest>

#include "shell/session_bus.h"
#include "shell/ui/color_scheme_setting.h"

namespace corvane {
namespace {

constexpr uint noPreference = 0;
constexpr uint preferDark = 1;
constexpr uint preferLight = 2;

/// The settings part of the desktop portal.
class FakePortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    uint scheme = noPreference;

public slots:
    QDBusVariant Read(const QString &group, const QString &key)
    {
        if (group != QStringLiteral("org.freedesktop.appearance") || key != QStringLiteral("color-scheme"))
            return {};
        return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme)));
    }

signals:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);
};

class PortalColorSchemeTest : public SessionBusTest {
protected:
    void SetUp() override
    {
        SessionBusTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        ASSERT_TRUE(portalBus().registerObject(portalPath, &portal,
                                               QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
    }

    FakePortal portal;
};

TEST_F(PortalColorSchemeTest, AnswersWhatThePortalSaysAndFollowsItsChanges)
{
    portal.scheme = preferDark;
    const std::unique_ptr<ColorSchemeSetting> setting = systemColorSchemeSetting();
    ASSERT_NE(setting, nullptr);
    EXPECT_EQ(setting->scheme(), ColorScheme::noPreference);
    QSignalSpy changed(setting.get(), &ColorSchemeSetting::changed);

    ASSERT_TRUE(QTest::qWaitFor([&] { return setting->scheme() == ColorScheme::dark; }));
    EXPECT_EQ(changed.count(), 1);

    emit portal.SettingChanged(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                               QDBusVariant(preferLight));
    ASSERT_TRUE(QTest::qWaitFor([&] { return setting->scheme() == ColorScheme::light; }));

    emit portal.SettingChanged(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                               QDBusVariant(noPreference));
    ASSERT_TRUE(QTest::qWaitFor([&] { return setting->scheme() == ColorScheme::noPreference; }));
    EXPECT_EQ(changed.count(), 3);

    // Another setting with such a value is ignored.
    emit portal.SettingChanged(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("contrast"),
                               QDBusVariant(preferDark));
    QTest::qWait(50);
    EXPECT_EQ(setting->scheme(), ColorScheme::noPreference);
}

TEST(ColorSchemeSetting, WithoutASessionBusThereIsNone)
{
    ASSERT_FALSE(qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"));
    EXPECT_EQ(systemColorSchemeSetting(), nullptr);
}

} // namespace
} // namespace corvane

#include "portal_color_scheme_test.moc"
