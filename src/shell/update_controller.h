#pragma once

#include <QObject>

namespace corvane {

class UpdateSession;

/// What finds and fetches updates: the update framework on macOS, a reader of the same feed elsewhere. Main thread
/// only.
class UpdateController : public QObject {
    Q_OBJECT

public:
    explicit UpdateController(QObject *parent = nullptr) : QObject(parent) {}

    /// Called once at launch, in a build that can be updated; nothing is fetched without it.
    virtual void start() = 0;

    [[nodiscard]] virtual bool canCheckForUpdates() const = 0; // canCheckForUpdatesChanged
    /// Looks for an update now and tells the user what came of it.
    virtual void checkForUpdates() = 0;

    /// Kept from run to run.
    [[nodiscard]] virtual bool automaticallyChecksForUpdates() const = 0;
    virtual void setAutomaticallyChecksForUpdates(bool automatically) = 0;
    [[nodiscard]] virtual bool automaticallyDownloadsUpdates() const = 0;
    virtual void setAutomaticallyDownloadsUpdates(bool automatically) = 0;

    /// What is to be shown of its checks, as long as it lives; null where it has windows of its own.
    [[nodiscard]] virtual UpdateSession *session() { return nullptr; }

signals:
    void canCheckForUpdatesChanged();
    /// One of the two settings has changed in another way than by its setter.
    void settingsChanged();
};

} // namespace corvane
