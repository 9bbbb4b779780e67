#pragma once

#include <string>

#include <QObject>
#include <QString>
#include <QUrl>

namespace corvane {

/// The state of a check for updates.
struct UpdateState {
    enum class Phase {
        idle,
        checking,
        upToDate,
        available,
        downloading,
        verifying, ///< downloaded; its signature is being checked
        ready,
        failed,
    };

    Phase phase = Phase::idle;
    bool isShown =
        false;       ///< whether it is shown to the user; an automatic check stays hidden until it has found an update
    QString version; ///< of the update
    QString runningVersion; ///< set in every phase
    qint64 size = -1;       ///< of the download in bytes; -1 if the feed does not say
    qint64 received = 0;    ///< bytes downloaded
    QUrl releaseNotes;      ///< empty if there are none
    std::string path;       ///< of the verified download
    bool isPackage = false; ///< the system's installer can open it
    QString failure;        ///< one line
};

/// Checks for updates, one at a time, up to a verified download and no further. Main thread only.
class UpdateSession : public QObject {
    Q_OBJECT

public:
    explicit UpdateSession(QObject *parent = nullptr) : QObject(parent) {}

    [[nodiscard]] virtual const UpdateState &state() const = 0; // stateChanged

    /// Downloads the available version; does nothing in any other phase.
    virtual void download() = 0;
    /// Returns to idle: cancels the current step and deletes a partial download.
    virtual void end() = 0;

signals:
    void stateChanged();
};

} // namespace corvane
