#pragma once

#include <memory>

#include <QObject>
#include <QString>

#include "shell/update_controller.h"

namespace corvane {

/// Whether this build can update itself, whether a check can start now, and the user's two settings. Lives as long as
/// the program; main thread only.
class AppUpdater : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY canCheckForUpdatesChanged)

public:
    /// Whether updates work with this public key and feed address: both must be set, and the key must not be the
    /// placeholder, which begins with "REPLACE".
    [[nodiscard]] static bool isConfigured(const QString &publicKey, const QString &feedUrl);

    /// Starts the controller if `configured`; otherwise the controller is never called.
    AppUpdater(std::unique_ptr<UpdateController> controller, bool configured, QObject *parent = nullptr);
    ~AppUpdater() override;

    [[nodiscard]] bool canCheckForUpdates() const { return m_canCheckForUpdates; }
    [[nodiscard]] bool isConfigured() const { return m_isConfigured; }
    [[nodiscard]] bool automaticallyChecksForUpdates() const;
    void setAutomaticallyChecksForUpdates(bool automatically);
    [[nodiscard]] bool automaticallyDownloadsUpdates() const;
    void setAutomaticallyDownloadsUpdates(bool automatically);

    /// Does nothing while `canCheckForUpdates` is false.
    Q_INVOKABLE void checkForUpdates();

    [[nodiscard]] UpdateController &controller() { return *m_controller; }

signals:
    void canCheckForUpdatesChanged();
    void settingsChanged();

private:
    void followController();

    const std::unique_ptr<UpdateController> m_controller;
    const bool m_isConfigured;
    bool m_canCheckForUpdates = false;
};

} // namespace corvane
