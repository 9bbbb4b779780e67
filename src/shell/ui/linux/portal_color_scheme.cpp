// Linux: reads "color-scheme" from the desktop portal. On most desktops a plain Qt program gets a light palette
// regardless of the user's choice, which only the portal publishes.

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include "shell/ui/color_scheme_setting.h"
#include "shell/ui/linux/desktop_portal.h"

namespace corvane {

namespace {

const auto interface = QStringLiteral("org.freedesktop.portal.Settings");
const auto settingGroup = QStringLiteral("org.freedesktop.appearance");
const auto settingKey = QStringLiteral("color-scheme");

/// The value is wrapped in one variant or, from the older call, in two.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

class PortalColorScheme : public ColorSchemeSetting {
    Q_OBJECT

public:
    explicit PortalColorScheme(QDBusConnection bus)
    {
        // Qt 6.4 looks up the slot's types by name, which fails for this one until it is registered.
        qRegisterMetaType<QDBusVariant>();
        bus.connect(portalService(), portalObject(), interface, QStringLiteral("SettingChanged"), this,
                    SLOT(onSettingChanged(QString, QString, QDBusVariant)));

        QDBusMessage read =
            QDBusMessage::createMethodCall(portalService(), portalObject(), interface, QStringLiteral("Read"));
        read << settingGroup << settingKey;
        auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(read), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *call) {
            const QDBusPendingReply<QDBusVariant> reply = *call;
            // On error there is no portal, or it lacks this setting: the palette decides.
            if (!reply.isError())
                take(QVariant::fromValue(reply.value()));
            call->deleteLater();
        });
    }

    [[nodiscard]] ColorScheme scheme() const override { return m_scheme; }

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
        const uint number = unwrapped(value).toUInt();
        const ColorScheme scheme = number == 1   ? ColorScheme::dark
                                   : number == 2 ? ColorScheme::light
                                                 : ColorScheme::noPreference;
        if (scheme == m_scheme)
            return;
        m_scheme = scheme;
        emit changed();
    }

    ColorScheme m_scheme = ColorScheme::noPreference;
};

} // namespace

std::unique_ptr<ColorSchemeSetting> systemColorSchemeSetting()
{
    const std::optional<QDBusConnection> bus = runningSessionBus();
    return bus ? std::make_unique<PortalColorScheme>(*bus) : nullptr;
}

} // namespace corvane

#include "portal_color_scheme.moc"
