#include "shell/ui/services/settings_presenter.h"

#include "core/store/followed.h"
#include "core/store/qt_words.h"
#include "core/words/system_words.h"
#include "shell/app_info.h"

namespace corvane {

SettingsPresenter::SettingsPresenter(StorageStore &store, QObject *parent) : QObject(parent), m_store(store)
{
    connect(&m_store, &StorageStore::accessChanged, this, &SettingsPresenter::accessChanged);
}

void SettingsPresenter::setDefaults(UserDefaults *defaults)
{
    if (!followObject(m_defaults, defaults, this))
        return;
    if (m_defaults)
        connect(m_defaults, &UserDefaults::crashReportModeChanged, this, &SettingsPresenter::crashChoiceChanged);
    emit defaultsChanged();
    emit crashChoiceChanged();
}

void SettingsPresenter::setApi(API *api)
{
    if (m_api == api)
        return;
    m_api = api;
    emit apiChanged();
    emit explanationChanged();
}

void SettingsPresenter::setUpdater(AppUpdater *updater)
{
    if (!followObject(m_updater, updater, this))
        return;
    if (m_updater) {
        connect(m_updater, &AppUpdater::canCheckForUpdatesChanged, this, &SettingsPresenter::updatesChanged);
        connect(m_updater, &AppUpdater::settingsChanged, this, &SettingsPresenter::updatesChanged);
    }
    emit updaterChanged();
    emit updatesChanged();
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

void SettingsPresenter::setChecksAutomatically(bool automatically)
{
    if (m_updater)
        m_updater->setAutomaticallyChecksForUpdates(automatically);
}

void SettingsPresenter::setInstallsAutomatically(bool automatically)
{
    if (m_updater)
        m_updater->setAutomaticallyDownloadsUpdates(automatically);
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
    m_updater->checkForUpdates();
}

// --- Crash reports

QStringList SettingsPresenter::crashChoices()
{
    return {QStringLiteral("Ask me"), QStringLiteral("Send the report automatically"), QStringLiteral("Never send")};
}

int SettingsPresenter::crashChoice() const
{
    return static_cast<int>(m_defaults ? m_defaults->crashReportMode() : UserDefaults::ReportMode::ask);
}

void SettingsPresenter::setCrashChoice(int choice)
{
    if (m_defaults && choice >= 0 && choice <= static_cast<int>(UserDefaults::ReportMode::never))
        m_defaults->setCrashReportMode(static_cast<UserDefaults::ReportMode>(choice));
}

QString SettingsPresenter::crashExplanation() const
{
    if (!m_api)
        return {};
    return QStringLiteral("Crash reports contain technical details: ") +
           displayText(m_store.words().crashReportContent) +
           QStringLiteral(". They never include file contents, and they're sent only to ") + m_api->site().host() +
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
    if (m_defaults)
        m_defaults->setDidOnboard(false);
}

void SettingsPresenter::sendFeedback()
{
    emit mainWindowWanted();
    m_store.setShowFeedback(true);
}

} // namespace corvane
