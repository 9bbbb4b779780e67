#include "shell/ui/services/settings_presenter.h"

#include "core/store/qt_words.h"
#include "core/words/system_words.h"
#include "shell/app_info.h"

namespace corvane {

SettingsPresenter::SettingsPresenter(StorageStore &store, Services &services, QObject *parent)
    : QObject(parent),
      m_store(store),
      m_defaults(*services.defaults()),
      m_api(*services.api()),
      m_updater(*services.updater())
{
    connect(&m_store, &StorageStore::accessChanged, this, &SettingsPresenter::accessChanged);
    connect(&m_defaults, &UserDefaults::crashReportModeChanged, this, &SettingsPresenter::crashChoiceChanged);
    connect(&m_updater, &AppUpdater::canCheckForUpdatesChanged, this, &SettingsPresenter::updatesChanged);
    connect(&m_updater, &AppUpdater::settingsChanged, this, &SettingsPresenter::updatesChanged);
}

void SettingsPresenter::setVisible(bool visible)
{
    if (m_visible == visible)
        return;
    m_visible = visible;
    if (m_visible)
        m_store.refreshAccess();
    emit visibleChanged();
}

// --- Updates

QString SettingsPresenter::installsText() const
{
    return displayText(m_store.words().automaticUpdates);
}

QString SettingsPresenter::versionText() const
{
    return QStringLiteral("Version ") + AppInfo::version();
}

void SettingsPresenter::checkForUpdates()
{
    if (!canCheckNow())
        return;
    emit mainWindowWanted();
    m_updater.checkForUpdates();
}

// --- Crash reports

QStringList SettingsPresenter::crashChoices()
{
    return {QStringLiteral("Ask me"), QStringLiteral("Send the report automatically"), QStringLiteral("Never send")};
}

int SettingsPresenter::crashChoice() const
{
    return static_cast<int>(m_defaults.crashReportMode());
}

void SettingsPresenter::setCrashChoice(int choice)
{
    if (choice >= 0 && choice <= static_cast<int>(UserDefaults::ReportMode::never))
        m_defaults.setCrashReportMode(static_cast<UserDefaults::ReportMode>(choice));
}

QString SettingsPresenter::crashExplanation() const
{
    return QStringLiteral("Crash reports contain technical details: ") +
           displayText(m_store.words().crashReportContent) +
           QStringLiteral(". They never include file contents, and they're sent only to ") + m_api.site().host() +
           QStringLiteral(" to fix bugs.");
}

// --- Setup and help

QString SettingsPresenter::accessTitle() const
{
    return displayText(m_store.words().accessTitle);
}

QString SettingsPresenter::accessStatus() const
{
    return isGranted() ? QStringLiteral("Granted") : QStringLiteral("Not granted");
}

void SettingsPresenter::showWelcome()
{
    emit mainWindowWanted();
    m_defaults.setDidOnboard(false);
}

void SettingsPresenter::sendFeedback()
{
    emit mainWindowWanted();
    m_store.setShowFeedback(true);
}

} // namespace corvane
