#pragma once

#include <QObject>

namespace corvane {

class UpdateSession;

/// Finds and fetches updates: the update framework on macOS, our own reader of the same feed elsewhere. Main thread
/// only.
class UpdateController : public QObject {
    Q_OBJECT

public:
    explicit UpdateController(QObject *parent = nullptr) : QObject(parent) {}

    /// Called once at launch if the build is configured for updates; nothing is fetched before.
    virtual void start() = 0;

    [[nodiscard]] virtual bool canCheckForUpdates() const = 0; // canCheckForUpdatesChanged
    /// Checks for an update now and shows the user the result.
    virtual void checkForUpdates() = 0;

    /// Persistent.
    [[nodiscard]] virtual bool automaticallyChecksForUpdates() const = 0;
    virtual void setAutomaticallyChecksForUpdates(bool automatically) = 0;
    [[nodiscard]] virtual bool automaticallyDownloadsUpdates() const = 0;
    virtual void setAutomaticallyDownloadsUpdates(bool automatically) = 0;

    /// The checks to display, valid as long as this object; null if the controller has its own windows.
    [[nodiscard]] virtual UpdateSession *session() { return nullptr; }

signals:
    void canCheckForUpdatesChanged();
    /// One of the two settings was changed other than by its setter.
    void settingsChanged();
};

} // namespace corvane
