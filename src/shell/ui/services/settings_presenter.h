#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include "shell/app_updater.h"
#include "shell/ui/services_registration.h"
#include "shell/ui/store_registration.h"
#include "shell/user_defaults.h"
#include "shell/web_service.h"

namespace corvane {

/// The contents of the settings window and its commands. Main thread only.
class SettingsPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// Whether the window is on screen.
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible NOTIFY visibleChanged)
    Q_PROPERTY(bool canUpdate READ canUpdate CONSTANT)
    Q_PROPERTY(bool canCheckNow READ canCheckNow NOTIFY updatesChanged)
    Q_PROPERTY(bool checksAutomatically READ checksAutomatically WRITE setChecksAutomatically NOTIFY updatesChanged)
    Q_PROPERTY(
        bool installsAutomatically READ installsAutomatically WRITE setInstallsAutomatically NOTIFY updatesChanged)
    Q_PROPERTY(QString installsText READ installsText CONSTANT)
    Q_PROPERTY(QString versionText READ versionText CONSTANT)
    Q_PROPERTY(QStringList crashChoices READ crashChoices CONSTANT)
    Q_PROPERTY(int crashChoice READ crashChoice WRITE setCrashChoice NOTIFY crashChoiceChanged)
    Q_PROPERTY(QString crashExplanation READ crashExplanation CONSTANT)
    Q_PROPERTY(QString accessTitle READ accessTitle CONSTANT)
    Q_PROPERTY(bool granted READ isGranted NOTIFY accessChanged)
    Q_PROPERTY(QString accessStatus READ accessStatus NOTIFY accessChanged)

public:
    explicit SettingsPresenter(StorageStore &store = StoreRegistration::store(),
                               Services &services = ServicesRegistration::services(), QObject *parent = nullptr);

    [[nodiscard]] bool isVisible() const { return m_visible; }
    /// Checks the access again when the window is shown.
    void setVisible(bool visible);

    [[nodiscard]] bool canUpdate() const { return m_updater.isConfigured(); }
    [[nodiscard]] bool canCheckNow() const { return m_updater.canCheckForUpdates(); }
    [[nodiscard]] bool checksAutomatically() const { return m_updater.automaticallyChecksForUpdates(); }
    void setChecksAutomatically(bool automatically) { m_updater.setAutomaticallyChecksForUpdates(automatically); }
    [[nodiscard]] bool installsAutomatically() const { return m_updater.automaticallyDownloadsUpdates(); }
    void setInstallsAutomatically(bool automatically) { m_updater.setAutomaticallyDownloadsUpdates(automatically); }
    /// The label of that setting. Only a Mac's updates are installed as well.
    [[nodiscard]] QString installsText() const;
    /// "Version 1.2.0"
    [[nodiscard]] QString versionText() const;

    /// In the order of `UserDefaults::ReportMode`.
    [[nodiscard]] static QStringList crashChoices();
    [[nodiscard]] int crashChoice() const;
    void setCrashChoice(int choice);
    /// What a crash report contains, and where it is sent.
    [[nodiscard]] QString crashExplanation() const;

    [[nodiscard]] QString accessTitle() const;
    [[nodiscard]] bool isGranted() const { return m_store.hasFullDiskAccess(); }
    [[nodiscard]] QString accessStatus() const;

    /// These three show something in the main window.
    Q_INVOKABLE void checkForUpdates();
    Q_INVOKABLE void showWelcome();
    Q_INVOKABLE void sendFeedback();

signals:
    void visibleChanged();
    void updatesChanged();
    void crashChoiceChanged();
    void accessChanged();
    /// Emitted when the result of a command is shown in the main window.
    void mainWindowWanted();

private:
    StorageStore &m_store;
    UserDefaults &m_defaults;
    API &m_api;
    AppUpdater &m_updater;
    bool m_visible = false;
};

} // namespace corvane
