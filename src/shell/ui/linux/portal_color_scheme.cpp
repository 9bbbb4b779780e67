// Linux: the "color-scheme" of the desktop portal. A plain Qt program gets a light palette on most desktops,
// whatever the user has chosen; the portal is where that choice is published.

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFileInfo>

#include "shell/ui/color_scheme_setting.h"

namespace corvane {

namespace {

const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto object = QStringLiteral("/org/freedesktop/portal/desktop");
const auto interface = QStringLiteral("org.freedesktop.portal.Settings");
const auto settingGroup = QStringLiteral("org.freedesktop.appearance");
const auto settingKey = QStringLiteral("color-scheme");

/// The setting's value lies in one variant or, from the older call, in two.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

class PortalColorScheme : public ColorSchemeSetting {
    Q_OBJECT

public:
    PortalColorScheme()
    {
        // Qt 6.4 looks the slot's types up by name and does not know this one until someone has asked for it.
        qRegisterMetaType<QDBusVariant>();
        QDBusConnection bus = QDBusConnection::sessionBus();
        bus.connect(service, object, interface, QStringLiteral("SettingChanged"), this,
                    SLOT(onSettingChanged(QString, QString, QDBusVariant)));

        QDBusMessage read = QDBusMessage::createMethodCall(service, object, interface, QStringLiteral("Read"));
        read << settingGroup << settingKey;
        auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(read), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *call) {
            const QDBusPendingReply<QDBusVariant> reply = *call;
            // No portal, or one without this setting: the palette decides.
            if (!reply.isError())
                take(QVariant::fromValue(reply.value()));
            call->deleteLater();
        });
    }

    [[nodiscard]] std::optional<bool> prefersDark() const override { return m_prefersDark; }

private slots:
    void onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value)
    {
        if (group == settingGroup && key == settingKey)
            take(QVariant::fromValue(value));
    }

private:
    void take(const QVariant &value)
    {
        // 1 is dark, 2 is light, 0 and anything later is no preference.
        const uint scheme = unwrapped(value).toUInt();
        const std::optional<bool> prefersDark = scheme == 1   ? std::optional(true)
                                                : scheme == 2 ? std::optional(false)
                                                              : std::nullopt;
        if (prefersDark == m_prefersDark)
            return;
        m_prefersDark = prefersDark;
        emit changed();
    }

    std::optional<bool> m_prefersDark;
};

/// Whether a session bus runs already: asking for it must not start one.
bool hasSessionBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

} // namespace

std::unique_ptr<ColorSchemeSetting> systemColorSchemeSetting()
{
    if (!hasSessionBus() || !QDBusConnection::sessionBus().isConnected())
        return nullptr;
    return std::make_unique<PortalColorScheme>();
}

} // namespace corvane

#include "portal_color_scheme.moc"
