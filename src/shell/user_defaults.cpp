#include "shell/user_defaults.h"

#include <array>
#include <utility>

namespace corvane {

namespace {

constexpr QLatin1String didOnboardKey("didOnboard");
constexpr QLatin1String reportModeKey("crashReportMode");
constexpr QLatin1String lastCheckKey("crashReportLastCheck");

// Indexed by ReportMode.
constexpr std::array<const char *, 3> reportModes{"ask", "always", "never"};

} // namespace

UserDefaults::UserDefaults(std::unique_ptr<QSettings> settings, QObject *parent)
    : QObject(parent), m_settings(std::move(settings))
{
}

bool UserDefaults::didOnboard() const
{
    return flag(didOnboardKey);
}

void UserDefaults::setDidOnboard(bool did)
{
    if (did == didOnboard())
        return;
    setFlag(didOnboardKey, did);
    emit didOnboardChanged();
}

UserDefaults::ReportMode UserDefaults::crashReportMode() const
{
    const QString text = m_settings->value(reportModeKey).toString();
    for (std::size_t index = 0; index < reportModes.size(); ++index) {
        if (text == QLatin1String(reportModes[index]))
            return static_cast<ReportMode>(index);
    }
    return ReportMode::ask;
}

void UserDefaults::setCrashReportMode(ReportMode mode)
{
    if (mode == crashReportMode())
        return;
    m_settings->setValue(reportModeKey, QString::fromLatin1(reportModes[static_cast<std::size_t>(mode)]));
    m_settings->sync();
    emit crashReportModeChanged();
}

std::optional<QDateTime> UserDefaults::crashReportLastCheck() const
{
    return moment(lastCheckKey);
}

void UserDefaults::setCrashReportLastCheck(const QDateTime &when)
{
    setMoment(lastCheckKey, when);
}

bool UserDefaults::flag(const QString &key) const
{
    // Settings files store text; a property list returns real booleans.
    const QString text = m_settings->value(key).toString();
    return text == QLatin1String("true") || text == QLatin1String("1");
}

void UserDefaults::setFlag(const QString &key, bool value)
{
    m_settings->setValue(key, value);
    m_settings->sync();
}

std::optional<QDateTime> UserDefaults::moment(const QString &key) const
{
    const QDateTime when = m_settings->value(key).toDateTime();
    return when.isValid() ? std::optional(when) : std::nullopt;
}

void UserDefaults::setMoment(const QString &key, const QDateTime &when)
{
#ifdef Q_OS_MACOS
    m_settings->setValue(key, when);
#else
    m_settings->setValue(key, when.toUTC().toString(Qt::ISODateWithMs));
#endif
    m_settings->sync();
}

} // namespace corvane
