#include "shell/app_updater.h"

#include <utility>

namespace corvane {

bool AppUpdater::isConfigured(const QString &publicKey, const QString &feedUrl)
{
    return !publicKey.isEmpty() && !publicKey.startsWith(QLatin1String("REPLACE")) && !feedUrl.isEmpty();
}

AppUpdater::AppUpdater(std::unique_ptr<UpdateController> controller, bool configured, QObject *parent)
    : QObject(parent), m_controller(std::move(controller)), m_isConfigured(configured)
{
    connect(m_controller.get(), &UpdateController::canCheckForUpdatesChanged, this, &AppUpdater::followController);
    connect(m_controller.get(), &UpdateController::settingsChanged, this, &AppUpdater::settingsChanged);
    if (m_isConfigured)
        m_controller->start();
    followController();
}

AppUpdater::~AppUpdater() = default;

void AppUpdater::followController()
{
    const bool can = m_isConfigured && m_controller->canCheckForUpdates();
    if (can == m_canCheckForUpdates)
        return;
    m_canCheckForUpdates = can;
    emit canCheckForUpdatesChanged();
}

bool AppUpdater::automaticallyChecksForUpdates() const
{
    return m_isConfigured && m_controller->automaticallyChecksForUpdates();
}

void AppUpdater::setAutomaticallyChecksForUpdates(bool automatically)
{
    if (!m_isConfigured || automatically == automaticallyChecksForUpdates())
        return;
    m_controller->setAutomaticallyChecksForUpdates(automatically);
    emit settingsChanged();
}

bool AppUpdater::automaticallyDownloadsUpdates() const
{
    return m_isConfigured && m_controller->automaticallyDownloadsUpdates();
}

void AppUpdater::setAutomaticallyDownloadsUpdates(bool automatically)
{
    if (!m_isConfigured || automatically == automaticallyDownloadsUpdates())
        return;
    m_controller->setAutomaticallyDownloadsUpdates(automatically);
    emit settingsChanged();
}

void AppUpdater::checkForUpdates()
{
    if (m_canCheckForUpdates)
        m_controller->checkForUpdates();
}

} // namespace corvane
